#include <gtest/gtest.h>
#include <string>
#include <type_traits>
#include <vector>

#include <cells/OmStringCell.h>
#include <lakresvos/OmAnswerTree.h>
#include <lakresvos/OmChart.h>
#include <lakresvos/OmHeading.h>
#include <lakresvos/OmInteractive.h>
#include <lakresvos/OmModel.h>
#include <lakresvos/OmOutputTree.h>
#include <lakresvos/OmPivotTable.h>
#include <lakresvos/OmTextBlock.h>

#include "support/SampleOutputTree.h"
#include "support/SpyCell.h"

namespace {

using Node = OmOutputTree::Node;
using Names = std::vector<std::string>;

static_assert(std::is_base_of_v<ListTree<OmOutputPart*>, OmOutputTree>);
static_assert(sizeof(OmOutputTree) == sizeof(ListTree<OmOutputPart*>), "no data of its own");
static_assert(!std::is_copy_constructible_v<OmOutputTree>);
static_assert(std::is_nothrow_destructible_v<OmOutputTree>);

class OmOutputTreeTest : public testing::Test, protected SampleOutputTree {
 protected:
  void Erase(std::string const& name) {
    Node node = Find(name);
    tree->Erase(node);
  }
  void Prune(std::string const& name) {
    Node node = Find(name);
    tree->Prune(node);
  }
};

TEST_F(OmOutputTreeTest, TheSampleIsWhatItLooksLike) {
  EXPECT_EQ(Text(), kText);
}

TEST(OmOutputTree, ANewTreeIsOneHeadingNamedOutput) {
  OmOutputTree tree;
  EXPECT_EQ(tree.size(), 1U);
  EXPECT_EQ(tree.begin().depth, 0);
  OmOutputPart const* const root = *tree.begin();
  EXPECT_NE(dynamic_cast<OmHeading const*>(root), nullptr);
  EXPECT_EQ(dynamic_cast<OmProcedure const*>(root), nullptr);
  EXPECT_EQ(root->Label()->GetText(), "Output");
}

TEST(OmOutputTree, TheRootsLabelIsAStringThatIsTranslated) {
  OmOutputTree tree;
  auto const* const label = dynamic_cast<OmStringCell const*>((*tree.begin())->Label());
  ASSERT_NE(label, nullptr);
  EXPECT_TRUE(label->IsTranslatable());
}

TEST_F(OmOutputTreeTest, AHandlesTreeIsTheOutputTree) {
  EXPECT_EQ(Find("b").tree, tree.get());
}

// Erase

TEST_F(OmOutputTreeTest, ErasingAnItemPutsItsChildrenInItsPlaceAndDeletesItAlone) {
  Erase("b");
  EXPECT_EQ(Text(), "Output@0 a@1 b1@1 b11@2 b12@2 b121@3 b2@1 c@1 ");
  EXPECT_EQ(deleted, (Names{"b"}));
}

TEST_F(OmOutputTreeTest, ErasingADeeperItemMovesItsSubtreeAlone) {
  Erase("b1");
  EXPECT_EQ(Text(), "Output@0 a@1 b@1 b11@2 b12@2 b121@3 b2@2 c@1 ");
  EXPECT_EQ(deleted, (Names{"b1"}));
}

TEST_F(OmOutputTreeTest, ErasingALeafRemovesOneElement) {
  Erase("b11");
  EXPECT_EQ(Text(), "Output@0 a@1 b@1 b1@2 b12@3 b121@4 b2@2 c@1 ");
  EXPECT_EQ(deleted, (Names{"b11"}));
}

TEST_F(OmOutputTreeTest, ErasingTheRootLeavesItsChildrenAtRootLevel) {
  Erase("Output");
  EXPECT_EQ(Text(), "a@0 b@0 b1@1 b11@2 b12@2 b121@3 b2@1 c@0 ");
  EXPECT_TRUE(deleted.empty());
}

TEST_F(OmOutputTreeTest, ErasingGoesByTheElementsDepthNotTheHandles) {
  Node node = Find("b1");
  node.depth = 0;
  tree->Erase(node);
  EXPECT_EQ(Text(), "Output@0 a@1 b@1 b11@2 b12@2 b121@3 b2@2 c@1 ");
}

TEST_F(OmOutputTreeTest, ErasingLeavesTheHandleAsItWas) {
  Node node = Find("b1");
  Node const before = node;
  tree->Erase(node);
  EXPECT_EQ(node.tree, before.tree);
  EXPECT_EQ(node.depth, before.depth);
}

TEST_F(OmOutputTreeTest, ErasingTheEndDoesNothing) {
  Node end = tree->end();
  tree->Erase(end);
  EXPECT_EQ(Text(), kText);
}

TEST_F(OmOutputTreeTest, ErasingAnElementWithoutAnItemRemovesTheElement) {
  Node const node = Find("b1");
  delete node.Value();
  *node = nullptr;
  Node again = node;
  tree->Erase(again);
  EXPECT_EQ(Text(), "Output@0 a@1 b@1 b11@2 b12@2 b121@3 b2@2 c@1 ");
}

TEST_F(OmOutputTreeTest, WhatIsAppendedAfterErasingGoesWhereTheDepthsSay) {
  Erase("c");
  Add(Find("b2"), "x");
  Add(Find("b"), "y");
  Add(Find("a"), "z");
  EXPECT_EQ(Text(), "Output@0 a@1 z@2 b@1 b1@2 b11@3 b12@3 b121@4 b2@2 x@3 y@2 ");
}

// Prune

TEST_F(OmOutputTreeTest, PruningDeletesTheSubtreeDescendantsFirst) {
  Prune("b");
  EXPECT_EQ(Text(), "Output@0 a@1 c@1 ");
  EXPECT_EQ(deleted, (Names{"b11", "b121", "b12", "b1", "b2", "b"}));
}

TEST_F(OmOutputTreeTest, PruningALeafRemovesOneElement) {
  Prune("b11");
  EXPECT_EQ(Text(), "Output@0 a@1 b@1 b1@2 b12@3 b121@4 b2@2 c@1 ");
  EXPECT_EQ(deleted, (Names{"b11"}));
}

TEST_F(OmOutputTreeTest, PruningTheLastItemLeavesItsSiblings) {
  Prune("c");
  EXPECT_EQ(Text(), "Output@0 a@1 b@1 b1@2 b11@3 b12@3 b121@4 b2@2 ");
}

TEST_F(OmOutputTreeTest, PruningTheRootEmptiesTheTree) {
  Prune("Output");
  EXPECT_TRUE(tree->empty());
  EXPECT_EQ(deleted, (Names{"a", "b11", "b121", "b12", "b1", "b2", "b", "c"}));
}

TEST_F(OmOutputTreeTest, ATreeThatWasEmptiedCanBeFilledAgain) {
  Prune("Output");
  Add(tree->Append(new SpyPart("root", deleted)), "child");
  EXPECT_EQ(Text(), "root@0 child@1 ");
}

TEST_F(OmOutputTreeTest, PruningSkipsElementsWithoutItems) {
  Node const node = Find("b12");
  delete node.Value();
  *node = nullptr;
  deleted.clear();
  Prune("b");
  EXPECT_EQ(Text(), "Output@0 a@1 c@1 ");
  EXPECT_EQ(deleted, (Names{"b11", "b121", "b1", "b2", "b"}));
}

TEST_F(OmOutputTreeTest, PruningTheEndDoesNothing) {
  Node end = tree->end();
  tree->Prune(end);
  EXPECT_EQ(Text(), kText);
}

TEST_F(OmOutputTreeTest, PruningLeavesTheHandleAsItWas) {
  Node node = Find("b1");
  tree->Prune(node);
  EXPECT_EQ(node.tree, tree.get());
  EXPECT_EQ(node.depth, 2);
}

TEST_F(OmOutputTreeTest, WhatIsAppendedAfterPruningGoesWhereTheDepthsSay) {
  Prune("c");
  Prune("b2");
  Add(Find("b121"), "x");
  Add(Find("b"), "y");
  EXPECT_EQ(Text(), "Output@0 a@1 b@1 b1@2 b11@3 b12@3 b121@4 x@5 y@2 ");
}

// Destruction

TEST(OmOutputTree, OwnsItemsOfEveryKind) {
  SpyBalance const balance;
  SpyCell const label("label");
  std::string const page;
  {
    OmOutputTree tree;
    Node const procedure = tree.begin().AppendChild(new OmProcedure(label, "a", "b", "c"));
    for (OmOutputPart* const item :
         std::vector<OmOutputPart*>{new OmHeading(label), new OmTextBlock(label, "text"),
                                    new OmPageTitle("text"), new OmPivotTable(label, label, false),
                                    new OmChart(label, page, 1), new OmAnswerTree(label, page),
                                    new OmModel(label), new OmInteractive(label, page, 2)}) {
      procedure.AppendChild(item);
    }
    EXPECT_EQ(tree.size(), 10U);
    EXPECT_EQ(SpyCell::Live(), 10) << "the label, eight copies and the table's template name";
    Node last = procedure.FirstChild();
    while (!last.NextSibling().AtEnd()) {
      last = last.NextSibling();
    }
    tree.Prune(last);
    EXPECT_EQ(SpyCell::Live(), 9);
  }
  EXPECT_EQ(SpyCell::Live(), 1);
}

TEST_F(OmOutputTreeTest, DestroyingTheTreeDeletesEveryItemInPreorder) {
  tree.reset();
  EXPECT_EQ(deleted, (Names{"a", "b", "b1", "b11", "b12", "b121", "b2", "c"}));
}

TEST_F(OmOutputTreeTest, DestroyingATreeSkipsElementsWithoutItems) {
  for (char const* name : {"a", "b1"}) {
    Node const node = Find(name);
    delete node.Value();
    *node = nullptr;
  }
  deleted.clear();
  tree.reset();
  EXPECT_EQ(deleted, (Names{"b", "b11", "b12", "b121", "b2", "c"}));
}

// Size

TEST(OmOutputTree, AHundredThousandLevelsAreBuiltPrunedAndDestroyed) {
  OmOutputTree tree;
  for (bool prune : {true, false}) {
    Node node = tree.begin();
    for (int i = 0; i < 100000; ++i) {
      node = node.AppendChild(new OmHeading(OmStringCell("h")));
    }
    EXPECT_EQ(node.depth, 100000);
    if (prune) {
      Node top = tree.begin().FirstChild();
      tree.Prune(top);
      EXPECT_EQ(tree.size(), 1U);
    }
  }
}

TEST(OmOutputTree, AMillionItemsBelowTheRootArePruned) {
  OmOutputTree tree;
  Node root = tree.begin();
  for (int i = 0; i < 1000000; ++i) {
    root.AppendChild(nullptr);
  }
  EXPECT_EQ(tree.size(), 1000001U);
  tree.Prune(root);
  EXPECT_TRUE(tree.empty());
}

}  // namespace
