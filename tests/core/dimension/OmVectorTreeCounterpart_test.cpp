#include <gtest/gtest.h>
#include <string>

#include <lakresvos/OmDimension.h>
#include <lakresvos/OmVectorTree.h>

#include "support/Assertions.h"

namespace {

using Tree = OmVectorTree<int>;
using Node = Tree::Node;

/// Two levels below the root, `width` children each.
struct Sample : Tree {
  Sample(int first, int width) : Tree(nullptr, first) {
    for (int i = 0; i < width; ++i) {
      Node const child = AppendChild(Root(), first + 10 * i);
      for (int k = 0; k < width; ++k) {
        AppendChild(child, first + 10 * i + k);
      }
    }
  }
};

std::string PatternFor(std::string const& type) {
  return AssertionPattern(
      "backend/tables/om/VectorTree:384",
      LiteralPattern("OmVectorTree<Type>::Node OmVectorTree<Type>::Node::Counterpart("
                     "OmVectorTree<Type>&) [with Type = " +
                     type + "]"),
      "0 <= offset && offset < vec.size()");
}

TEST(OmVectorTreeCounterpart, OfTheRootIsTheOtherRootWhateverTheOtherHolds) {
  Sample source(0, 3);
  Tree empty;
  EXPECT_EQ(source.Root().Counterpart(empty).element, &empty);
  EXPECT_EQ(source.Root().Counterpart(empty).depth, 0U);
}

TEST(OmVectorTreeCounterpart, IsTheNodeAtTheSamePath) {
  Sample source(0, 3);
  Sample other(1000, 3);
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_EQ(source.Root()[i].Counterpart(other).element, other.Root()[i].element);
    for (std::size_t k = 0; k < 3; ++k) {
      Node const found = source.Root()[i][k].Counterpart(other);
      EXPECT_EQ(found.element, other.Root()[i][k].element);
      EXPECT_EQ(found.depth, 2U);
    }
  }
}

TEST(OmVectorTreeCounterpart, InALargerTreeIsTheNodeAtTheSamePath) {
  Sample source(0, 2);
  Sample other(1000, 5);
  EXPECT_EQ(source.Root()[1][1].Counterpart(other).Value(), 1011);
}

TEST(OmVectorTreeCounterpart, AHandleOfDepthZeroIsTakenForARoot) {
  Sample source(0, 2);
  Sample other(1000, 2);
  Node const wrong{source.Root()[1].element, 0};
  EXPECT_EQ(wrong.Counterpart(other).element, &other);
}

TEST(OmVectorTreeCounterpart, AnotherTreeThatIsSmallerIsNotAnError) {
  Sample source(0, 3);
  Sample smaller(1000, 2);
  Tree empty;
  EXPECT_EQ(source.Root()[2].Counterpart(smaller).element, nullptr);
  EXPECT_EQ(source.Root()[1][2].Counterpart(smaller).element, nullptr);
  EXPECT_EQ(source.Root()[2][2].Counterpart(empty).element, nullptr);
  EXPECT_EQ(source.Root()[2][2].Counterpart(empty).depth, 0U);
}

TEST(OmVectorTreeCounterpart, TakesThePathFromTheParentLinks) {
  Sample source(0, 3);
  Sample other(1000, 3);
  Node first = source.Root()[0];
  Tree::EraseChild(first);
  // The children of the node that moved to place 1 still name place 2.
  EXPECT_EQ(source.Root()[1].Counterpart(other).Value(), 1010);
  EXPECT_EQ(source.Root()[0].Counterpart(other).Value(), 1000);
}

TEST(OmVectorTreeCounterpart, OfAHundredThousandLevels) {
  Tree source;
  Tree other;
  Node node = source.Root();
  Node mirror = other.Root();
  for (int i = 1; i <= 100000; ++i) {
    node = Tree::AppendChild(node, i);
    mirror = Tree::AppendChild(mirror, i);
  }
  Node const found = node.Counterpart(other);
  EXPECT_EQ(found.element, mirror.element);
  EXPECT_EQ(found.depth, 100000U);
}

TEST(OmVectorTreeCounterpartDeathTest, OfAStaleHandleAborts) {
  Sample source(0, 3);
  Sample other(1000, 3);
  Node const last = source.Root()[2];
  Node first = source.Root()[0];
  Tree::EraseChild(first);
  EXPECT_ABORT(last.Counterpart(other), PatternFor("int"));
}

TEST(OmVectorTreeCounterpartDeathTest, OfAStaleHandleAbortsBeforeTheOtherTreeIsLookedAt) {
  Sample source(0, 3);
  Tree empty;
  Node const last = source.Root()[2];
  Node stale = source.Root()[2];
  Tree::EraseChild(stale);
  EXPECT_ABORT(last.Counterpart(empty), PatternFor("int"));
}

TEST(OmVectorTreeCounterpartDeathTest, OfAHandleThatSaysItIsDeeperThanItIsAborts) {
  Sample source(0, 3);
  Sample other(1000, 3);
  EXPECT_ABORT(Node(&source, 1).Counterpart(other), PatternFor("int"));
  EXPECT_ABORT(Node(source.Root()[1][2].element, 3).Counterpart(other), PatternFor("int"));
}

TEST(OmVectorTreeCounterpartDeathTest, NamesThePayloadOfACategoryTree) {
  OmVectorTree<OmDimensionNode> source;
  OmVectorTree<OmDimensionNode> other;
  OmVectorTree<OmDimensionNode>::Node const child =
      OmVectorTree<OmDimensionNode>::AppendChild(source.Root(), OmDimensionNode());
  OmVectorTree<OmDimensionNode>::Node stale = child;
  OmVectorTree<OmDimensionNode>::EraseChild(stale);
  EXPECT_ABORT(child.Counterpart(other), PatternFor("OmDimensionNode"));
}

}  // namespace
