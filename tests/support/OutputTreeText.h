#ifndef TESTS_SUPPORT_OUTPUTTREETEXT_H
#define TESTS_SUPPORT_OUTPUTTREETEXT_H

#include <string>

#include <lakresvos/OmOutputTree.h>

/// "label@depth" for every element of a tree in order; "-" for an element without an item.
inline std::string TextOf(OmOutputTree& tree) {
  std::string text;
  for (OmOutputTree::Node node = tree.begin(); !node.AtEnd(); ++node) {
    OmOutputPart const* const part = node.Value();
    text +=
        (part == nullptr ? "-" : part->Label()->GetText()) + "@" + std::to_string(node.depth) + " ";
  }
  return text;
}

/// The first element whose label is `label`; the end position when there is none.
inline OmOutputTree::Node FindItem(OmOutputTree& tree, std::string const& label) {
  OmOutputTree::Node node = tree.begin();
  while (!node.AtEnd() && (node.Value() == nullptr || node.Value()->Label()->GetText() != label)) {
    ++node;
  }
  return node;
}

#endif
