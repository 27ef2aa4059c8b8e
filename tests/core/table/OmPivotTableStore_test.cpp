#include <gtest/gtest.h>
#include <limits>

#include <cells/OmNumber.h>
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
  ExpectNode(table.data().cells, 3, {2});
  EXPECT_EQ(table.data().cells->Entry(2), static_cast<void*>(table.Cell({2})));
}

TEST(OmPivotTableStore, IsIndexedFromTheLastDimensionToTheFirst) {
  TestTable table(3);
  table.Put({1, 2, 3}, "cell");
  Node const* const root = table.data().cells;
  ExpectNode(root, 4, {3});
  ExpectNode(Below(root, 3), 3, {2});
  Node const* const bottom = Below(Below(root, 3), 2);
  ExpectNode(bottom, 2, {1});
  EXPECT_EQ(bottom->Entry(1), static_cast<void*>(table.Cell({1, 2, 3})));
}

TEST(OmPivotTableStore, AWriteAtFiveZeroMakesARootOfOneAndABottomOfSix) {
  TestTable table(2);
  table.Put({5, 0}, "cell");
  Node const* const root = table.data().cells;
  ExpectNode(root, 1, {0});
  ExpectNode(Below(root, 0), 6, {5});
}

TEST(OmPivotTableStore, NodesComeFromTheTablesRegion) {
  TestTable table(2);
  table.Put({5, 1}, "cell");
  Node const* const root = table.data().cells;
  for (Node const* node : {root, static_cast<Node const*>(Below(root, 1))}) {
    EXPECT_EQ(OmMemoryRegion::FindOwner(node), &table.data());
  }
}

TEST(OmPivotTableStore, BranchesThatNothingIsStoredInAreAbsent) {
  TestTable table(3);
  table.Put({0, 0, 4}, "cell");
  EXPECT_EQ(Filled(table.data().cells), std::vector<std::size_t>{4});
}

// Growth

TEST(OmPivotTableStore, AppendingMakesANodeLonger) {
  TestTable table(1);
  for (int i = 0; i <= 16; ++i) {
    table.Put({i}, "cell");
    EXPECT_EQ(table.data().cells->size(), static_cast<std::size_t>(i) + 1);
  }
}

TEST(OmPivotTableStore, ANodeEndsAtTheLargestSubscript) {
  for (int const subscript : {1, 2, 3, 4, 7, 100, 1000000, std::numeric_limits<int>::max()}) {
    TestTable table(1);
    table.Put({subscript}, "cell");
    EXPECT_EQ(table.data().cells->size(), static_cast<std::size_t>(subscript) + 1);
    EXPECT_EQ(table.data().cells->CountFilled(), 1U);
    EXPECT_EQ(table.At({subscript}), "cell");
    EXPECT_LT(table.data().BytesInUse(), 1000U);
  }
}

TEST(OmPivotTableStore, EveryLevelGrowsByItself) {
  TestTable table(3);
  table.Put({0, 0, 0}, "a");
  table.Put({8, 0, 0}, "b");
  table.Put({0, 9, 0}, "c");
  Node const* const root = table.data().cells;
  ExpectNode(root, 1, {0});
  Node const* const middle = Below(root, 0);
  ExpectNode(middle, 10, {0, 9});
  ExpectNode(Below(middle, 0), 9, {0, 8});
  ExpectNode(Below(middle, 9), 1, {0});
}

TEST(OmPivotTableStore, ADiagonalTakesMemoryForItsCellsAlone) {
  constexpr int kSide = 100000;
  TestTable table(2);
  for (int i = 0; i < kSide; ++i) {
    table.Cell({i, i}, OmNumber(i));
  }
  EXPECT_LE(table.data().BytesReserved(), 200UL * kSide);
  int walked = 0;
  for (auto at = table.FirstCell(); at.Cell() != nullptr; ++at) {
    ++walked;
  }
  EXPECT_EQ(walked, kSide);
}

TEST(OmPivotTableStore, CellsFarFromOneAnotherTakeNoMoreMemory) {
  TestTable table(3);
  for (int i = 0; i < 31; ++i) {
    table.Cell({1 << i, (1 << i) - 1, 1 << (30 - i)}, OmNumber(i));
  }
  EXPECT_LE(table.data().BytesInUse(), 31 * 250UL);
  EXPECT_EQ(table.At({1 << 30, (1 << 30) - 1, 1}), "30");
}

// Null cells

TEST(OmPivotTableStore, ANullCellMakesRoomAsACellDoes) {
  TestTable table(2);
  table.Clear({5, 0});
  Node const* const root = table.data().cells;
  ExpectNode(root, 1, {0});
  ExpectNode(Below(root, 0), 6, {});
}

TEST(OmPivotTableStore, ClearingLeavesTheSlotAndItsNodes) {
  TestTable table(2);
  table.Put({2, 1}, "cell");
  Node const* const bottom = Below(table.data().cells, 1);
  table.Clear({2, 1});
  EXPECT_EQ(Below(table.data().cells, 1), bottom);
  ExpectNode(table.data().cells, 2, {1});
  ExpectNode(bottom, 3, {});
}

// A new level

TEST(OmPivotTableStore, ANewLevelHasTheOldRootAsItsEntryZero) {
  TestTable table(1);
  table.Put({2}, "cell");
  Node* const before = table.data().cells;
  table.data().AddCellDimension();
  Node const* const root = table.data().cells;
  ExpectNode(root, 1, {0});
  EXPECT_EQ(Below(root, 0), before);
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
  ExpectNode(table.data().cells, 1, {0});
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
  ExpectNode(table.data().cells, 1, {0});
  ExpectNode(Below(table.data().cells, 0), 3, {});
}

}  // namespace
