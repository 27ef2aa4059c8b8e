#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

#include <lakresvos/OmVectorTree.h>

#include "support/TrackedValue.h"

namespace {

using Tree = OmVectorTree<TrackedValue>;
using Element = Tree::Element;
using Node = Tree::Node;

/// Root 0 with children 10, 20, 30; child n has n + 1 and n + 2, and n + 1 has n + 5.
struct Sample : Tree {
  explicit Sample(OmMemoryRegion* region = nullptr) : Tree(region, 0) {
    for (int const n : {10, 20, 30}) {
      Node const child = AppendChild(Root(), n);
      AppendChild(child, n + 1);
      AppendChild(child, n + 2);
      AppendChild(child[0], n + 5);
    }
  }
};

/// The numbers of a subtree, each node's children in parentheses after it.
std::string Shape(Element const& element) {
  std::string shape = std::to_string(element.value.number);
  if (element.children.size() != 0) {
    shape += "(";
    for (Element const& child : element.children.Elements()) {
      shape += Shape(child) + " ";
    }
    shape.back() = ')';
  }
  return shape;
}

bool FullyLinked(Element const& element) {
  for (Element const& child : element.children.Elements()) {
    if (child.parent != &element || !FullyLinked(child)) {
      return false;
    }
  }
  return true;
}

constexpr char kSampleShape[] = "0(10(11(15) 12) 20(21(25) 22) 30(31(35) 32))";

class OmVectorTreeEdits : public testing::Test {
 protected:
  ~OmVectorTreeEdits() override { EXPECT_EQ(TrackedValue::live, before_); }

 private:
  long before_ = TrackedValue::live;
};

TEST_F(OmVectorTreeEdits, TheSampleIsWhatItLooksLike) {
  Sample const tree;
  EXPECT_EQ(Shape(tree), kSampleShape);
  EXPECT_TRUE(FullyLinked(tree));
}

// Element copy

TEST_F(OmVectorTreeEdits, AnElementCopyHasTheSameShapeWithExactCapacities) {
  Sample const tree;
  Element const copy(tree);
  EXPECT_EQ(Shape(copy), kSampleShape);
  EXPECT_EQ(copy.children.capacity(), 3U);
  EXPECT_EQ(copy.children[0].children.capacity(), 2U);
  EXPECT_EQ(copy.children[0].children[0].children.capacity(), 1U);
  EXPECT_EQ(copy.children[0].children[1].children.begin, nullptr);
}

TEST_F(OmVectorTreeEdits, AnElementCopyPointsIntoTheSourceTreeEverywhere) {
  Sample const tree;
  Element const copy(tree.children[1]);
  EXPECT_EQ(copy.parent, &tree);
  EXPECT_EQ(copy.children[0].parent, &tree.children[1]);
  EXPECT_EQ(copy.children[1].parent, &tree.children[1]);
  EXPECT_EQ(copy.children[0].children[0].parent, &tree.children[1].children[0]);
}

TEST_F(OmVectorTreeEdits, AnElementCopyKeepsEachSourceNodesRegion) {
  OmMemoryRegion region(false);
  OmMemoryRegion other(false);
  Sample tree(&region);
  Element& moved = tree.children[0].children[1];
  moved.children.region = &other;
  tree.children[2].children[1].children.region = nullptr;
  Element const copy(tree);
  EXPECT_EQ(copy.children.region, &region);
  EXPECT_EQ(OmMemoryRegion::FindOwner(copy.children.begin), &region);
  EXPECT_EQ(copy.children[0].children[0].children.region, &region);
  EXPECT_EQ(copy.children[0].children[1].children.region, &other);
  EXPECT_EQ(copy.children[2].children[1].children.region, OmMemoryRegion::DefaultHeap());
}

// Insertion

TEST_F(OmVectorTreeEdits, InsertsBeforeAPositionAndGivesTheNewElementsAddress) {
  Sample tree;
  Element const inserted(nullptr, 99);
  EXPECT_EQ(Tree::InsertChildAt(tree.children, 1, inserted), &tree.children[1]);
  EXPECT_EQ(Shape(tree), "0(10(11(15) 12) 99 20(21(25) 22) 30(31(35) 32))");
}

TEST_F(OmVectorTreeEdits, InsertsAtTheBeginningAndAtTheEnd) {
  Sample tree;
  Tree::InsertChildAt(tree.children, 0, Element(nullptr, 1));
  Tree::InsertChildAt(tree.children, 4, Element(nullptr, 2));
  EXPECT_EQ(Shape(tree), "0(1 10(11(15) 12) 20(21(25) 22) 30(31(35) 32) 2)");
}

TEST_F(OmVectorTreeEdits, InsertingPastTheEndAppends) {
  Sample tree;
  EXPECT_EQ(Tree::InsertChildAt(tree.children, 50, Element(nullptr, 1)), &tree.children[3]);
}

TEST_F(OmVectorTreeEdits, InsertingIntoAFullVectorKeepsThePositionAcrossTheMove) {
  Sample tree;
  Tree::AppendChild(tree.Root(), 40);
  ASSERT_EQ(tree.children.size(), tree.children.capacity());
  Element const* const inserted = Tree::InsertChildAt(tree.children, 2, Element(nullptr, 25));
  EXPECT_EQ(inserted, &tree.children[2]);
  EXPECT_EQ(tree.children.capacity(), 8U);
  EXPECT_EQ(Shape(tree), "0(10(11(15) 12) 20(21(25) 22) 25 30(31(35) 32) 40)");
}

TEST_F(OmVectorTreeEdits, InsertingCopiesASubtreeWithItsParentLinkAsItStands) {
  Sample tree;
  Sample const source;
  Element const* const inserted = Tree::InsertChildAt(tree.children, 0, source.children[1]);
  EXPECT_EQ(Shape(*inserted), "20(21(25) 22)");
  EXPECT_EQ(inserted->parent, &source);
  EXPECT_EQ(inserted->children[0].parent, &source.children[1]);
}

TEST_F(OmVectorTreeEdits, InsertingRepairsNoLink) {
  Sample tree;
  Element const* const first = &tree.children[0];
  Element const* const second = &tree.children[1];
  Tree::InsertChildAt(tree.children, 1, Element(nullptr, 99));
  EXPECT_EQ(tree.children[0].children[0].parent, first);
  EXPECT_EQ(tree.children[2].children[0].parent, second) << "where 20 stood before";
  EXPECT_EQ(tree.children[2].children[1].parent, second);
  EXPECT_EQ(tree.children[2].parent, &tree);
  EXPECT_EQ(tree.children[2].children[0].children[0].parent, &tree.children[2].children[0]);
}

TEST_F(OmVectorTreeEdits, InsertingIntoAFullVectorRepairsNoLink) {
  Sample tree;
  Tree::AppendChild(tree.Root(), 40);
  Element const* const before = tree.children.begin;
  Tree::InsertChildAt(tree.children, 4, Element(nullptr, 50));
  ASSERT_NE(tree.children.begin, before);
  EXPECT_EQ(tree.children[0].children[0].parent, before);
}

TEST_F(OmVectorTreeEdits, InsertsACopyOfOneOfTheChildrenThemselves) {
  Sample tree;
  Tree::AppendChild(tree.Root(), 40);
  Tree::InsertChildAt(tree.children, 0, tree.children[1]);
  EXPECT_EQ(Shape(tree.children[0]), "20(21(25) 22)");
  EXPECT_EQ(Shape(tree.children[2]), "20(21(25) 22)");
}

TEST_F(OmVectorTreeEdits, PushingBackInsertsAtTheEnd) {
  Sample tree;
  Element const element(nullptr, 99);
  EXPECT_EQ(Tree::PushBackChild(tree.children, element), &tree.children[3]);
  EXPECT_EQ(tree.children[3].value.number, 99);
  EXPECT_EQ(tree.children[3].parent, nullptr);
}

TEST_F(OmVectorTreeEdits, InsertsBeforeTheFirstChildThatEqualsTheAnchor) {
  Sample tree;
  Tree::AppendChild(tree.Root(), 20);
  TrackedValue const anchor(20);
  Tree::InsertChildBefore(tree, Element(nullptr, 99), &anchor);
  EXPECT_EQ(Shape(tree), "0(10(11(15) 12) 99 20(21(25) 22) 30(31(35) 32) 20)");
}

TEST_F(OmVectorTreeEdits, InsertsBeforeTheFirstChildOfAll) {
  Sample tree;
  TrackedValue const anchor(10);
  Tree::InsertChildBefore(tree, Element(nullptr, 99), &anchor);
  EXPECT_EQ(Shape(tree), "0(99 10(11(15) 12) 20(21(25) 22) 30(31(35) 32))");
}

TEST_F(OmVectorTreeEdits, InsertsBeforeTheLastChild) {
  Sample tree;
  TrackedValue const anchor(30);
  Tree::InsertChildBefore(tree, Element(nullptr, 99), &anchor);
  EXPECT_EQ(Shape(tree), "0(10(11(15) 12) 20(21(25) 22) 99 30(31(35) 32))");
}

TEST_F(OmVectorTreeEdits, InsertsAtTheEndWithoutAnAnchor) {
  Sample tree;
  Tree::InsertChildBefore(tree, Element(nullptr, 99), nullptr);
  EXPECT_EQ(tree.children[3].value.number, 99);
}

TEST_F(OmVectorTreeEdits, InsertsAtTheEndWhenNoChildEqualsTheAnchor) {
  Sample tree;
  TrackedValue const anchor(11);
  Tree::InsertChildBefore(tree, Element(nullptr, 99), &anchor);
  EXPECT_EQ(tree.children[3].value.number, 99);
}

TEST_F(OmVectorTreeEdits, InsertsBeforeAnAnchorThatIsAChildsOwnValue) {
  Sample tree;
  Tree::InsertChildBefore(tree, Element(nullptr, 99), &tree.children[2].value);
  EXPECT_EQ(tree.children[2].value.number, 99);
  EXPECT_EQ(tree.children[3].value.number, 30);
}

// Relinking

TEST_F(OmVectorTreeEdits, RelinkingRepairsTheChildrenAlone) {
  Sample const source;
  Element copy(source);
  Tree::RelinkParents(copy, false);
  for (Element const& child : copy.children.Elements()) {
    EXPECT_EQ(child.parent, &copy);
  }
  EXPECT_EQ(copy.children[0].children[0].parent, &source.children[0]);
}

TEST_F(OmVectorTreeEdits, RelinkingRecursivelyRepairsEveryLevel) {
  Sample const source;
  Element copy(source.children[1]);
  Tree::RelinkParents(copy, true);
  EXPECT_TRUE(FullyLinked(copy));
  EXPECT_EQ(copy.parent, &source) << "the element's own link is left as it is";
}

TEST_F(OmVectorTreeEdits, RelinkingALeafDoesNothing) {
  Element leaf(nullptr, 1);
  Tree::RelinkParents(leaf, true);
  Tree::RelinkParents(leaf, false);
  EXPECT_EQ(leaf.parent, nullptr);
}

// Copying a subtree

TEST_F(OmVectorTreeEdits, ACopiedSubtreeIsFullyLinkedInItsOwnRegion) {
  OmMemoryRegion region(false);
  {
    Sample const source;
    Sample owner;
    Element target(nullptr, 1);
    Tree::CopySubtree(target, source, &owner, &region);
    EXPECT_EQ(Shape(target), kSampleShape);
    EXPECT_TRUE(FullyLinked(target));
    EXPECT_EQ(target.parent, &owner);
    EXPECT_EQ(target.children.region, &region);
    EXPECT_EQ(OmMemoryRegion::FindOwner(target.children.begin), &region);
    EXPECT_EQ(target.children[0].children.region, &region);
    EXPECT_EQ(OmMemoryRegion::FindOwner(target.children[0].children.begin), &region);
    EXPECT_EQ(target.children[0].children[1].children.region, &region);
  }
  EXPECT_EQ(region.BytesInUse(), 0U);
}

TEST_F(OmVectorTreeEdits, ACopiedSubtreeReservesExactlyTheSourcesSizes) {
  Sample const source;
  Element target(nullptr, 1);
  Tree::CopySubtree(target, source, nullptr, nullptr);
  EXPECT_EQ(target.children.capacity(), 3U);
  EXPECT_EQ(target.children[1].children.capacity(), 2U);
  EXPECT_EQ(target.children[1].children[1].children.capacity(), 0U);
  EXPECT_EQ(target.parent, nullptr);
}

TEST_F(OmVectorTreeEdits, ACopyIntoNoRegionIsOnTheDefaultHeap) {
  OmMemoryRegion region(false);
  Sample const source(&region);
  Element target(&region, 1);
  Tree::CopySubtree(target, source, nullptr, nullptr);
  EXPECT_EQ(target.children.region, OmMemoryRegion::DefaultHeap());
  EXPECT_EQ(target.children[0].children[0].children.region, OmMemoryRegion::DefaultHeap());
  EXPECT_EQ(OmMemoryRegion::FindOwner(target.children.begin), OmMemoryRegion::DefaultHeap());
}

TEST_F(OmVectorTreeEdits, ACopiedSubtreeReplacesWhatTheTargetHeld) {
  OmMemoryRegion region(false);
  Sample const source;
  {
    Sample target(&region);
    Tree::CopySubtree(target, source.children[0], nullptr, nullptr);
    EXPECT_EQ(Shape(target), "10(11(15) 12)");
    EXPECT_EQ(region.BytesInUse(), 0U);
  }
}

TEST_F(OmVectorTreeEdits, CopiesANodeOverItsOwnAncestor) {
  Sample tree;
  Tree::CopySubtree(tree, tree.children[1], nullptr, nullptr);
  EXPECT_EQ(Shape(tree), "20(21(25) 22)");
  EXPECT_TRUE(FullyLinked(tree));
}

// Erasing

TEST_F(OmVectorTreeEdits, ErasingAChildDestroysItsSubtreeAndClosesTheGap) {
  Sample tree;
  std::vector<int> destroyed;
  Node middle = tree.Root()[1];
  TrackedValue::destroyed = &destroyed;
  Tree::EraseChild(middle);
  TrackedValue::destroyed = nullptr;
  EXPECT_EQ(std::vector<int>(destroyed.begin(), destroyed.begin() + 4),
            (std::vector<int>{25, 21, 22, 20}));
  EXPECT_EQ(Shape(tree), "0(10(11(15) 12) 30(31(35) 32))");
  EXPECT_EQ(tree.children.capacity(), 4U);
}

TEST_F(OmVectorTreeEdits, ErasingEndsAsManyValuesAsItRemoves) {
  Sample tree;
  long const live = TrackedValue::live;
  Node middle = tree.Root()[1];
  Tree::EraseChild(middle);
  EXPECT_EQ(TrackedValue::live, live - 4);
}

TEST_F(OmVectorTreeEdits, AfterErasingTheLaterSiblingsChildrenNameTheOldPlaces) {
  Sample tree;
  Tree::AppendChild(tree.Root(), 40);
  Tree::AppendChild(tree.Root()[3], 41);
  Node middle = tree.Root()[1];
  Tree::EraseChild(middle);
  EXPECT_EQ(tree.children[0].children[0].parent, &tree.children[0]);
  EXPECT_EQ(tree.children[1].children[0].parent, tree.children.begin + 2)
      << "one element further on";
  EXPECT_EQ(tree.children[1].children[1].parent, tree.children.begin + 2);
  EXPECT_EQ(tree.children[2].children[0].parent, tree.children.begin + 3);
  EXPECT_EQ(tree.children[1].parent, &tree);
  EXPECT_EQ(tree.children[1].children[0].children[0].parent, &tree.children[1].children[0]);
}

TEST_F(OmVectorTreeEdits, AfterErasingRelinkingMakesTheTreeWhole) {
  Sample tree;
  Node first = tree.Root()[0];
  Tree::EraseChild(first);
  ASSERT_FALSE(FullyLinked(tree));
  Tree::RelinkParents(tree, true);
  EXPECT_TRUE(FullyLinked(tree));
}

TEST_F(OmVectorTreeEdits, StaleLinksStayStaleUntilTheBufferMoves) {
  Sample tree;
  Node first = tree.Root()[0];
  Tree::EraseChild(first);
  Tree::AppendChild(tree.Root(), 40);
  EXPECT_EQ(tree.children[0].children[0].parent, tree.children.begin + 1);
  Tree::AppendChild(tree.Root(), 50);
  EXPECT_EQ(tree.children[0].children[0].parent, tree.children.begin + 1);
  Tree::AppendChild(tree.Root(), 60);
  ASSERT_EQ(tree.children.capacity(), 8U);
  EXPECT_TRUE(FullyLinked(tree));
}

TEST_F(OmVectorTreeEdits, ErasingTheOnlyChildLeavesTheBuffer) {
  Tree tree;
  Node only = Tree::AppendChild(tree.Root(), 1);
  Tree::EraseChild(only);
  EXPECT_EQ(tree.children.size(), 0U);
  EXPECT_EQ(tree.children.capacity(), 4U);
}

TEST_F(OmVectorTreeEdits, ErasingTheRootOrAnEmptyHandleDoesNothing) {
  Sample tree;
  Node root = tree.Root();
  Tree::EraseChild(root);
  Node empty;
  Tree::EraseChild(empty);
  EXPECT_EQ(Shape(tree), kSampleShape);
}

TEST_F(OmVectorTreeEdits, ErasingThroughAHandleThatIsPastTheEndByNowDoesNothing) {
  Sample tree;
  Node first = tree.Root()[0];
  Node last = tree.Root()[2];
  Tree::EraseChild(first);
  Tree::EraseChild(last);
  EXPECT_EQ(Shape(tree), "0(20(21(25) 22) 30(31(35) 32))");
}

TEST_F(OmVectorTreeEdits, APlaceAfterTheLastChildTakesNoChild) {
  Sample tree;
  Node last = tree.Root()[2];
  Tree::EraseChild(last);
  TrackedValue value(1);
  EXPECT_EQ(Tree::AppendChild(last, value).element, nullptr);
  EXPECT_EQ(Tree::AdoptChild(last, value).element, nullptr);
  EXPECT_EQ(value.number, 1);
  EXPECT_EQ(last.NChildren(), 0U);
  EXPECT_EQ(Shape(tree), "0(10(11(15) 12) 20(21(25) 22))");
}

TEST_F(OmVectorTreeEdits, APlaceAfterTheLastChildFollowsAParentThatAnInsertionMoves) {
  auto const insertions = {
      +[](Tree& tree, Element const& e) { Tree::InsertChildAt(tree.children, 0, e); },
      +[](Tree& tree, Element const& e) { Tree::PushBackChild(tree.children, e); },
      +[](Tree& tree, Element const& e) { Tree::InsertChildBefore(tree, e, nullptr); },
  };
  for (auto const insert : insertions) {
    Sample tree;
    Node last = tree.Root()[2][1];
    Tree::EraseChild(last);
    Tree::AppendChild(tree.Root(), 40);
    ASSERT_EQ(tree.children.size(), tree.children.capacity());
    Element const* const child = tree.Root()[2][0].element;
    Element const* const formerParent = child->parent;

    insert(tree, Element(nullptr, 50));
    Element const* const parent = &tree.children[tree.children[0].value.number == 50 ? 3 : 2];
    ASSERT_EQ(parent->value.number, 30);
    EXPECT_EQ(last.Parent().element, parent);
    EXPECT_EQ(child->parent, formerParent) << "links of nodes are not repaired";
    EXPECT_TRUE(Tree::PastTheEnd(*last.element));
    EXPECT_EQ(Tree::AppendChild(last, 1).element, nullptr);
    Tree::EraseChild(last);
    EXPECT_EQ(parent->children.size(), 1U);
  }
}

TEST_F(OmVectorTreeEdits, APlaceAfterTheLastChildAnswersWithNothingButItsParent) {
  Sample tree;
  Tree::AppendChild(tree.Root(), 40);
  ASSERT_EQ(tree.children.size(), tree.children.capacity());
  Node last = tree.Root()[3];
  Tree::AppendChild(last, 41);
  Tree::EraseChild(last);
  EXPECT_EQ(last.element, tree.children.end);
  EXPECT_EQ(last.Value().number, 0);
  EXPECT_EQ(last.NChildren(), 0U);
  EXPECT_EQ(last.Child(0).element, nullptr);
  EXPECT_EQ(last.Parent().element, &tree);
  EXPECT_EQ(last.Parent().depth, 0U);
  EXPECT_EQ(last.element->children.region, nullptr);
  EXPECT_TRUE(Tree::PastTheEnd(*last.element));
}

TEST_F(OmVectorTreeEdits, APlaceAfterTheLastChildFollowsItsParent) {
  Sample tree;
  Node last = tree.Root()[2][1];
  Tree::EraseChild(last);
  Tree::AppendChild(tree.Root(), 40);
  Tree::AppendChild(tree.Root(), 50);
  EXPECT_EQ(last.Parent().element, tree.Root()[2].element);
  EXPECT_EQ(Tree::AppendChild(last, 1).element, nullptr);
  Tree::EraseChild(last);
  EXPECT_EQ(Shape(tree), "0(10(11(15) 12) 20(21(25) 22) 30(31(35)) 40 50)");
}

TEST_F(OmVectorTreeEdits, ThePlaceTakesChildrenAgainOnceThereIsANodeInIt) {
  Sample tree;
  Node last = tree.Root()[2];
  Tree::EraseChild(last);
  Tree::AppendChild(tree.Root(), 60);
  EXPECT_EQ(Tree::AppendChild(last, 61).Value().number, 61);
  EXPECT_EQ(Shape(tree), "0(10(11(15) 12) 20(21(25) 22) 60(61))");
}

TEST_F(OmVectorTreeEdits, ADestroyedNodeThatIsStillInTheTreeTakesChildren) {
  Sample tree;
  Node const middle = tree.Root()[1];
  Tree::DestroySubtree(*middle.element);
  EXPECT_EQ(Tree::AppendChild(middle, 7).Value().number, 7);
  EXPECT_EQ(middle[0].element->children.region, OmMemoryRegion::DefaultHeap());
  EXPECT_EQ(Shape(tree), "0(10(11(15) 12) 0(7) 30(31(35) 32))");
}

// Destroying a subtree

TEST_F(OmVectorTreeEdits, DestroyingASubtreeForgetsItsStorage) {
  OmMemoryRegion region(false);
  std::vector<int> destroyed;
  {
    Sample tree(&region);
    TrackedValue::destroyed = &destroyed;
    Tree::DestroySubtree(tree);
    TrackedValue::destroyed = nullptr;
    EXPECT_EQ(tree.children.region, nullptr);
    EXPECT_EQ(tree.children.begin, nullptr);
    EXPECT_EQ(tree.children.end, nullptr);
    EXPECT_EQ(tree.children.capacityEnd, nullptr);
    EXPECT_EQ(region.BytesInUse(), 0U);
  }
  EXPECT_EQ(destroyed, (std::vector<int>{15, 11, 12, 10, 25, 21, 22, 20, 35, 31, 32, 30, 0}));
}

// Depth

TEST(OmVectorTreeEditsDeep, AHundredThousandLevelsAreCopiedRelinkedAndErased) {
  using Deep = OmVectorTree<int>;
  Deep tree;
  Deep::Node node = tree.Root();
  for (int i = 1; i <= 100000; ++i) {
    node = Deep::AppendChild(node, i);
  }
  {
    Deep::Element copy(tree);
    Deep::RelinkParents(copy, true);
    Deep::Element const* deepest = &copy;
    while (deepest->children.size() != 0) {
      ASSERT_EQ(deepest->children[0].parent, deepest);
      deepest = &deepest->children[0];
    }
    EXPECT_EQ(deepest->value, 100000);
  }
  Deep target;
  Deep::CopySubtree(target, tree, nullptr, nullptr);
  Deep::Node child = target.Root()[0];
  EXPECT_EQ(child.element->parent, &target);
  Deep::EraseChild(child);
  EXPECT_EQ(target.Root().NChildren(), 0U);
}

}  // namespace
