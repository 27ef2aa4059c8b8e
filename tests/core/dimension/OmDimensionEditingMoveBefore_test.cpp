#include <gtest/gtest.h>
#include <string>

#include "core/dimension/OmDimensionEditingFixture.h"

namespace {

class OmDimensionMoveBefore : public OmDimensionEditing {
 protected:
  void Move(Node node, Node target) { dimension_.moveChild(node, &target, false); }
  void Move(std::string const& node, std::string const& target) { Move(At(node), At(target)); }
  void ExpectNoChangeBy(Node node, Node target) {
    std::string const before = TextOf(dimension_);
    Move(node, target);
    EXPECT_EQ(TextOf(dimension_), before);
  }
};

// Among siblings

TEST_F(OmDimensionMoveBefore, AnEarlierSibling) {
  Build("a b c d");
  Move("c", "a");
  EXPECT_EQ(Shape(), "c a b d");
}

TEST_F(OmDimensionMoveBefore, ALaterSibling) {
  Build("a b c d");
  Move("a", "d");
  EXPECT_EQ(Shape(), "b c a d");
}

TEST_F(OmDimensionMoveBefore, TheSiblingThatFollowsAnywayChangesNothing) {
  Build("a g(b) c");
  ExpectNoChangeBy(At("a"), At("g"));
}

TEST_F(OmDimensionMoveBefore, AnEarlierSiblingThatEqualsTheTargetTakesTheNode) {
  Build("x g(a) y g(b) z");
  Move(At("z"), root()[3]);
  EXPECT_EQ(Shape(), "x z g(a) y g(b)");
}

TEST_F(OmDimensionMoveBefore, ATargetThatEqualsNothingSendsTheNodeToTheEnd) {
  Build("a");
  AddUnlikeAny(root(), "u");
  dimension_.AddNewChild(root(), SpyCell("b"), 2, false);
  Move("a", "u");
  EXPECT_EQ(Shape(), "u b a");
}

TEST_F(OmDimensionMoveBefore, ANodeThatEqualsItsTargetIsGoneWhenThePlaceIsSought) {
  Build("g(a) x g(b) y");
  Move(root()[0], root()[2]);
  EXPECT_EQ(Shape(), "x g(a) g(b) y");
}

TEST_F(OmDimensionMoveBefore, ANodeBeforeAnEarlierOneThatEqualsIt) {
  Build("g(a) x g(b) y");
  Move(root()[2], root()[0]);
  EXPECT_EQ(Shape(), "g(b) g(a) x y");
}

TEST_F(OmDimensionMoveBefore, SiblingsOfOneLabelButAnotherSubscriptAreNotEqual) {
  Build("x a y a z");
  Move(At("z"), root()[3]);
  EXPECT_EQ(Subscripts(), "x=0 a=1 y=2 z=4 a=3");
}

TEST_F(OmDimensionMoveBefore, ASiblingOfOneLabelButAnotherGroupFlagIsNotEqual) {
  Build("x a g() y z");
  SetSubscript("a", ~0UL);
  Node const target = dimension_.AddNewChild(root(), SpyCell("a"), ~0UL, true);
  Move(At("z"), target);
  EXPECT_EQ(Shape(), "x a g() y z a()");
}

TEST_F(OmDimensionMoveBefore, ASiblingOfOneLabelButAnotherKindIsNotEqual) {
  Build("x y");
  dimension_.AddNewChild(root(), SpyCell("a", 1), 7, false);
  Node const target = dimension_.AddNewChild(root(), SpyCell("a", 2), 7, false);
  Move(At("x"), target);
  EXPECT_EQ(Shape(), "y a x a");
}

TEST_F(OmDimensionMoveBefore, FlagsAndIndexesMakeNoDifferenceToEquality) {
  Build("x g(a) y g() z");
  OmDimensionNode& target = root()[3].Value();
  target.hide = target.hideLabels = true;
  target.sort = 0;
  Move(At("z"), root()[3]);
  EXPECT_EQ(Shape(), "x z g(a) y g()");
}

// To another parent

TEST_F(OmDimensionMoveBefore, ANodeIntoALaterGroup) {
  Build("a g(b c) d");
  Move("a", "c");
  EXPECT_EQ(Shape(), "g(b a c) d");
  EXPECT_EQ(At("a").Parent().element, At("g").element);
}

TEST_F(OmDimensionMoveBefore, ANodeIntoAnEarlierGroup) {
  Build("g(b c) d a");
  Move("a", "b");
  EXPECT_EQ(Shape(), "g(a b c) d");
}

TEST_F(OmDimensionMoveBefore, ANodeIntoAGroupFarBelowALaterSibling) {
  Build("a f(g(h(b c)) d)");
  Move("a", "c");
  EXPECT_EQ(Shape(), "f(g(h(b a c)) d)");
}

TEST_F(OmDimensionMoveBefore, ANodeIntoAGroupFarBelowAnEarlierSibling) {
  Build("f(g(h(b c)) d) a e");
  Move("a", "b");
  EXPECT_EQ(Shape(), "f(g(h(a b c)) d) e");
}

TEST_F(OmDimensionMoveBefore, ANodeUpOutOfItsGroupToBeforeIt) {
  Build("x g(a b) y");
  Move("b", "g");
  EXPECT_EQ(Shape(), "x b g(a) y");
}

TEST_F(OmDimensionMoveBefore, ANodeUpOutOfItsGroupToBehindIt) {
  Build("x g(a b) y");
  Move("a", "y");
  EXPECT_EQ(Shape(), "x g(b) a y");
}

TEST_F(OmDimensionMoveBefore, ANodeUpThroughSeveralLevels) {
  Build("x f(g(h(a b))) y");
  Move("a", "x");
  EXPECT_EQ(Shape(), "a x f(g(h(b))) y");
}

TEST_F(OmDimensionMoveBefore, ANodeOutOfAGroupThatMovesToALargerBlock) {
  Build("x y z f(g(a b))");
  ASSERT_EQ(root().element->children.capacity(), 4U);
  Move("a", "x");
  EXPECT_EQ(root().element->children.capacity(), 8U);
  EXPECT_EQ(Shape(), "a x y z f(g(b))");
  EXPECT_EQ(StaleLinks(), "");
}

TEST_F(OmDimensionMoveBefore, ANodeIntoAGroupWhoseBlockIsFull) {
  Build("g(a b c d) x h(e)");
  ASSERT_EQ(At("g").element->children.capacity(), 4U);
  Move("h", "d");
  EXPECT_EQ(At("g").element->children.capacity(), 8U);
  EXPECT_EQ(Shape(), "g(a b c h(e) d) x");
  EXPECT_EQ(StaleLinks(), "");
}

TEST_F(OmDimensionMoveBefore, AmongSiblingsOfAFullBlockTheBlockStays) {
  Build("a b c d");
  ASSERT_EQ(root().element->children.capacity(), 4U);
  OmDimension::Element const* const block = root().element->children.begin;
  Move("d", "a");
  EXPECT_EQ(Shape(), "d a b c");
  EXPECT_EQ(root().element->children.capacity(), 4U);
  EXPECT_EQ(root().element->children.begin, block);
}

TEST_F(OmDimensionMoveBefore, TheLastChildOfAGroupLeavesItEmpty) {
  Build("g(a) x");
  Move("a", "x");
  EXPECT_EQ(Shape(), "g() a x");
}

TEST_F(OmDimensionMoveBefore, AGroupIntoACousin) {
  Build("f(g(a b) c) h(d e)");
  Move("g", "e");
  EXPECT_EQ(Shape(), "f(c) h(d g(a b) e)");
}

TEST_F(OmDimensionMoveBefore, AnEarlierChildOfTheOtherParentThatEqualsTheTargetTakesTheNode) {
  Build("z h(x g(a) y g(b))");
  Move(At("z"), At("h")[3]);
  EXPECT_EQ(Shape(), "h(x z g(a) y g(b))");
}

TEST_F(OmDimensionMoveBefore, AnEarlierSiblingThatEqualsTheNodeStays) {
  Build("g(a) g(b) h(x)");
  Move(root()[1], At("x"));
  EXPECT_EQ(Shape(), "g(a) h(g(b) x)");
}

TEST_F(OmDimensionMoveBefore, AChildOfACategory) {
  Build("x y");
  dimension_.AddNewChild(At("y"), SpyCell("a"), 2, false);
  Move("x", "a");
  EXPECT_EQ(Shape(), "y(x a)");
}

// What the node keeps

TEST_F(OmDimensionMoveBefore, KeepsSubscriptsFlagsIndexesAndTheCategoryCount) {
  Build("x g(a b) h(c)");
  OmDimensionNode& group = At("g").Value();
  group.hide = group.hideLabels = true;
  group.sort = 0;
  Move("g", "c");
  EXPECT_EQ(Subscripts(), "x=0 h=-1 g=-1 a=1 b=2 c=3");
  OmDimensionNode const& moved = At("g").Value();
  EXPECT_TRUE(moved.group && moved.hide && moved.hideLabels);
  EXPECT_EQ(moved.sort, 0);
  EXPECT_EQ(IndexOf(moved), (Index{0, 1}));
  EXPECT_EQ(dimension_.CategoryCount(), 4U);
}

TEST_F(OmDimensionMoveBefore, LeavesTheIndexesOfBothParentsAsTheyWere) {
  Build("x g(a b) h(c d e)");
  Move("d", "a");
  EXPECT_EQ(Shape(), "x g(d a b) h(c e)");
  EXPECT_EQ(IndexOf(At("g").Value()), (Index{0, 1}));
  EXPECT_EQ(IndexOf(At("h").Value()), (Index{0, 1, 2}));
  EXPECT_EQ(IndexOf(root().Value()), (Index{0, 1, 2}));
}

TEST_F(OmDimensionMoveBefore, KeepsTheRegionsOfValuesAndGivesChildrenTheDimensionsRegion) {
  Build("x h(c)");
  Node wrapped = At("x");
  dimension_.insertChild(SpyCell("g"), {&wrapped});
  Move("g", "c");
  EXPECT_EQ(At("g").Value().childIndex.region, OmMemoryRegion::DefaultHeap());
  EXPECT_EQ(At("x").Value().childIndex.region, &region_);
  EXPECT_EQ(At("g").element->children.region, &region_);
}

TEST_F(OmDimensionMoveBefore, SharesNoContext) {
  Build("x g(a b)");
  Node const node = At("x");
  Node const target = At("b");
  SpyLog const log;
  Move(node, target);
  EXPECT_TRUE(log.Of(SpyCell::Operation::ShareContext).empty());
}

// Parent links

TEST_F(OmDimensionMoveBefore, AmongSiblingsLinksEverythingBelowTheParent) {
  Build("g(a) h(b(c)) i(d) x");
  Move("x", "g");
  EXPECT_EQ(Shape(), "x g(a) h(b(c)) i(d)");
  EXPECT_EQ(StaleLinks(), "");
}

TEST_F(OmDimensionMoveBefore, IntoACousinLinksTheReceiverAndLeavesTheFormerSiblingsStale) {
  Build("f(x g(a) h(b)) i(y(c))");
  Move("x", "y");
  EXPECT_EQ(Shape(), "f(g(a) h(b)) i(x y(c))");
  EXPECT_EQ(StaleLinks(), "a b") << "their parents moved down one place";
  EXPECT_EQ(At("a").element->parent, At("g").element + 1);
  EXPECT_EQ(At("b").element->parent, At("h").element + 1);
}

TEST_F(OmDimensionMoveBefore, BelowALaterSiblingLinksThatOneAloneAmongThoseThatMoved) {
  Build("x g(a) h(b i(c)) j(d)");
  Move("x", "b");
  EXPECT_EQ(Shape(), "g(a) h(x b i(c)) j(d)");
  EXPECT_EQ(StaleLinks(), "a d");
}

TEST_F(OmDimensionMoveBefore, FarBelowALaterSiblingLeavesTheLinksToThatOneStale) {
  Build("x g(h(b(e) i(c)))");
  Move("x", "b");
  EXPECT_EQ(Shape(), "g(h(x b(e) i(c)))");
  EXPECT_EQ(StaleLinks(), "h");
}

TEST_F(OmDimensionMoveBefore, BelowAnEarlierSiblingLeavesTheLaterOnesStale) {
  Build("g(a) x h(b)");
  Move("x", "a");
  EXPECT_EQ(Shape(), "g(x a) h(b)");
  EXPECT_EQ(StaleLinks(), "b");
}

TEST_F(OmDimensionMoveBefore, UpOutOfAGroupLinksEverything) {
  Build("g(x h(a)) i(b)");
  Move("x", "g");
  EXPECT_EQ(Shape(), "x g(h(a)) i(b)");
  EXPECT_EQ(StaleLinks(), "");
}

TEST_F(OmDimensionMoveBefore, MovesWhatTheHandlesNameThoughTheirParentLinksAreStale) {
  Build("z f(x g(a)) h(y)");
  OmDimension::EraseChildAt(dimension_, 0);
  ASSERT_EQ(StaleLinks(), "x g y");
  Move(root()[0][0], root()[1][0]);
  EXPECT_EQ(Shape(), "f(g(a)) h(x y)");
}

// Senseless arguments

TEST_F(OmDimensionMoveBefore, TheRootCannotMove) {
  Build("a b");
  ExpectNoChangeBy(root(), At("a"));
}

TEST_F(OmDimensionMoveBefore, NothingMovesBeforeTheRoot) {
  Build("a b");
  ExpectNoChangeBy(At("a"), root());
}

TEST_F(OmDimensionMoveBefore, ItselfChangesNothing) {
  Build("a g(b) c");
  ExpectNoChangeBy(At("g"), At("g"));
}

TEST_F(OmDimensionMoveBefore, AnEqualNodeThatComesFirstItselfChangesNothing) {
  Build("x g(a) y g(b)");
  ExpectNoChangeBy(root()[3], root()[3]);
}

TEST_F(OmDimensionMoveBefore, ItsOwnChildOrGrandchildChangesNothing) {
  Build("a g(b h(c)) d");
  ExpectNoChangeBy(At("g"), At("b"));
  ExpectNoChangeBy(At("g"), At("c"));
}

TEST_F(OmDimensionMoveBefore, EmptyHandlesChangeNothing) {
  Build("a b");
  ExpectNoChangeBy(Node(), At("a"));
  ExpectNoChangeBy(At("a"), Node());
}

TEST_F(OmDimensionMoveBefore, HandlesOfAnotherDimensionChangeNothing) {
  Build("a b");
  OmDimension other(dimension_, nullptr);
  std::string const before = TextOf(other);
  ExpectNoChangeBy(other.Root()[0], At("b"));
  ExpectNoChangeBy(At("a"), other.Root()[1]);
  EXPECT_EQ(TextOf(other), before);
}

}  // namespace
