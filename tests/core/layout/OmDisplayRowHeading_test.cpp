#include <climits>
#include <deque>
#include <gtest/gtest.h>
#include <string>
#include <type_traits>
#include <vector>

#include <lakresvos/OmDisplayColumnHeading.h>
#include <lakresvos/OmDisplayLayerHeading.h>
#include <lakresvos/OmDisplayRowHeading.h>

#include "support/DimensionText.h"
#include "support/LayoutTables.h"

namespace {

static_assert(!std::is_copy_constructible_v<OmDisplayRowHeading>);
static_assert(!std::is_copy_assignable_v<OmDisplayRowHeading>);
static_assert(sizeof(OmDisplayRowHeading) == sizeof(void*));

using layout_tables::Category;
using layout_tables::Group;
using layout_tables::Node;
using layout_tables::Table;
using layout_tables::Text;
using layout_tables::Texts;
using PathNode = OmDisplayRowHeading::PathNode;
using Labels = std::vector<std::string>;
using Index = std::vector<int>;
using Places = std::vector<unsigned long long>;

Labels WholePaths(OmDisplayRowHeading const& rows, int r) {
  std::vector<PathNode*> all;
  rows.DimAllNodes(r, all);
  return Texts(all);
}

/// Dimensions A (2) and B (3), both on the rows; the rows with the places 1 and 4 hold a cell.
class OmDisplayRowHeadingTest : public testing::Test {
 protected:
  OmDisplayRowHeadingTest() {
    table.AddFlat("A", 2);
    table.AddFlat("B", 3);
    table.Place({0, 1}, {});
    table.Put({1, 0});
    table.Put({0, 2});
  }

  Table table;
};

/// One row dimension with two leaves, root > outer > inner > deep and root > flat.
class OmDisplayRowHeadingLevels : public testing::Test {
 protected:
  OmDisplayRowHeadingLevels() {
    Category(dimension, inner, "deep", 0);
    Category(dimension, dimension.Root(), "flat", 1);
    table.Place({0}, {});
  }

  OmDimensionNode& Root() { return dimension.Root().Value(); }

  Labels RowOf(int r, bool namesInCorner = false) {
    OmDisplayLayerHeading layers(table, false);
    return Texts(OmDisplayRowHeading(layers, false, namesInCorner).Row(r));
  }

  Table table;
  OmDimension& dimension = table.Add("root");
  Node outer = Group(dimension, dimension.Root(), "outer");
  Node inner = Group(dimension, outer, "inner");
};

}  // namespace

TEST_F(OmDisplayRowHeadingTest, HandsBackWhatItWasMadeFrom) {
  OmDisplayLayerHeading layers(table, false);
  OmDisplayRowHeading rows(layers, true, false);
  EXPECT_EQ(&rows.Table(), &table);
  EXPECT_TRUE(rows.SkipEmpty());
  EXPECT_FALSE(rows.DimNamesInCorner());
  OmDisplayRowHeading const others(layers, false, true);
  EXPECT_FALSE(others.SkipEmpty());
  EXPECT_TRUE(others.DimNamesInCorner());
}

TEST_F(OmDisplayRowHeadingTest, CountsHeadingDimensionsFromTheEndOfTheAxis) {
  OmDisplayLayerHeading layers(table, false);
  OmDisplayRowHeading const rows(layers, false, false);
  EXPECT_EQ(rows.NDimensions(), 2);
  EXPECT_EQ(rows.getDimensionIndex(0), 1);
  EXPECT_EQ(rows.getDimensionIndex(1), 0);
}

TEST_F(OmDisplayRowHeadingTest, GivesThePuppetForADimensionPastTheEnd) {
  table.Rows().puppet = -9;
  OmDisplayLayerHeading layers(table, false);
  OmDisplayRowHeading const rows(layers, false, false);
  EXPECT_EQ(rows.getDimensionIndex(2), -9);
  EXPECT_EQ(rows.getDimensionIndex(-1), -9);
}

TEST_F(OmDisplayRowHeadingTest, AnswersAsBeforeAfterADimensionPastTheEndWasAskedFor) {
  table.Rows().puppet = 0;
  OmDisplayLayerHeading layers(table, false);
  OmDisplayRowHeading const rows(layers, false, false);
  rows.getDimensionIndex(5);
  EXPECT_EQ(rows.NColumns(), 4);
  ASSERT_GE(rows.Row(5).size(), 4U);
  std::deque<PathNode*> row = rows.Row(5);
  row.resize(4);
  EXPECT_EQ(Texts(row), (Labels{"B", "B2", "A", "A1"}));
  EXPECT_EQ(rows.Column(3).size(), 6U);
}

TEST_F(OmDisplayRowHeadingTest, HasARowForEveryCombinationWithTheFirstEntryFastest) {
  OmDisplayLayerHeading layers(table, false);
  OmDisplayRowHeading const rows(layers, false, false);
  ASSERT_EQ(rows.NRows(), 6);
  EXPECT_EQ(rows.NColumns(), 4);
  EXPECT_EQ(Texts(rows.Row(0)), (Labels{"B", "B0", "A", "A0"}));
  EXPECT_EQ(Texts(rows.Row(1)), (Labels{"B", "B0", "A", "A1"}));
  EXPECT_EQ(Texts(rows.Row(4)), (Labels{"B", "B2", "A", "A0"}));
}

TEST_F(OmDisplayRowHeadingTest, SkippingEmptyKeepsTheRowsThatHoldACell) {
  OmDisplayLayerHeading layers(table, false);
  OmDisplayRowHeading const rows(layers, true, false);
  ASSERT_EQ(rows.NRows(), 2);
  EXPECT_EQ(rows.getNonEmptyRows(), (Places{1, 4}));
  EXPECT_EQ(Texts(rows.Row(0)), (Labels{"B", "B0", "A", "A1"}));
  EXPECT_EQ(Texts(rows.Row(1)), (Labels{"B", "B2", "A", "A0"}));
}

TEST_F(OmDisplayRowHeadingTest, GivesHeadingColumnsFromTopToBottom) {
  OmDisplayLayerHeading layers(table, false);
  OmDisplayRowHeading const rows(layers, true, false);
  EXPECT_EQ(Texts(rows.Column(0)), (Labels{"B", "B"}));
  EXPECT_EQ(Texts(rows.Column(1)), (Labels{"B0", "B2"}));
  EXPECT_EQ(Texts(rows.Column(3)), (Labels{"A1", "A0"}));
}

TEST_F(OmDisplayRowHeadingTest, HasNoHeadingColumnOutsideTheHeading) {
  OmDisplayLayerHeading layers(table, false);
  OmDisplayRowHeading const rows(layers, false, false);
  for (int k : {-1, 4, INT_MAX, INT_MIN}) {
    EXPECT_TRUE(rows.Column(k).empty());
  }
}

TEST_F(OmDisplayRowHeadingTest, GivesTheCategoryOfEachDimension) {
  OmDisplayLayerHeading layers(table, false);
  OmDisplayRowHeading const rows(layers, true, true);
  EXPECT_EQ(Texts(rows.RowCategories(1)), (Labels{"B2", "A0"}));
}

TEST_F(OmDisplayRowHeadingTest, GivesNothingForARowOutOfRange) {
  OmDisplayLayerHeading layers(table, false);
  for (bool skipEmpty : {false, true}) {
    OmDisplayRowHeading const rows(layers, skipEmpty, false);
    for (int r : {-1, rows.NRows(), INT_MAX, INT_MIN}) {
      EXPECT_TRUE(rows.Row(r).empty());
      EXPECT_TRUE(rows.RowCategories(r).empty());
      Index index{9};
      rows.Fill(index, r);
      EXPECT_EQ(index, Index{9});
    }
  }
}

TEST_F(OmDisplayRowHeadingTest, HasNoPathsForARowOutOfRange) {
  OmDisplayLayerHeading layers(table, false);
  OmDisplayRowHeading const rows(layers, false, false);
  for (int r : {-1, 6, INT_MAX, INT_MIN}) {
    EXPECT_EQ(WholePaths(rows, r), Labels{});
  }
}

TEST_F(OmDisplayRowHeadingTest, SkippingEmptyHasNoPathsForANumberThatIsNoPlaceOfTheAxis) {
  OmDisplayLayerHeading layers(table, false);
  OmDisplayRowHeading const rows(layers, true, false);
  for (int r : {-1, 6, INT_MAX, INT_MIN}) {
    EXPECT_EQ(WholePaths(rows, r), Labels{});
  }
}

TEST_F(OmDisplayRowHeadingTest, TakesTheNumberOfARowThatWasNotKeptForAPlaceInPathQueries) {
  OmDisplayLayerHeading layers(table, false);
  OmDisplayRowHeading const rows(layers, true, false);
  EXPECT_EQ(WholePaths(rows, 1), (Labels{"B", "B2", "A", "A0"}));
  EXPECT_EQ(WholePaths(rows, 2), (Labels{"B", "B1", "A", "A0"}));
  std::vector<PathNode*> outermost;
  std::vector<PathNode*> categories;
  rows.DimCatNodes(5, outermost, categories);
  EXPECT_EQ(Texts(categories), (Labels{"B2", "A1"}));
}

TEST_F(OmDisplayRowHeadingTest, AppendsPathsToWhatTheVectorsHold) {
  OmDisplayLayerHeading layers(table, false);
  OmDisplayRowHeading const rows(layers, false, false);
  std::vector<PathNode*> all{nullptr};
  rows.DimAllNodes(5, all);
  EXPECT_EQ(Texts(all), (Labels{"-", "B", "B2", "A", "A1"}));
  std::vector<PathNode*> outermost{nullptr};
  std::vector<PathNode*> categories{nullptr, nullptr};
  rows.DimCatNodes(5, outermost, categories);
  EXPECT_EQ(Texts(outermost), (Labels{"-", "B", "A"}));
  EXPECT_EQ(Texts(categories), (Labels{"-", "-", "B2", "A1"}));
}

TEST_F(OmDisplayRowHeadingTest, FillsItsSlotsAndLeavesTheOthersAlone) {
  table.AddFlat("L", 2);
  OmDisplayLayerHeading layers(table, false);
  OmDisplayRowHeading const rows(layers, false, false);
  Index index{7, 7, 7};
  rows.Fill(index, 5);
  EXPECT_EQ(index, (Index{1, 2, 7}));
  Index empty;
  rows.Fill(empty, 3);
  EXPECT_EQ(empty, (Index{1, 1, 0}));
}

TEST_F(OmDisplayRowHeadingTest, WithoutSkippingListsEveryPlaceAndKeepsTheList) {
  OmDisplayLayerHeading layers(table, false);
  OmDisplayRowHeading const rows(layers, false, false);
  Places const& places = rows.getNonEmptyRows();
  EXPECT_EQ(places, (Places{0, 1, 2, 3, 4, 5}));
  EXPECT_EQ(&rows.getNonEmptyRows(), &places);
  EXPECT_EQ(places.size(), 6U);
  EXPECT_EQ(rows.NRows(), 6);
  EXPECT_EQ(Texts(rows.Row(4)), (Labels{"B", "B2", "A", "A0"}));
}

TEST_F(OmDisplayRowHeadingTest, HasNoWidthOutsideItsDimensions) {
  OmDisplayLayerHeading layers(table, false);
  OmDisplayRowHeading const rows(layers, false, false);
  EXPECT_EQ(rows.VisibleWidth(1), 2);
  for (int j : {-1, 2, INT_MAX, INT_MIN}) {
    EXPECT_EQ(rows.VisibleWidth(j), 0);
  }
}

TEST_F(OmDisplayRowHeadingTest, LeadsWithTheOtherHeadingsToTheStoredCell) {
  table.AddFlat("C", 2);
  table.AddFlat("L", 2);
  table.Place({0, 1}, {2}, {3});
  table.Put({1, 2, 1, 1});
  OmDisplayLayerHeading layers(table, true);
  ASSERT_TRUE(layers.LastLayer());
  OmDisplayRowHeading const rows(layers, true, true);
  OmDisplayColumnHeading const columns(layers, true);
  ASSERT_EQ(rows.NRows(), 1);
  ASSERT_EQ(columns.NColumns(), 1);
  Index index;
  layers.Fill(index);
  rows.Fill(index, 0);
  columns.Fill(index, 0);
  EXPECT_EQ(index, (Index{1, 2, 1, 1}));
}

TEST_F(OmDisplayRowHeadingTest, LeavesTheTableAsItWasWithTheOtherHeadings) {
  table.AddFlat("C", 2);
  table.AddFlat("L", 2);
  table.Place({0, 1}, {2}, {3});
  table.Put({1, 2, 1, 1});
  table.setLayerLoc(1);
  OmDimension const before(table.Dimension(0), nullptr);
  OmCellText const* const cell = table.Cell({1, 2, 1, 1});
  {
    OmDisplayLayerHeading layers(table, true);
    layers.NextLayer();
    layers.restoreLayer();
    layers.getDimensionIndex(5);
    OmDisplayRowHeading const rows(layers, true, true);
    rows.getDimensionIndex(5);
    rows.Column(0);
    OmDisplayColumnHeading const columns(layers, false);
    columns.getNonEmptyColumns();
  }
  EXPECT_EQ(table.Rows().elements, (std::vector<short>{0, 1}));
  EXPECT_EQ(table.Columns().elements, std::vector<short>{2});
  EXPECT_EQ(table.Layers().elements, std::vector<short>{3});
  EXPECT_EQ(table.SizeVector(), (Index{2, 3, 2, 2}));
  EXPECT_EQ(TextOf(table.Dimension(0)), TextOf(before));
  EXPECT_EQ(table.getLayerLoc(), 1);
  EXPECT_EQ(table.Cell({1, 2, 1, 1}), cell);
  EXPECT_EQ(table.Cell({0, 2, 1, 1}), nullptr);
}

TEST(OmDisplayRowHeadingWithoutDimensions, HasOneRowAndNoHeadingColumns) {
  Table table;
  table.AddFlat("C", 2);
  table.Place({}, {0});
  OmDisplayLayerHeading layers(table, false);
  OmDisplayRowHeading const rows(layers, false, false);
  EXPECT_EQ(rows.NDimensions(), 0);
  EXPECT_EQ(rows.NRows(), 1);
  EXPECT_EQ(rows.NColumns(), 0);
  EXPECT_TRUE(rows.Row(0).empty());
  EXPECT_TRUE(rows.Column(0).empty());
  EXPECT_EQ(rows.getNonEmptyRows(), Places{0});
}

TEST(OmDisplayRowHeadingWithoutDimensions, FillsNoSlotButMakesThemAll) {
  Table table;
  table.AddFlat("C", 2);
  OmDisplayLayerHeading layers(table, false);
  Index index{4, 4};
  OmDisplayRowHeading(layers, false, false).Fill(index, 0);
  EXPECT_EQ(index, Index{4});
}

TEST(OmDisplayRowHeadingWithoutCategories, HasNoRows) {
  Table table;
  table.Add("R");
  table.Place({0}, {});
  OmDisplayLayerHeading layers(table, false);
  OmDisplayRowHeading const rows(layers, false, false);
  EXPECT_EQ(rows.NRows(), 0);
  EXPECT_EQ(rows.NColumns(), 0);
  EXPECT_TRUE(rows.Row(0).empty());
  EXPECT_TRUE(rows.getNonEmptyRows().empty());
}

// Heading levels

TEST_F(OmDisplayRowHeadingLevels, AreOneCellPerLevelWithNullsAtTheInnerEnd) {
  EXPECT_EQ(RowOf(0), (Labels{"root", "outer", "inner", "deep"}));
  EXPECT_EQ(RowOf(1), (Labels{"root", "flat", "-", "-"}));
}

TEST_F(OmDisplayRowHeadingLevels, CloseUpOverAHiddenLevel) {
  Category(dimension, inner, "shown beside", 2);
  outer.Value().hide = true;
  Node const wide = Group(dimension, inner, "wide");
  Category(dimension, wide, "widest", 3);
  EXPECT_EQ(RowOf(0), (Labels{"root", "inner", "deep", "-"}));
}

TEST_F(OmDisplayRowHeadingLevels, EndAtAGroupThatHidesItsLabels) {
  inner.Value().hideLabels = true;
  EXPECT_EQ(RowOf(0), (Labels{"root", "outer"}));
}

TEST_F(OmDisplayRowHeadingLevels, EndAtAHiddenGroupThatHidesItsLabelsToo) {
  outer.Value().hide = true;
  outer.Value().hideLabels = true;
  EXPECT_EQ(RowOf(0), (Labels{"root", "-"}));
}

TEST_F(OmDisplayRowHeadingLevels, DoNotEndAtACategoryThatHidesItsLabels) {
  inner.Child(0).Value().hideLabels = true;
  EXPECT_EQ(RowOf(0), (Labels{"root", "outer", "inner", "deep"}));
}

TEST_F(OmDisplayRowHeadingLevels, LeaveOutAHiddenRoot) {
  Root().hide = true;
  EXPECT_EQ(RowOf(0), (Labels{"outer", "inner", "deep"}));
}

TEST_F(OmDisplayRowHeadingLevels, LeaveOutARootWhoseNameIsInTheCorner) {
  EXPECT_EQ(RowOf(0, true), (Labels{"outer", "inner", "deep"}));
  EXPECT_EQ(RowOf(1, true), (Labels{"flat", "-", "-"}));
}

TEST_F(OmDisplayRowHeadingLevels, AreNoneUnderARootThatHidesItsLabels) {
  Root().hideLabels = true;
  EXPECT_EQ(RowOf(0), Labels{});
  EXPECT_EQ(RowOf(0, true), Labels{});
}

TEST_F(OmDisplayRowHeadingLevels, AreCutToTheWidthOfTheRowsThatAreKept) {
  table.Put({1});
  OmDisplayLayerHeading layers(table, false);
  OmDisplayRowHeading const rows(layers, true, false);
  EXPECT_EQ(Texts(rows.Row(0)), (Labels{"root", "flat"}));
}

TEST_F(OmDisplayRowHeadingLevels, LeaveCategoriesToTheirOwnQueryEvenWhenHidden) {
  inner.Child(0).Value().hide = true;
  OmDisplayLayerHeading layers(table, false);
  OmDisplayRowHeading const rows(layers, false, false);
  EXPECT_EQ(Texts(rows.RowCategories(0)), Labels{"deep"});
  EXPECT_EQ(WholePaths(rows, 0), (Labels{"root", "outer", "inner", "deep"}));
}

TEST_F(OmDisplayRowHeadingLevels, OfARowThatNamesNoLeafAreNull) {
  Node flat = dimension.Root().Child(1);
  Category(dimension, dimension.Root(), "last", 2);
  dimension.Delete(flat);
  OmDisplayLayerHeading layers(table, false);
  OmDisplayRowHeading const rows(layers, false, false);
  ASSERT_EQ(rows.NRows(), 3);
  EXPECT_EQ(Texts(rows.Row(2)), (Labels{"-", "-", "-", "-"}));
  EXPECT_EQ(Texts(rows.RowCategories(2)), Labels{"-"});
  EXPECT_EQ(WholePaths(rows, 2), Labels{});
  Index index{7};
  rows.Fill(index, 2);
  EXPECT_EQ(index, Index{7});
}

TEST_F(OmDisplayRowHeadingLevels, AreRightAfterADeletionThatRepairsNoLinks) {
  Node const other = Group(dimension, dimension.Root(), "other");
  Category(dimension, other, "under other", 2);
  Node first = dimension.Root().Child(0);
  dimension.Delete(first);
  EXPECT_EQ(RowOf(0), (Labels{"root", "flat", "-"}));
  EXPECT_EQ(RowOf(1), (Labels{"root", "other", "under other"}));
}

TEST(OmDisplayRowHeadingSingleNode, IsARowButNoWholePath) {
  Table table;
  OmDimension const made(OmDimensionNode(OmStringCell("only"), 0, false, nullptr), nullptr);
  OmDimension& dimension = table.AddDimension(made);
  Category(dimension, dimension.Root(), "not a leaf of its own", 0);
  table.Place({0}, {});
  OmDisplayLayerHeading layers(table, false);
  OmDisplayRowHeading const rows(layers, false, false);
  EXPECT_EQ(Texts(rows.Row(0)), Labels{"only"});
  EXPECT_EQ(Texts(rows.RowCategories(0)), Labels{"only"});
  EXPECT_EQ(WholePaths(rows, 0), Labels{});
}

// Flags that change

TEST_F(OmDisplayRowHeadingLevels, FollowFlagsThatChangeBetweenQueries) {
  OmDisplayLayerHeading layers(table, false);
  OmDisplayRowHeading const rows(layers, false, false);
  ASSERT_EQ(Texts(rows.Column(1)), (Labels{"outer", "flat"}));
  outer.Value().hide = true;
  EXPECT_EQ(Texts(rows.Row(0)), (Labels{"root", "inner", "deep", "-"}));
  EXPECT_EQ(Texts(rows.Column(1)), (Labels{"inner", "flat"}));
  EXPECT_EQ(Texts(rows.Column(3)), (Labels{"-", "-"}));
  inner.Value().hideLabels = true;
  EXPECT_EQ(Texts(rows.Column(1)), (Labels{"-", "flat"}));
  outer.Value().hide = false;
  EXPECT_EQ(Texts(rows.Column(1)), (Labels{"outer", "flat"}));
}

// Long chains

TEST(OmDisplayRowHeading, AppendsEachLevelOfALongChainOnce) {
  // With a leaf at each depth: walking every path anew for each level takes minutes.
  constexpr int kLevels = 3000;
  Table table;
  OmDimension& chain = table.Add("chain");
  Node at = chain.Root();
  for (unsigned long i = 0; i < kLevels; ++i) {
    Category(chain, at, "leaf", i);
    at = Group(chain, at, "g");
  }
  table.Place({0}, {});
  OmDisplayLayerHeading layers(table, false);
  OmDisplayRowHeading const rows(layers, false, true);
  ASSERT_EQ(rows.NColumns(), kLevels);
  ASSERT_EQ(rows.NRows(), kLevels);
  for (int k = 0; k < kLevels; ++k) {
    std::deque<PathNode*> const column = rows.Column(k);
    ASSERT_EQ(column.size(), static_cast<std::size_t>(kLevels));
    EXPECT_EQ(column.back(), rows.Row(kLevels - 1)[static_cast<std::size_t>(k)]);
    EXPECT_EQ(Text(column[static_cast<std::size_t>(k)]), "leaf");
    EXPECT_EQ(Text(k > 0 ? column[static_cast<std::size_t>(k) - 1] : nullptr), "-");
  }
}
