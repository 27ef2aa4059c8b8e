#include <gtest/gtest.h>
#include <vector>

#include <lakresvos/OmDisplayColumnHeading.h>
#include <lakresvos/OmDisplayLayerHeading.h>
#include <lakresvos/OmDisplayRowHeading.h>

#include "support/LayoutTables.h"
#include "support/OmDisplayTestAccess.h"

namespace {

using layout_tables::Category;
using layout_tables::Group;
using layout_tables::Node;
using layout_tables::Table;
using Places = std::vector<unsigned long long>;
using Levels = std::vector<unsigned short>;

/// A dimension R on the rows: a shallow category at position 0, one below two groups at position 1.
class OmNonEmptyHeadersLevels : public testing::Test {
 protected:
  OmNonEmptyHeadersLevels() {
    OmDimension& rows = table.Add("R");
    Category(rows, rows.Root(), "shallow", 0);
    Node const outer = Group(rows, rows.Root(), "outer");
    Node const inner = Group(rows, outer, "inner");
    Category(rows, inner, "deep", 1);
    table.AddFlat("C", 2);
    table.Place({0}, {1});
  }

  Levels LevelsOf(Places const& places) {
    OmDisplayLayerHeading const layers(table, false);
    OmDisplayLayerHeading::Data::PlaceCalculator calc(table.Rows(), table.SizeVector());
    Levels levels;
    OmDisplayTestAccess::GetData(layers).FindVisibleLevels(places, calc, levels);
    return levels;
  }

  Table table;
};

}  // namespace

TEST_F(OmNonEmptyHeadersLevels, WithoutPlacesAreTheFullWidth) {
  EXPECT_EQ(LevelsOf({}), Levels{4});
}

TEST_F(OmNonEmptyHeadersLevels, AreTheDeepestAmongTheCategoriesThatOccur) {
  EXPECT_EQ(LevelsOf({0}), Levels{2});
  EXPECT_EQ(LevelsOf({1}), Levels{4});
  EXPECT_EQ(LevelsOf({0, 1}), Levels{4});
}

TEST_F(OmNonEmptyHeadersLevels, AreNoneForADimensionOfWhichNothingOccurs) {
  EXPECT_EQ(LevelsOf({5}), Levels{0});
}

TEST_F(OmNonEmptyHeadersLevels, AreReducedToTheCategoriesOfKeptRows) {
  table.Put({0, 1});
  OmDisplayLayerHeading layers(table, false);
  OmDisplayRowHeading const rows(layers, true, false);
  EXPECT_EQ(rows.VisibleWidth(0), 2);
  EXPECT_EQ(rows.NColumns(), 2);
}

TEST_F(OmNonEmptyHeadersLevels, AreFullWhenNoRowIsKept) {
  OmDisplayLayerHeading layers(table, false);
  OmDisplayRowHeading const rows(layers, true, false);
  EXPECT_EQ(rows.NRows(), 0);
  EXPECT_EQ(rows.VisibleWidth(0), 4);
  EXPECT_EQ(OmDisplayColumnHeading(layers, true).VisibleHeight(0), 2);
}

TEST_F(OmNonEmptyHeadersLevels, AreFullWithoutTheSkipEmptyFlagWhateverIsStored) {
  table.Put({0, 1});
  OmDisplayLayerHeading layers(table, false);
  EXPECT_EQ(OmDisplayRowHeading(layers, false, false).VisibleWidth(0), 4);
}

TEST_F(OmNonEmptyHeadersLevels, AreAppendedOnePerDimension) {
  table.Place({1, 0}, {});
  OmDisplayLayerHeading const layers(table, false);
  OmDisplayLayerHeading::Data::PlaceCalculator calc(table.Rows(), table.SizeVector());
  Levels levels{9};
  OmDisplayTestAccess::GetData(layers).FindVisibleLevels({2}, calc, levels);
  EXPECT_EQ(levels, (Levels{9, 2, 2}));
}

TEST_F(OmNonEmptyHeadersLevels, LeaveOutEntriesThatNameNoDimension) {
  table.Place({-1, 0, 44}, {});
  EXPECT_EQ(LevelsOf({}), Levels{4});
  EXPECT_EQ(LevelsOf({0}), Levels{2});
  EXPECT_EQ(LevelsOf({1}), Levels{4});
}

TEST_F(OmNonEmptyHeadersLevels, OfOneDimensionTwiceAreFoundPerEntry) {
  table.Place({0, 0}, {});
  EXPECT_EQ(LevelsOf({1}), (Levels{2, 4}));
}

TEST_F(OmNonEmptyHeadersLevels, CountALeafWhosePositionIsPastTheSizeOfTheDimension) {
  OmDimension& rows = table.Dimension(0);
  rows.Root().Child(1).Child(0).Child(0).Value().subscript = 0;
  Node passing = Category(rows, rows.Root(), "passing", 0);
  rows.Delete(passing);
  ASSERT_EQ(table.Size(0), 1);
  EXPECT_EQ(LevelsOf({1}), Levels{4});
}

TEST(OmNonEmptyHeadersLevelsOfASparseTable, AreNoneWhenTheOnlyCellHasNoLeaf) {
  Table table;
  table.AddFlat("R", 300);
  table.Place({0}, {});
  table.Put({300});
  OmDisplayLayerHeading layers(table, false);
  OmDisplayRowHeading const rows(layers, true, false);
  EXPECT_EQ(rows.NRows(), 1);
  EXPECT_EQ(rows.VisibleWidth(0), 0);
  EXPECT_EQ(rows.NColumns(), 0);
}
