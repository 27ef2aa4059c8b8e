#include <gtest/gtest.h>

#include <lakresvos/OmPivotTable.h>

#include "core/table/OmPivotTableStoreNodes.h"

namespace {

// The root

TEST(OmPivotTableStore, HasNoRootBeforeTheFirstWrite) {
  TestTable table(2);
  EXPECT_EQ(table.data().cells, nullptr);
  (void)table.Cell({3, 3});
  table.deleteCell({0, 0});
  EXPECT_EQ(table.data().cells, nullptr);
}

TEST(OmPivotTableStore, OfOneDimensionHasTheCellsInItsRoot) {
  TestTable table(1);
  table.Put({2}, "cell");
  ExpectNode(table.data().cells, 3, 3, {2});
  EXPECT_EQ((*table.data().cells)[2], static_cast<void*>(table.Cell({2})));
}

TEST(OmPivotTableStore, IsIndexedFromTheLastDimensionToTheFirst) {
  TestTable table(3);
  table.Put({1, 2, 3}, "cell");
  Node const* const root = table.data().cells;
  ExpectNode(root, 4, 4, {3});
  ExpectNode(Below(root, 3), 3, 3, {2});
  Node const* const bottom = Below(Below(root, 3), 2);
  ExpectNode(bottom, 2, 2, {1});
  EXPECT_EQ((*bottom)[1], static_cast<void*>(table.Cell({1, 2, 3})));
}

TEST(OmPivotTableStore, AWriteAtFiveZeroMakesARootOfOneAndABottomOfSix) {
  TestTable table(2);
  table.Put({5, 0}, "cell");
  Node const* const root = table.data().cells;
  ExpectNode(root, 1, 4, {0});
  ExpectNode(Below(root, 0), 6, 6, {5});
}

TEST(OmPivotTableStore, NodesAndTheirEntriesComeFromTheTablesRegion) {
  TestTable table(2);
  table.Put({5, 1}, "cell");
  Node const* const root = table.data().cells;
  Node const* const bottom = Below(root, 1);
  for (Node const* node : {root, bottom}) {
    EXPECT_EQ(node->region, &table.data());
    EXPECT_EQ(OmMemoryRegion::FindOwner(node), &table.data());
    EXPECT_EQ(OmMemoryRegion::FindOwner(node->begin), &table.data());
  }
}

TEST(OmPivotTableStore, BranchesThatNothingIsStoredInAreAbsent) {
  TestTable table(3);
  table.Put({0, 0, 4}, "cell");
  EXPECT_EQ(Filled(table.data().cells), std::vector<std::size_t>{4});
}

// Growth

TEST(OmPivotTableStore, AppendingGrowsToFourAndThenByDoubling) {
  TestTable table(1);
  std::vector<std::size_t> capacities;
  for (int i = 0; i <= 16; ++i) {
    table.Put({i}, "cell");
    EXPECT_EQ(table.data().cells->size(), static_cast<std::size_t>(i) + 1);
    capacities.push_back(table.data().cells->capacity());
  }
  EXPECT_EQ(capacities,
            (std::vector<std::size_t>{4, 4, 4, 4, 8, 8, 8, 8, 16, 16, 16, 16, 16, 16, 16, 16, 32}));
}

TEST(OmPivotTableStore, ASubscriptInAnEmptyNodeIsReservedForExactly) {
  for (int const subscript : {1, 2, 3, 4, 7, 100}) {
    TestTable table(1);
    table.Put({subscript}, "cell");
    auto const entries = static_cast<std::size_t>(subscript) + 1;
    ExpectNode(table.data().cells, entries, entries, {entries - 1});
  }
}

TEST(OmPivotTableStore, ASubscriptOfTwiceTheCapacityGrowsByDoubling) {
  TestTable table(1);
  table.Put({0}, "first");
  table.Put({8}, "cell");
  ExpectNode(table.data().cells, 9, 16, {0, 8});
}

TEST(OmPivotTableStore, ASubscriptBeyondTwiceTheCapacityIsReservedForExactly) {
  TestTable table(1);
  table.Put({0}, "first");
  table.Put({9}, "cell");
  ExpectNode(table.data().cells, 10, 10, {0, 9});
}

TEST(OmPivotTableStore, AnExactlyReservedNodeGrowsToAPowerOfTwo) {
  TestTable table(1);
  table.Put({5}, "first");
  table.Put({6}, "cell");
  ExpectNode(table.data().cells, 7, 8, {5, 6});
}

TEST(OmPivotTableStore, AnExactlyReservedNodeIsMeasuredByItsCapacity) {
  TestTable table(1);
  table.Put({5}, "first");
  table.Put({12}, "twice the capacity");
  ExpectNode(table.data().cells, 13, 16, {5, 12});
  table.Put({33}, "more than twice");
  ExpectNode(table.data().cells, 34, 34, {5, 12, 33});
}

TEST(OmPivotTableStore, EveryLevelGrowsByItself) {
  TestTable table(3);
  table.Put({0, 0, 0}, "a");
  table.Put({8, 0, 0}, "b");
  table.Put({0, 9, 0}, "c");
  Node const* const root = table.data().cells;
  ExpectNode(root, 1, 4, {0});
  Node const* const middle = Below(root, 0);
  ExpectNode(middle, 10, 10, {0, 9});
  ExpectNode(Below(middle, 0), 9, 16, {0, 8});
  ExpectNode(Below(middle, 9), 1, 4, {0});
}

TEST(OmPivotTableStore, AWriteInsideTheExtentMovesNothing) {
  TestTable table(1);
  table.Put({5}, "last");
  void** const entries = table.data().cells->begin;
  table.Put({2}, "inside");
  EXPECT_EQ(table.data().cells->begin, entries);
  ExpectNode(table.data().cells, 6, 6, {2, 5});
}

TEST(OmPivotTableStore, OldBlocksGoBackToTheRegion) {
  TestTable grown(1);
  for (int i = 0; i <= 15; ++i) {
    grown.Clear({i});
  }
  TestTable exact(1);
  exact.Clear({15});
  ASSERT_EQ(grown.data().cells->capacity(), exact.data().cells->capacity());
  EXPECT_EQ(grown.data().BytesInUse(), exact.data().BytesInUse());
}

// Null cells

TEST(OmPivotTableStore, ANullCellMakesRoomAsACellDoes) {
  TestTable table(2);
  table.Clear({5, 0});
  Node const* const root = table.data().cells;
  ExpectNode(root, 1, 4, {0});
  ExpectNode(Below(root, 0), 6, 6, {});
}

TEST(OmPivotTableStore, ClearingLeavesTheSlotAndItsNodes) {
  TestTable table(2);
  table.Put({2, 1}, "cell");
  Node const* const bottom = Below(table.data().cells, 1);
  table.Clear({2, 1});
  EXPECT_EQ(Below(table.data().cells, 1), bottom);
  ExpectNode(table.data().cells, 2, 2, {1});
  ExpectNode(bottom, 3, 3, {});
}

// A new level

TEST(OmPivotTableStore, ANewLevelHasTheOldRootAsItsEntryZero) {
  TestTable table(1);
  table.Put({2}, "cell");
  Node* const before = table.data().cells;
  table.data().AddCellDimension();
  Node const* const root = table.data().cells;
  ExpectNode(root, 1, 4, {0});
  EXPECT_EQ(Below(root, 0), before);
  EXPECT_EQ(root->region, &table.data());
  EXPECT_EQ(OmMemoryRegion::FindOwner(root), &table.data());
  table.data()._dimensions.push_back(
      table.data().Make<OmDimension>(OmDimensionNode(nullptr), &table.data()).release());
  EXPECT_EQ(table.At({2, 0}), "cell");
}

TEST(OmPivotTableStore, ANewLevelNeedsAStore) {
  TestTable table(1);
  table.data().AddCellDimension();
  EXPECT_EQ(table.data().cells, nullptr);
}

TEST(OmPivotTableStore, AddingADimensionAddsALevel) {
  TestTable table(1);
  table.Put({2}, "cell");
  Node* const before = table.data().cells;
  table.AddDimension(Text("second"));
  ExpectNode(table.data().cells, 1, 4, {0});
  EXPECT_EQ(Below(table.data().cells, 0), before);
}

TEST(OmPivotTableStore, AddingADimensionBeforeTheFirstWriteMakesNoRoot) {
  TestTable table(1);
  table.AddDimension(Text("second"));
  EXPECT_EQ(table.data().cells, nullptr);
}

TEST(OmPivotTableStore, AnEmptiedStoreGetsANewLevelToo) {
  TestTable table(1);
  table.Put({2}, "cell");
  table.deleteCell({2});
  table.AddDimension(Text("second"));
  ExpectNode(table.data().cells, 1, 4, {0});
  ExpectNode(Below(table.data().cells, 0), 3, 3, {});
}

}  // namespace
