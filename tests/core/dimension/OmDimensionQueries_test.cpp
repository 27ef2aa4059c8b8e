#include <gtest/gtest.h>
#include <string>
#include <vector>

#include <cells/OmStringCell.h>
#include <lakresvos/OmDimension.h>

#include "support/Assertions.h"

namespace {

using Node = OmDimension::Node;
using ConstNode = OmDimension::ConstNode;
using Counts = std::vector<unsigned long>;

class OmDimensionQueries : public testing::Test {
 protected:
  Node Group(Node const& parent, bool hidden = false) {
    Node const group = dimension_.AddNewChild(parent, OmStringCell("group"), 0, true);
    group.Value().hide = hidden;
    return group;
  }
  Node Category(Node const& parent) {
    return dimension_.AddNewChild(parent, OmStringCell("category"), 0, false);
  }
  Node Root() { return dimension_.Root(); }

  Counts CountsFrom(ConstNode node, Counts counts) {
    dimension_.getGroupCountsByLevel(node, counts);
    return counts;
  }

  OmDimension dimension_{OmDimensionNode(OmStringCell("root"), 0, true, nullptr), nullptr};
};

// Depth

TEST_F(OmDimensionQueries, ADimensionWithOnlyARootHasOneLevel) {
  EXPECT_EQ(dimension_.getMaximumDepth(), 1U);
  EXPECT_EQ(dimension_.getDepth(Root()), 0U);
}

TEST_F(OmDimensionQueries, TheNumberOfLevelsIsThatOfTheDeepestBranch) {
  Category(Root());
  EXPECT_EQ(dimension_.getMaximumDepth(), 2U);
  Category(Group(Group(Root())));
  Category(Root());
  EXPECT_EQ(dimension_.getMaximumDepth(), 4U);
}

TEST_F(OmDimensionQueries, TheDepthOfASubtreeIsThatOfItsDeepestNode) {
  Node const group = Group(Root());
  Category(Group(group));
  Category(Root());
  EXPECT_EQ(dimension_.getDepth(Root()[0]), 3U);
  EXPECT_EQ(dimension_.getDepth(Root()[0][0][0]), 3U) << "a leaf's own depth";
  EXPECT_EQ(dimension_.getDepth(Root()[1]), 1U);
}

TEST_F(OmDimensionQueries, TheHandlesDepthIsTakenAsItStands) {
  Category(Group(Root()));
  ConstNode const wrong{Root()[0].element, 10};
  EXPECT_EQ(dimension_.getDepth(wrong), 11U);
  ConstNode const leaf{Root()[0][0].element, 0};
  EXPECT_EQ(dimension_.getDepth(leaf), 0U);
}

TEST_F(OmDimensionQueries, HiddenNodesHaveDepthToo) {
  Category(Group(Root(), true));
  EXPECT_EQ(dimension_.getMaximumDepth(), 3U);
}

// Counts by level

TEST_F(OmDimensionQueries, EveryVisibleGroupCountsAtItsLevel) {
  Group(Group(Root()));
  Group(Root());
  EXPECT_EQ(CountsFrom(Root(), Counts(3)), (Counts{0, 2, 1}));
}

TEST_F(OmDimensionQueries, TheCategoriesOfOneParentCountOnce) {
  Node const group = Group(Root());
  Category(group);
  Category(group);
  Category(group);
  EXPECT_EQ(CountsFrom(Root(), Counts(3)), (Counts{0, 1, 1}));
}

TEST_F(OmDimensionQueries, TheCategoriesOfEachParentCountByThemselves) {
  Group(Root());
  Group(Root());
  for (std::size_t i : {0U, 1U}) {
    Category(Root()[i]);
    Category(Root()[i]);
  }
  EXPECT_EQ(CountsFrom(Root(), Counts(3)), (Counts{0, 2, 2}));
}

TEST_F(OmDimensionQueries, GroupsAndCategoriesOfOneParentAddUp) {
  Category(Root());
  Group(Root());
  Category(Root());
  Group(Root());
  EXPECT_EQ(CountsFrom(Root(), Counts(2)), (Counts{0, 3}));
}

TEST_F(OmDimensionQueries, AChildlessHiddenGroupCountsLikeACategory) {
  Group(Root(), true);
  EXPECT_EQ(CountsFrom(Root(), Counts(2)), (Counts{0, 1}));
  Category(Root());
  Group(Root(), true);
  EXPECT_EQ(CountsFrom(Root(), Counts(2)), (Counts{0, 1}));
}

TEST_F(OmDimensionQueries, AHiddenGroupWithChildrenDoesNotCountButItsChildrenDo) {
  Node const hidden = Group(Root(), true);
  Category(hidden);
  Group(hidden);
  EXPECT_EQ(CountsFrom(Root(), Counts(3)), (Counts{0, 0, 2}));
}

TEST_F(OmDimensionQueries, AHiddenGroupWithChildrenLeavesTheCountToALaterSibling) {
  Category(Group(Root(), true));
  Category(Root());
  EXPECT_EQ(CountsFrom(Root(), Counts(3)), (Counts{0, 1, 1}));
}

TEST_F(OmDimensionQueries, ACategoryWithChildrenDoesNotCountButItsChildrenDo) {
  Category(Category(Root()));
  EXPECT_EQ(CountsFrom(Root(), Counts(3)), (Counts{0, 0, 1}));
}

TEST_F(OmDimensionQueries, AHiddenCategoryCountsLikeAnyCategory) {
  Category(Root()).Value().hide = true;
  EXPECT_EQ(CountsFrom(Root(), Counts(2)), (Counts{0, 1}));
}

TEST_F(OmDimensionQueries, HiddenLabelsTakeNoPart) {
  Group(Root()).Value().hideLabels = true;
  EXPECT_EQ(CountsFrom(Root(), Counts(2)), (Counts{0, 1}));
}

TEST_F(OmDimensionQueries, CountsAreAddedToWhatTheVectorHolds) {
  Category(Group(Root()));
  EXPECT_EQ(CountsFrom(Root(), {5, 6, 7, 8}), (Counts{5, 7, 8, 8}));
}

TEST_F(OmDimensionQueries, CountingStartsAtAnyNodeWithTheDepthOfItsHandle) {
  Group(Root());
  Category(Root()[0]);
  Category(Root());
  EXPECT_EQ(CountsFrom(Root()[0], Counts(4)), (Counts{0, 0, 1, 0}));
  ConstNode const deeper{Root()[0].element, 2};
  EXPECT_EQ(CountsFrom(deeper, Counts(4)), (Counts{0, 0, 0, 1}));
}

TEST_F(OmDimensionQueries, TheCallersVectorKeepsItsStorage) {
  dimension_.AddNewChild(Root(), OmStringCell("a"), 0, false);
  Counts counts{5, 6, 7};
  counts.reserve(100);
  unsigned long const* const storage = counts.data();
  dimension_.getGroupCountsByLevel(Root(), counts);
  EXPECT_EQ(counts, (Counts{5, 7, 7}));
  EXPECT_EQ(counts.data(), storage);
  EXPECT_EQ(counts.capacity(), 100U);
}

TEST_F(OmDimensionQueries, LevelsPastTheEndOfTheVectorAreLeftOut) {
  Category(Group(Root()));
  EXPECT_EQ(CountsFrom(Root(), Counts(2)), (Counts{0, 1}));
  EXPECT_EQ(CountsFrom(Root(), Counts()), Counts());
}

// The largest count

TEST_F(OmDimensionQueries, ADimensionWithOnlyARootHasNoVisibleGroups) {
  EXPECT_EQ(dimension_.getMaxVisibleGroupCount(), 0U);
}

TEST_F(OmDimensionQueries, ARootWithCategoriesOnlyHasOne) {
  Category(Root());
  EXPECT_EQ(dimension_.getMaxVisibleGroupCount(), 1U);
  Category(Root());
  Category(Root());
  EXPECT_EQ(dimension_.getMaxVisibleGroupCount(), 1U);
}

TEST_F(OmDimensionQueries, TheLargestCountOfAnyLevelWins) {
  Node const group = Group(Root());
  for (int i = 0; i < 3; ++i) {
    Group(group);
  }
  Category(Root()[0]);
  Category(Root()[0][0]);
  EXPECT_EQ(dimension_.getMaxVisibleGroupCount(), 4U);
}

TEST_F(OmDimensionQueries, AHundredThousandLevelsAreMeasured) {
  Node node = Root();
  for (int i = 0; i < 100000; ++i) {
    node = Group(node);
  }
  EXPECT_EQ(dimension_.getMaximumDepth(), 100001U);
  EXPECT_EQ(dimension_.getMaxVisibleGroupCount(), 1U);
}

// The category count

TEST_F(OmDimensionQueries, TheCategoryCountCanBeRestored) {
  Category(Root());
  dimension_.setCategoryCount(7);
  EXPECT_EQ(dimension_.CategoryCount(), 7U);
  EXPECT_EQ(Root().NChildren(), 1U);
  EXPECT_EQ(OmDimension(dimension_, nullptr).CategoryCount(), 7U);
  dimension_.setCategoryCount(0);
  EXPECT_EQ(dimension_.CategoryCount(), 0U);
  EXPECT_EQ(Root().NChildren(), 1U);
}

TEST_F(OmDimensionQueries, ARestoredCategoryCountGoesOnFromThere) {
  Node const leaf = Category(Root());
  dimension_.setCategoryCount(7);
  Category(Root());
  EXPECT_EQ(dimension_.CategoryCount(), 8U);
  dimension_.insertCategory(OmStringCell("edit"), leaf, Root(), true);
  EXPECT_EQ(dimension_.CategoryCount(), 9U);
}

TEST_F(OmDimensionQueries, DeletingCountsARestoredCategoryCountAnew) {
  Category(Root());
  dimension_.setCategoryCount(7);
  Node group = Group(Root());
  dimension_.Delete(group);
  EXPECT_EQ(dimension_.CategoryCount(), Root()[0].Value().subscript + 1);
}

// Counterpart

TEST_F(OmDimensionQueries, TheCounterpartIsTheNodeAtTheSamePlaceOfThisDimension) {
  Category(Group(Root()));
  Category(Root()[0]);
  OmDimension copy(dimension_, nullptr);
  Node leaf = Root()[0][1];
  EXPECT_EQ(copy.Counterpart(leaf).element, copy.Root()[0][1].element);
  EXPECT_EQ(copy.Counterpart(leaf).depth, 2U);
  Node root = Root();
  EXPECT_EQ(copy.Counterpart(root).element, &copy);
}

using OmDimensionQueriesDeathTest = OmDimensionQueries;

TEST_F(OmDimensionQueriesDeathTest, TheCounterpartOfAStaleHandleAborts) {
  Category(Root());
  Category(Root());
  OmDimension copy(dimension_, nullptr);
  Node stale = Root()[1];
  Node first = Root()[0];
  dimension_.Delete(first);
  EXPECT_ABORT(copy.Counterpart(stale),
               AssertionPattern("backend/tables/om/VectorTree:384",
                                LiteralPattern("OmVectorTree<Type>::Node OmVectorTree<Type>::Node::"
                                               "Counterpart(OmVectorTree<Type>&) [with Type = "
                                               "OmDimensionNode]"),
                                "0 <= offset && offset < vec.size()"));
}

}  // namespace
