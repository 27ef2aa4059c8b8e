#include <gtest/gtest.h>
#include <string>

#include "core/dimension/OmDimensionEditingFixture.h"

namespace {

class OmDimensionInsertCategory : public OmDimensionEditing {
 protected:
  OmDimensionNode Insert(std::string const& label, Node sibling, Node parent, bool before) {
    return dimension_.insertCategory(SpyCell(label), sibling, parent, before);
  }
  OmDimensionNode InsertBefore(std::string const& sibling) {
    return Insert("new", At(sibling), At(sibling).Parent(), true);
  }
  OmDimensionNode InsertAfter(std::string const& sibling) {
    return Insert("new", At(sibling), At(sibling).Parent(), false);
  }
};

// The subscript

TEST_F(OmDimensionInsertCategory, NextToSubscripts0And1And5GetsSubscript6AndRaisesTheCountByOne) {
  Build("a b c");
  SetSubscript("c", 5);
  EXPECT_EQ(InsertAfter("a").subscript, 6U);
  EXPECT_EQ(Subscripts(), "a=0 new=6 b=1 c=5");
  EXPECT_EQ(dimension_.CategoryCount(), 4U);
}

TEST_F(OmDimensionInsertCategory, LooksForTheLargestSubscriptInTheWholeDimension) {
  Build("a g(h(b))");
  SetSubscript("b", 9);
  EXPECT_EQ(InsertAfter("a").subscript, 10U);
}

TEST_F(OmDimensionInsertCategory, TakesNoNoticeOfTheSubscriptsOfGroups) {
  Build("a g()");
  SetSubscript("g", 100);
  EXPECT_EQ(InsertAfter("a").subscript, 1U);
}

TEST_F(OmDimensionInsertCategory, TakesTheLowHalfOfEachSubscript) {
  Build("a b");
  SetSubscript("a", (7UL << 32) + 3);
  EXPECT_EQ(InsertAfter("a").subscript, 4U);
}

TEST_F(OmDimensionInsertCategory, NextToACategoryWithoutASubscriptStartsAgainAtZero) {
  Build("a");
  SetSubscript("a", ~0UL);
  EXPECT_EQ(InsertAfter("a").subscript, 0U);
}

TEST_F(OmDimensionInsertCategory, IntoADimensionWithoutCategoriesGetsSubscript1) {
  EXPECT_EQ(Insert("new", Node(), root(), true).subscript, 1U);
  EXPECT_EQ(Shape(), "new");
  EXPECT_EQ(dimension_.CategoryCount(), 1U);
}

TEST_F(OmDimensionInsertCategory, TwiceGetsTwoSubscriptsInARow) {
  Build("a b");
  EXPECT_EQ(InsertBefore("a").subscript, 2U);
  EXPECT_EQ(InsertBefore("a").subscript, 3U);
  EXPECT_EQ(dimension_.CategoryCount(), 4U);
}

TEST_F(OmDimensionInsertCategory, RenumbersNoOtherCategory) {
  Build("a g(b c) d");
  InsertBefore("b");
  EXPECT_EQ(Subscripts(), "a=0 g=-1 new=4 b=1 c=2 d=3");
}

// The new node

TEST_F(OmDimensionInsertCategory, ReturnsTheValueOfTheNewNodeOnTheDefaultHeap) {
  Build("a");
  OmDimensionNode const value = InsertAfter("a");
  EXPECT_EQ(LabelOf(value), "new");
  EXPECT_FALSE(value.group);
  EXPECT_FALSE(value.hide);
  EXPECT_FALSE(value.hideLabels);
  EXPECT_EQ(value.sort, 2);
  EXPECT_EQ(value.childIndex.size(), 0U);
  EXPECT_EQ(value.childIndex.region, OmMemoryRegion::DefaultHeap());
  EXPECT_TRUE(value == At("new").Value());
  EXPECT_NE(value.label, At("new").Value().label) << "each owns its label";
}

TEST_F(OmDimensionInsertCategory, ReturnsAValueThatOutlivesTheNode) {
  Build("a");
  OmDimensionNode const value = InsertAfter("a");
  Node inserted = At("new");
  dimension_.Delete(inserted);
  EXPECT_EQ(LabelOf(value), "new");
}

TEST_F(OmDimensionInsertCategory, MakesANodeWithTheValuesRegionAndChildrenInTheDimensionsRegion) {
  Build("a");
  InsertAfter("a");
  OmDimension::Element const& inserted = *At("new").element;
  EXPECT_EQ(inserted.value.childIndex.region, OmMemoryRegion::DefaultHeap());
  EXPECT_EQ(inserted.children.region, &region_);
  EXPECT_EQ(inserted.children.size(), 0U);
}

TEST_F(OmDimensionInsertCategory, ClonesTheTextWithoutARegion) {
  Build("a");
  Node const sibling = At("a");
  SpyCell const text("new");
  SpyLog const log;
  dimension_.insertCategory(text, sibling, root(), true);
  auto const clones = log.Of(SpyCell::Operation::Clone);
  ASSERT_GE(clones.size(), 1U);
  EXPECT_EQ(clones[0].cell, &text);
  EXPECT_EQ(clones[0].region, nullptr);
}

TEST_F(OmDimensionInsertCategory, SharesTheContextOfTheSiblingsLabelOnly) {
  Build("g(a b)");
  Node const sibling = At("b");
  Node const parent = At("g");
  OmCellText const* const label = sibling.Value().label;
  SpyLog const log;
  OmDimensionNode const value = Insert("new", sibling, parent, true);
  auto const shared = log.Of(SpyCell::Operation::ShareContext);
  ASSERT_EQ(shared.size(), 1U);
  EXPECT_EQ(shared[0].text, "new");
  EXPECT_EQ(shared[0].cell, value.label);
  EXPECT_EQ(shared[0].other, label);
}

TEST_F(OmDimensionInsertCategory, NextToASiblingWithoutALabelSharesNoContext) {
  Node const bare = OmDimension::AppendChild(root(), OmDimensionNode(&region_));
  SpyLog const log;
  Insert("new", bare, root(), false);
  EXPECT_TRUE(log.Of(SpyCell::Operation::ShareContext).empty());
  EXPECT_EQ(Shape(), "- new");
}

// The place

TEST_F(OmDimensionInsertCategory, BeforeTheFirstChildBecomesTheFirst) {
  Build("a b");
  InsertBefore("a");
  EXPECT_EQ(Shape(), "new a b");
}

TEST_F(OmDimensionInsertCategory, BeforeALaterChildStandsBeforeIt) {
  Build("a b c");
  InsertBefore("c");
  EXPECT_EQ(Shape(), "a b new c");
}

TEST_F(OmDimensionInsertCategory, AfterAMiddleChildStandsBeforeTheNextOne) {
  Build("a b c");
  InsertAfter("b");
  EXPECT_EQ(Shape(), "a b new c");
}

TEST_F(OmDimensionInsertCategory, AfterTheLastChildBecomesTheLast) {
  Build("a b");
  InsertAfter("b");
  EXPECT_EQ(Shape(), "a b new");
}

TEST_F(OmDimensionInsertCategory, InsideAGroupLeavesTheOutsideAlone) {
  Build("x g(a b) y");
  InsertAfter("a");
  EXPECT_EQ(Shape(), "x g(a new b) y");
}

TEST_F(OmDimensionInsertCategory, BeforeTheSecondOfTwoEqualSiblingsStandsBeforeTheFirst) {
  Build("x g(a) y g(b)");
  Insert("new", root()[3], root(), true);
  EXPECT_EQ(Shape(), "x new g(a) y g(b)");
}

TEST_F(OmDimensionInsertCategory, AfterASiblingWhoseNextEqualsAnEarlierOneStandsBeforeThatOne) {
  Build("x g(a) y g(b)");
  Insert("new", root()[2], root(), false);
  EXPECT_EQ(Shape(), "x new g(a) y g(b)");
}

TEST_F(OmDimensionInsertCategory, BeforeANodeOfAnotherParentStandsBeforeTheChildThatEqualsIt) {
  Build("x g(a) h(y g(b) z)");
  Insert("new", root()[1], At("h"), true);
  EXPECT_EQ(Shape(), "x g(a) h(y new g(b) z)");
}

TEST_F(OmDimensionInsertCategory, BeforeANodeOfAnotherParentWithoutAnEqualChildBecomesTheLast) {
  Build("x g(a b)");
  Insert("new", At("x"), At("g"), true);
  EXPECT_EQ(Shape(), "x g(a b new)");
}

TEST_F(OmDimensionInsertCategory, AfterTheLastChildOfAnotherParentBecomesTheLast) {
  Build("x g(a b) y");
  Insert("new", At("y"), At("g"), false);
  EXPECT_EQ(Shape(), "x g(a b new) y");
}

TEST_F(OmDimensionInsertCategory, WithoutASiblingBecomesTheLast) {
  Build("a b");
  SpyLog const log;
  Insert("new", Node(), root(), true);
  EXPECT_TRUE(log.Of(SpyCell::Operation::ShareContext).empty());
  EXPECT_EQ(Shape(), "a b new");
}

TEST_F(OmDimensionInsertCategory, IntoAnEmptyGroupBecomesItsOnlyChild) {
  Build("a g()");
  Insert("new", Node(), At("g"), false);
  EXPECT_EQ(Shape(), "a g(new)");
}

TEST_F(OmDimensionInsertCategory, BelowACategoryIsNotRefused) {
  Build("a b");
  Insert("new", Node(), At("a"), false);
  EXPECT_EQ(Shape(), "a(new) b");
}

// What becomes of the rest

TEST_F(OmDimensionInsertCategory, LeavesTheParentsIndexAsItWas) {
  Build("a b c");
  InsertBefore("a");
  EXPECT_EQ(IndexOf(root().Value()), (Index{0, 1, 2}));
  EXPECT_EQ(OmDimension::FindChild(root(), SpyCell("new"), false), 0xFFFFFFFFU);
}

TEST_F(OmDimensionInsertCategory, LinksEverythingBelowTheParent) {
  Build("g(a) h(i(b c) d) j(e)");
  Insert("new", At("g"), root(), true);
  EXPECT_EQ(StaleLinks(), "");
  EXPECT_EQ(At("new").Parent().element, &dimension_);
}

TEST_F(OmDimensionInsertCategory, LinksEverythingWhenTheChildrenMoveToALargerBlock) {
  Build("g(a) h(b(c)) i(d) j(e)");
  ASSERT_EQ(root().element->children.capacity(), 4U);
  Insert("new", At("j"), root(), false);
  EXPECT_EQ(root().element->children.capacity(), 8U);
  EXPECT_EQ(Shape(), "g(a) h(b(c)) i(d) j(e) new");
  EXPECT_EQ(StaleLinks(), "");
}

TEST_F(OmDimensionInsertCategory, IntoChildrenThatWereCopiedGrowsToFour) {
  Build("a b c");
  OmDimension::Element copy(&region_);
  OmDimension::CopySubtree(copy, dimension_, nullptr, &region_);
  ASSERT_EQ(copy.children.capacity(), 3U);
  OmDimension other(OmDimensionNode(SpyCell("other"), 0, true, nullptr), &region_);
  OmDimension::PushBackChild(other.children, copy);
  OmDimension::RelinkParents(other, true);
  other.insertCategory(SpyCell("new"), other.Root()[0][2], other.Root()[0], false);
  EXPECT_EQ(other.Root()[0].element->children.capacity(), 4U);
  EXPECT_EQ(LabelOf(other.Root()[0][3].Value()), "new");
}

TEST_F(OmDimensionInsertCategory, RepairsLinksBelowTheParentAndNoOthers) {
  Build("x g(a) h(i(b) j(c))");
  OmDimension::EraseChildAt(dimension_, 0);
  OmDimension::EraseChildAt(*root()[1].element, 0);
  ASSERT_EQ(StaleLinks(), "a j c");
  Insert("new", Node(), root()[1], false);
  EXPECT_EQ(StaleLinks(), "a");
}

// Senseless arguments

TEST_F(OmDimensionInsertCategory, WithoutAParentAddsNothingAndReturnsTheEmptyValue) {
  Build("a b g()");
  Node left = At("g");
  dimension_.Delete(left);
  OmDimension other(dimension_, nullptr);
  std::string const before = TextOf(dimension_);
  for (Node const& parent : {Node(), left, other.Root()}) {
    OmDimensionNode const value = Insert("new", At("a"), parent, true);
    EXPECT_EQ(value.label, nullptr);
    EXPECT_EQ(value.subscript, ~0UL);
    EXPECT_FALSE(value.group);
    EXPECT_EQ(TextOf(dimension_), before);
  }
}

TEST_F(OmDimensionInsertCategory, BelowANodeOfAnotherDimensionAddsNothing) {
  Build("a b");
  OmDimension other(dimension_, nullptr);
  std::string const before = TextOf(dimension_);
  Insert("new", At("a"), other.Root(), true);
  EXPECT_EQ(TextOf(dimension_), before);
  EXPECT_EQ(TextOf(other), before);
}

TEST_F(OmDimensionInsertCategory, BeforeTheRootBecomesTheLast) {
  Build("a b");
  Insert("new", root(), root(), true);
  EXPECT_EQ(Shape(), "a b new");
}

TEST_F(OmDimensionInsertCategory, AfterTheRootBecomesTheLast) {
  Build("a b");
  Insert("new", root(), root(), false);
  EXPECT_EQ(Shape(), "a b new");
}

}  // namespace
