#include <gtest/gtest.h>

#include <lakresvos/OmPivotTable.h>

#include "core/table/OmPivotTableStoreNodes.h"

namespace {

TEST(OmPivotTablePruning, GivesBackABottomThatBecameEmpty) {
  TestTable table(2);
  table.Put({5, 1}, "cell");
  table.deleteCell({5, 1});
  ExpectNode(table.data().cells, 2, {});
}

TEST(OmPivotTablePruning, KeepsABottomThatHoldsAnotherCell) {
  TestTable table(2);
  table.Put({5, 1}, "cell");
  table.Put({2, 1}, "other");
  table.deleteCell({5, 1});
  ExpectNode(table.data().cells, 2, {1});
  ExpectNode(Below(table.data().cells, 1), 6, {2});
}

TEST(OmPivotTablePruning, GivesBackAWholeBranch) {
  TestTable table(4);
  table.Put({1, 1, 1, 1}, "cell");
  table.Put({0, 0, 0, 0}, "other");
  table.deleteCell({1, 1, 1, 1});
  ExpectNode(table.data().cells, 2, {0});
}

TEST(OmPivotTablePruning, StopsAtANodeThatHoldsAnotherBranch) {
  TestTable table(4);
  table.Put({1, 1, 1, 1}, "cell");
  table.Put({1, 1, 2, 1}, "other");
  table.deleteCell({1, 1, 1, 1});
  Node const* const root = table.data().cells;
  ExpectNode(root, 2, {1});
  ExpectNode(Below(root, 1), 3, {2});
}

TEST(OmPivotTablePruning, StopsAtANodeInTheMiddleOfTheBranch) {
  TestTable table(4);
  table.Put({0, 0, 0, 0}, "cell");
  table.Put({0, 1, 0, 0}, "other");
  table.deleteCell({0, 0, 0, 0});
  Node const* const middle = Below(Below(table.data().cells, 0), 0);
  ExpectNode(middle, 2, {1});
  EXPECT_EQ(table.At({0, 1, 0, 0}), "other");
}

TEST(OmPivotTablePruning, NeverGivesBackTheRoot) {
  TestTable one(1);
  one.Put({2}, "cell");
  one.deleteCell({2});
  ExpectNode(one.data().cells, 3, {});

  TestTable three(3);
  three.Put({0, 0, 0}, "cell");
  three.deleteCell({0, 0, 0});
  ExpectNode(three.data().cells, 1, {});
}

TEST(OmPivotTablePruning, ReturnsTheMemory) {
  TestTable table(4);
  table.Clear({0, 0, 0, 0});
  table.Clear({0, 0, 0, 1});
  unsigned long const before = table.data().BytesInUse();
  table.Put({3, 4, 5, 2}, "cell");
  EXPECT_GT(table.data().BytesInUse(), before);
  table.deleteCell({3, 4, 5, 2});
  EXPECT_EQ(table.data().BytesInUse(), before);
}

TEST(OmPivotTablePruning, DeletingAClearedSlotPrunes) {
  TestTable table(2);
  table.Put({1, 1}, "cell");
  table.Clear({1, 1});
  table.deleteCell({1, 1});
  ExpectNode(table.data().cells, 2, {});
}

TEST(OmPivotTablePruning, TakesABottomWithClearedSlotsAsEmpty) {
  TestTable table(2);
  table.Put({1, 1}, "cell");
  table.Put({2, 1}, "other");
  table.Clear({2, 1});
  table.deleteCell({1, 1});
  ExpectNode(table.data().cells, 2, {});
}

TEST(OmPivotTablePruning, LeavesClearedBranchesBesideThePathAlone) {
  TestTable table(3);
  table.Clear({0, 0, 0});
  table.Put({0, 1, 0}, "cell");
  table.deleteCell({0, 1, 0});
  Node const* const root = table.data().cells;
  ExpectNode(root, 1, {0});
  ExpectNode(Below(root, 0), 2, {0});
}

TEST(OmPivotTablePruning, DeletingOutsideTheStorePrunesNothing) {
  TestTable table(2);
  table.Clear({1, 1});
  table.deleteCell({2, 1});
  ExpectNode(table.data().cells, 2, {1});
}

TEST(OmPivotTablePruning, APrunedBranchGrowsAnew) {
  TestTable table(2);
  table.Put({100, 0}, "cell");
  table.deleteCell({100, 0});
  table.Put({0, 0}, "cell");
  ExpectNode(Below(table.data().cells, 0), 1, {0});
}

}  // namespace
