#ifndef TESTS_CORE_DIMENSION_PLAINQUERIES_H
#define TESTS_CORE_DIMENSION_PLAINQUERIES_H

#include <algorithm>
#include <cstddef>
#include <rapidcheck.h>
#include <string>
#include <vector>

#include <lakresvos/OmDimension.h>

#include "support/DimensionText.h"

// What a dimension says of its levels, from plain nodes that have children, and may be groups and
// hidden.

template <class PlainNode>
std::size_t PlainDepth(PlainNode const& node) {
  std::size_t depth = 0;
  for (auto const& child : node.children) {
    depth = std::max(depth, PlainDepth(*child) + 1);
  }
  return depth;
}

template <class PlainNode>
void PlainCounts(PlainNode const& node, std::size_t level, std::vector<unsigned long>& counts) {
  bool fired = false;
  for (auto const& child : node.children) {
    if (child->group && !child->hide) {
      ++counts[level + 1];
    } else if (!fired && child->children.empty()) {
      ++counts[level + 1];
      fired = true;
    }
    PlainCounts(*child, level + 1, counts);
  }
}

/// Compares what a dimension says of a subtree, a node of it and its plain copy.
template <class PlainNode>
void CheckSubtree(OmDimension const& dimension, OmDimension::ConstNode node,
                  PlainNode const& plain) {
  RC_ASSERT(dimension.getDepth(node) == node.depth + PlainDepth(plain));
  std::size_t const levels = dimension.getMaximumDepth();
  std::vector<unsigned long> expected(levels, 7);
  std::vector<unsigned long> counts = expected;
  PlainCounts(plain, node.depth, expected);
  dimension.getGroupCountsByLevel(node, counts);
  RC_ASSERT(counts == expected);
}

/// Compares what a dimension says of its levels, and a copy of it.
template <class PlainNode>
void CheckQueries(OmDimension const& dimension, PlainNode const& plain) {
  RC_ASSERT(dimension.getMaximumDepth() == PlainDepth(plain) + 1);
  CheckSubtree(dimension, dimension.Root(), plain);
  if (!plain.children.empty()) {
    CheckSubtree(dimension, dimension.Root().Child(0), *plain.children.front());
  }
  std::vector<unsigned long> counts(PlainDepth(plain) + 1);
  PlainCounts(plain, 0, counts);
  RC_ASSERT(dimension.getMaxVisibleGroupCount() == *std::max_element(counts.begin(), counts.end()));
  std::string text = TextOf(dimension);
  text.erase(std::remove(text.begin(), text.end(), '!'), text.end());
  RC_ASSERT(TextOf(OmDimension(dimension, nullptr)) == text);
}

#endif
