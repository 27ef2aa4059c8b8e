#include <climits>
#include <gtest/gtest.h>

#include <lakresvos/OmPivotTable.h>

#include "core/table/OmPivotTableFixture.h"
#include "support/faults/FailingNew.h"

namespace {

TEST(OmPivotTableDeleteCell, RemovesTheCellAlone) {
  TestTable table(2);
  table.Put({0, 0}, "a");
  table.Put({1, 0}, "b");
  table.Put({0, 1}, "c");
  table.deleteCell({0, 0});
  EXPECT_EQ(table.Walk(), (Walked{{{1, 0}, "b"}, {{0, 1}, "c"}}));
}

TEST(OmPivotTableDeleteCell, TheSlotCanBeFilledAgain) {
  TestTable table(3);
  table.Put({1, 2, 3}, "first");
  table.deleteCell({1, 2, 3});
  EXPECT_EQ(table.At({1, 2, 3}), "(none)");
  table.Put({1, 2, 3}, "second");
  EXPECT_EQ(table.At({1, 2, 3}), "second");
}

TEST(OmPivotTableDeleteCell, DeletingTwiceDoesNothingMore) {
  TestTable table(2);
  table.Put({0, 0}, "a");
  table.Put({1, 1}, "b");
  table.deleteCell({0, 0});
  table.deleteCell({0, 0});
  EXPECT_EQ(table.Walk(), (Walked{{{1, 1}, "b"}}));
}

TEST(OmPivotTableDeleteCell, DoesNothingInAnEmptyTable) {
  TestTable table(2);
  table.deleteCell({0, 0});
  EXPECT_EQ(table.data().cells, nullptr);
  EXPECT_EQ(table.getNumCells(), 0);
}

TEST(OmPivotTableDeleteCell, DoesNothingOutsideTheStore) {
  TestTable table(2);
  table.Put({1, 1}, "cell");
  for (Index const& index : {Index{0, 0}, Index{2, 1}, Index{1, 2}, Index{INT_MAX, 1},
                             Index{1, INT_MAX}, Index{50, 50}}) {
    table.deleteCell(index);
  }
  EXPECT_EQ(table.Walk(), (Walked{{{1, 1}, "cell"}}));
}

TEST(OmPivotTableDeleteCell, DoesNothingForNegativeSubscripts) {
  TestTable table(2);
  table.Put({1, 1}, "cell");
  for (Index const& index : {Index{-1, 1}, Index{1, -1}, Index{INT_MIN, INT_MIN}}) {
    table.deleteCell(index);
  }
  EXPECT_EQ(table.At({1, 1}), "cell");
}

TEST(OmPivotTableDeleteCell, DoesNothingForNegativeSubscriptsWhereACellWasDeleted) {
  TestTable table(2);
  table.Put({0, 1000}, "kept");
  table.Put({0, 2000}, "gone");
  table.deleteCell({0, 2000});
  table.deleteCell({0, -1});
  table.deleteCell({-1, 1000});
  EXPECT_EQ(table.Walk(), (Walked{{{0, 1000}, "kept"}}));
}

TEST(OmPivotTableDeleteCell, DoesNothingForTheWrongNumberOfSubscripts) {
  TestTable table(2);
  table.Put({0, 0}, "cell");
  for (Index const& index : {Index{}, Index{0}, Index{0, 0, 0}}) {
    table.deleteCell(index);
  }
  EXPECT_EQ(table.At({0, 0}), "cell");
}

TEST(OmPivotTableDeleteCell, DoesNothingWithoutDimensions) {
  TestTable table;
  table.deleteCell({});
  table.deleteCell({0});
  EXPECT_EQ(table.NDimensions(), 0);
}

TEST(OmPivotTableDeleteCell, AllocatesNothing) {
  TestTable table(3);
  table.Put({1, 2, 3}, "cell");
  Index const index{1, 2, 3};
  {
    FailAfter const failing(1);
    table.deleteCell(index);
  }
  EXPECT_EQ(table.At(index), "(none)");
}

}  // namespace
