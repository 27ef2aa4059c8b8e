#include <gtest/gtest.h>
#include <string>
#include <vector>

#include <lakresvos/OmDisplayColumnHeading.h>
#include <lakresvos/OmDisplayLayerHeading.h>
#include <lakresvos/OmDisplayRowHeading.h>

#include "support/LayoutTables.h"
#include "support/OmDisplayTestAccess.h"

namespace {

using layout_tables::Category;
using layout_tables::Group;
using layout_tables::Table;
using layout_tables::Texts;
using PathNode = OmDisplayLayerHeading::PathNode;
using Labels = std::vector<std::string>;
using Index = std::vector<int>;
using Places = std::vector<unsigned long long>;

/// Dimensions A (2) and B (3, one level deeper), a cell at (1, 2), and axes with entries that name
/// no dimension or one that another entry names too.
class OmDisplayOutsideTable : public testing::Test {
 protected:
  OmDisplayOutsideTable() {
    table.AddFlat("A", 2);
    OmDimension& b = table.Add("B");
    layout_tables::Node const group = Group(b, b.Root(), "g");
    for (unsigned long i = 0; i < 3; ++i) {
      Category(b, group, "B" + std::to_string(i), i);
    }
    table.Put({1, 2});
  }

  Table table;
};

}  // namespace

TEST_F(OmDisplayOutsideTable, RowEntriesAreCountedAsDimensionsButHaveNoLevels) {
  table.Place({-1, 1, 99, 0, -32768}, {});
  OmDisplayLayerHeading layers(table, false);
  OmDisplayRowHeading const rows(layers, false, false);
  EXPECT_EQ(rows.NDimensions(), 5);
  EXPECT_EQ(rows.getDimensionIndex(0), -32768);
  EXPECT_EQ(rows.getDimensionIndex(2), 99);
  EXPECT_EQ(rows.NRows(), 6);
  EXPECT_EQ(rows.NColumns(), 5);
}

TEST_F(OmDisplayOutsideTable, RowEntriesLeaveTheListsOfTheOthersAligned) {
  table.Place({-1, 1, 99, 0, -32768}, {});
  OmDisplayLayerHeading layers(table, false);
  OmDisplayRowHeading const rows(layers, false, true);
  EXPECT_EQ(rows.VisibleWidth(0), 1);
  EXPECT_EQ(rows.VisibleWidth(1), 2);
  EXPECT_EQ(rows.VisibleWidth(2), 0);
  EXPECT_EQ(Texts(rows.Row(5)), (Labels{"A1", "g", "B2"}));
  EXPECT_EQ(Texts(rows.RowCategories(3)), (Labels{"A1", "B0"}));
  Index index{7, 7};
  rows.Fill(index, 5);
  EXPECT_EQ(index, (Index{1, 2}));
}

TEST_F(OmDisplayOutsideTable, EntriesCountAsTheDigitZeroInTheDenseSearch) {
  table.Place({-1, 1, 99}, {0, 50});
  OmDisplayLayerHeading layers(table, false);
  ASSERT_FALSE(OmDisplayTestAccess::GetData(layers).sparse);
  EXPECT_EQ(OmDisplayRowHeading(layers, true, false).getNonEmptyRows(), Places{2});
  EXPECT_EQ(OmDisplayColumnHeading(layers, true).getNonEmptyColumns(), Places{1});
}

TEST_F(OmDisplayOutsideTable, EntriesCountAsTheDigitZeroInTheSparseSearch) {
  for (unsigned long i = 3; i < 100; ++i) {
    Category(table.Dimension(1), table.Dimension(1).Root(), "B", i);
  }
  table.Place({-1, 1, 99}, {0, 50});
  OmDisplayLayerHeading layers(table, false);
  ASSERT_TRUE(OmDisplayTestAccess::GetData(layers).sparse);
  EXPECT_EQ(OmDisplayRowHeading(layers, true, false).getNonEmptyRows(), Places{2});
  EXPECT_EQ(OmDisplayColumnHeading(layers, true).getNonEmptyColumns(), Places{1});
}

TEST_F(OmDisplayOutsideTable, OnlyEntriesMakeOneRowWithoutLevels) {
  table.Place({-1, 99}, {0, 1});
  OmDisplayLayerHeading layers(table, false);
  OmDisplayRowHeading const rows(layers, true, false);
  EXPECT_EQ(rows.NRows(), 1);
  EXPECT_EQ(rows.NColumns(), 0);
  EXPECT_TRUE(rows.Row(0).empty());
  EXPECT_TRUE(rows.RowCategories(0).empty());
}

TEST_F(OmDisplayOutsideTable, LayerEntriesAnswerNothingAtTheirPosition) {
  table.Place({}, {}, {1, -1, 0, 99});
  OmDisplayLayerHeading layers(table, true);
  ASSERT_TRUE(layers.NextLayer());
  EXPECT_FALSE(layers.NextLayer());
  EXPECT_EQ(layers.NDimensions(), 4);
  EXPECT_EQ(layers.VisibleWidth(0), 0);
  EXPECT_TRUE(layers.Nodes(0).empty());
  EXPECT_EQ(Texts(layers.Nodes(1)), (Labels{"A", "A1"}));
  EXPECT_TRUE(layers.Nodes(2).empty());
  EXPECT_EQ(Texts(layers.Nodes(3)), (Labels{"B", "g", "B2"}));
  EXPECT_EQ(layers.getCurrentCellIndex(), (Index{1, 2}));
}

TEST_F(OmDisplayOutsideTable, EntriesFailTheAssertionWhereAPlaceIsAskedForDirectly) {
  table.Place({-1, 1}, {});
  OmDisplayLayerHeading const layers(table, false);
  OmDisplayLayerHeading::Data& data = OmDisplayTestAccess::GetData(layers);
  OmDisplayLayerHeading::Data::PlaceCalculator const calc(table.Rows(), table.SizeVector());
  EXPECT_DEATH(data.DisplayPosition({1, 2}, calc), "Assertion `digit == end && i == size' failed");
}

TEST_F(OmDisplayOutsideTable, ADimensionTwiceOnTheOtherAxisChangesNoRow) {
  for (unsigned long i = 3; i < 100; ++i) {
    Category(table.Dimension(1), table.Dimension(1).Root(), "B", i);
  }
  table.Place({0}, {1, 1});
  OmDisplayLayerHeading layers(table, false);
  ASSERT_TRUE(OmDisplayTestAccess::GetData(layers).sparse);
  EXPECT_EQ(OmDisplayRowHeading(layers, true, false).getNonEmptyRows(), Places{1});
}

TEST_F(OmDisplayOutsideTable, AnIndexThatIsTooShortHasNoPosition) {
  table.Place({0, 1}, {});
  OmDisplayLayerHeading const layers(table, false);
  OmDisplayLayerHeading::Data& data = OmDisplayTestAccess::GetData(layers);
  OmDisplayLayerHeading::Data::PlaceCalculator const calc(table.Rows(), table.SizeVector());
  EXPECT_EQ(data.DisplayPosition({1}, calc), data.DisplayPosition({1, 1 << 30}, calc));
}

TEST_F(OmDisplayOutsideTable, ADimensionTwiceOnAnAxisHasARowForEveryPair) {
  table.Place({0, 0}, {1});
  OmDisplayLayerHeading layers(table, false);
  OmDisplayRowHeading const rows(layers, false, false);
  ASSERT_EQ(rows.NRows(), 4);
  EXPECT_EQ(Texts(rows.Row(2)), (Labels{"A", "A1", "A", "A0"}));
  Index index{7, 7};
  rows.Fill(index, 2);
  EXPECT_EQ(index, (Index{0, 7}));
}

TEST_F(OmDisplayOutsideTable, ADimensionTwiceOnAnAxisIsSearchedByItsLastDigit) {
  table.Place({0, 0}, {1});
  OmDisplayLayerHeading layers(table, false);
  EXPECT_EQ(OmDisplayRowHeading(layers, true, false).getNonEmptyRows(), (Places{1, 3}));
}

TEST_F(OmDisplayOutsideTable, ADimensionTwiceOnAnAxisGetsTheSameDigitTwiceFromASparseStore) {
  for (unsigned long i = 3; i < 100; ++i) {
    Category(table.Dimension(1), table.Dimension(1).Root(), "B", i);
  }
  table.Place({0, 0}, {1});
  OmDisplayLayerHeading layers(table, false);
  EXPECT_EQ(OmDisplayRowHeading(layers, true, false).getNonEmptyRows(), Places{3});
}

TEST_F(OmDisplayOutsideTable, ADimensionOnBothAxesIsTriedByTheOtherOne) {
  table.Place({0}, {0, 1});
  OmDisplayLayerHeading layers(table, false);
  EXPECT_EQ(OmDisplayRowHeading(layers, true, false).getNonEmptyRows(), (Places{0, 1}));
  EXPECT_EQ(OmDisplayColumnHeading(layers, true).getNonEmptyColumns(), (Places{4, 5}));
}

TEST_F(OmDisplayOutsideTable, AnEmptyDimensionOnTheOtherAxisLeavesNoRow) {
  table.Add("none");
  table.Place({0, 1}, {2});
  OmDisplayLayerHeading layers(table, false);
  EXPECT_EQ(OmDisplayRowHeading(layers, true, false).NRows(), 0);
  EXPECT_EQ(OmDisplayRowHeading(layers, false, false).NRows(), 6);
}
