#include <gtest/gtest.h>
#include <string>
#include <vector>

#include <cells/OmStringCell.h>
#include <lakresvos/OmHeading.h>
#include <lakresvos/OmOutputTree.h>
#include <lakresvos/OmTextBlock.h>

#include "support/SampleOutputTree.h"
#include "support/SpyCell.h"

namespace {

using Node = OmOutputTree::Node;
using Names = std::vector<std::string>;

OmTextBlock const* BlockAt(Node const& node) {
  return dynamic_cast<OmTextBlock const*>(node.Value());
}

class AmputateTest : public testing::Test, protected SampleOutputTree {
 protected:
  Node Cut(std::string const& name) { return Amputate(Find(name), &label_, "text"); }

  SpyBalance balance_;
  OmStringCell const label_{"gone"};
};

// The root and the items below it

TEST_F(AmputateTest, TheRootIsKeptWithOneTextBlockBelow) {
  Node const block = Cut("Output");
  EXPECT_EQ(Text(), "Output@0 gone@1 ");
  EXPECT_EQ(block, Find("gone"));
  EXPECT_EQ(block.depth, 1);
  EXPECT_EQ(deleted, (Names{"a", "b11", "b121", "b12", "b1", "b2", "b", "c"}));
}

TEST_F(AmputateTest, AnItemBelowTheRootIsKeptWithOneTextBlockBelow) {
  Node const block = Cut("b");
  EXPECT_EQ(Text(), "Output@0 a@1 b@1 gone@2 c@1 ");
  EXPECT_EQ(block, Find("gone"));
  EXPECT_EQ(block.depth, 2);
  EXPECT_EQ(deleted, (Names{"b11", "b121", "b12", "b1", "b2"}));
}

TEST_F(AmputateTest, AnItemWithoutContentGetsATextBlock) {
  Node const block = Cut("c");
  EXPECT_EQ(Text(), "Output@0 a@1 b@1 b1@2 b11@3 b12@3 b121@4 b2@2 c@1 gone@2 ");
  EXPECT_EQ(block, Find("gone"));
  EXPECT_TRUE(deleted.empty());
}

TEST_F(AmputateTest, TheTextBlockHasTheGivenLabelAndText) {
  SpyCell const label("Log");
  Node const node = Amputate(Find("b"), &label, "why");
  OmTextBlock const* const block = BlockAt(node);
  ASSERT_NE(block, nullptr);
  EXPECT_EQ(block->Label()->GetText(), "Log");
  EXPECT_NE(block->Label(), &label);
  EXPECT_EQ(block->Text(), "why");
  EXPECT_TRUE(block->IsLog());
  tree.reset();
}

TEST_F(AmputateTest, TheTextBlockBelongsToTheTree) {
  SpyCell const label("label");
  Amputate(Find("b"), &label, "text");
  EXPECT_EQ(SpyCell::Live(), 2);
  tree.reset();
  EXPECT_EQ(SpyCell::Live(), 1);
}

TEST_F(AmputateTest, TheSameItemCanBeCutTwice) {
  Cut("b");
  Amputate(Find("b"), &label_, "text");
  EXPECT_EQ(Text(), "Output@0 a@1 b@1 gone@2 c@1 ");
}

// Deeper items

TEST_F(AmputateTest, ADeeperItemGoesAndItsChildrenTakeItsPlaceBeforeATextBlock) {
  Node const first = Cut("b1");
  EXPECT_EQ(Text(), "Output@0 a@1 b@1 b11@2 b12@2 b121@3 b1@2 b2@2 c@1 ");
  EXPECT_EQ(deleted, (Names{"b1"}));
  EXPECT_EQ(first, Find("b11"));
  EXPECT_EQ(first.depth, 2);
}

TEST_F(AmputateTest, ADeeperItemWithoutChildrenIsReplacedByTheTextBlock) {
  Node const block = Cut("b2");
  EXPECT_EQ(Text(), kText) << "the text block bears the same label";
  EXPECT_EQ(deleted, (Names{"b2"}));
  EXPECT_EQ(block, Find("b2"));
  EXPECT_EQ(block.depth, 2);
  ASSERT_NE(BlockAt(block), nullptr);
  EXPECT_EQ(BlockAt(block)->Text(), "text");
}

TEST_F(AmputateTest, AnItemThreeLevelsDownIsReplacedAtItsOwnDepth) {
  Node const first = Cut("b12");
  EXPECT_EQ(Text(), "Output@0 a@1 b@1 b1@2 b11@3 b121@3 b12@3 b2@2 c@1 ");
  EXPECT_EQ(first, Find("b121"));
  EXPECT_EQ(first.depth, 3);
}

TEST_F(AmputateTest, ADeeperItemsTextBlockHasACopyOfTheItemsLabel) {
  Node const b2 = Find("b2");
  b2.AppendChild(new OmHeading(SpyCell("deep", 77)));
  SpyLog const log;
  Node const node = Amputate(Find("deep"), &label_, "text");
  ASSERT_NE(BlockAt(node), nullptr);
  EXPECT_EQ(BlockAt(node)->Label()->GetText(), "deep");
  EXPECT_EQ(BlockAt(node)->Label()->GetKind(), 77);
  ASSERT_EQ(log.Of(SpyCell::Operation::Clone).size(), 1U);
  EXPECT_EQ(log.Of(SpyCell::Operation::Clone)[0].result, BlockAt(node)->Label());
  EXPECT_EQ(log.Of(SpyCell::Operation::Destroy).size(), 1U) << "the label of the item that went";
  tree.reset();
}

TEST_F(AmputateTest, ADeeperItemNeedsNoLabel) {
  Node const node = Amputate(Find("b1"), nullptr, "text");
  EXPECT_EQ(node, Find("b11"));
  EXPECT_EQ(BlockAt(Find("b1"))->Text(), "text");
}

TEST_F(AmputateTest, TheLastItemOfTheDocumentIsReplacedToo) {
  Add(Find("c"), "c1");
  Node const node = Amputate(Find("c1"), nullptr, "text");
  EXPECT_EQ(Text(), "Output@0 a@1 b@1 b1@2 b11@3 b12@3 b121@4 b2@2 c@1 c1@2 ");
  EXPECT_NE(BlockAt(node), nullptr);
  Add(Find("c"), "c2");
  Add(node, "c11");
  EXPECT_EQ(Text(), "Output@0 a@1 b@1 b1@2 b11@3 b12@3 b121@4 b2@2 c@1 c1@2 c11@3 c2@2 ");
}

TEST_F(AmputateTest, TheHandlesDepthDecides) {
  Node node = Find("b1");
  node.depth = 1;
  Amputate(node, &label_, "text");
  EXPECT_NE(Find("b1"), tree->end()) << "kept like an item below the root";
  EXPECT_EQ(dynamic_cast<OmTextBlock*>(Find("b1").Value()), nullptr);
}

TEST_F(AmputateTest, AtTheEndNothingHappens) {
  EXPECT_TRUE(Amputate(tree->end(), &label_, "text").AtEnd());
  EXPECT_EQ(Text(), kText);
}

TEST_F(AmputateTest, TheLabelMayBelongToAnItemThatGoes) {
  Node const block = Amputate(Find("b"), Find("b11").Value()->Label(), "text");
  EXPECT_EQ(BlockAt(block)->Label()->GetText(), "b11");
}

TEST_F(AmputateTest, TheTextMayBelongToABlockThatGoes) {
  Node const old = Cut("b");
  Node const block = Amputate(Find("b"), &label_, BlockAt(old)->Text());
  EXPECT_EQ(BlockAt(block)->Text(), "text");
}

TEST_F(AmputateTest, WithoutALabelTheBlockOfAKeptItemHasAnEmptyOne) {
  Node const block = Amputate(Find("b"), nullptr, "text");
  EXPECT_EQ(BlockAt(block)->Label()->GetText(), "");
}

TEST(AmputateDeep, AHundredThousandLevels) {
  OmOutputTree tree;
  Node node = tree.begin();
  for (int i = 0; i < 100000; ++i) {
    node = node.AppendChild(new OmHeading(OmStringCell("h")));
  }
  Node const second = tree.begin().FirstChild().FirstChild();
  Node const first = Amputate(second, nullptr, "text");
  EXPECT_EQ(first.depth, 2);
  EXPECT_EQ(tree.size(), 100001U);
  OmStringCell const label("label");
  EXPECT_EQ(Amputate(tree.begin(), &label, "text").depth, 1);
  EXPECT_EQ(tree.size(), 2U);
}

}  // namespace
