#include <gtest/gtest.h>
#include <iterator>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <lakresvos/OmOutputTree.h>

#include "support/faults/FailingNew.h"

namespace {

struct Tree : ListTree<int> {};
using Node = ListTree<int>::Node;

static_assert(!std::is_copy_constructible_v<Tree>);
static_assert(std::is_trivially_copyable_v<Node>);
static_assert(std::is_same_v<decltype(Node::tree), ListTree<int>*>);
static_assert(std::is_same_v<decltype(Node::depth), int>);
static_assert(offsetof(Node, tree) < offsetof(Node, depth));
static_assert(offsetof(Node, depth) < offsetof(Node, position));
static_assert(std::is_same_v<decltype(*Node()), int&>);

/// "value@depth" for every element in order.
std::string Listing(ListTree<int>& tree) {
  std::string listing;
  for (Node node = tree.begin(); node != tree.end(); ++node) {
    listing += std::to_string(*node) + "@" + std::to_string(node.depth) + " ";
  }
  return listing;
}

/// 0 with the children 1 and 4; 1 has 2 and 3, 4 has 5, which has 6.
class ListTreeTest : public testing::Test {
 protected:
  ListTreeTest() {
    Node const root = tree_.Append(0);
    Node const one = root.AppendChild(1);
    one.AppendChild(2);
    one.AppendChild(3);
    root.AppendChild(4).AppendChild(5).AppendChild(6);
  }

  Node At(int steps) {
    Node node = tree_.begin();
    for (int i = 0; i < steps; ++i) {
      ++node;
    }
    return node;
  }

  Tree tree_;
};

TEST(ListTree, ANewTreeIsEmpty) {
  Tree tree;
  EXPECT_TRUE(tree.empty());
  EXPECT_EQ(tree.size(), 0U);
  EXPECT_EQ(tree.begin(), tree.end());
  EXPECT_TRUE(tree.begin().AtEnd());
}

TEST_F(ListTreeTest, KeepsItsElementsInPreorder) {
  EXPECT_EQ(Listing(tree_), "0@0 1@1 2@2 3@2 4@1 5@2 6@3 ");
  EXPECT_FALSE(tree_.empty());
  EXPECT_EQ(tree_.size(), 7U);
}

TEST_F(ListTreeTest, ShowsItsElementsWhenItMayNotBeChanged) {
  std::string listing;
  for (Tree::Element const& element : std::as_const(tree_).Elements()) {
    listing += std::to_string(element.value) + "@" + std::to_string(element.depth) + " ";
  }
  EXPECT_EQ(listing, Listing(tree_));
}

// Handles

TEST_F(ListTreeTest, AHandleOfTheEndHasDepthZero) {
  EXPECT_EQ(tree_.end().depth, 0);
  EXPECT_TRUE(tree_.end().AtEnd());
  EXPECT_FALSE(tree_.begin().AtEnd());
}

TEST_F(ListTreeTest, AHandleNamesItsTreeAndElement) {
  Node const node = At(3);
  EXPECT_EQ(node.tree, &tree_);
  EXPECT_EQ(node.depth, 2);
  EXPECT_EQ(node.position->value, 3);
  EXPECT_EQ(node.position->depth, 2);
  EXPECT_EQ(node.Value(), 3);
  EXPECT_EQ(*node, 3);
}

TEST_F(ListTreeTest, AHandleChangesTheValue) {
  *At(2) = 20;
  At(3).Value() = 30;
  EXPECT_EQ(Listing(tree_), "0@0 1@1 20@2 30@2 4@1 5@2 6@3 ");
}

TEST_F(ListTreeTest, SteppingComesToTheEndAndStaysThere) {
  Node node = At(6);
  EXPECT_EQ((++node), tree_.end());
  EXPECT_EQ((++node), tree_.end());
  EXPECT_EQ(node.depth, 0);
}

TEST_F(ListTreeTest, SteppingAfterwardsGivesTheOldHandle) {
  Node node = At(1);
  EXPECT_EQ(*node++, 1);
  EXPECT_EQ(*node, 2);
  EXPECT_EQ(node.depth, 2);
}

TEST_F(ListTreeTest, HandlesOfOneElementAreEqual) {
  EXPECT_TRUE(At(2) == At(2));
  EXPECT_FALSE(At(2) != At(2));
  EXPECT_TRUE(At(2) != At(3));
  Tree other;
  EXPECT_TRUE(other.end() != tree_.end());
}

TEST_F(ListTreeTest, TheEndHasNoValueOfItsOwn) {
  tree_.end().Value() = 5;
  EXPECT_EQ(tree_.end().Value(), 0);
}

TEST(ListTree, AHandleWithoutATreeIsAtEnd) {
  Node node;
  EXPECT_TRUE(node.AtEnd());
  EXPECT_TRUE(node == Node());
  EXPECT_TRUE((++node).AtEnd());
  EXPECT_TRUE(node.SubtreeEnd().AtEnd());
  EXPECT_TRUE(node.FirstChild().AtEnd());
  EXPECT_TRUE(node.NextSibling().AtEnd());
}

TEST_F(ListTreeTest, AnEmptyHandleTakesNoChild) {
  std::string const before = Listing(tree_);
  EXPECT_TRUE(Node().AppendChild(9).AtEnd());
  EXPECT_EQ(tree_.end().AppendChild(9), tree_.end());
  EXPECT_EQ(At(6).FirstChild().AppendChild(9), tree_.end());
  EXPECT_EQ(Listing(tree_), before);
}

TEST(ListTree, AnOwnerGivesUpWhatIsAppendedAndNothingElse) {
  struct Pointers : ListTree<int*> {
  } tree;
  auto owner = std::make_unique<int>(5);
  int* const item = owner.get();
  EXPECT_TRUE(ListTree<int*>::Node().AppendChild(std::move(owner)).AtEnd());
  EXPECT_TRUE(tree.end().AppendChild(std::move(owner)).AtEnd());
  EXPECT_EQ(owner.get(), item);
  EXPECT_TRUE(tree.empty());
  ListTree<int*>::Node const root = tree.Append(nullptr);
  std::size_t const failures = FailEveryAllocation([&] { root.AppendChild(std::move(owner)); },
                                                   [&] {
                                                     EXPECT_EQ(owner.get(), item);
                                                     EXPECT_EQ(tree.size(), 1U);
                                                   });
  EXPECT_GE(failures, 2U);
  EXPECT_EQ(owner, nullptr);
  ASSERT_EQ(root.FirstChild().Value(), item);
  delete item;
}

// Structure

TEST_F(ListTreeTest, TheSubtreeEndIsTheFirstElementThatIsNotDeeper) {
  EXPECT_EQ(At(0).SubtreeEnd(), tree_.end());
  EXPECT_EQ(At(1).SubtreeEnd(), At(4));
  EXPECT_EQ(At(2).SubtreeEnd(), At(3));
  EXPECT_EQ(At(3).SubtreeEnd(), At(4));
  EXPECT_EQ(At(4).SubtreeEnd(), tree_.end());
  EXPECT_EQ(At(6).SubtreeEnd(), tree_.end());
  EXPECT_EQ(tree_.end().SubtreeEnd(), tree_.end());
}

TEST_F(ListTreeTest, TheSubtreeEndGoesByTheHandlesDepth) {
  Node node = At(2);
  node.depth = 0;
  EXPECT_EQ(node.SubtreeEnd(), tree_.end());
  node.depth = 1;
  EXPECT_EQ(node.SubtreeEnd(), At(4));
}

TEST_F(ListTreeTest, TheFirstChildFollowsAtOnce) {
  EXPECT_EQ(At(0).FirstChild(), At(1));
  EXPECT_EQ(At(1).FirstChild(), At(2));
  EXPECT_EQ(At(2).FirstChild(), tree_.end()) << "its next is its sibling";
  EXPECT_EQ(At(3).FirstChild(), tree_.end()) << "its next is its parent's sibling";
  EXPECT_EQ(At(6).FirstChild(), tree_.end()) << "it is the last";
}

TEST_F(ListTreeTest, TheNextSiblingFollowsTheSubtree) {
  EXPECT_EQ(At(1).NextSibling(), At(4));
  EXPECT_EQ(At(2).NextSibling(), At(3));
  EXPECT_EQ(At(3).NextSibling(), tree_.end()) << "what follows is less deep";
  EXPECT_EQ(At(4).NextSibling(), tree_.end());
  EXPECT_EQ(At(0).NextSibling(), tree_.end());
}

TEST_F(ListTreeTest, RootsAreSiblings) {
  Node const second = tree_.Append(7);
  EXPECT_EQ(At(0).NextSibling(), second);
  EXPECT_EQ(At(0).SubtreeEnd(), second);
  EXPECT_EQ(At(4).SubtreeEnd(), second);
}

// Appending

TEST_F(ListTreeTest, AppendingAChildPutsItBehindTheSubtree) {
  Node const child = At(1).AppendChild(9);
  EXPECT_EQ(Listing(tree_), "0@0 1@1 2@2 3@2 9@2 4@1 5@2 6@3 ");
  EXPECT_EQ(*child, 9);
  EXPECT_EQ(child.depth, 2);
  EXPECT_EQ(child.tree, &tree_);
}

TEST_F(ListTreeTest, AppendingAChildToALeafMakesItsFirst) {
  At(2).AppendChild(9);
  EXPECT_EQ(Listing(tree_), "0@0 1@1 2@2 9@3 3@2 4@1 5@2 6@3 ");
}

TEST_F(ListTreeTest, AppendingAChildToTheRootPutsItLast) {
  EXPECT_EQ(At(0).AppendChild(9).depth, 1);
  EXPECT_EQ(Listing(tree_), "0@0 1@1 2@2 3@2 4@1 5@2 6@3 9@1 ");
}

TEST_F(ListTreeTest, AppendingToAnEarlierBranchAfterALaterOneKeepsBothApart) {
  Node const one = At(1);
  Node const four = At(4);
  four.AppendChild(8);
  one.AppendChild(9);
  four.AppendChild(10);
  one.AppendChild(11);
  EXPECT_EQ(Listing(tree_), "0@0 1@1 2@2 3@2 9@2 11@2 4@1 5@2 6@3 8@2 10@2 ");
}

TEST_F(ListTreeTest, AppendingAtRootLevelPutsItLastAtDepthZero) {
  Node const root = tree_.Append(9);
  EXPECT_EQ(root.depth, 0);
  EXPECT_EQ(Listing(tree_), "0@0 1@1 2@2 3@2 4@1 5@2 6@3 9@0 ");
  At(0).AppendChild(10);
  EXPECT_EQ(Listing(tree_), "0@0 1@1 2@2 3@2 4@1 5@2 6@3 10@1 9@0 ");
}

TEST_F(ListTreeTest, HandlesStayValidWhileOthersAreAdded) {
  Node const three = At(3);
  for (int i = 0; i < 100; ++i) {
    At(2).AppendChild(i);
    tree_.Append(i);
  }
  EXPECT_EQ(*three, 3);
  EXPECT_EQ(three.AppendChild(9).depth, 3);
}

TEST(ListTree, HasNoFirstElementWhenThereIsNoMemoryForIt) {
  Tree tree;
  EXPECT_GE(FailEveryAllocation([&] { tree.Append(1); }, [&] { EXPECT_TRUE(tree.empty()); }), 2U);
  EXPECT_EQ(tree.size(), 1U);
}

TEST_F(ListTreeTest, ARefusedAllocationChangesNothing) {
  std::string const before = Listing(tree_);
  auto const unchanged = [&] {
    EXPECT_EQ(Listing(tree_), before);
    EXPECT_EQ(tree_.size(), 7U);
  };
  Node const leaf = At(6);
  EXPECT_GE(FailEveryAllocation([&] { leaf.AppendChild(9); }, unchanged), 2U);
  EXPECT_EQ(Listing(tree_), before + "9@4 ");
}

TEST_F(ListTreeTest, ARefusedRootChangesNothing) {
  std::string const before = Listing(tree_);
  EXPECT_GE(
      FailEveryAllocation([&] { tree_.Append(9); }, [&] { EXPECT_EQ(Listing(tree_), before); }),
      2U);
  EXPECT_EQ(Listing(tree_), before + "9@0 ");
}

// Promoting and unlinking

TEST_F(ListTreeTest, PromotingMovesEverythingBelowUpByOneLevel) {
  tree_.PromoteDescendants(At(4));
  EXPECT_EQ(Listing(tree_), "0@0 1@1 2@2 3@2 4@1 5@1 6@2 ");
}

TEST_F(ListTreeTest, PromotingStopsAtTheFirstElementThatIsNotDeeper) {
  tree_.PromoteDescendants(At(1));
  EXPECT_EQ(Listing(tree_), "0@0 1@1 2@1 3@1 4@1 5@2 6@3 ");
}

TEST_F(ListTreeTest, PromotingBelowALeafOrTheEndDoesNothing) {
  std::string const before = Listing(tree_);
  tree_.PromoteDescendants(At(2));
  tree_.PromoteDescendants(At(6));
  tree_.PromoteDescendants(tree_.end());
  EXPECT_EQ(Listing(tree_), before);
}

TEST_F(ListTreeTest, AppendingAfterPromotingGoesWhereTheDepthsSay) {
  tree_.PromoteDescendants(At(4));
  At(4).AppendChild(8);
  EXPECT_EQ(Listing(tree_), "0@0 1@1 2@2 3@2 4@1 8@2 5@1 6@2 ");
  At(6).AppendChild(9);
  At(0).AppendChild(10);
  EXPECT_EQ(Listing(tree_), "0@0 1@1 2@2 3@2 4@1 8@2 5@1 6@2 9@2 10@1 ");
}

TEST_F(ListTreeTest, UnlinkingRemovesOneElementAndNothingElse) {
  tree_.Unlink(At(4));
  EXPECT_EQ(Listing(tree_), "0@0 1@1 2@2 3@2 5@2 6@3 ");
  tree_.Unlink(At(5));
  EXPECT_EQ(Listing(tree_), "0@0 1@1 2@2 3@2 5@2 ");
  EXPECT_EQ(tree_.size(), 5U);
}

TEST_F(ListTreeTest, UnlinkingTheEndDoesNothing) {
  tree_.Unlink(tree_.end());
  EXPECT_EQ(tree_.size(), 7U);
}

TEST_F(ListTreeTest, AppendingAfterTheLastElementIsUnlinkedStillGoesToTheEnd) {
  tree_.Unlink(At(6));
  At(5).AppendChild(9);
  At(4).AppendChild(10);
  tree_.Unlink(At(7));
  At(1).AppendChild(11);
  EXPECT_EQ(Listing(tree_), "0@0 1@1 2@2 3@2 11@2 4@1 5@2 9@3 ");
}

TEST_F(ListTreeTest, UnlinkingEverythingLeavesATreeThatCanBeFilledAgain) {
  while (!tree_.empty()) {
    tree_.Unlink(tree_.begin());
  }
  tree_.Append(1).AppendChild(2);
  EXPECT_EQ(Listing(tree_), "1@0 2@1 ");
}

// Size

TEST_F(ListTreeTest, AHandleIsTakenAtItsWordWhenItsDepthIsNotThatOfItsElement) {
  Node last = At(6);
  last.depth = 1;
  EXPECT_EQ(last.AppendChild(9).depth, 2);
  EXPECT_EQ(At(6).AppendChild(10).depth, 4);
  EXPECT_EQ(Listing(tree_), "0@0 1@1 2@2 3@2 4@1 5@2 6@3 10@4 9@2 ");
}

TEST_F(ListTreeTest, AHandleIsTakenAtItsWordWhenItsDepthIsNegative) {
  Node first = tree_.begin();
  first.depth = -3;
  EXPECT_TRUE(first.SubtreeEnd().AtEnd());
  Node const child = first.AppendChild(9);
  EXPECT_EQ(child.depth, -2);
  Node const below = child.AppendChild(10);
  EXPECT_EQ(below.depth, -1);
  EXPECT_EQ(Listing(tree_).substr(Listing(tree_).size() - 11), "9@-2 10@-1 ");

  tree_.PromoteDescendants(child);
  EXPECT_EQ(child.FirstChild(), tree_.end());
  tree_.Unlink(child);
  EXPECT_EQ(tree_.Append(11).depth, 0);
  EXPECT_EQ(Listing(tree_).substr(Listing(tree_).size() - 11), "10@-2 11@0 ");
}

TEST(ListTree, AHundredThousandLevels) {
  Tree tree;
  Node node = tree.Append(0);
  for (int i = 1; i <= 100000; ++i) {
    node = node.AppendChild(i);
  }
  EXPECT_EQ(node.depth, 100000);
  EXPECT_EQ(tree.size(), 100001U);
  tree.PromoteDescendants(tree.begin());
  EXPECT_EQ(std::prev(tree.end().position)->depth, 99999);
}

TEST(ListTree, AMillionChildrenOfOneParent) {
  Tree tree;
  Node const root = tree.Append(0);
  for (int i = 1; i <= 1000000; ++i) {
    root.AppendChild(i);
  }
  EXPECT_EQ(tree.size(), 1000001U);
  EXPECT_EQ(std::prev(tree.end().position)->value, 1000000);
}

}  // namespace
