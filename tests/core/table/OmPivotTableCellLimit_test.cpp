#include <climits>
#include <gtest/gtest.h>

#include <lakresvos/OmPivotTable.h>

#include "core/table/OmPivotTableFixture.h"

namespace {

void Limit(OmPivotTable& table, int cells) {
  BackendSettings settings;
  settings.setMaxCells(cells);
  settings.setFastTables(false);
  table.setBackendSettings(settings);
}

TEST(OmPivotTableCellLimit, EveryWriteIsCountedWhateverBecomesOfIt) {
  TestTable table(1);
  EXPECT_EQ(table.getNumCells(), 0);
  table.Put({0}, "first");
  table.Put({0}, "again");
  EXPECT_EQ(table.getNumCells(), 2);
  table.Clear({0});
  EXPECT_EQ(table.getNumCells(), 3);
  EXPECT_THROW(table.Put({0, 0}, "cell"), OMSException);
  EXPECT_THROW(table.Put({-1}, "cell"), OMSException);
  EXPECT_EQ(table.getNumCells(), 5);
}

TEST(OmPivotTableCellLimit, MoreWritesThanAnIntegerCountsWrapAround) {
  TestTable table(1);
  table.data().numCells = INT_MAX - 1;
  for (int const count : {INT_MAX, INT_MIN, INT_MIN + 1}) {
    EXPECT_TRUE(table.Put({0}, "cell"));
    EXPECT_EQ(table.getNumCells(), count);
  }
  EXPECT_FALSE(table.IsScratched());
}

TEST(OmPivotTableCellLimit, BothFormsOfWritingCountOnce) {
  TestTable table(1);
  OmStringCell const text("cell");
  table.Cell({0}, text);
  EXPECT_EQ(table.getNumCells(), 1);
  table.Cell({0}, &text);
  EXPECT_EQ(table.getNumCells(), 2);
}

TEST(OmPivotTableCellLimit, AWriteWithoutDimensionsIsCounted) {
  TestTable table;
  EXPECT_THROW(table.Put({}, "cell"), OMSException);
  EXPECT_EQ(table.getNumCells(), 1);
}

TEST(OmPivotTableCellLimit, ReadingAndDeletingDoNotCount) {
  TestTable table(1);
  table.Put({0}, "cell");
  (void)table.Cell({0});
  table.deleteCell({0});
  EXPECT_EQ(table.getNumCells(), 1);
}

TEST(OmPivotTableCellLimit, TheLimitIsComparedWithTheCountBeforeTheWrite) {
  TestTable table(1);
  Limit(table, 2);
  EXPECT_TRUE(table.Put({0}, "a"));
  EXPECT_TRUE(table.Put({1}, "b"));
  EXPECT_TRUE(table.Put({2}, "c"));
  EXPECT_FALSE(table.IsScratched());
  EXPECT_FALSE(table.Put({3}, "d"));
  EXPECT_TRUE(table.IsScratched());
  EXPECT_EQ(table.getNumCells(), 4);
  EXPECT_EQ(table.At({3}), "(none)");
}

TEST(OmPivotTableCellLimit, EveryLaterWriteFails) {
  TestTable table(1);
  Limit(table, 0);
  EXPECT_TRUE(table.Put({0}, "a"));
  for (int i = 1; i < 5; ++i) {
    EXPECT_FALSE(table.Put({i}, "b"));
    EXPECT_EQ(table.getNumCells(), i + 1);
  }
}

TEST(OmPivotTableCellLimit, ANegativeLimitRefusesTheFirstWrite) {
  TestTable table(1);
  Limit(table, -1);
  EXPECT_FALSE(table.Put({0}, "a"));
  EXPECT_TRUE(table.IsScratched());
  EXPECT_EQ(table.data().cells, nullptr);
}

TEST(OmPivotTableCellLimit, ClearingPastTheLimitFailsAndKeepsTheCell) {
  TestTable table(1);
  Limit(table, 0);
  table.Put({0}, "a");
  EXPECT_FALSE(table.Clear({0}));
  EXPECT_EQ(table.At({0}), "a");
}

TEST(OmPivotTableCellLimit, ReplacingPastTheLimitFailsAndKeepsTheCell) {
  TestTable table(1);
  Limit(table, 0);
  table.Put({0}, "a");
  EXPECT_FALSE(table.Put({0}, "b"));
  EXPECT_EQ(table.At({0}), "a");
}

TEST(OmPivotTableCellLimit, TheLimitIsTestedBeforeTheIndex) {
  TestTable table(1);
  Limit(table, -1);
  EXPECT_FALSE(table.Put({0, 0}, "wrong size"));
  EXPECT_FALSE(table.Put({-1}, "negative"));
  EXPECT_EQ(table.getNumCells(), 2);
}

TEST(OmPivotTableCellLimit, TheLimitIsTestedBeforeTheDimensions) {
  TestTable table;
  Limit(table, -1);
  EXPECT_FALSE(table.Put({}, "no dimensions"));
}

TEST(OmPivotTableCellLimit, WhatWasStoredCanBeReadAndWalked) {
  TestTable table(1);
  Limit(table, 0);
  table.Put({0}, "a");
  table.Put({1}, "b");
  EXPECT_EQ(table.At({0}), "a");
  EXPECT_EQ(table.Walk(), (Walked{{{0}, "a"}}));
}

TEST(OmPivotTableCellLimit, ARaisedLimitLetsWritesSucceedAgain) {
  TestTable table(1);
  Limit(table, 0);
  table.Put({0}, "a");
  EXPECT_FALSE(table.Put({1}, "b"));
  Limit(table, 100);
  EXPECT_TRUE(table.Put({1}, "b"));
  EXPECT_EQ(table.At({1}), "b");
  EXPECT_TRUE(table.IsScratched());
}

TEST(OmPivotTableCellLimit, AMarkSetByHandStopsNoWrite) {
  TestTable table(1);
  table.Scratch(true);
  EXPECT_TRUE(table.Put({0}, "a"));
  EXPECT_EQ(table.At({0}), "a");
}

TEST(OmPivotTableCellLimit, ThereIsNoLimitByDefault) {
  TestTable table(1);
  table.data().numCells = INT_MAX - 1;
  EXPECT_TRUE(table.Put({0}, "a"));
  EXPECT_TRUE(table.Put({1}, "b"));
  EXPECT_FALSE(table.IsScratched());
}

}  // namespace
