#include <gtest/gtest.h>
#include <initializer_list>
#include <string>

#include "core/dimension/OmDimensionEditingFixture.h"

namespace {

/// Moves without a target.
class OmDimensionMoveToShown : public OmDimensionEditing {
 protected:
  void Move(Node node, bool exchange = false) { dimension_.moveChild(node, nullptr, exchange); }
  void Move(std::string const& label) { Move(At(label)); }
  void Hide(std::initializer_list<char const*> labels) {
    for (char const* label : labels) {
      At(label).Value().hide = true;
    }
  }
};

// The receiver

TEST_F(OmDimensionMoveToShown, AShownParentKeepsTheNodeAsItsLastChild) {
  Build("x f(a b c) y");
  Move("a");
  EXPECT_EQ(Shape(), "x f(b c a) y");
}

TEST_F(OmDimensionMoveToShown, AChildOfTheRootBecomesItsLast) {
  Build("a g(b) c");
  Move("a");
  EXPECT_EQ(Shape(), "g(b) c a");
}

TEST_F(OmDimensionMoveToShown, TheLastChildOfAShownParentStays) {
  Build("x f(a b) y");
  std::string const before = TextOf(dimension_);
  Move("b");
  EXPECT_EQ(TextOf(dimension_), before);
}

TEST_F(OmDimensionMoveToShown, UnderAHiddenParentOfAShownOneItGoesToTheGrandparent) {
  Build("x f(a g(b c) d) y");
  Hide({"g"});
  Move("b");
  EXPECT_EQ(Shape(), "x f(a g(c) d b) y");
}

TEST_F(OmDimensionMoveToShown, UnderSeveralHiddenLevelsItGoesToTheNearestShownOne) {
  Build("e(f(g(h(a b)) c) d)");
  Hide({"f", "g", "h"});
  Move("a");
  EXPECT_EQ(Shape(), "e(f(g(h(b)) c) d a)");
}

TEST_F(OmDimensionMoveToShown, AHiddenLevelAboveTheShownOneDoesNotCount) {
  Build("f(g(h(a b)) c)");
  Hide({"f", "h"});
  Move("a");
  EXPECT_EQ(Shape(), "f(g(h(b) a) c)");
}

TEST_F(OmDimensionMoveToShown, UnderHiddenLevelsOnlyItGoesToTheShownRoot) {
  Build("f(g(a b)) c");
  Hide({"f", "g"});
  Move("a");
  EXPECT_EQ(Shape(), "f(g(b)) c a");
}

TEST_F(OmDimensionMoveToShown, UnderHiddenLevelsOnlyItGoesToTheRootThoughThatIsHiddenToo) {
  Build("f(g(a b)) c");
  Hide({"root", "f", "g"});
  Move("a");
  EXPECT_EQ(Shape(), "f(g(b)) c a");
}

TEST_F(OmDimensionMoveToShown, AChildOfAHiddenRootStaysBelowIt) {
  Build("a b");
  Hide({"root"});
  Move("a");
  EXPECT_EQ(Shape(), "b a");
}

TEST_F(OmDimensionMoveToShown, HiddenLabelsDoNotHideAParent) {
  Build("f(g(a b)) c");
  At("g").Value().hideLabels = true;
  Move("a");
  EXPECT_EQ(Shape(), "f(g(b a)) c");
}

TEST_F(OmDimensionMoveToShown, ANodeThatIsHiddenItselfMovesLikeAnyOther) {
  Build("f(a b)");
  Hide({"a"});
  Move("a");
  EXPECT_EQ(Shape(), "f(b a)");
  EXPECT_TRUE(At("a").Value().hide);
}

TEST_F(OmDimensionMoveToShown, TheExchangeFlagIsIgnored) {
  Build("f(g(a b)) c");
  Hide({"g"});
  Move(At("a"), true);
  EXPECT_EQ(Shape(), "f(g(b) a) c");
}

TEST_F(OmDimensionMoveToShown, NoValueIsLookedFor) {
  Build("g(a) x g(b)");
  Node const node = root()[0];
  SpyLog const log;
  Move(node);
  EXPECT_EQ(Shape(), "x g(b) g(a)");
  EXPECT_TRUE(log.Of(SpyCell::Operation::Compare).empty());
}

TEST_F(OmDimensionMoveToShown, TheOnlyChildLeavesAHiddenGroupEmpty) {
  Build("g(a) x");
  Hide({"g"});
  Move("a");
  EXPECT_EQ(Shape(), "g() x a");
}

TEST_F(OmDimensionMoveToShown, TheReceiverGrowsWhenItIsFull) {
  Build("x y z g(a b)");
  Hide({"g"});
  ASSERT_EQ(root().element->children.capacity(), 4U);
  Move("a");
  EXPECT_EQ(Shape(), "x y z g(b) a");
  EXPECT_EQ(root().element->children.capacity(), 8U);
  EXPECT_EQ(StaleLinks(), "");
}

// What the node keeps, and the links

TEST_F(OmDimensionMoveToShown, KeepsSubtreeSubscriptsFlagsIndexesAndTheCategoryCount) {
  Build("g(h(a b) c) d");
  Hide({"g", "h"});
  At("h").Value().sort = 0;
  Move("h");
  EXPECT_EQ(Subscripts(), "g=-1 c=2 d=3 h=-1 a=0 b=1");
  EXPECT_TRUE(At("h").Value().hide);
  EXPECT_EQ(At("h").Value().sort, 0);
  EXPECT_EQ(IndexOf(At("h").Value()), (Index{0, 1}));
  EXPECT_EQ(dimension_.CategoryCount(), 4U);
}

TEST_F(OmDimensionMoveToShown, LeavesTheIndexesAsTheyWere) {
  Build("g(a b) c");
  Hide({"g"});
  Move("a");
  EXPECT_EQ(IndexOf(root().Value()), (Index{0, 1}));
  EXPECT_EQ(IndexOf(At("g").Value()), (Index{0, 1}));
}

TEST_F(OmDimensionMoveToShown, LinksEverythingBelowTheReceiver) {
  Build("f(g(x(u) h(a) i(b)) j(c))");
  Hide({"g"});
  Move("x");
  EXPECT_EQ(Shape(), "f(g(h(a) i(b)) j(c) x(u))");
  EXPECT_EQ(StaleLinks(), "");
}

TEST_F(OmDimensionMoveToShown, LeavesLinksOutsideTheReceiverStale) {
  Build("x e(a) f(b h(c))");
  OmDimension::EraseChildAt(dimension_, 0);
  ASSERT_EQ(StaleLinks(), "a b h");
  Move(root()[1][0]);
  EXPECT_EQ(Shape(), "e(a) f(h(c) b)");
  EXPECT_EQ(StaleLinks(), "a");
}

TEST_F(OmDimensionMoveToShown, FindsTheParentThoughItsLinkIsStale) {
  Build("x g(a b) h(c d)");
  Hide({"g"});
  OmDimension::EraseChildAt(dimension_, 0);
  ASSERT_EQ(StaleLinks(), "a b c d");
  Move(root()[0][0]);
  EXPECT_EQ(Shape(), "g(b) h(c d) a");
}

// Senseless arguments

TEST_F(OmDimensionMoveToShown, TheRootAnEmptyHandleAndAForeignOneChangeNothing) {
  Build("a b");
  OmDimension other(dimension_, nullptr);
  std::string const before = TextOf(dimension_);
  Move(root());
  Move(Node());
  Move(other.Root()[0]);
  EXPECT_EQ(TextOf(dimension_), before);
  EXPECT_EQ(TextOf(other), before);
}

}  // namespace
