#include <gtest/gtest.h>
#include <vector>

#include <lakresvos/OmDisplayColumnHeading.h>
#include <lakresvos/OmDisplayLayerHeading.h>
#include <lakresvos/OmDisplayRowHeading.h>

#include "layout/OmOccupiedPlaces.h"
#include "support/LayoutTables.h"
#include "support/OmDisplayTestAccess.h"

namespace {

using layout_tables::Category;
using layout_tables::Node;
using layout_tables::Table;
using Places = std::vector<unsigned long long>;

bool IsSparse(Table& table) {
  OmDisplayLayerHeading const layers(table, false);
  return OmDisplayTestAccess::GetData(layers).sparse;
}

void PutDiagonal(Table& table, int first, int last) {
  for (int i = first; i < last; ++i) {
    table.Put({i, i});
  }
}

Places KeptRows(Table& table, int layer = 0) {
  OmDisplayLayerHeading layers(table, false);
  layers.SwitchLayer(layer);
  return OmDisplayRowHeading(layers, true, false).getNonEmptyRows();
}

Places KeptColumns(Table& table) {
  OmDisplayLayerHeading layers(table, false);
  return OmDisplayColumnHeading(layers, true).getNonEmptyColumns();
}

/// Two rows, two columns and two layers; row 1 has a cell in layer 1 only.
struct TwoLayers : Table {
  TwoLayers() {
    AddFlat("R", 2);
    AddFlat("C", 2);
    AddFlat("L", 2);
    Place({0}, {1}, {2});
    Put({0, 0, 0});
    Put({1, 1, 1});
  }
};

/// One dimension of three categories on the rows, the middle one deleted after a cell was stored.
struct Gap : Table {
  Gap() {
    OmDimension& rows = AddFlat("R", 3);
    Place({0}, {});
    PutAll();
    Node middle = rows.Root().Child(1);
    rows.Delete(middle);
  }
};

}  // namespace

// The store test

TEST(OmNonEmptyHeadersStoreTest, CallsATableSparseWithOneCellLessThanOnePerCent) {
  Table table;
  table.AddFlat("A", 100);
  table.AddFlat("B", 100);
  PutDiagonal(table, 0, 99);
  EXPECT_TRUE(IsSparse(table));
  PutDiagonal(table, 99, 100);
  EXPECT_FALSE(IsSparse(table));
}

TEST(OmNonEmptyHeadersStoreTest, CountsCombinationsJustBelowTenThousandTheSame) {
  Table table;
  table.AddFlat("A", 99);
  table.AddFlat("B", 101);
  PutDiagonal(table, 0, 99);
  EXPECT_TRUE(IsSparse(table));
  table.Put({0, 100});
  EXPECT_FALSE(IsSparse(table));
}

TEST(OmNonEmptyHeadersStoreTest, NeverCallsFewerThanFiftyCombinationsSparse) {
  Table table;
  table.AddFlat("A", 7);
  table.AddFlat("B", 7);
  EXPECT_FALSE(IsSparse(table));
}

TEST(OmNonEmptyHeadersStoreTest, CallsFiftyCombinationsSparseWithoutACell) {
  Table table;
  table.AddFlat("A", 5);
  table.AddFlat("B", 10);
  EXPECT_TRUE(IsSparse(table));
  table.Put({0, 0});
  EXPECT_FALSE(IsSparse(table));
}

TEST(OmNonEmptyHeadersStoreTest, RoundsOnePerCentToTheNearest) {
  Table table;
  table.AddFlat("A", 149);
  table.Put({0});
  EXPECT_FALSE(IsSparse(table));
  Category(table.Dimension(0), table.Dimension(0).Root(), "A149", 149);
  EXPECT_TRUE(IsSparse(table));
}

TEST(OmNonEmptyHeadersStoreTest, NeverCallsATableWithoutDimensionsSparse) {
  Table table;
  EXPECT_FALSE(IsSparse(table));
}

TEST(OmNonEmptyHeadersStoreTest, NeverCallsATableWithAnEmptyDimensionSparse) {
  Table table;
  table.AddFlat("A", 100);
  table.Add("B");
  EXPECT_FALSE(IsSparse(table));
}

TEST(OmNonEmptyHeadersStoreTest, CountsCellsPastTheSizes) {
  Table table;
  table.AddFlat("A", 50);
  table.Put({1000});
  EXPECT_FALSE(IsSparse(table));
}

TEST(OmNonEmptyHeadersStoreTest, SeesNoCellsBehindAClearedFirstBranch) {
  Table table;
  table.AddFlat("A", 5);
  table.AddFlat("B", 10);
  table.PutAll();
  for (int a = 0; a < 5; ++a) {
    table.Clear({a, 0});
  }
  EXPECT_TRUE(IsSparse(table));
}

TEST(OmNonEmptyHeadersStoreTest, IsMadeOnceWithTheLayerHeading) {
  Table table;
  table.AddFlat("A", 50);
  OmDisplayLayerHeading const layers(table, false);
  table.Put({0});
  EXPECT_TRUE(OmDisplayTestAccess::GetData(layers).sparse);
}

// Dense and sparse

TEST(OmNonEmptyHeaders, OfADenseTableAreThoseOfTheCurrentLayer) {
  TwoLayers table;
  EXPECT_EQ(KeptRows(table, 0), Places{0});
  EXPECT_EQ(KeptRows(table, 1), Places{1});
}

TEST(OmNonEmptyHeaders, OfADenseTableWithoutACurrentLayerAreThoseOfTheFirstCategories) {
  TwoLayers table;
  EXPECT_EQ(KeptRows(table, -1), Places{0});
}

TEST(OmNonEmptyHeaders, OfASparseTableHaveACellInAnyLayer) {
  TwoLayers table;
  for (unsigned long extra = 2; extra < 100; ++extra) {
    Category(table.Dimension(2), table.Dimension(2).Root(), "more", extra);
  }
  ASSERT_TRUE(IsSparse(table));
  EXPECT_EQ(KeptRows(table, 0), (Places{0, 1}));
  EXPECT_EQ(KeptRows(table, 50), (Places{0, 1}));
}

TEST(OmNonEmptyHeaders, StayTheSameWhenTheLayerIsSwitchedAfterwards) {
  TwoLayers table;
  OmDisplayLayerHeading layers(table, false);
  layers.SwitchLayer(0);
  OmDisplayRowHeading const rows(layers, true, false);
  layers.SwitchLayer(1);
  EXPECT_EQ(rows.getNonEmptyRows(), Places{0});
}

TEST(OmNonEmptyHeaders, OfADenseTableAreThoseOfTheLayerSwitchedToThoughAnotherIsRestored) {
  TwoLayers table;
  table.setLayerLoc(0);
  OmDisplayLayerHeading layers(table, false);
  layers.SwitchLayer(1);
  ASSERT_EQ(layers.restoreLayer(), 0);
  EXPECT_EQ(OmDisplayRowHeading(layers, true, false).getNonEmptyRows(), Places{1});
}

TEST(OmNonEmptyHeaders, OfADenseTableStayThoseOfTheFormerLayerWhenNoneIsCurrent) {
  TwoLayers table;
  OmDisplayLayerHeading layers(table, false);
  layers.SwitchLayer(1);
  layers.SwitchLayer(-1);
  EXPECT_EQ(OmDisplayRowHeading(layers, true, false).getNonEmptyRows(), Places{1});
}

TEST(OmNonEmptyHeaders, OfTheColumnsOfADenseTableAreThoseOfTheCurrentLayer) {
  TwoLayers table;
  OmDisplayLayerHeading layers(table, false);
  layers.SwitchLayer(0);
  EXPECT_EQ(OmDisplayColumnHeading(layers, true).getNonEmptyColumns(), Places{0});
  layers.SwitchLayer(1);
  EXPECT_EQ(OmDisplayColumnHeading(layers, true).getNonEmptyColumns(), Places{1});
}

TEST(OmNonEmptyHeaders, OfNoDimensionsAreTheOnlyPlaceWhenThereIsACell) {
  Table table;
  table.AddFlat("C", 2);
  table.Place({}, {0});
  EXPECT_EQ(KeptRows(table), Places{});
  table.Put({1});
  EXPECT_EQ(KeptRows(table), Places{0});
}

TEST(OmNonEmptyHeaders, OfNoDimensionsAreTheOnlyPlaceOfASparseTableWithACell) {
  Table table;
  table.AddFlat("C", 200);
  table.Place({}, {0});
  ASSERT_TRUE(IsSparse(table));
  EXPECT_EQ(KeptRows(table), Places{});
  table.Put({199});
  ASSERT_TRUE(IsSparse(table));
  EXPECT_EQ(KeptRows(table), Places{0});
}

TEST(OmNonEmptyHeaders, OfATableWithoutCellsAreNone) {
  Table table;
  table.AddFlat("R", 2);
  table.AddFlat("C", 2);
  table.Place({0}, {1});
  EXPECT_EQ(KeptRows(table), Places{});
  EXPECT_EQ(KeptColumns(table), Places{});
}

TEST(OmNonEmptyHeaders, CountTheLastAxisEntryAsTheMostSignificantDigit) {
  Table table;
  table.AddFlat("A", 2);
  table.AddFlat("B", 3);
  table.Place({0, 1}, {});
  table.Put({1, 0});
  table.Put({0, 2});
  EXPECT_EQ(KeptRows(table), (Places{1, 4}));
}

TEST(OmNonEmptyHeaders, AreCountedInDisplayPositions) {
  Table table;
  OmDimension& rows = table.Add("R");
  for (unsigned long subscript : {2UL, 0UL, 1UL}) {
    Category(rows, rows.Root(), "r", subscript);
  }
  table.Place({0}, {});
  table.Put({2});
  table.Put({1});
  EXPECT_EQ(KeptRows(table), (Places{0, 2}));
}

TEST(OmNonEmptyHeaders, OfADenseTableSeeCellsBehindClearedSlots) {
  Table table;
  table.AddFlat("R", 2);
  table.AddFlat("C", 2);
  table.Place({0}, {1});
  table.Put({0, 0});
  table.Put({1, 1});
  table.Clear({0, 0});
  ASSERT_EQ(table.FirstCell().Cell(), nullptr);
  EXPECT_EQ(KeptRows(table), Places{1});
  EXPECT_EQ(KeptColumns(table), Places{1});
}

TEST(OmNonEmptyHeaders, OfASparseTableEndAtAClearedFirstBranch) {
  Table table;
  table.AddFlat("R", 10);
  table.AddFlat("C", 10);
  table.Place({0}, {1});
  table.Put({0, 0});
  table.Put({1, 1});
  table.Clear({0, 0});
  ASSERT_TRUE(IsSparse(table));
  EXPECT_EQ(KeptRows(table), Places{});
}

TEST(OmNonEmptyHeaders, OfADenseTableIgnoreCellsPastTheSizeOfTheOtherAxis) {
  Table table;
  table.AddFlat("R", 2);
  table.AddFlat("C", 2);
  table.Place({0}, {1});
  table.Put({0, 2});
  table.Put({1, 1});
  EXPECT_EQ(KeptRows(table), Places{1});
}

TEST(OmNonEmptyHeaders, OfADenseTableIgnoreCellsPastTheSizeOfOneDimensionOfTheOtherAxis) {
  Table table;
  table.AddFlat("R", 3);
  table.AddFlat("C", 2);
  table.AddFlat("D", 2);
  table.Place({0}, {1, 2});
  table.Put({0, 2, 0});
  table.Put({1, 0, 2});
  table.Put({2, 1, 1});
  EXPECT_EQ(KeptRows(table), Places{2});
}

TEST(OmNonEmptyHeaders, OfADenseTableReachALeafPastTheSizeOfItsOwnAxis) {
  Table table;
  OmDimension& rows = table.AddFlat("R", 1);
  Category(rows, rows.Root(), "far", 7);
  table.Place({0}, {});
  table.Put({7});
  EXPECT_EQ(KeptRows(table), Places{1});
}

TEST(OmNonEmptyHeaders, OfADenseTableCountCellsOfADeletedCategoryOnTheOtherAxis) {
  Table table;
  table.AddFlat("R", 2);
  OmDimension& columns = table.AddFlat("C", 3);
  table.Place({0}, {1});
  table.Put({1, 1});
  Node middle = columns.Root().Child(1);
  columns.Delete(middle);
  EXPECT_EQ(KeptRows(table), Places{1});
  EXPECT_EQ(KeptColumns(table), Places{});
}

TEST(OmNonEmptyHeaders, OfADenseTableKeepNoPlaceThatNamesNoLeaf) {
  Gap table;
  EXPECT_EQ(KeptRows(table), (Places{0, 1}));
}

TEST(OmNonEmptyHeaders, OfADenseTableKeepBothLeavesOfOneSubscript) {
  Table table;
  OmDimension& rows = table.AddFlat("R", 2);
  Category(rows, rows.Root(), "again", 1);
  table.Place({0}, {});
  table.Put({1});
  EXPECT_EQ(KeptRows(table), (Places{1, 2}));
}

TEST(OmNonEmptyHeaders, OfADenseTableAreFoundBeyondManyThatAreKnown) {
  Table table;
  table.AddFlat("R", 300);
  table.AddFlat("C", 2);
  table.Place({0}, {1}, {});
  Places expected;
  for (int row = 0; row < 300; ++row) {
    bool const known = row != 70 && row < 200;
    if (known) {
      table.Put({row, 0});
    }
    if (row != 299) {
      table.Put({row, 1});
      expected.push_back(static_cast<unsigned long long>(row));
    }
  }
  EXPECT_EQ(KeptRows(table), expected);
}

TEST(OmNonEmptyHeaders, OfADenseTableTryLeavesOnlyUpToTheSize) {
  Table table;
  table.AddFlat("A", 2);
  OmDimension& twice = table.AddFlat("B", 1);
  Category(twice, twice.Root(), "again", 0);
  Node passing = Category(twice, twice.Root(), "passing", 0);
  twice.Delete(passing);
  ASSERT_EQ(table.Size(1), 1);
  table.Place({1, 0}, {});
  table.Put({0, 0});
  EXPECT_EQ(KeptRows(table), Places{0});
}

TEST(OmNonEmptyHeaders, OfASparseTableAreTheLaterOfTwoLeavesOfOneSubscript) {
  Table table;
  OmDimension& rows = table.AddFlat("R", 200);
  Category(rows, rows.Root(), "again", 1);
  table.Place({0}, {});
  table.Put({1});
  ASSERT_TRUE(IsSparse(table));
  EXPECT_EQ(KeptRows(table), Places{200});
}

TEST(OmNonEmptyHeaders, OfASparseTableCountACellWithoutALeafAsAMissingOne) {
  Table table;
  OmDimension& rows = table.AddFlat("R", 300);
  table.Place({0}, {});
  table.Put({1});
  table.Put({2});
  Node middle = rows.Root().Child(1);
  rows.Delete(middle);
  ASSERT_TRUE(IsSparse(table));
  EXPECT_EQ(KeptRows(table), (Places{1, 0xFFFFFFFF}));
}

TEST(OmNonEmptyHeaders, OfASparseTableCountACellPastTheSizeAsAMissingLeaf) {
  Table table;
  table.AddFlat("R", 300);
  table.Place({0}, {});
  table.Put({300});
  EXPECT_EQ(KeptRows(table), Places{0xFFFFFFFF});
}

TEST(OmNonEmptyHeaders, OfADenseTableHoldAnUnplacedDimensionAtItsFirstCategory) {
  Table table;
  table.AddFlat("R", 2);
  table.AddFlat("unplaced", 2);
  table.Place({0}, {});
  table.Put({0, 1});
  table.Put({1, 0});
  EXPECT_EQ(KeptRows(table), Places{1});
}

TEST(OmNonEmptyHeaders, OfASparseTableAreListedOnceEach) {
  Table table;
  table.AddFlat("R", 20);
  table.AddFlat("C", 20);
  table.Place({0}, {1});
  for (int c : {3, 7, 5}) {
    table.Put({4, c});
  }
  ASSERT_TRUE(IsSparse(table));
  EXPECT_EQ(KeptRows(table), Places{4});
}

TEST(OmNonEmptyHeaders, OfLayersTryEveryRowAndColumn) {
  TwoLayers table;
  OmDisplayLayerHeading const layers(table, true);
  EXPECT_EQ(OmDisplayTestAccess::GetData(layers).nonEmptyLayers, (Places{0, 1}));
  table.deleteCell({1, 1, 1});
  OmDisplayLayerHeading const fewer(table, true);
  EXPECT_EQ(OmDisplayTestAccess::GetData(fewer).nonEmptyLayers, Places{0});
}

TEST(OmNonEmptyHeaders, FoundByTheSparseMethodAreAppendedAndByTheDenseMethodReplaceTheList) {
  TwoLayers table;
  OmDisplayLayerHeading const layers(table, false);
  OmDisplayLayerHeading::Data& data = OmDisplayTestAccess::GetData(layers);
  Places sparse{77};
  data.FindNonEmptyHeadersSparse(table.Rows(), table.Columns(), sparse);
  EXPECT_EQ(sparse, (Places{77, 0, 1}));
  Places dense{77};
  data.FindNonEmptyHeadersDense(table.Rows(), table.Columns(), dense);
  EXPECT_EQ(dense, Places{0});
}

TEST(OmNonEmptyHeaders, WhoseSubscriptIsNoCellsAreNotKept) {
  Table table;
  OmDimension& rows = table.AddFlat("R", 1);
  Category(rows, rows.Root(), "beyond", 1UL << 31);
  Category(rows, rows.Root(), "none", ~0UL);
  table.Place({0}, {});
  table.Put({0});
  EXPECT_EQ(KeptRows(table), Places{0});
}

TEST(OmNonEmptyHeaders, OfADenseTableTakeASubscriptByItsLow32BitsLikeFill) {
  Table table;
  OmDimension& rows = table.Add("R");
  Category(rows, rows.Root(), "wrapped", (1UL << 32) + 1);
  table.Place({0}, {});
  table.Put({1});
  EXPECT_EQ(KeptRows(table), Places{0});
}

TEST(OmNonEmptyHeaders, OfAFullTableWithAMillionPlacesAreFound) {
  Table table;
  table.AddFlat("A", 1000);
  table.AddFlat("B", 1000);
  table.Place({0, 1}, {});
  for (int i = 0; i < 1000; ++i) {
    for (int j = 0; j < 10; ++j) {
      table.Put({i, j});
    }
  }
  ASSERT_FALSE(IsSparse(table));
  EXPECT_EQ(KeptRows(table).size(), 10000U);
}

// Dimensions that were added after the layer heading was made

TEST(OmNonEmptyHeaders, ADimensionAddedToATableWithoutAnyIsHeldAtItsFirstSubscript) {
  Table table;
  OmDisplayLayerHeading layers(table, false);
  table.AddFlat("R", 3);
  table.Place({0}, {});
  EXPECT_EQ(OmDisplayRowHeading(layers, true, false).getNonEmptyRows(), Places{});
  table.Put({1});
  EXPECT_EQ(OmDisplayRowHeading(layers, true, false).getNonEmptyRows(), Places{});
  table.Put({0});
  EXPECT_EQ(OmDisplayRowHeading(layers, true, false).getNonEmptyRows(), Places{0});
}

TEST(OmNonEmptyHeaders, ADimensionAddedToAnEmptyTableIsHeldAtItsFirstSubscript) {
  Table table;
  table.AddFlat("R", 3);
  table.Place({0}, {});
  OmDisplayLayerHeading layers(table, false);
  table.AddFlat("C", 2);
  table.Place({0}, {1});
  table.Put({2, 0});
  table.Put({1, 1});
  EXPECT_EQ(OmDisplayRowHeading(layers, true, false).getNonEmptyRows(), Places{2});
  EXPECT_EQ(OmDisplayColumnHeading(layers, true).getNonEmptyColumns(), Places{0});
}

TEST(OmNonEmptyHeaders, ADimensionAddedBesideOthersHasTheDigitZeroAndCountsAsARadix) {
  for (bool const mostSignificant : {true, false}) {
    Table table;
    table.AddFlat("A", 3);
    table.Place({0}, {});
    OmDisplayLayerHeading layers(table, false);
    table.AddFlat("B", 2);
    // The last entry is the most significant digit.
    table.Rows().elements = mostSignificant ? std::vector<short>{0, 1} : std::vector<short>{1, 0};
    table.Put({1, 0});
    table.Put({2, 0});
    OmDisplayLayerHeading::Data& data = OmDisplayTestAccess::GetData(layers);
    ASSERT_FALSE(data.sparse);
    Places const kept = OmDisplayRowHeading(layers, true, false).getNonEmptyRows();
    EXPECT_EQ(kept, mostSignificant ? (Places{1, 2}) : (Places{2, 4}));
    Places sparse;
    data.FindNonEmptyHeadersSparse(data.ReverseAxis(table.Rows()), table.Columns(), sparse);
    EXPECT_EQ(kept, sparse);
  }
}

TEST(OmNonEmptyHeaders, ADimensionAddedToTheOtherAxisIsHeldAtItsFirstSubscript) {
  Table table;
  table.AddFlat("A", 3);
  table.AddFlat("B", 2);
  table.Place({0}, {1});
  OmDisplayLayerHeading layers(table, false);
  table.AddFlat("C", 2);
  table.Place({0}, {2, 1});
  table.Put({1, 1, 0});
  table.Put({2, 1, 1});
  EXPECT_EQ(OmDisplayRowHeading(layers, true, false).getNonEmptyRows(), Places{1});
}

// What the dense search costs

TEST(OmNonEmptyHeaders, TheDenseSearchEndsWhenEveryPlaceOfAFullTableIsKept) {
  for (short const rows : {short{0}, short{1}}) {
    Table table;
    table.AddFlat("A", 20);
    table.AddFlat("B", 20);
    table.AddFlat("C", 100);
    table.PutAll();
    OmDisplayLayerHeading layers(table, false);
    OmDisplayLayerHeading::Data& data = OmDisplayTestAccess::GetData(layers);
    PuppetVector<short> heads(-1);
    heads.elements = {rows};
    PuppetVector<short> others(-1);
    others.elements = {static_cast<short>(1 - rows), 2};
    Places places;
    OmOccupiedPlaces search(data, data.GetTableData()->cells, heads, others);
    search.AppendTo(places);
    EXPECT_EQ(places.size(), 20U);
    EXPECT_LE(search.CountLooks(), 50U) << "of 40,000 cells";
  }
}
