#include <gtest/gtest.h>

#include <lakresvos/OmPivotTable.h>

#include "core/table/OmPivotTableFixture.h"

namespace {

using Axis = std::vector<short>;

constexpr char const* kMismatch = "OmPivotTable::Data::ReindexAxis() -- ndim != nCount";

void PlaceAll(TestTable& table, Axis const& rows, Axis const& columns, Axis const& layers = {}) {
  TestTable::Place(table.Rows(), rows);
  TestTable::Place(table.Columns(), columns);
  TestTable::Place(table.Layers(), layers);
}

void ExpectAxes(TestTable const& table, Axis const& rows, Axis const& columns,
                Axis const& layers = {}) {
  EXPECT_EQ(table.Rows().elements, rows);
  EXPECT_EQ(table.Columns().elements, columns);
  EXPECT_EQ(table.Layers().elements, layers);
}

TEST(OmPivotTableAxes, NewAxesAreEmptyAndTheirPuppetIsMinusOne) {
  TestTable const table;
  for (PuppetVector<short> const* axis : {&table.Rows(), &table.Columns(), &table.Layers()}) {
    EXPECT_TRUE(axis->empty());
    EXPECT_EQ(axis->puppet, -1);
    EXPECT_EQ((*axis)[0], -1);
  }
}

TEST(OmPivotTableAxes, BothFormsOfAccessGiveTheSameAxis) {
  TestTable table;
  OmPivotTable const& reader = table;
  EXPECT_EQ(&reader.Rows(), &table.Rows());
  EXPECT_EQ(&reader.Columns(), &table.Columns());
  EXPECT_EQ(&reader.Layers(), &table.Layers());
}

TEST(OmPivotTableAxes, TheThreeAxesAreDistinct) {
  TestTable table(3);
  table.Rows().push_back(0);
  table.Columns().push_back(1);
  table.Layers().push_back(2);
  ExpectAxes(table, {0}, {1}, {2});
}

TEST(OmPivotTableAxes, AWriteFarOutLeavesPuppetsBefore) {
  TestTable table(1);
  table.Rows()[2] = 0;
  ExpectAxes(table, {-1, -1, 0}, {});
  table.EndTable();
  ExpectAxes(table, {0}, {});
}

TEST(OmPivotTableAxes, HasSplitsIsWhatTheConstructorWasGiven) {
  EXPECT_TRUE(OmPivotTable(Text("label"), Text("name"), true).HasSplits());
  EXPECT_FALSE(OmPivotTable(Text("label"), Text("name"), false).HasSplits());
}

TEST(OmPivotTableAxes, EndingDropsAnUnsetRowEntry) {
  TestTable table(2);
  PlaceAll(table, {0, -1}, {1});
  table.EndTable();
  ExpectAxes(table, {0}, {1});
}

TEST(OmPivotTableAxes, EndingDropsAnUnsetEntryBetweenOthers) {
  TestTable table(2);
  PlaceAll(table, {0, -1, 1}, {});
  table.EndTable();
  ExpectAxes(table, {0, 1}, {});
}

TEST(OmPivotTableAxes, EndingRefusesAMissingDimension) {
  TestTable table(2);
  PlaceAll(table, {0}, {});
  EXPECT_TRUE(Throws([&] { table.EndTable(); }, kMismatch, 2, 1));
}

TEST(OmPivotTableAxes, EndingRefusesADimensionTooMany) {
  TestTable table(2);
  PlaceAll(table, {0, 1}, {1});
  EXPECT_TRUE(Throws([&] { table.EndTable(); }, kMismatch, 2, 3));
}

TEST(OmPivotTableAxes, TheCountInTheErrorLeavesUnsetEntriesOut) {
  TestTable table(3);
  PlaceAll(table, {0, -1}, {-1}, {-1, 1});
  EXPECT_TRUE(Throws([&] { table.EndTable(); }, kMismatch, 3, 2));
}

TEST(OmPivotTableAxes, ARefusedEndLeavesTheAxesAlone) {
  TestTable table(3);
  PlaceAll(table, {0, -1}, {-1}, {-1, 1});
  EXPECT_THROW(table.EndTable(), OMSException);
  ExpectAxes(table, {0, -1}, {-1}, {-1, 1});
}

TEST(OmPivotTableAxes, ATableCanBeEndedAfterARefusal) {
  TestTable table(2);
  PlaceAll(table, {-1, 0, -1}, {});
  EXPECT_THROW(table.EndTable(), OMSException);
  table.Columns().push_back(1);
  table.EndTable();
  ExpectAxes(table, {0}, {1});
}

TEST(OmPivotTableAxes, EndingKeepsUnsetEntriesWhenTheCountIsRightAsItIs) {
  TestTable table(2);
  PlaceAll(table, {0, -1}, {});
  table.EndTable();
  ExpectAxes(table, {0, -1}, {});
}

TEST(OmPivotTableAxes, EndingDropsUnsetEntriesOnAllAxesAndKeepsTheOrder) {
  TestTable table(6);
  PlaceAll(table, {-1, 3, -1, 0}, {5, -1, 1, -1}, {-1, -1, 4, 2, -1});
  table.EndTable();
  ExpectAxes(table, {3, 0}, {5, 1}, {4, 2});
}

TEST(OmPivotTableAxes, EndingCountsEntriesAndLooksAtNothingElse) {
  TestTable table(3);
  PlaceAll(table, {0, 0}, {99});
  table.EndTable();
  ExpectAxes(table, {0, 0}, {99});
}

TEST(OmPivotTableAxes, OnlyMinusOneCountsAsUnset) {
  TestTable table(1);
  PlaceAll(table, {-2, -1}, {});
  table.EndTable();
  ExpectAxes(table, {-2}, {});
}

TEST(OmPivotTableAxes, EndingATableWithoutDimensionsNeedsNoAxes) {
  TestTable table;
  table.EndTable();
  ExpectAxes(table, {}, {});
}

TEST(OmPivotTableAxes, EndingATableWithoutDimensionsDropsUnsetEntries) {
  TestTable table;
  PlaceAll(table, {-1}, {-1}, {-1});
  table.EndTable();
  ExpectAxes(table, {}, {}, {});
}

TEST(OmPivotTableAxes, EndingATableWithoutDimensionsRefusesAPlacedOne) {
  TestTable table;
  PlaceAll(table, {0}, {});
  EXPECT_TRUE(Throws([&] { table.EndTable(); }, kMismatch, 0, 1));
}

TEST(OmPivotTableAxes, EndingAgainChangesNothing) {
  TestTable table(2);
  PlaceAll(table, {0, -1}, {1});
  table.EndTable();
  table.EndTable();
  ExpectAxes(table, {0}, {1});
}

TEST(OmPivotTableAxes, ReindexingTheRecordIsWhatEndingDoes) {
  TestTable table(2);
  PlaceAll(table, {0, -1}, {1});
  table.data().ReindexAxis();
  ExpectAxes(table, {0}, {1});
}

TEST(OmPivotTableAxes, ThePuppetSurvivesTheEnd) {
  TestTable table(1);
  PlaceAll(table, {-1}, {0});
  table.Rows().puppet = 7;
  table.EndTable();
  EXPECT_EQ(table.Rows().puppet, 7);
}

TEST(OmPivotTableAxes, TwentyDimensionsOnThreeAxes) {
  TestTable table(20);
  for (short number = 0; number < 20; ++number) {
    PuppetVector<short>* const axes[] = {&table.Rows(), &table.Columns(), &table.Layers()};
    axes[number % 3]->push_back(number);
  }
  EXPECT_NO_THROW(table.EndTable());
}

}  // namespace
