#ifndef TESTS_CORE_TABLE_OMPIVOTTABLESTORENODES_H
#define TESTS_CORE_TABLE_OMPIVOTTABLESTORENODES_H

#include <cstddef>
#include <gtest/gtest.h>
#include <vector>

#include "core/table/OmPivotTableFixture.h"
#include "table/OmPivotTablePointerVector.h"

/// A node of the cell store.
using Node = OmPivotTable::PointerVector;

inline Node* Below(Node const* node, std::size_t entry) {
  return Node::FromEntry(node->Entry(entry));
}

/// The positions of a node's entries that are not null.
inline std::vector<std::size_t> Filled(Node const* node) {
  std::vector<std::size_t> positions;
  for (std::size_t i = 0; i < node->size(); ++i) {
    if (node->Entry(i) != nullptr) {
      positions.push_back(i);
    }
  }
  return positions;
}

/// Checks size and the positions that are not null.
inline void ExpectNode(Node const* node, std::size_t size, std::vector<std::size_t> const& filled) {
  ASSERT_NE(node, nullptr);
  EXPECT_EQ(node->size(), size);
  EXPECT_EQ(node->CountFilled(), filled.size());
  EXPECT_EQ(Filled(node), filled);
}

#endif
