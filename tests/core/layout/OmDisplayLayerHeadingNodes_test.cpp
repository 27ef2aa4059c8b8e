#include <deque>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include <lakresvos/OmDisplayLayerHeading.h>

#include "support/LayoutTables.h"

namespace {

using layout_tables::Category;
using layout_tables::Group;
using layout_tables::Node;
using layout_tables::Table;
using layout_tables::Text;
using layout_tables::Texts;
using PathNode = OmDisplayLayerHeading::PathNode;
using Labels = std::vector<std::string>;

/// One layer dimension "root" with the path root > outer > inner > leaf, and a category beside
/// outer.
class OmDisplayLayerHeadingNodes : public testing::Test {
 protected:
  OmDisplayLayerHeadingNodes() {
    Category(dimension, inner, "leaf", 0);
    Category(dimension, dimension.Root(), "beside", 1);
    table.Place({}, {}, {0});
  }

  OmDimensionNode& Root() { return dimension.Root().Value(); }
  OmDimensionNode& Leaf() { return inner.Child(0).Value(); }

  Labels NodesOf(int layer, int position = 0) {
    OmDisplayLayerHeading layers(table, false);
    layers.SwitchLayer(layer);
    return Texts(layers.Nodes(position));
  }

  Table table;
  OmDimension& dimension = table.Add("root");
  Node outer = Group(dimension, dimension.Root(), "outer");
  Node inner = Group(dimension, outer, "inner");
};

}  // namespace

TEST_F(OmDisplayLayerHeadingNodes, AreThePathOfTheCurrentCategoryOutermostFirst) {
  EXPECT_EQ(NodesOf(0), (Labels{"root", "outer", "inner", "leaf"}));
  EXPECT_EQ(NodesOf(1), (Labels{"root", "beside"}));
}

TEST_F(OmDisplayLayerHeadingNodes, KeepTheirDepths) {
  OmDisplayLayerHeading layers(table, false);
  layers.SwitchLayer(0);
  std::deque<PathNode*> const nodes = layers.Nodes(0);
  ASSERT_EQ(nodes.size(), 4U);
  for (unsigned int depth = 0; depth < 4; ++depth) {
    EXPECT_EQ(nodes[depth]->depth, depth);
  }
}

TEST_F(OmDisplayLayerHeadingNodes, KeepThePlaceOfAHiddenLevel) {
  outer.Value().hide = true;
  EXPECT_EQ(NodesOf(0), (Labels{"root", "-", "inner", "leaf"}));
}

TEST_F(OmDisplayLayerHeadingNodes, KeepThePlaceOfAHiddenRootAndLeaf) {
  Root().hide = true;
  Leaf().hide = true;
  EXPECT_EQ(NodesOf(0), (Labels{"-", "outer", "inner", "-"}));
}

TEST_F(OmDisplayLayerHeadingNodes, EndAboveAGroupThatHidesItsLabels) {
  inner.Value().hideLabels = true;
  EXPECT_EQ(NodesOf(0), (Labels{"root", "outer"}));
}

TEST_F(OmDisplayLayerHeadingNodes, GoOnBelowAHiddenGroupThatHidesItsLabels) {
  outer.Value().hide = true;
  outer.Value().hideLabels = true;
  EXPECT_EQ(NodesOf(0), (Labels{"root", "-", "inner", "leaf"}));
}

TEST_F(OmDisplayLayerHeadingNodes, AreNoneWhenTheRootHidesItsLabels) {
  Root().hideLabels = true;
  EXPECT_EQ(NodesOf(0), Labels{});
}

TEST_F(OmDisplayLayerHeadingNodes, DoNotEndAtACategoryThatHidesItsLabels) {
  Leaf().hideLabels = true;
  EXPECT_EQ(NodesOf(0), (Labels{"root", "outer", "inner", "leaf"}));
}

TEST_F(OmDisplayLayerHeadingNodes, AreNoneWithoutACurrentLayer) {
  EXPECT_EQ(NodesOf(-1), Labels{});
}

TEST_F(OmDisplayLayerHeadingNodes, AreNoneOutsideTheAxis) {
  EXPECT_EQ(NodesOf(0, -1), Labels{});
  EXPECT_EQ(NodesOf(0, 1), Labels{});
}

TEST_F(OmDisplayLayerHeadingNodes, AreNoneForARestoredNumberThatIsNoLayers) {
  table.setLayerLoc(2);
  OmDisplayLayerHeading layers(table, false);
  layers.restoreLayer();
  std::vector<PathNode*> all;
  layers.DimAllNodes(0, all);
  EXPECT_TRUE(layers.Nodes(0).empty());
  EXPECT_TRUE(all.empty());
}

TEST_F(OmDisplayLayerHeadingNodes, AreThoseOfTheRestoredLayer) {
  table.setLayerLoc(1);
  OmDisplayLayerHeading layers(table, false);
  layers.restoreLayer();
  EXPECT_EQ(Texts(layers.Nodes(0)), (Labels{"root", "beside"}));
}

TEST_F(OmDisplayLayerHeadingNodes, BelongToTheNonEmptyLayerOfThatNumber) {
  table.Put({1});
  OmDisplayLayerHeading layers(table, true);
  layers.SwitchLayer(0);
  EXPECT_EQ(Texts(layers.Nodes(0)), (Labels{"root", "beside"}));
}

TEST_F(OmDisplayLayerHeadingNodes, OfALayerThatNamesNoLeafAreNone) {
  Node beside = dimension.Root().Child(1);
  Category(dimension, dimension.Root(), "last", 2);
  dimension.Delete(beside);
  EXPECT_EQ(NodesOf(1), (Labels{"root", "last"}));
  EXPECT_EQ(NodesOf(2), Labels{});
}

TEST_F(OmDisplayLayerHeadingNodes, OfTheWholePathIncludeWhatIsHidden) {
  outer.Value().hide = true;
  inner.Value().hideLabels = true;
  OmDisplayLayerHeading layers(table, false);
  layers.SwitchLayer(0);
  std::vector<PathNode*> all;
  layers.DimAllNodes(0, all);
  EXPECT_EQ(Texts(all), (Labels{"root", "outer", "inner", "leaf"}));
}

TEST_F(OmDisplayLayerHeadingNodes, OfTheWholePathAreAppended) {
  OmDisplayLayerHeading layers(table, false);
  layers.SwitchLayer(1);
  std::vector<PathNode*> all{nullptr};
  layers.DimAllNodes(0, all);
  EXPECT_EQ(Texts(all), (Labels{"-", "root", "beside"}));
}

TEST_F(OmDisplayLayerHeadingNodes, AtTheEndsOfThePathAreTheRootAndTheCategory) {
  OmDisplayLayerHeading layers(table, false);
  layers.SwitchLayer(0);
  PathNode* outermost = nullptr;
  PathNode* category = nullptr;
  layers.DimCatNodes(0, outermost, category);
  EXPECT_EQ(Text(outermost), "root");
  EXPECT_EQ(Text(category), "leaf");
}

TEST_F(OmDisplayLayerHeadingNodes, AtTheEndsStayUntouchedWhereThereIsNoPath) {
  OmDisplayLayerHeading layers(table, false);
  PathNode mark;
  PathNode* outermost = &mark;
  PathNode* category = &mark;
  layers.DimCatNodes(0, outermost, category);
  layers.SwitchLayer(0);
  layers.DimCatNodes(1, outermost, category);
  layers.DimCatNodes(-1, outermost, category);
  EXPECT_EQ(outermost, &mark);
  EXPECT_EQ(category, &mark);
}

TEST(OmDisplayLayerHeadingSingleNode, IsShownButIsNoWholePath) {
  Table table;
  OmDimension const made(OmDimensionNode(OmStringCell("only"), 0, false, nullptr), nullptr);
  table.AddDimension(made);
  Category(table.Dimension(0), table.Dimension(0).Root(), "not a leaf of its own", 0);
  table.Place({}, {}, {0});
  OmDisplayLayerHeading layers(table, false);
  ASSERT_TRUE(layers.SwitchLayer(0));
  EXPECT_EQ(Texts(layers.Nodes(0)), Labels{"only"});

  std::vector<PathNode*> all;
  layers.DimAllNodes(0, all);
  EXPECT_TRUE(all.empty());
  PathNode* outermost = nullptr;
  PathNode* category = nullptr;
  layers.DimCatNodes(0, outermost, category);
  EXPECT_EQ(outermost, nullptr);
  EXPECT_EQ(category, nullptr);
}

TEST(OmDisplayLayerHeadingTwoDimensions, FollowTheirOwnDigits) {
  Table table;
  table.AddFlat("A", 2);
  table.AddFlat("B", 3);
  table.Place({}, {}, {0, 1});
  OmDisplayLayerHeading layers(table, false);
  layers.SwitchLayer(5);
  EXPECT_EQ(Texts(layers.Nodes(0)), (Labels{"B", "B2"}));
  EXPECT_EQ(Texts(layers.Nodes(1)), (Labels{"A", "A1"}));
}
