#include <climits>
#include <gtest/gtest.h>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <lakresvos/OmDisplayLayerHeading.h>

#include "support/Assertions.h"
#include "support/LayoutTables.h"

namespace {

static_assert(!std::is_copy_constructible_v<OmDisplayLayerHeading>);
static_assert(!std::is_copy_assignable_v<OmDisplayLayerHeading>);
static_assert(sizeof(OmDisplayLayerHeading) == sizeof(void*));

using layout_tables::Category;
using layout_tables::Table;
using layout_tables::Texts;
using PathNode = OmDisplayLayerHeading::PathNode;
using Labels = std::vector<std::string>;
using Index = std::vector<int>;

/// Dimensions R (2), A (2) and B (3), with A and B on the layers in this order.
struct Layered : Table {
  Layered() {
    AddFlat("R", 2);
    AddFlat("A", 2);
    AddFlat("B", 3);
    Place({0}, {}, {1, 2});
  }
};

/// Layers 1 (A1, B0) and 4 (A0, B2) of `Layered` hold a cell.
struct TwoOfSix : Layered {
  TwoOfSix() {
    Put({0, 1, 0});
    Put({1, 0, 2});
  }
};

Index FilledBy(OmDisplayLayerHeading& heading) {
  Index index{7, 7, 7};
  heading.Fill(index);
  return index;
}

}  // namespace

TEST(OmDisplayLayerHeading, HandsBackWhatItWasMadeFrom) {
  Layered table;
  OmDisplayLayerHeading plain(table, false);
  EXPECT_EQ(&plain.Table(), &table);
  EXPECT_FALSE(plain.SkipEmpty());
  EXPECT_TRUE(OmDisplayLayerHeading(table, true).SkipEmpty());
  EXPECT_EQ(plain.NDimensions(), 2);
}

TEST(OmDisplayLayerHeading, HasNoCurrentLayerAtFirst) {
  Layered table;
  OmDisplayLayerHeading layers(table, false);
  EXPECT_EQ(layers.getLayer(), -1);
  EXPECT_EQ(layers.getCurrentCellIndex(), (Index{0, 0, 0}));
}

TEST(OmDisplayLayerHeading, CountsLayerPositionsFromTheEndOfTheAxis) {
  Layered table;
  OmDisplayLayerHeading const layers(table, false);
  EXPECT_EQ(layers.getDimensionIndex(0), 2);
  EXPECT_EQ(layers.getDimensionIndex(1), 1);
}

TEST(OmDisplayLayerHeading, LeavesTheTablesAxisAsItIs) {
  Layered table;
  OmDisplayLayerHeading const layers(table, false);
  layers.getDimensionIndex(9);
  EXPECT_EQ(table.Layers().elements, (std::vector<short>{1, 2}));
}

TEST(OmDisplayLayerHeading, CountsLayersWithTheFirstLayerDimensionFastest) {
  Layered table;
  OmDisplayLayerHeading layers(table, false);
  std::vector<Index> seen;
  while (layers.NextLayer()) {
    seen.push_back(layers.getCurrentCellIndex());
  }
  EXPECT_EQ(seen,
            (std::vector<Index>{{0, 0, 0}, {0, 1, 0}, {0, 0, 1}, {0, 1, 1}, {0, 0, 2}, {0, 1, 2}}));
}

TEST(OmDisplayLayerHeading, KeepsTheLastLayerCurrentWhenThereIsNoNext) {
  Layered table;
  OmDisplayLayerHeading layers(table, false);
  EXPECT_TRUE(layers.LastLayer());
  EXPECT_FALSE(layers.NextLayer());
  EXPECT_EQ(layers.getLayer(), 5);
}

TEST(OmDisplayLayerHeading, SwitchesToTheLastLayer) {
  Layered table;
  OmDisplayLayerHeading layers(table, false);
  EXPECT_TRUE(layers.LastLayer());
  EXPECT_EQ(layers.getCurrentCellIndex(), (Index{0, 1, 2}));
}

TEST(OmDisplayLayerHeading, SwitchingToMinusOneIsRefusedButLeavesNoLayerCurrent) {
  Layered table;
  OmDisplayLayerHeading layers(table, false);
  layers.SwitchLayer(3);
  EXPECT_FALSE(layers.SwitchLayer(-1));
  EXPECT_EQ(layers.getLayer(), -1);
  EXPECT_EQ(layers.getCurrentCellIndex(), (Index{0, 1, 1}));
  EXPECT_EQ(FilledBy(layers), (Index{7, 7, 7}));
}

TEST(OmDisplayLayerHeading, BeginsAgainWithTheFirstLayerWhenNoneIsCurrent) {
  Layered table;
  OmDisplayLayerHeading layers(table, false);
  layers.SwitchLayer(3);
  layers.SwitchLayer(-1);
  EXPECT_TRUE(layers.NextLayer());
  EXPECT_EQ(layers.getLayer(), 0);
  EXPECT_EQ(layers.getCurrentCellIndex(), (Index{0, 0, 0}));
}

TEST(OmDisplayLayerHeading, GivesItsCellIndexAsACopy) {
  Layered table;
  OmDisplayLayerHeading layers(table, false);
  layers.SwitchLayer(3);
  layers.getCurrentCellIndex()[1] = 9;
  EXPECT_EQ(layers.getCurrentCellIndex(), (Index{0, 1, 1}));
}

TEST(OmDisplayLayerHeading, SwitchingToMinusTwoIsRefusedAndChangesNothing) {
  Layered table;
  OmDisplayLayerHeading layers(table, false);
  layers.SwitchLayer(3);
  EXPECT_FALSE(layers.SwitchLayer(-2));
  EXPECT_FALSE(layers.SwitchLayer(INT_MIN));
  EXPECT_EQ(layers.getLayer(), 3);
  EXPECT_EQ(FilledBy(layers), (Index{7, 1, 1}));
}

TEST(OmDisplayLayerHeading, SwitchingPastTheLastLayerIsRefusedAndChangesNothing) {
  Layered table;
  OmDisplayLayerHeading layers(table, false);
  layers.SwitchLayer(3);
  EXPECT_FALSE(layers.SwitchLayer(6));
  EXPECT_FALSE(layers.SwitchLayer(INT_MAX));
  EXPECT_EQ(layers.getLayer(), 3);
  EXPECT_EQ(layers.getCurrentCellIndex(), (Index{0, 1, 1}));
}

TEST(OmDisplayLayerHeading, FillsTheLayersSlotsAndLeavesTheOthersAlone) {
  Layered table;
  OmDisplayLayerHeading layers(table, false);
  layers.SwitchLayer(5);
  EXPECT_EQ(FilledBy(layers), (Index{7, 1, 2}));
}

TEST(OmDisplayLayerHeading, FillsAnIndexOfAnyLengthToOneSlotPerDimension) {
  Layered table;
  OmDisplayLayerHeading layers(table, false);
  layers.SwitchLayer(5);
  Index empty;
  layers.Fill(empty);
  EXPECT_EQ(empty, (Index{0, 1, 2}));
  Index tooLong{5, 5, 5, 5, 5};
  layers.Fill(tooLong);
  EXPECT_EQ(tooLong, (Index{5, 1, 2}));
}

TEST(OmDisplayLayerHeading, FillsNothingWithoutACurrentLayer) {
  Layered table;
  OmDisplayLayerHeading layers(table, false);
  Index index{5};
  layers.Fill(index);
  EXPECT_EQ(index, Index{5});
}

TEST(OmDisplayLayerHeading, FillsSubscriptsNotPositions) {
  Table table;
  OmDimension& dimension = table.Add("L");
  Category(dimension, dimension.Root(), "two", 2);
  Category(dimension, dimension.Root(), "one", 1);
  Category(dimension, dimension.Root(), "zero", 0);
  table.Place({}, {}, {0});
  OmDisplayLayerHeading layers(table, false);
  layers.SwitchLayer(0);
  EXPECT_EQ(layers.getCurrentCellIndex(), Index{2});
}

// Layers without cells

TEST(OmDisplayLayerHeadingSkippingEmpty, CountsTheLayersThatHoldACell) {
  TwoOfSix table;
  OmDisplayLayerHeading layers(table, true);
  EXPECT_TRUE(layers.LastLayer());
  EXPECT_EQ(layers.getLayer(), 1);
}

TEST(OmDisplayLayerHeadingSkippingEmpty, SwitchesToTheCategoriesOfTheNumberedNonEmptyLayer) {
  TwoOfSix table;
  OmDisplayLayerHeading layers(table, true);
  EXPECT_TRUE(layers.SwitchLayer(0));
  EXPECT_EQ(FilledBy(layers), (Index{7, 1, 0}));
  EXPECT_TRUE(layers.SwitchLayer(1));
  EXPECT_EQ(FilledBy(layers), (Index{7, 0, 2}));
  EXPECT_FALSE(layers.SwitchLayer(2));
}

TEST(OmDisplayLayerHeadingSkippingEmpty, HasNoLayersWithoutCells) {
  Layered table;
  OmDisplayLayerHeading layers(table, true);
  EXPECT_FALSE(layers.NextLayer());
  EXPECT_FALSE(layers.LastLayer());
  EXPECT_EQ(layers.getLayer(), -1);
}

TEST(OmDisplayLayerHeadingSkippingEmpty, ClearsTheCurrentLayerWhenTheLastOfNoneIsAskedFor) {
  Layered table;
  table.setLayerLoc(4);
  OmDisplayLayerHeading layers(table, true);
  layers.restoreLayer();
  EXPECT_FALSE(layers.LastLayer());
  EXPECT_EQ(layers.getLayer(), -1);
}

TEST(OmDisplayLayerHeading, OfATableWithoutLayerDimensionsHasOneLayer) {
  Table table;
  table.AddFlat("R", 2);
  table.Place({0}, {});
  OmDisplayLayerHeading layers(table, false);
  EXPECT_EQ(layers.NDimensions(), 0);
  EXPECT_TRUE(layers.NextLayer());
  EXPECT_FALSE(layers.NextLayer());
}

TEST(OmDisplayLayerHeadingSkippingEmpty, OfATableWithoutLayerDimensionsHasALayerWhenThereIsACell) {
  Table table;
  table.AddFlat("R", 2);
  table.Place({0}, {});
  EXPECT_FALSE(OmDisplayLayerHeading(table, true).NextLayer());
  table.Put({1});
  EXPECT_TRUE(OmDisplayLayerHeading(table, true).NextLayer());
}

TEST(OmDisplayLayerHeading, OfATableWithoutDimensionsHasOneLayerAndNoneWithoutEmptyOnes) {
  Table table;
  EXPECT_TRUE(OmDisplayLayerHeading(table, false).NextLayer());
  EXPECT_FALSE(OmDisplayLayerHeading(table, true).NextLayer());
}

TEST(OmDisplayLayerHeading, OfALayerDimensionWithoutCategoriesHasNoLayers) {
  Table table;
  table.Add("L");
  table.Place({}, {}, {0});
  OmDisplayLayerHeading layers(table, false);
  EXPECT_FALSE(layers.NextLayer());
  EXPECT_FALSE(layers.LastLayer());
}

// The remembered layer

TEST(OmDisplayLayerHeading, RestoresTheNumberOfTheLayerOnly) {
  Layered table;
  table.setLayerLoc(5);
  OmDisplayLayerHeading layers(table, false);
  layers.SwitchLayer(2);
  EXPECT_EQ(layers.restoreLayer(), 5);
  EXPECT_EQ(layers.getLayer(), 5);
  EXPECT_EQ(layers.getCurrentCellIndex(), (Index{0, 0, 1}));
}

TEST(OmDisplayLayerHeading, FillsTheRestoredLayer) {
  Layered table;
  table.setLayerLoc(5);
  OmDisplayLayerHeading layers(table, false);
  layers.restoreLayer();
  EXPECT_EQ(FilledBy(layers), (Index{7, 1, 2}));
}

TEST(OmDisplayLayerHeading, RestoresANumberThatIsNoLayersAndThenFillsNothing) {
  TwoOfSix table;
  for (int number : {2, 99, INT_MAX, -5}) {
    table.setLayerLoc(number);
    OmDisplayLayerHeading layers(table, true);
    EXPECT_EQ(layers.restoreLayer(), number);
    EXPECT_EQ(layers.getLayer(), number);
    EXPECT_EQ(FilledBy(layers), (Index{7, 7, 7}));
  }
}

TEST(OmDisplayLayerHeading, TakesTheDigitsOfANumberPastTheLastLayerAsTheyAre) {
  Layered table;
  OmDisplayLayerHeading layers(table, false);
  // The first digit is B's and too large for it, the other one is A's.
  for (auto const& [number, filled] :
       {std::pair(7, Index{7, 1, 7}), {6, {7, 0, 7}}, {INT_MAX, {7, 1, 7}}}) {
    table.setLayerLoc(number);
    layers.restoreLayer();
    EXPECT_EQ(FilledBy(layers), filled) << number;
    std::vector<PathNode*> path;
    layers.DimAllNodes(0, path);
    EXPECT_TRUE(path.empty());
    layers.DimAllNodes(1, path);
    EXPECT_EQ(Texts(path), (Labels{"A", "A" + std::to_string(number % 2)}));
    EXPECT_EQ(layers.Nodes(1).size(), 2U);
    EXPECT_TRUE(layers.Nodes(0).empty());
    PathNode* ends[] = {nullptr, nullptr};
    layers.DimCatNodes(1, ends[0], ends[1]);
    EXPECT_EQ(ends[1], path.back());
  }
}

TEST(OmDisplayLayerHeading, AbortsOverARestoredLayerWhereADimensionIsEmpty) {
  Table table;
  table.Add("A");
  table.AddFlat("B", 2);
  table.Place({}, {}, {0, 1});
  table.setLayerLoc(1);
  OmDisplayLayerHeading layers(table, false);
  layers.restoreLayer();
  std::string const message = AssertionPattern("backend/tables/MultiBase:[0-9]+",
                                               ".*MultiBase::Digits\\(.*\\) const", "b>0");
  EXPECT_ABORT(FilledBy(layers), message);
  EXPECT_ABORT(layers.Nodes(0), message);
  EXPECT_TRUE(layers.Nodes(2).empty());
}

TEST(OmDisplayLayerHeading, RestoresNoLayerWhenTheTableRemembersNone) {
  Layered table;
  OmDisplayLayerHeading layers(table, false);
  layers.SwitchLayer(2);
  EXPECT_EQ(layers.restoreLayer(), -1);
  EXPECT_EQ(layers.getLayer(), -1);
}

TEST(OmDisplayLayerHeading, HasNoNextLayerAfterTheLargestNumber) {
  Layered table;
  table.setLayerLoc(INT_MAX);
  OmDisplayLayerHeading layers(table, false);
  layers.restoreLayer();
  EXPECT_FALSE(layers.NextLayer());
  EXPECT_EQ(layers.getLayer(), INT_MAX);
}

TEST(OmDisplayLayerHeading, GoesOnFromTheRestoredLayer) {
  Layered table;
  table.setLayerLoc(3);
  OmDisplayLayerHeading layers(table, false);
  layers.restoreLayer();
  EXPECT_TRUE(layers.NextLayer());
  EXPECT_EQ(layers.getLayer(), 4);
}

// Positions past the end

TEST(OmDisplayLayerHeading, GivesThePuppetForADimensionPastTheEndAndLengthensTheAxis) {
  Layered table;
  table.Layers().puppet = -7;
  OmDisplayLayerHeading const layers(table, false);
  EXPECT_EQ(layers.getDimensionIndex(3), -7);
  EXPECT_EQ(layers.NDimensions(), 4);
}

TEST(OmDisplayLayerHeading, HasNoWidthPastTheEndAndLengthensTheAxis) {
  Layered table;
  OmDisplayLayerHeading const layers(table, false);
  EXPECT_EQ(layers.VisibleWidth(2), 0);
  EXPECT_EQ(layers.NDimensions(), 3);
}

TEST(OmDisplayLayerHeading, ReadsThePuppetsDimensionForAWidthPastTheEnd) {
  Layered table;
  table.Layers().puppet = 0;
  OmDisplayLayerHeading const layers(table, false);
  EXPECT_EQ(layers.VisibleWidth(2), 2);
}

TEST(OmDisplayLayerHeading, DoesNotLengthenTheAxisForOtherQueries) {
  Layered table;
  OmDisplayLayerHeading layers(table, false);
  layers.SwitchLayer(0);
  EXPECT_TRUE(layers.Nodes(5).empty());
  EXPECT_EQ(layers.NDimensions(), 2);
}

TEST(OmDisplayLayerHeading, CountsTheSameLayersAfterItsAxisWasLengthened) {
  Layered table;
  OmDisplayLayerHeading layers(table, false);
  layers.getDimensionIndex(4);
  EXPECT_TRUE(layers.LastLayer());
  EXPECT_EQ(layers.getLayer(), 5);
  EXPECT_EQ(FilledBy(layers), (Index{7, 1, 2}));
  EXPECT_TRUE(layers.Nodes(4).empty());
}

TEST(OmDisplayLayerHeading, AnswersNodeQueriesAtAPositionThatThePuppetFilled) {
  Layered table;
  table.Layers().puppet = 0;
  OmDisplayLayerHeading layers(table, false);
  layers.SwitchLayer(0);
  ASSERT_EQ(layers.getDimensionIndex(3), 0);
  EXPECT_TRUE(layers.Nodes(2).empty());
  EXPECT_TRUE(layers.Nodes(3).empty());
}

TEST(OmDisplayLayerHeading, GivesThePuppetForANegativePosition) {
  Layered table;
  OmDisplayLayerHeading const layers(table, false);
  EXPECT_EQ(layers.getDimensionIndex(-1), -1);
  EXPECT_EQ(layers.VisibleWidth(-1), 0);
  EXPECT_EQ(layers.NDimensions(), 2);
}

TEST(OmDisplayLayerHeading, IsAsWideAsTheDeepestLeafOfTheDimension) {
  Layered table;
  OmDimension& b = table.Dimension(2);
  layout_tables::Node const group = layout_tables::Group(b, b.Root(), "group");
  Category(b, group, "deep", 3);
  OmDisplayLayerHeading const layers(table, false);
  EXPECT_EQ(layers.VisibleWidth(0), 3);
  EXPECT_EQ(layers.VisibleWidth(1), 2);
}
