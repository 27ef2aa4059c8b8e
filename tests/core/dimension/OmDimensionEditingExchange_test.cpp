#include <gtest/gtest.h>
#include <string>

#include "core/dimension/OmDimensionEditingFixture.h"

namespace {

class OmDimensionExchange : public OmDimensionEditing {
 protected:
  void Exchange(Node node, Node target) { dimension_.moveChild(node, &target, true); }
  void Exchange(std::string const& node, std::string const& target) {
    Exchange(At(node), At(target));
  }
  void ExpectNoChangeBy(Node node, Node target) {
    std::string const before = TextOf(dimension_);
    Exchange(node, target);
    EXPECT_EQ(TextOf(dimension_), before);
  }
};

// Siblings

TEST_F(OmDimensionExchange, SiblingsWithOneBetweenThem) {
  Build("A x B y");
  Exchange("A", "B");
  EXPECT_EQ(Shape(), "B x A y");
}

TEST_F(OmDimensionExchange, SiblingsWithOneBetweenThemTheOtherWayRound) {
  Build("A x B y");
  Exchange("B", "A");
  EXPECT_EQ(Shape(), "B x A y");
}

TEST_F(OmDimensionExchange, NeighboursOfWhichTheTargetFollows) {
  Build("A B y");
  Exchange("A", "B");
  EXPECT_EQ(Shape(), "B A y");
}

TEST_F(OmDimensionExchange, NeighboursOfWhichTheNodeFollows) {
  Build("A B y");
  Exchange("B", "A");
  EXPECT_EQ(Shape(), "B A y");
}

TEST_F(OmDimensionExchange, NeighboursAtTheEndOfWhichTheTargetFollows) {
  Build("x A B");
  Exchange("A", "B");
  EXPECT_EQ(Shape(), "x B A");
}

TEST_F(OmDimensionExchange, NeighboursAtTheEndOfWhichTheNodeFollows) {
  Build("x A B");
  Exchange("B", "A");
  EXPECT_EQ(Shape(), "x B A");
}

TEST_F(OmDimensionExchange, TheOnlyTwoChildrenBothWaysRound) {
  Build("A B");
  Exchange("A", "B");
  EXPECT_EQ(Shape(), "B A");
  Exchange("A", "B");
  EXPECT_EQ(Shape(), "A B");
}

TEST_F(OmDimensionExchange, TheFirstAndTheLastChild) {
  Build("A x y B");
  Exchange("A", "B");
  EXPECT_EQ(Shape(), "B x y A");
}

TEST_F(OmDimensionExchange, TheLastAndTheFirstChild) {
  Build("A x y B");
  Exchange("B", "A");
  EXPECT_EQ(Shape(), "B x y A");
}

TEST_F(OmDimensionExchange, GroupsWithAllTheyHold) {
  Build("f(a g(b)) x h(c) y");
  Exchange("f", "h");
  EXPECT_EQ(Shape(), "h(c) x f(a g(b)) y");
}

TEST_F(OmDimensionExchange, SiblingsInAGroup) {
  Build("u f(A x B) v");
  Exchange("A", "B");
  EXPECT_EQ(Shape(), "u f(B x A) v");
}

// Equal siblings

TEST_F(OmDimensionExchange, TwoEqualNeighboursOfWhichTheTargetFollows) {
  Build("g(a) g(b) y");
  Exchange(root()[0], root()[1]);
  EXPECT_EQ(Shape(), "g(b) g(a) y");
}

TEST_F(OmDimensionExchange, TwoEqualSiblings) {
  Build("g(a) x g(b) y");
  Exchange(root()[0], root()[2]);
  EXPECT_EQ(Shape(), "g(b) x g(a) y");
}

TEST_F(OmDimensionExchange, AnEarlierSiblingThatEqualsTheTargetIsErasedInItsPlace) {
  Build("g(a) N g(b) y");
  Exchange(At("N"), root()[2]);
  EXPECT_EQ(Shape(), "g(b) g(b) N y");
}

TEST_F(OmDimensionExchange, TheNodesNextMayBeTheOneThatIsErased) {
  Build("N g(a) x g(b) y");
  Exchange(At("N"), root()[3]);
  EXPECT_EQ(Shape(), "x g(b) g(b) N y") << "the anchor's equal is the target that was left";
}

TEST_F(OmDimensionExchange, AnEarlierSiblingThatEqualsTheNodeStays) {
  Build("g(a) x g(b) T y");
  Exchange(root()[2], At("T"));
  EXPECT_EQ(Shape(), "g(a) x T g(b) y");
}

TEST_F(OmDimensionExchange, AnEarlierSiblingThatEqualsTheTargetsNextTakesTheNode) {
  Build("N x g(a) z T g(b)");
  Exchange("N", "T");
  EXPECT_EQ(Shape(), "T x N g(a) z g(b)");
}

TEST_F(OmDimensionExchange, AnEarlierSiblingThatEqualsTheNodesNextTakesTheTarget) {
  Build("g(a) x N g(b) T y");
  Exchange("N", "T");
  EXPECT_EQ(Shape(), "T g(a) x g(b) N y");
}

TEST_F(OmDimensionExchange, NeighboursBeforeASiblingThatEqualsAnEarlierOneGoThere) {
  Build("g(a) x N T g(b)");
  Exchange("N", "T");
  EXPECT_EQ(Shape(), "T N g(a) x g(b)");
}

TEST_F(OmDimensionExchange, NeighboursTheOtherWayRoundBeforeASiblingThatEqualsAnEarlierOneGoThere) {
  Build("g(a) x T N g(b)");
  Exchange("N", "T");
  EXPECT_EQ(Shape(), "N T g(a) x g(b)");
}

TEST_F(OmDimensionExchange, TheCopyOfTheNodeTakesTheTargetWhenItEqualsTheNodesNext) {
  Build("T y g(n) g(b)");
  Exchange(root()[2], At("T"));
  EXPECT_EQ(Shape(), "T g(n) y g(b)");
}

TEST_F(OmDimensionExchange, TheCopyOfTheTargetTakesTheNodeWhenItEqualsTheTargetsNext) {
  Build("x N g(t) g(b)");
  Exchange(At("N"), root()[2]);
  EXPECT_EQ(Shape(), "x N g(t) g(b)");
}

// Cousins

TEST_F(OmDimensionExchange, NodesOfDifferentParentsEachBecomeTheLastOfTheirOwn) {
  Build("f(A a b) h(c B d)");
  Exchange("A", "B");
  EXPECT_EQ(Shape(), "f(a b A) h(c d B)");
}

TEST_F(OmDimensionExchange, NodesOfDifferentParentsStayLastWhereTheyAre) {
  Build("f(a A) h(b B)");
  ExpectNoChangeBy(At("A"), At("B"));
}

TEST_F(OmDimensionExchange, AChildThatEqualsTheTargetsNextTakesTheNode) {
  Build("f(g(a) x A) h(c B g(b) d)");
  Exchange("A", "B");
  EXPECT_EQ(Shape(), "f(A g(a) x) h(c g(b) d B)");
}

TEST_F(OmDimensionExchange, AChildThatEqualsTheNodesNextTakesTheTarget) {
  Build("f(A g(a) x) h(g(b) c B d)");
  Exchange("A", "B");
  EXPECT_EQ(Shape(), "f(g(a) x A) h(B g(b) c d)");
}

TEST_F(OmDimensionExchange, TheFirstOfSeveralChildrenThatEqualTheAnchorCounts) {
  Build("f(g(a) x g(b) A) h(B g(c))");
  Exchange("A", "B");
  EXPECT_EQ(Shape(), "f(A g(a) x g(b)) h(g(c) B)");
}

TEST_F(OmDimensionExchange, AnEarlierCousinThatEqualsTheTargetIsErasedInItsPlace) {
  Build("f(A a) h(g(b) x g(c))");
  Exchange(At("A"), At("h")[2]);
  EXPECT_EQ(Shape(), "f(a A) h(x g(c) g(c))");
}

TEST_F(OmDimensionExchange, ANodeAndOneBelowALaterSiblingOfIt) {
  Build("A a h(B b) c");
  Exchange("A", "B");
  EXPECT_EQ(Shape(), "a h(b B) c A");
}

TEST_F(OmDimensionExchange, ANodeAndOneBelowAnEarlierSiblingOfIt) {
  Build("a h(B b) A c");
  Exchange("A", "B");
  EXPECT_EQ(Shape(), "a h(b B) c A");
}

TEST_F(OmDimensionExchange, ANodeAndOneBesideItsParent) {
  Build("B a h(A b) c");
  Exchange("A", "B");
  EXPECT_EQ(Shape(), "a h(b A) c B");
}

TEST_F(OmDimensionExchange, ANodeAndTheNextSiblingOfItsParent) {
  Build("a h(A b) B c");
  Exchange("A", "B");
  EXPECT_EQ(Shape(), "a h(b A) c B");
}

TEST_F(OmDimensionExchange, NodesOnFarApartLevels) {
  Build("A f(g(h(B b))) c");
  Exchange("A", "B");
  EXPECT_EQ(Shape(), "f(g(h(b B))) c A");
  Exchange("B", "A");
  EXPECT_EQ(Shape(), "f(g(h(b B))) c A");
}

// What the nodes keep

TEST_F(OmDimensionExchange, KeepsSubscriptsFlagsIndexesAndTheCategoryCount) {
  Build("f(a b) x B y");
  OmDimensionNode& group = At("f").Value();
  group.hide = group.hideLabels = true;
  group.sort = 1;
  At("B").Value().hide = true;
  Exchange("f", "B");
  EXPECT_EQ(Subscripts(), "B=3 x=2 f=-1 a=0 b=1 y=4");
  OmDimensionNode const& moved = At("f").Value();
  EXPECT_TRUE(moved.hide && moved.hideLabels && At("B").Value().hide);
  EXPECT_EQ(moved.sort, 1);
  EXPECT_EQ(IndexOf(moved), (Index{0, 1}));
  EXPECT_EQ(dimension_.CategoryCount(), 5U);
}

TEST_F(OmDimensionExchange, LeavesTheIndexesAsTheyWere) {
  Build("f(A a) h(b B c)");
  Exchange("f", "h");
  Exchange("A", "B");
  EXPECT_EQ(IndexOf(root().Value()), (Index{0, 1}));
  EXPECT_EQ(IndexOf(At("f").Value()), (Index{0, 1}));
  EXPECT_EQ(IndexOf(At("h").Value()), (Index{0, 1, 2}));
}

TEST_F(OmDimensionExchange, OfSiblingsInAFullBlockKeepsTheBlock) {
  Build("A x B y");
  ASSERT_EQ(root().element->children.capacity(), 4U);
  OmDimension::Element const* const block = root().element->children.begin;
  Exchange("A", "B");
  EXPECT_EQ(root().element->children.begin, block);
}

TEST_F(OmDimensionExchange, SharesNoContext) {
  Build("A x B");
  Node const node = At("A");
  Node const target = At("B");
  SpyLog const log;
  Exchange(node, target);
  EXPECT_TRUE(log.Of(SpyCell::Operation::ShareContext).empty());
}

// Parent links

TEST_F(OmDimensionExchange, OfSiblingsLinksEverythingBelowTheParent) {
  Build("f(a) g(b(c)) h(d) i(e)");
  Exchange("f", "h");
  EXPECT_EQ(Shape(), "h(d) g(b(c)) f(a) i(e)");
  EXPECT_EQ(StaleLinks(), "");
}

TEST_F(OmDimensionExchange, OfSiblingsLeavesLinksOutsideTheParentStale) {
  Build("x f(a) g(h(b) i(c))");
  OmDimension::EraseChildAt(dimension_, 0);
  ASSERT_EQ(StaleLinks(), "a h i");
  Exchange(root()[1][0], root()[1][1]);
  EXPECT_EQ(StaleLinks(), "a");
}

TEST_F(OmDimensionExchange, OfCousinsLinksEverythingBelowBothParents) {
  Build("f(A(u) g(a)) h(B(v) i(b))");
  Exchange("A", "B");
  EXPECT_EQ(Shape(), "f(g(a) A(u)) h(i(b) B(v))");
  EXPECT_EQ(StaleLinks(), "");
}

TEST_F(OmDimensionExchange, OfCousinsLeavesLinksOutsideBothParentsStale) {
  Build("x e(c) f(A a) h(B b)");
  OmDimension::EraseChildAt(dimension_, 0);
  ASSERT_EQ(StaleLinks(), "c A a B b");
  Exchange(root()[1][0], root()[2][0]);
  EXPECT_EQ(StaleLinks(), "c");
}

TEST_F(OmDimensionExchange, OfNodesOnDifferentLevelsLinksEverythingBelowBothParents) {
  Build("A(u) f(a(p) h(B(v) i(b))) j(c)");
  Exchange("A", "B");
  EXPECT_EQ(Shape(), "f(a(p) h(i(b) B(v))) j(c) A(u)");
  EXPECT_EQ(StaleLinks(), "");
}

TEST_F(OmDimensionExchange, ANodeThatEqualsNothingChangesPlacesLikeAnyOther) {
  Build("a b");
  AddUnlikeAny(root(), "u");
  Exchange("u", "a");
  EXPECT_EQ(Shape(), "u b a");
}

TEST_F(OmDimensionExchange, WithASiblingThatEqualsNothingChangesNothing) {
  Build("a b");
  AddUnlikeAny(root(), "u");
  ExpectNoChangeBy(At("a"), At("u"));
  ExpectNoChangeBy(At("b"), At("u"));
}

TEST_F(OmDimensionExchange, WithACousinThatEqualsNothingChangesNothing) {
  Build("f(a b) h(c)");
  AddUnlikeAny(At("h"), "u");
  ExpectNoChangeBy(At("a"), At("u"));
}

// Senseless arguments

TEST_F(OmDimensionExchange, WithTheRootChangesNothing) {
  Build("a b");
  ExpectNoChangeBy(root(), At("a"));
  ExpectNoChangeBy(At("a"), root());
}

TEST_F(OmDimensionExchange, WithItselfChangesNothing) {
  Build("a g(b) c");
  ExpectNoChangeBy(At("g"), At("g"));
}

TEST_F(OmDimensionExchange, WithANodeAboveOrBelowChangesNothing) {
  Build("a f(g(b c) d) e");
  ExpectNoChangeBy(At("f"), At("b"));
  ExpectNoChangeBy(At("b"), At("f"));
  ExpectNoChangeBy(At("g"), At("f"));
}

TEST_F(OmDimensionExchange, WithANodeWhoseEarlierEqualHoldsTheNodeChangesNothing) {
  Build("g(A a) x g(b)");
  ExpectNoChangeBy(At("A"), root()[2]);
}

TEST_F(OmDimensionExchange, WithEmptyHandlesChangesNothing) {
  Build("a b");
  ExpectNoChangeBy(Node(), At("a"));
  ExpectNoChangeBy(At("a"), Node());
}

TEST_F(OmDimensionExchange, WithHandlesOfAnotherDimensionChangesNothing) {
  Build("a b");
  OmDimension other(dimension_, nullptr);
  std::string const before = TextOf(other);
  ExpectNoChangeBy(At("a"), other.Root()[1]);
  ExpectNoChangeBy(other.Root()[0], At("b"));
  EXPECT_EQ(TextOf(other), before);
}

// The order of the deletions

TEST_F(OmDimensionExchange, TheNodeGoesBeforeTheTargetWhereverTheyStand) {
  for (char const* outline : {"A x B y", "B x A y", "f(A) g(B)", "f(B) A", "f(A) B", "f(g(A)) h(B)",
                              "B g(x(A)) y", "A g(x(B)) y"}) {
    OmDimension::DestroySubtree(dimension_);
    dimension_.value.group = true;
    dimension_.children.region = &region_;
    Build(outline);
    std::vector<SpyCell const*> const cells{static_cast<SpyCell const*>(At("A").Value().label),
                                            static_cast<SpyCell const*>(At("B").Value().label)};
    SpyLog const log;
    Exchange("A", "B");
    EXPECT_EQ(Destroyed(log, cells), cells) << outline;
  }
}

}  // namespace
