#include <cstddef>
#include <gtest/gtest.h>
#include <string>
#include <type_traits>
#include <vector>

#include <cells/OmStringCell.h>
#include <lakresvos/OmVectorTree.h>

#include "support/TrackedValue.h"

template struct OmVectorTreeElement<TrackedValue>;
template class OmVectorTree<TrackedValue>;
template class OmVectorTree<OmCellText*>;

namespace {

using Tree = OmVectorTree<TrackedValue>;
using Element = Tree::Element;
using Node = Tree::Node;
using ConstNode = Tree::ConstNode;

static_assert(offsetof(OmVectorTreeElement<int>, value) <
              offsetof(OmVectorTreeElement<int>, children));
static_assert(offsetof(OmVectorTreeElement<int>, children) <
              offsetof(OmVectorTreeElement<int>, parent));
static_assert(sizeof(Tree) == sizeof(Element), "the tree object is its own root");
static_assert(std::is_base_of_v<Element, Tree>);
static_assert(offsetof(Node, element) < offsetof(Node, depth));
static_assert(sizeof(Node) == 2 * sizeof(void*));
static_assert(sizeof(ConstNode) == 2 * sizeof(void*));
static_assert(std::is_trivially_copyable_v<Node> && std::is_trivially_copyable_v<ConstNode>);
static_assert(std::is_same_v<decltype(Node::depth), unsigned int>);
static_assert(std::is_convertible_v<Node, ConstNode>);
static_assert(!std::is_convertible_v<ConstNode, Node>);
static_assert(std::is_same_v<decltype(ConstNode().Value()), TrackedValue const&>);
static_assert(!std::is_copy_constructible_v<Tree>);
static_assert(!std::is_copy_assignable_v<Tree>);

void AppendChildren(Node const& parent, int count) {
  for (int i = 0; i < count; ++i) {
    Tree::AppendChild(parent, static_cast<int>(parent.NChildren()));
  }
}

class OmVectorTreeTest : public testing::Test {
 protected:
  ~OmVectorTreeTest() override { EXPECT_EQ(TrackedValue::live, before_); }

 private:
  long before_ = TrackedValue::live;
};

// Handles

TEST_F(OmVectorTreeTest, ANewTreeIsARootWithoutChildren) {
  OmMemoryRegion region(false);
  Tree tree(&region, 7);
  EXPECT_EQ(tree.Root().element, &tree);
  EXPECT_EQ(tree.Root().depth, 0U);
  EXPECT_EQ(tree.Root().Value().number, 7);
  EXPECT_EQ(tree.Root().NChildren(), 0U);
  EXPECT_EQ(tree.parent, nullptr);
  EXPECT_EQ(tree.children.region, &region);
  EXPECT_EQ(tree.children.begin, nullptr);
}

TEST_F(OmVectorTreeTest, ATreeWithoutARegionUsesTheDefaultHeap) {
  Tree const tree;
  EXPECT_EQ(tree.children.region, OmMemoryRegion::DefaultHeap());
  EXPECT_EQ(tree.value.number, 0);
}

TEST_F(OmVectorTreeTest, AHandleReachesValueChildrenAndParent) {
  Tree tree(nullptr, 1);
  Node const child = Tree::AppendChild(tree.Root(), 2);
  Tree::AppendChild(child, 3);
  EXPECT_EQ(tree.Root().Child(0).element, child.element);
  EXPECT_EQ(tree.Root()[0][0].Value().number, 3);
  EXPECT_EQ(tree.Root()[0][0].depth, 2U);
  EXPECT_EQ(tree.Root()[0][0].Parent().element, child.element);
  EXPECT_EQ(tree.Root()[0][0].Parent().depth, 1U);
  EXPECT_EQ(tree.Root()[0].Parent().element, &tree);
  EXPECT_EQ(tree.Root()[0].Parent().depth, 0U);
}

TEST_F(OmVectorTreeTest, AConstHandleReachesTheSame) {
  Tree tree(nullptr, 1);
  Tree::AppendChild(Tree::AppendChild(tree.Root(), 2), 3);
  Tree const& reading = tree;
  ConstNode const leaf = reading.Root()[0].Child(0);
  EXPECT_EQ(leaf.element, tree.Root()[0][0].element);
  EXPECT_EQ(leaf.depth, 2U);
  EXPECT_EQ(leaf.Value().number, 3);
  EXPECT_EQ(leaf.Parent().Parent().element, &tree);
  ConstNode const converted = tree.Root()[0];
  EXPECT_EQ(converted.element, tree.Root()[0].element);
  EXPECT_EQ(converted.depth, 1U);
}

TEST_F(OmVectorTreeTest, AHandleChangesTheValue) {
  Tree tree(nullptr, 1);
  tree.Root().Value().number = 5;
  EXPECT_EQ(tree.value.number, 5);
}

TEST_F(OmVectorTreeTest, TheParentOfTheRootAndAChildThatIsMissingAreEmpty) {
  Tree tree;
  AppendChildren(tree.Root(), 2);
  for (Node const& missing : {tree.Root().Parent(), tree.Root()[2], tree.Root()[SIZE_MAX]}) {
    EXPECT_EQ(missing.element, nullptr);
    EXPECT_EQ(missing.depth, 0U);
  }
}

TEST(OmVectorTree, AnEmptyHandleAnswersWithNothing) {
  using Numbers = OmVectorTree<int>;
  Numbers::Node const node;
  EXPECT_EQ(node.NChildren(), 0U);
  EXPECT_EQ(node.Value(), 0);
  EXPECT_EQ(node[0].element, nullptr);
  EXPECT_EQ(node.Parent().element, nullptr);
  EXPECT_EQ(Numbers::AppendChild(node, 1).element, nullptr);
  node.Value() = 5;
  EXPECT_EQ(node.Value(), 0);
  Numbers::ConstNode const reading;
  EXPECT_EQ(reading.NChildren(), 0U);
  EXPECT_EQ(reading.Value(), 0);
  EXPECT_EQ(reading[0].element, nullptr);
  EXPECT_EQ(reading.Parent().element, nullptr);
}

TEST_F(OmVectorTreeTest, AWrongDepthYieldsWrongDepths) {
  Tree tree;
  Tree::AppendChild(Tree::AppendChild(tree.Root(), 1), 2);
  Node const wrong{tree.Root()[0].element, 7};
  EXPECT_EQ(wrong[0].depth, 8U);
  EXPECT_EQ(wrong.Parent().depth, 6U);
  EXPECT_EQ(Tree::AppendChild(wrong, 3).depth, 8U);
}

// Appending

TEST_F(OmVectorTreeTest, AppendingGivesTheHandleOfTheNewLastChild) {
  Tree tree;
  for (int i = 0; i < 20; ++i) {
    Node const child = Tree::AppendChild(tree.Root(), i);
    EXPECT_EQ(child.element, tree.children.end - 1);
    EXPECT_EQ(child.depth, 1U);
    EXPECT_EQ(child.Value().number, i);
    EXPECT_EQ(child.element->parent, &tree);
    EXPECT_EQ(child.NChildren(), 0U);
  }
  EXPECT_EQ(tree.Root().NChildren(), 20U);
}

TEST_F(OmVectorTreeTest, TheFirstChildAllocatesRoomForFour) {
  Tree tree;
  AppendChildren(tree.Root(), 1);
  EXPECT_EQ(tree.children.capacity(), 4U);
}

TEST_F(OmVectorTreeTest, TheFifthChildGrowsToEight) {
  Tree tree;
  AppendChildren(tree.Root(), 5);
  EXPECT_EQ(tree.children.capacity(), 8U);
}

TEST_F(OmVectorTreeTest, TheNinthChildGrowsToSixteen) {
  Tree tree;
  AppendChildren(tree.Root(), 9);
  EXPECT_EQ(tree.children.capacity(), 16U);
}

TEST_F(OmVectorTreeTest, TheSeventeenthChildGrowsToThirtyTwo) {
  Tree tree;
  AppendChildren(tree.Root(), 17);
  EXPECT_EQ(tree.children.capacity(), 32U);
}

TEST_F(OmVectorTreeTest, ChildrenLiveInTheRegionOfTheirParent) {
  OmMemoryRegion region(false);
  Tree tree(&region);
  Node const child = Tree::AppendChild(tree.Root(), 1);
  Node const grandchild = Tree::AppendChild(child, 2);
  EXPECT_EQ(child.element->children.region, &region);
  EXPECT_EQ(grandchild.element->children.region, &region);
  EXPECT_EQ(OmMemoryRegion::FindOwner(child.element), &region);
  EXPECT_EQ(OmMemoryRegion::FindOwner(grandchild.element), &region);
}

TEST_F(OmVectorTreeTest, AParentWithoutARegionGetsChildrenOnTheDefaultHeap) {
  Tree tree;
  tree.children.region = nullptr;
  Node const child = Tree::AppendChild(tree.Root(), 1);
  EXPECT_EQ(OmMemoryRegion::FindOwner(child.element), OmMemoryRegion::DefaultHeap());
  EXPECT_EQ(child.element->children.region, OmMemoryRegion::DefaultHeap());
}

TEST_F(OmVectorTreeTest, GrowingMovesTheChildrenWithoutCopyingThem) {
  Tree tree;
  for (int i = 0; i < 4; ++i) {
    Tree::AppendChild(Tree::AppendChild(tree.Root(), i), 10 + i);
  }
  TrackedValue const value(4);
  TrackedValue::copies = 0;
  long const live = TrackedValue::live;
  Tree::AppendChild(tree.Root(), value);
  EXPECT_LE(TrackedValue::copies, 2) << "the value alone, and a temporary";
  EXPECT_EQ(TrackedValue::live, live + 1);
}

TEST_F(OmVectorTreeTest, TheFifthChildRepairsTheLinksOfTheGrandchildren) {
  Tree tree;
  AppendChildren(tree.Root(), 4);
  for (std::size_t i = 0; i < 4; ++i) {
    AppendChildren(tree.Root()[i], 3);
  }
  Element const* const before = tree.children.begin;
  AppendChildren(tree.Root(), 1);
  ASSERT_NE(tree.children.begin, before);
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_EQ(tree.Root()[i].element->parent, &tree);
    for (std::size_t k = 0; k < 3; ++k) {
      EXPECT_EQ(tree.Root()[i][k].element->parent, tree.Root()[i].element);
    }
  }
}

TEST_F(OmVectorTreeTest, GrowingRepairsOneLevelAlone) {
  Tree tree;
  AppendChildren(tree.Root(), 4);
  Node const child = tree.Root()[2];
  Tree::AppendChild(Tree::AppendChild(child, 1), 2);
  Element elsewhere(nullptr, 0);
  child[0][0].element->parent = &elsewhere;
  AppendChildren(tree.Root(), 1);
  EXPECT_EQ(tree.Root()[2][0].element->parent, tree.Root()[2].element);
  EXPECT_EQ(tree.Root()[2][0][0].element->parent, &elsewhere);
}

TEST_F(OmVectorTreeTest, AppendingWithoutGrowthRepairsNothing) {
  Tree tree;
  AppendChildren(tree.Root(), 3);
  AppendChildren(tree.Root()[1], 1);
  Element elsewhere(nullptr, 0);
  tree.Root()[1][0].element->parent = &elsewhere;
  AppendChildren(tree.Root(), 1);
  EXPECT_EQ(tree.Root()[1][0].element->parent, &elsewhere);
}

TEST_F(OmVectorTreeTest, GrowingToTheSecondChildRepairsTheChildrenOfTheFirst) {
  Tree tree;
  tree.children.reserve(1);
  AppendChildren(tree.Root(), 1);
  AppendChildren(tree.Root()[0], 2);
  AppendChildren(tree.Root(), 1);
  ASSERT_EQ(tree.children.capacity(), 4U);
  EXPECT_EQ(tree.Root()[0][0].element->parent, tree.Root()[0].element);
  EXPECT_EQ(tree.Root()[0][1].element->parent, tree.Root()[0].element);
}

TEST_F(OmVectorTreeTest, GrowingLeavesTheLinksOfTheChildrenThemselves) {
  Tree tree;
  AppendChildren(tree.Root(), 4);
  Element elsewhere(nullptr, 0);
  tree.Root()[1].element->parent = &elsewhere;
  AppendChildren(tree.Root(), 1);
  EXPECT_EQ(tree.Root()[1].element->parent, &elsewhere);
  EXPECT_EQ(tree.Root()[4].element->parent, &tree);
}

TEST_F(OmVectorTreeTest, AppendsAValueOfTheTreeItself) {
  Tree tree;
  AppendChildren(tree.Root(), 4);
  tree.Root()[3].Value().number = 42;
  EXPECT_EQ(Tree::AppendChild(tree.Root(), tree.Root()[3].Value()).Value().number, 42);
}

TEST_F(OmVectorTreeTest, AdoptingTakesTheValueOverWithoutCopyingIt) {
  Tree tree;
  TrackedValue value(5);
  TrackedValue::copies = 0;
  Node const child = Tree::AdoptChild(tree.Root(), value);
  EXPECT_EQ(child.Value().number, 5);
  EXPECT_EQ(value.number, 0);
  EXPECT_EQ(TrackedValue::copies, 0);
  EXPECT_EQ(child.element->parent, &tree);
}

// Destruction

TEST_F(OmVectorTreeTest, DestroyingATreeDestroysItsValuesBelowTheirParentsFirst) {
  std::vector<int> destroyed;
  OmMemoryRegion region(false);
  {
    Tree tree(&region, 1);
    Node const two = Tree::AppendChild(tree.Root(), 2);
    Tree::AppendChild(two, 3);
    Tree::AppendChild(two, 4);
    Tree::AppendChild(tree.Root(), 5);
    TrackedValue::destroyed = &destroyed;
  }
  TrackedValue::destroyed = nullptr;
  EXPECT_EQ(destroyed, (std::vector<int>{3, 4, 2, 5, 1}));
  EXPECT_EQ(region.BytesInUse(), 0U);
}

TEST(OmVectorTree, DoesNotOwnWhatItsPointersPointAt) {
  OmStringCell text("a");
  {
    OmVectorTree<OmCellText*> tree;
    EXPECT_EQ(tree.Root().Value(), nullptr);
    OmVectorTree<OmCellText*>::AppendChild(tree.Root(), &text);
    EXPECT_EQ(tree.Root()[0].Value(), &text);
  }
  EXPECT_EQ(text.GetText(), "a");
}

// Size

TEST(OmVectorTree, AMillionChildrenOfOneParent) {
  OmVectorTree<int> tree;
  for (int i = 0; i < 1000000; ++i) {
    OmVectorTree<int>::AppendChild(tree.Root(), i);
  }
  EXPECT_EQ(tree.Root().NChildren(), 1000000U);
  EXPECT_EQ(tree.children.capacity(), 1048576U);
  EXPECT_EQ(tree.Root()[999999].Value(), 999999);
  EXPECT_EQ(tree.Root()[123456].element->parent, &tree);
}

TEST(OmVectorTree, AHundredThousandLevelsAreBuiltAndDestroyed) {
  OmMemoryRegion region(false);
  {
    OmVectorTree<int> tree(&region);
    OmVectorTree<int>::Node node = tree.Root();
    for (int i = 1; i <= 100000; ++i) {
      node = OmVectorTree<int>::AppendChild(node, i);
    }
    EXPECT_EQ(node.depth, 100000U);
  }
  EXPECT_EQ(region.BytesInUse(), 0U);
}

}  // namespace
