#ifndef LAKRESVOS_RENDER_GRID_DOCUMENTWALK_H
#define LAKRESVOS_RENDER_GRID_DOCUMENTWALK_H

#include <cstddef>

#include <lakresvos/OmOutputPart.h>
#include <lakresvos/OmOutputTree.h>

namespace lakresvos::render {

/// Has a visitor visit all items of a document in order. Before each, `depth` becomes the item's
/// and `number` its place in the document, counted from 0; places without an item count.
inline void VisitAll(OmOutputTree const& tree, OmOutputPart::Visitor& visitor, int& depth,
                     std::size_t& number) {
  number = 0;
  for (OmOutputTree::Element const& element : tree.Elements()) {
    if (element.value != nullptr) {
      depth = element.depth;
      element.value->Accept(visitor);
    }
    ++number;
  }
}

/// As above, for visitors that do not need the number.
inline void VisitAll(OmOutputTree const& tree, OmOutputPart::Visitor& visitor, int& depth) {
  std::size_t number = 0;
  VisitAll(tree, visitor, depth, number);
}

}  // namespace lakresvos::render

#endif
