#include <gtest/gtest.h>
#include <string>

#include <cells/OmStringCell.h>

#include "core/dimension/OmDimensionEditingFixture.h"

namespace {

constexpr unsigned long kDissolved = static_cast<unsigned long>(-2);

class OmDimensionRemoveChild : public OmDimensionEditing {
 protected:
  /// Dissolves the group and returns the handle as it was left.
  Node Remove(Node group) {
    dimension_.removeChild(group);
    return group;
  }
};

// The children

TEST_F(OmDimensionRemoveChild, ChildrenTakeThePlaceOfTheGroupInTheirOrder) {
  Build("x g(a b) y");
  Remove(At("g"));
  EXPECT_EQ(Shape(), "x a b y");
}

TEST_F(OmDimensionRemoveChild, OfTheFirstChild) {
  Build("g(a b) x");
  Remove(At("g"));
  EXPECT_EQ(Shape(), "a b x");
}

TEST_F(OmDimensionRemoveChild, OfTheLastChild) {
  Build("x g(a b)");
  Remove(At("g"));
  EXPECT_EQ(Shape(), "x a b");
}

TEST_F(OmDimensionRemoveChild, OfTheOnlyChild) {
  Build("g(a)");
  Remove(At("g"));
  EXPECT_EQ(Shape(), "a");
}

TEST_F(OmDimensionRemoveChild, OfAGroupInAGroup) {
  Build("x g(a h(b c) d) y");
  Remove(At("h"));
  EXPECT_EQ(Shape(), "x g(a b c d) y");
}

TEST_F(OmDimensionRemoveChild, GroupsAmongTheChildrenKeepTheirOwnChildren) {
  Build("x g(a h(b c)) y");
  Remove(At("g"));
  EXPECT_EQ(Shape(), "x a h(b c) y");
  EXPECT_EQ(IndexOf(At("h").Value()), (Index{0, 1}));
}

TEST_F(OmDimensionRemoveChild, OfACategoryThatHasChildrenDissolvesItLikeAGroup) {
  Build("x y");
  dimension_.AddNewChild(At("x"), SpyCell("a"), 2, false);
  Remove(At("x"));
  EXPECT_EQ(Shape(), "a y");
  EXPECT_EQ(dimension_.CategoryCount(), 3U);
}

TEST_F(OmDimensionRemoveChild, SubscriptsAndTheCategoryCountStay) {
  Build("x g(a b) y");
  Remove(At("g"));
  EXPECT_EQ(Subscripts(), "x=0 a=1 b=2 y=3");
  EXPECT_EQ(dimension_.CategoryCount(), 4U);
}

TEST_F(OmDimensionRemoveChild, FlagsOfTheChildrenStay) {
  Build("g(a)");
  At("a").Value().hide = At("a").Value().hideLabels = true;
  At("a").Value().sort = 0;
  Remove(At("g"));
  EXPECT_TRUE(At("a").Value().hide && At("a").Value().hideLabels);
  EXPECT_EQ(At("a").Value().sort, 0);
}

// Subscript -2 and the search by value

TEST_F(OmDimensionRemoveChild, OfAChildlessGroupChangesOnlyItsSubscript) {
  Build("x g() y");
  Node const handle = At("g");
  Node const left = Remove(handle);
  EXPECT_EQ(Subscripts(), "x=0 g=-2 y=1");
  EXPECT_EQ(Shape(), "x g() y");
  EXPECT_EQ(IndexOf(root().Value()), (Index{0, 1, 2}));
  EXPECT_EQ(dimension_.CategoryCount(), 2U);
  EXPECT_EQ(left.element, handle.element);
  EXPECT_EQ(left.depth, handle.depth);
}

TEST_F(OmDimensionRemoveChild, OfTheRootChangesOnlyItsSubscript) {
  Build("x g(a)");
  Node const left = Remove(root());
  EXPECT_EQ(root().Value().subscript, kDissolved);
  EXPECT_EQ(Shape(), "x g(a)");
  EXPECT_EQ(left.element, &dimension_);
}

TEST_F(OmDimensionRemoveChild, ThroughAHandleOfDepthZeroChangesOnlyTheSubscript) {
  Build("x g(a)");
  Remove({At("g").element, 0});
  EXPECT_EQ(Shape(), "x g(a)");
  EXPECT_EQ(At("g").Value().subscript, kDissolved);
}

TEST_F(OmDimensionRemoveChild, FindsTheGroupItselfAmongEqualLookingSiblings) {
  Build("g(a) x g(b) y g(c)");
  Remove(root()[2]);
  EXPECT_EQ(Shape(), "g(a) x b y g(c)");
}

TEST_F(OmDimensionRemoveChild, SetsTheSubscriptBeforeTheGroupIsSearchedFor) {
  Build("g(a) x g(b)");
  root()[0].Value().subscript = kDissolved;
  Remove(root()[2]);
  EXPECT_EQ(Shape(), "b g(a) x") << "before the earlier sibling that is equal now";
}

TEST_F(OmDimensionRemoveChild, AnEarlierChildlessGroupOfSubscriptMinusTwoTakesTheChildren) {
  Build("g() x g(a b) y");
  Remove(root()[0]);
  Node const left = Remove(root()[2]);
  EXPECT_EQ(Shape(), "a b g() x y");
  EXPECT_EQ(LabelOf(left.Value()), "y") << "where the group itself stood last";
}

TEST_F(OmDimensionRemoveChild, ALaterGroupOfSubscriptMinusTwoTakesNothing) {
  Build("g(a b) x g()");
  Remove(root()[2]);
  Remove(root()[0]);
  EXPECT_EQ(Shape(), "a b x g()");
}

TEST_F(OmDimensionRemoveChild, AChildThatLooksLikeTheDissolvedGroupTakesTheChildrenAfterIt) {
  Build("x g(a g() b) y");
  root()[1][1].Value().subscript = kDissolved;
  Remove(root()[1]);
  EXPECT_EQ(Shape(), "x a b g() y");
}

// The handle

TEST_F(OmDimensionRemoveChild, TheHandlePointsAtTheFormerNextSiblingAtTheSameDepth) {
  Build("x g(a b) y");
  Node const left = Remove(At("g"));
  EXPECT_EQ(LabelOf(left.Value()), "y");
  EXPECT_EQ(left.element, At("y").element);
  EXPECT_EQ(left.depth, 1U);
}

TEST_F(OmDimensionRemoveChild, TheHandleOfAnInnerGroupKeepsItsDepth) {
  Build("f(g(a b) y)");
  Node const left = Remove(At("g"));
  EXPECT_EQ(LabelOf(left.Value()), "y");
  EXPECT_EQ(left.depth, 2U);
}

TEST_F(OmDimensionRemoveChild, TheHandleOfTheLastGroupPointsPastTheEndAtAnEmptyNode) {
  Build("x g(a b)");
  Node const left = Remove(At("g"));
  EXPECT_EQ(left.element, root().element->children.end);
  EXPECT_EQ(left.NChildren(), 0U);
  EXPECT_EQ(left.Value().label, nullptr);
  EXPECT_EQ(left.Parent().element, &dimension_);
}

TEST_F(OmDimensionRemoveChild, TheHandlePastTheEndIsReadableWhenTheBlockWasFull) {
  Build("w x y g(a b c d)");
  ASSERT_EQ(root().element->children.capacity(), 4U);
  Node const left = Remove(At("g"));
  EXPECT_EQ(Shape(), "w x y a b c d");
  EXPECT_EQ(root().element->children.capacity(), 8U) << "7 children and the group, for a moment";
  EXPECT_EQ(left.element, root().element->children.begin + 7);
  EXPECT_EQ(left.Value().label, nullptr);
}

// What becomes of the rest

TEST_F(OmDimensionRemoveChild, TheParentsIndexStays) {
  Build("x g(a b) y");
  Remove(At("g"));
  EXPECT_EQ(IndexOf(root().Value()), (Index{0, 1, 2}));
}

TEST_F(OmDimensionRemoveChild, TheBlockGrowsForTheChildrenAndTheGroupTogether) {
  Build("x y z g(a)");
  ASSERT_EQ(root().element->children.capacity(), 4U);
  Remove(At("g"));
  EXPECT_EQ(Shape(), "x y z a");
  EXPECT_EQ(root().element->children.capacity(), 8U);
}

TEST_F(OmDimensionRemoveChild, LinksEverythingBelowTheParent) {
  Build("f(a) g(h(b) c i(d)) j(e)");
  Remove(At("g"));
  EXPECT_EQ(Shape(), "f(a) h(b) c i(d) j(e)");
  EXPECT_EQ(StaleLinks(), "");
}

TEST_F(OmDimensionRemoveChild, LinksOutsideTheParentStayStale) {
  Build("x f(a) g(h(b))");
  OmDimension::EraseChildAt(dimension_, 0);
  ASSERT_EQ(StaleLinks(), "a h");
  Remove(root()[1][0]);
  EXPECT_EQ(Shape(), "f(a) g(b)");
  EXPECT_EQ(StaleLinks(), "a");
}

TEST_F(OmDimensionRemoveChild, DissolvesWhatTheHandleNamesThoughItsParentLinkIsStale) {
  Build("x f(g(a)) h(g(b))");
  OmDimension::EraseChildAt(dimension_, 0);
  ASSERT_EQ(StaleLinks(), "g g");
  Remove(root()[0][0]);
  EXPECT_EQ(Shape(), "f(a) h(g(b))");
}

TEST_F(OmDimensionRemoveChild, UndoesAGrouping) {
  Build("x a b y");
  Node first = At("a");
  Node second = At("b");
  dimension_.insertChild(SpyCell("new"), {&first, &second});
  Remove(At("new"));
  EXPECT_EQ(Shape(), "x a b y");
  EXPECT_EQ(Subscripts(), "x=0 a=1 b=2 y=3");
}

TEST_F(OmDimensionRemoveChild, SharesNoContext) {
  Build("x g(a b)");
  Node const group = At("g");
  SpyLog const log;
  Remove(group);
  EXPECT_TRUE(log.Of(SpyCell::Operation::ShareContext).empty());
}

TEST_F(OmDimensionRemoveChild, OfAGroupThatEqualsNoChildChangesOnlyItsSubscript) {
  Build("x");
  Node const group = AddUnlikeAny(root(), "g", true);
  dimension_.AddNewChild(group, SpyCell("a"), 1, false);
  Node const left = Remove(group);
  EXPECT_EQ(Shape(), "x g(a)");
  EXPECT_EQ(group.Value().subscript, kDissolved);
  EXPECT_EQ(left.element, group.element);
  EXPECT_EQ(left.depth, 1U);
}

// Senseless arguments

TEST_F(OmDimensionRemoveChild, OfAnEmptyHandleDoesNothing) {
  Build("g(a)");
  std::string const before = TextOf(dimension_);
  EXPECT_EQ(Remove(Node()).element, nullptr);
  EXPECT_EQ(TextOf(dimension_), before);
}

TEST_F(OmDimensionRemoveChild, OfAGroupOfAnotherDimensionDoesNothing) {
  Build("g(a)");
  OmDimension other(dimension_, nullptr);
  std::string const before = TextOf(dimension_);
  Remove(other.Root()[0]);
  EXPECT_EQ(TextOf(dimension_), before);
  EXPECT_EQ(TextOf(other), before);
}

// Many children

TEST_F(OmDimensionRemoveChild, ChildrenThatEqualTheGroupStandAfterTheOthersFromLastToFirst) {
  Build("x g(a g(1) b g(2) c) y");
  for (Node const& child : {At("g")[1], At("g")[3]}) {
    child.Value().subscript = kDissolved;
  }
  Remove(At("g"));
  EXPECT_EQ(Shape(), "x a b c g(2) g(1) y");
}

TEST_F(OmDimensionRemoveChild, ComparesEachSiblingAndEachChildOnce) {
  constexpr int kCount = 100;
  std::string children;
  for (int i = 0; i < kCount; ++i) {
    children += "c" + std::to_string(i) + "() ";
  }
  Build(children + "g(" + children + ") y");
  Node const group = root()[kCount];
  for (Node const& parent : {root(), group}) {
    for (std::size_t i = 0; i < kCount; ++i) {
      parent[i].Value().subscript = kDissolved;
    }
  }
  SpyLog const log;
  Remove(group);
  EXPECT_LE(log.Of(SpyCell::Operation::Compare).size(), 2U * kCount + 2);
  EXPECT_EQ(root().NChildren(), 2U * kCount + 1);
}

TEST_F(OmDimensionRemoveChild, TakesTimeInProportionToTheNodes) {
  // Between many siblings: making room for each child on its own takes minutes.
  constexpr std::size_t kCount = 200000;
  OmDimension dimension(OmDimensionNode(OmStringCell("root"), 0, true, nullptr), nullptr);
  dimension.AddNewChild(dimension.Root(), OmStringCell("g"), ~0UL, true);
  for (std::size_t i = 0; i < kCount; ++i) {
    dimension.AddNewChild(dimension.Root(), OmStringCell("sibling"), i, false);
  }
  Node dissolved = dimension.Root()[0];
  for (std::size_t i = 0; i < kCount; ++i) {
    dimension.AddNewChild(dissolved, OmStringCell("child"), kCount + i, false);
  }
  dimension.removeChild(dissolved);
  ASSERT_EQ(dimension.Root().NChildren(), 2 * kCount);
  EXPECT_EQ(dimension.Root()[kCount - 1].Value().subscript, 2 * kCount - 1);
  EXPECT_EQ(dimension.Root()[kCount].Value().subscript, 0U);
}

}  // namespace
