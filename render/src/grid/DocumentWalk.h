#ifndef LAKRESVOS_RENDER_GRID_DOCUMENTWALK_H
#define LAKRESVOS_RENDER_GRID_DOCUMENTWALK_H

#include <lakresvos/OmOutputPart.h>
#include <lakresvos/OmOutputTree.h>

namespace lakresvos::render {

/// Has a visitor visit all items of a document in order. Before each, `depth` becomes the item's.
inline void VisitAll(OmOutputTree& tree, OmOutputPart::Visitor& visitor, int& depth) {
  for (auto node = tree.begin(); !node.AtEnd(); ++node) {
    if (OmOutputPart* part = *node) {
      depth = node.depth;
      part->Accept(visitor);
    }
  }
}

}  // namespace lakresvos::render

#endif
