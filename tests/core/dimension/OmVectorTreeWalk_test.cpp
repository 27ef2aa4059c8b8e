#include <gtest/gtest.h>
#include <type_traits>
#include <vector>

#include <lakresvos/OmVectorTree.h>
#include <lakresvos/OmVectorTreeWalk.h>

#include "support/TrackedValue.h"

template class OmVectorTreeWalk<OmVectorTree<TrackedValue>::Node>;
template class OmVectorTreeWalk<OmVectorTree<TrackedValue>::ConstNode>;

namespace {

using Tree = OmVectorTree<TrackedValue>;
using Walk = OmVectorTreeWalk<Tree::ConstNode>;

/// Root 0 with children 1 and 4; 1 has 2 and 3, 4 has 5, which has 6.
struct SmallTree : Tree {
  SmallTree() {
    Node const one = AppendChild(Root(), 1);
    AppendChild(one, 2);
    AppendChild(one, 3);
    Node const four = AppendChild(Root(), 4);
    AppendChild(AppendChild(four, 5), 6);
  }
};

TEST(OmVectorTreeWalk, VisitsTheNodesInPreorderAtTheirDepths) {
  SmallTree const tree;
  std::vector<std::pair<int, unsigned int>> seen;
  Walk walk(tree.Root());
  while (walk.Next()) {
    seen.emplace_back(walk.Current().Value().number, walk.Current().depth);
  }
  EXPECT_EQ(seen, (std::vector<std::pair<int, unsigned int>>{
                      {0, 0}, {1, 1}, {2, 2}, {3, 2}, {4, 1}, {5, 2}, {6, 3}}));
  EXPECT_FALSE(walk.Next());
}

TEST(OmVectorTreeWalk, StartsAtAnyNode) {
  SmallTree const tree;
  std::vector<int> seen;
  Walk walk(tree.Root()[1]);
  while (walk.Next()) {
    seen.push_back(walk.Current().Value().number);
  }
  EXPECT_EQ(seen, (std::vector<int>{4, 5, 6}));
}

TEST(OmVectorTreeWalk, AnEmptyHandleMakesAnEmptyWalk) {
  Walk walk(Tree::ConstNode{});
  EXPECT_FALSE(walk.Next());
  EXPECT_FALSE(walk.Next());
}

TEST(OmVectorTreeWalk, KnowsThePathFromItsRoot) {
  SmallTree const tree;
  Walk walk(tree.Root());
  while (walk.Next() && walk.Current().Value().number != 6) {
  }
  std::vector<int> path;
  for (Tree::ConstNode const& node : walk.Path()) {
    path.push_back(node.Value().number);
  }
  EXPECT_EQ(path, (std::vector<int>{0, 4, 5, 6}));
}

TEST(OmVectorTreeWalk, LeavesOutWhatItIsToldToSkip) {
  SmallTree const tree;
  std::vector<int> seen;
  Walk walk(tree.Root());
  while (walk.Next()) {
    seen.push_back(walk.Current().Value().number);
    if (walk.Current().Value().number == 1 || walk.Current().Value().number == 5) {
      walk.SkipChildren();
    }
  }
  EXPECT_EQ(seen, (std::vector<int>{0, 1, 4, 5}));
}

TEST(OmVectorTreeWalk, DoesNotDependOnParentLinks) {
  SmallTree tree;
  Tree::Node first = tree.Root()[0];
  Tree::EraseChild(first);
  ASSERT_NE(tree.Root()[0][0].element->parent, tree.Root()[0].element);
  std::vector<int> path;
  OmVectorTreeWalk<Tree::Node> walk(tree.Root());
  while (walk.Next()) {
    path.push_back(walk.Path().back().Value().number);
  }
  EXPECT_EQ(path, (std::vector<int>{0, 4, 5, 6}));
}

TEST(OmVectorTreeWalk, LetsTheValuesBeChanged) {
  SmallTree tree;
  OmVectorTreeWalk<Tree::Node> walk(tree.Root());
  while (walk.Next()) {
    walk.Current().Value().number += 10;
  }
  EXPECT_EQ(tree.Root()[1][0][0].Value().number, 16);
}

TEST(OmVectorTreeWalk, WalksATreeOfAHundredThousandLevels) {
  OmVectorTree<int> tree;
  OmVectorTree<int>::Node node = tree.Root();
  for (int i = 1; i < 100000; ++i) {
    node = OmVectorTree<int>::AppendChild(node, i);
  }
  OmVectorTreeWalk<OmVectorTree<int>::ConstNode> walk(tree.Root());
  unsigned int deepest = 0;
  while (walk.Next()) {
    deepest = walk.Current().depth;
  }
  EXPECT_EQ(deepest, 99999U);
}

}  // namespace
