#include <climits>
#include <gtest/gtest.h>
#include <string>
#include <type_traits>
#include <vector>

#include <lakresvos/OmDisplayColumnHeading.h>
#include <lakresvos/OmDisplayLayerHeading.h>

#include "support/LayoutTables.h"
#include "support/OmDisplayTestAccess.h"

namespace {

static_assert(!std::is_copy_constructible_v<OmDisplayColumnHeading>);
static_assert(!std::is_copy_assignable_v<OmDisplayColumnHeading>);
static_assert(sizeof(OmDisplayColumnHeading) == sizeof(void*));

using layout_tables::Category;
using layout_tables::Group;
using layout_tables::Node;
using layout_tables::Table;
using layout_tables::Texts;
using PathNode = OmDisplayColumnHeading::PathNode;
using Labels = std::vector<std::string>;
using Index = std::vector<int>;
using Places = std::vector<unsigned long long>;

/// A (2) and B (3) on the columns, R (2) on the rows; the columns with the places 1 and 4 hold a
/// cell.
class OmDisplayColumnHeadingTest : public testing::Test {
 protected:
  OmDisplayColumnHeadingTest() {
    table.AddFlat("A", 2);
    table.AddFlat("B", 3);
    table.AddFlat("R", 2);
    table.Place({2}, {0, 1});
    table.Put({1, 0, 1});
    table.Put({0, 2, 0});
  }

  Table table;
};

/// One column dimension with two leaves, root > outer > inner > deep and root > flat.
class OmDisplayColumnHeadingLevels : public testing::Test {
 protected:
  OmDisplayColumnHeadingLevels() {
    Category(dimension, Group(dimension, outer, "inner"), "deep", 0);
    Category(dimension, dimension.Root(), "flat", 1);
    table.Place({}, {0});
  }

  Table table;
  OmDimension& dimension = table.Add("root");
  Node outer = Group(dimension, dimension.Root(), "outer");
};

}  // namespace

TEST_F(OmDisplayColumnHeadingTest, HandsBackWhatItWasMadeFrom) {
  OmDisplayLayerHeading layers(table, false);
  OmDisplayColumnHeading columns(layers, true);
  EXPECT_EQ(&columns.Table(), &table);
  EXPECT_TRUE(columns.SkipEmpty());
  EXPECT_FALSE(OmDisplayColumnHeading(layers, false).SkipEmpty());
}

TEST_F(OmDisplayColumnHeadingTest, CountsHeadingDimensionsFromTheEndOfTheAxis) {
  OmDisplayLayerHeading layers(table, false);
  OmDisplayColumnHeading const columns(layers, false);
  EXPECT_EQ(columns.NDimensions(), 2);
  EXPECT_EQ(columns.getDimensionIndex(0), 1);
  EXPECT_EQ(columns.getDimensionIndex(1), 0);
  EXPECT_EQ(columns.getDimensionIndex(2), -1);
}

TEST_F(OmDisplayColumnHeadingTest, HasAColumnPerCombinationAndARowPerLevel) {
  OmDisplayLayerHeading layers(table, false);
  OmDisplayColumnHeading const columns(layers, false);
  EXPECT_EQ(columns.NColumns(), 6);
  EXPECT_EQ(columns.NRows(), 4);
  EXPECT_EQ(columns.VisibleHeight(0), 2);
  EXPECT_EQ(columns.VisibleHeight(1), 2);
  EXPECT_EQ(Texts(columns.Column(4)), (Labels{"B", "B2", "A", "A0"}));
}

TEST_F(OmDisplayColumnHeadingTest, SkippingEmptyKeepsTheColumnsThatHoldACell) {
  OmDisplayLayerHeading layers(table, false);
  OmDisplayColumnHeading const columns(layers, true);
  EXPECT_EQ(columns.NColumns(), 2);
  EXPECT_EQ(columns.getNonEmptyColumns(), (Places{1, 4}));
  EXPECT_EQ(Texts(columns.Column(1)), (Labels{"B", "B2", "A", "A0"}));
}

TEST_F(OmDisplayColumnHeadingTest, GivesHeadingRowsFromLeftToRight) {
  OmDisplayLayerHeading layers(table, false);
  OmDisplayColumnHeading const columns(layers, true);
  EXPECT_EQ(Texts(columns.Row(1)), (Labels{"B0", "B2"}));
  EXPECT_EQ(Texts(columns.Row(3)), (Labels{"A1", "A0"}));
}

TEST_F(OmDisplayColumnHeadingTest, NeverMovesDimensionNamesToTheCorner) {
  OmDisplayLayerHeading layers(table, false);
  OmStringCell const text("corner");
  table.CornerText(&text);
  OmDisplayColumnHeading const columns(layers, false);
  EXPECT_TRUE(OmDisplayTestAccess::GetData(columns).cornerLabels.empty());
  EXPECT_FALSE(OmDisplayTestAccess::GetData(columns).dimNamesInCorner);
  EXPECT_EQ(Texts(columns.Row(0)), (Labels{"B", "B", "B", "B", "B", "B"}));
}

TEST_F(OmDisplayColumnHeadingTest, GivesTheCategoryOfEachDimension) {
  OmDisplayLayerHeading layers(table, false);
  EXPECT_EQ(Texts(OmDisplayColumnHeading(layers, true).ColumnCategories(0)), (Labels{"B0", "A1"}));
}

TEST_F(OmDisplayColumnHeadingTest, AppendsPathsToWhatTheVectorsHold) {
  OmDisplayLayerHeading layers(table, false);
  OmDisplayColumnHeading const columns(layers, true);
  std::vector<PathNode*> all{nullptr};
  columns.DimAllNodes(0, all);
  EXPECT_EQ(Texts(all), (Labels{"-", "B", "B0", "A", "A1"}));
  std::vector<PathNode*> outermost{nullptr};
  std::vector<PathNode*> categories;
  columns.DimCatNodes(0, outermost, categories);
  EXPECT_EQ(Texts(outermost), (Labels{"-", "B", "A"}));
  EXPECT_EQ(Texts(categories), (Labels{"B0", "A1"}));
}

TEST_F(OmDisplayColumnHeadingTest, TakesTheNumberOfAColumnThatWasNotKeptForAPlaceInPathQueries) {
  OmDisplayLayerHeading layers(table, false);
  OmDisplayColumnHeading const columns(layers, true);
  std::vector<PathNode*> all;
  columns.DimAllNodes(2, all);
  EXPECT_EQ(Texts(all), (Labels{"B", "B1", "A", "A0"}));
}

TEST_F(OmDisplayColumnHeadingTest, FillsItsSlotsAndLeavesTheOthersAlone) {
  OmDisplayLayerHeading layers(table, false);
  Index index{7, 7, 7};
  OmDisplayColumnHeading(layers, true).Fill(index, 1);
  EXPECT_EQ(index, (Index{0, 2, 7}));
}

TEST_F(OmDisplayColumnHeadingTest, WithoutSkippingListsEveryPlaceAndKeepsTheList) {
  OmDisplayLayerHeading layers(table, false);
  OmDisplayColumnHeading const columns(layers, false);
  Places const& places = columns.getNonEmptyColumns();
  EXPECT_EQ(places, (Places{0, 1, 2, 3, 4, 5}));
  EXPECT_EQ(&columns.getNonEmptyColumns(), &places);
  EXPECT_EQ(columns.NColumns(), 6);
}

TEST_F(OmDisplayColumnHeadingTest, GivesNothingOutsideTheHeading) {
  OmDisplayLayerHeading layers(table, false);
  for (bool skipEmpty : {false, true}) {
    OmDisplayColumnHeading const columns(layers, skipEmpty);
    for (int n : {-1, columns.NColumns(), INT_MAX, INT_MIN}) {
      EXPECT_TRUE(columns.Column(n).empty());
      EXPECT_TRUE(columns.ColumnCategories(n).empty());
      Index index{9};
      columns.Fill(index, n);
      EXPECT_EQ(index, Index{9});
    }
    for (int k : {-1, 4, INT_MAX, INT_MIN}) {
      EXPECT_TRUE(columns.Row(k).empty());
      EXPECT_EQ(columns.VisibleHeight(k), 0);
    }
  }
}

TEST_F(OmDisplayColumnHeadingLevels, CloseUpOverAHiddenLevel) {
  outer.Value().hide = true;
  OmDisplayLayerHeading layers(table, false);
  OmDisplayColumnHeading const columns(layers, false);
  EXPECT_EQ(Texts(columns.Column(0)), (Labels{"root", "inner", "deep"}));
  EXPECT_EQ(Texts(columns.Column(1)), (Labels{"root", "flat", "-"}));
  EXPECT_EQ(Texts(columns.Row(1)), (Labels{"inner", "flat"}));
}

TEST_F(OmDisplayColumnHeadingLevels, EndAtAHiddenGroupThatHidesItsLabels) {
  outer.Value().hide = true;
  outer.Value().hideLabels = true;
  OmDisplayLayerHeading layers(table, false);
  OmDisplayColumnHeading const columns(layers, false);
  EXPECT_EQ(columns.NRows(), 2);
  EXPECT_EQ(Texts(columns.Column(0)), (Labels{"root", "-"}));
  EXPECT_EQ(Texts(columns.Row(1)), (Labels{"-", "flat"}));
}

TEST_F(OmDisplayColumnHeadingLevels, AreCutToTheHeightOfTheColumnsThatAreKept) {
  table.Put({1});
  OmDisplayLayerHeading layers(table, false);
  OmDisplayColumnHeading const columns(layers, true);
  EXPECT_EQ(columns.VisibleHeight(0), 2);
  EXPECT_EQ(columns.NRows(), 2);
  EXPECT_EQ(Texts(columns.Column(0)), (Labels{"root", "flat"}));
}

TEST_F(OmDisplayColumnHeadingLevels, AreFullWhenNoColumnIsKept) {
  OmDisplayLayerHeading layers(table, false);
  OmDisplayColumnHeading const columns(layers, true);
  EXPECT_EQ(columns.NColumns(), 0);
  EXPECT_EQ(columns.NRows(), 4);
  EXPECT_TRUE(columns.Row(0).empty());
}

TEST(OmDisplayColumnHeadingWithoutDimensions, HasOneColumnAndNoHeadingRows) {
  Table table;
  table.AddFlat("R", 2);
  table.Place({0}, {});
  OmDisplayLayerHeading layers(table, false);
  OmDisplayColumnHeading const columns(layers, false);
  EXPECT_EQ(columns.NDimensions(), 0);
  EXPECT_EQ(columns.NColumns(), 1);
  EXPECT_EQ(columns.NRows(), 0);
  EXPECT_TRUE(columns.Column(0).empty());
  EXPECT_TRUE(columns.Row(0).empty());
}

TEST(OmDisplayColumnHeadingWithoutDimensions, KeepsItsColumnWhenThereIsACell) {
  Table table;
  table.AddFlat("R", 2);
  table.Place({0}, {});
  OmDisplayLayerHeading layers(table, false);
  EXPECT_EQ(OmDisplayColumnHeading(layers, true).NColumns(), 0);
  table.Put({0});
  EXPECT_EQ(OmDisplayColumnHeading(layers, true).NColumns(), 1);
}
