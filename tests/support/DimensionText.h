#ifndef TESTS_SUPPORT_DIMENSIONTEXT_H
#define TESTS_SUPPORT_DIMENSIONTEXT_H

#include <sstream>
#include <string>
#include <vector>

#include <lakresvos/OmDimension.h>

/// The label, for comparing; "-" for none.
inline std::string LabelOf(OmDimensionNode const& node) {
  return node.label != nullptr ? node.label->GetText() : "-";
}

inline std::vector<unsigned int> IndexOf(OmDimensionNode const& node) {
  std::vector<unsigned int> entries;
  for (unsigned int const entry : node.childIndex.Elements()) {
    entries.push_back(entry);
  }
  return entries;
}

/// Everything that the nodes of a subtree hold, as one text; "!" marks a node that does not name
/// its parent. Recurses as deep as the tree.
inline std::string TextOf(OmDimension::Element const& element) {
  std::ostringstream text;
  OmDimensionNode const& node = element.value;
  text << LabelOf(node) << " " << static_cast<long>(node.subscript) << (node.group ? " group" : "")
       << (node.hide ? " hide" : "") << (node.hideLabels ? " hideLabels" : "") << " sort"
       << node.sort << " [";
  for (unsigned int const entry : node.childIndex.Elements()) {
    text << " " << entry;
  }
  text << " ] {";
  for (OmDimension::Element const& child : element.children.Elements()) {
    text << " " << (child.parent == &element ? "" : "!") << TextOf(child);
  }
  text << " }";
  return text.str();
}

/// The same for a whole dimension, with its category count.
inline std::string TextOf(OmDimension const& dimension) {
  OmDimension::Element const& root = dimension;
  return std::to_string(dimension.CategoryCount()) + ": " + TextOf(root);
}

#endif
