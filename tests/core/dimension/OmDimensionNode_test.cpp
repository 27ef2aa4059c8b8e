#include <cstddef>
#include <gtest/gtest.h>
#include <optional>
#include <type_traits>

#include <lakresvos/OmDimension.h>

#include "support/DimensionText.h"
#include "support/SpyCell.h"
#include "support/faults/FailingNew.h"

namespace {

static_assert(offsetof(OmDimensionNode, label) < offsetof(OmDimensionNode, subscript));
static_assert(offsetof(OmDimensionNode, subscript) < offsetof(OmDimensionNode, childIndex));
static_assert(offsetof(OmDimensionNode, childIndex) < offsetof(OmDimensionNode, sort));
static_assert(offsetof(OmDimensionNode, sort) < offsetof(OmDimensionNode, group));
static_assert(offsetof(OmDimensionNode, group) < offsetof(OmDimensionNode, hide));
static_assert(offsetof(OmDimensionNode, hide) < offsetof(OmDimensionNode, hideLabels));
static_assert(!std::is_copy_assignable_v<OmDimensionNode>);

/// A spy whose order against any other cell is given.
class Biased : public SpyCell {
 public:
  explicit Biased(short order) : SpyCell("biased"), order_(order) {}
  short Compare(OmCellText const& /*other*/, bool /*ignoreCase*/) const override { return order_; }
  OmCellText* Clone(OmMemoryRegion* region) const override { return new (region) Biased(*this); }

 private:
  short order_;
};

OmDimensionNode Category(std::string const& label, unsigned long subscript = 0) {
  return OmDimensionNode(SpyCell(label), subscript, false, nullptr);
}

OmDimensionNode Group(std::string const& label, unsigned long subscript = 0) {
  return OmDimensionNode(SpyCell(label), subscript, true, nullptr);
}

class OmDimensionNodeTest : public testing::Test {
 protected:
  SpyBalance balance_;
};

// Construction and destruction

TEST_F(OmDimensionNodeTest, ADefaultNodeHasNothing) {
  OmMemoryRegion region(false);
  OmDimensionNode const node(&region);
  EXPECT_EQ(node.label, nullptr);
  EXPECT_EQ(node.subscript, static_cast<unsigned long>(-1));
  EXPECT_EQ(node.childIndex.region, &region);
  EXPECT_EQ(node.childIndex.begin, nullptr);
  EXPECT_EQ(node.sort, 2);
  EXPECT_FALSE(node.group);
  EXPECT_FALSE(node.hide);
  EXPECT_FALSE(node.hideLabels);
  EXPECT_EQ(region.BytesInUse(), 0U);
}

TEST_F(OmDimensionNodeTest, ADefaultNodeWithoutARegionUsesTheDefaultHeap) {
  EXPECT_EQ(OmDimensionNode(nullptr).childIndex.region, OmMemoryRegion::DefaultHeap());
}

TEST_F(OmDimensionNodeTest, ANodeMadeOfATextHasACopyOfItInItsRegion) {
  OmMemoryRegion region(false);
  SpyCell const text("label");
  SpyLog const log;
  OmDimensionNode const node(text, 7, true, &region);
  ASSERT_EQ(log.Of(SpyCell::Operation::Clone).size(), 1U);
  EXPECT_EQ(log.Of(SpyCell::Operation::Clone)[0].region, &region);
  EXPECT_NE(node.label, &text);
  EXPECT_EQ(OmMemoryRegion::FindOwner(node.label), &region);
  EXPECT_EQ(node.label->GetText(), "label");
  EXPECT_EQ(node.subscript, 7U);
  EXPECT_TRUE(node.group);
  EXPECT_EQ(node.childIndex.region, &region);
  EXPECT_EQ(node.childIndex.begin, nullptr);
  EXPECT_EQ(node.sort, 2);
  EXPECT_FALSE(node.hide);
  EXPECT_FALSE(node.hideLabels);
}

TEST_F(OmDimensionNodeTest, ANodeMadeOfATextHandsANullRegionOnUnchanged) {
  SpyCell const text("label");
  SpyLog const log;
  OmDimensionNode const node(text, 7, false, nullptr);
  ASSERT_EQ(log.Of(SpyCell::Operation::Clone).size(), 1U);
  EXPECT_EQ(log.Of(SpyCell::Operation::Clone)[0].region, nullptr);
  EXPECT_EQ(node.childIndex.region, OmMemoryRegion::DefaultHeap());
  EXPECT_FALSE(node.group);
}

/// A node with every field set.
void Fill(OmDimensionNode& node) {
  for (unsigned int entry = 0; entry < 5; ++entry) {
    node.childIndex.push_back(10 + entry);
  }
  node.sort = 1;
  node.hide = true;
  node.hideLabels = true;
}

TEST_F(OmDimensionNodeTest, ACopyInAnotherRegionHasEverythingThere) {
  OmMemoryRegion region(false);
  OmMemoryRegion other(false);
  OmDimensionNode node(SpyCell("label"), 7, true, &region);
  Fill(node);
  {
    OmDimensionNode const copy(node, &other);
    EXPECT_EQ(OmMemoryRegion::FindOwner(copy.label), &other);
    EXPECT_EQ(LabelOf(copy), "label");
    EXPECT_EQ(copy.subscript, 7U);
    EXPECT_EQ(copy.childIndex.region, &other);
    EXPECT_EQ(OmMemoryRegion::FindOwner(copy.childIndex.begin), &other);
    EXPECT_EQ(IndexOf(copy), (std::vector<unsigned int>{10, 11, 12, 13, 14}));
    EXPECT_EQ(copy.sort, 1);
    EXPECT_TRUE(copy.group);
    EXPECT_TRUE(copy.hide);
    EXPECT_TRUE(copy.hideLabels);
  }
  EXPECT_EQ(other.BytesInUse(), 0U);
}

TEST_F(OmDimensionNodeTest, ACopysIndexHasExactlyTheSourcesSizeAsCapacity) {
  OmDimensionNode node(nullptr);
  Fill(node);
  ASSERT_EQ(node.childIndex.capacity(), 8U);
  OmDimensionNode copy(node, nullptr);
  EXPECT_EQ(copy.childIndex.capacity(), 5U);
  copy.childIndex.push_back(1);
  EXPECT_EQ(copy.childIndex.capacity(), 8U);
}

TEST_F(OmDimensionNodeTest, ACopyWithoutARegionIsOnTheDefaultHeap) {
  OmMemoryRegion region(false);
  OmDimensionNode const node(SpyCell("label"), 7, true, &region);
  OmDimensionNode const copy(node, nullptr);
  EXPECT_EQ(copy.childIndex.region, OmMemoryRegion::DefaultHeap());
  EXPECT_EQ(OmMemoryRegion::FindOwner(copy.label), OmMemoryRegion::DefaultHeap());
}

TEST_F(OmDimensionNodeTest, APlainCopyStaysInTheSourcesRegion) {
  OmMemoryRegion region(false);
  OmDimensionNode node(SpyCell("label"), 7, true, &region);
  Fill(node);
  OmDimensionNode const copy(node);
  EXPECT_EQ(copy.childIndex.region, &region);
  EXPECT_EQ(OmMemoryRegion::FindOwner(copy.label), &region);
  EXPECT_EQ(IndexOf(copy), IndexOf(node));
  EXPECT_EQ(copy.childIndex.capacity(), 5U);
  EXPECT_TRUE(copy == node);
}

TEST_F(OmDimensionNodeTest, ACopyOfANodeWithoutALabelHasNone) {
  OmDimensionNode const node(nullptr);
  EXPECT_EQ(OmDimensionNode(node).label, nullptr);
  EXPECT_EQ(OmDimensionNode(node, nullptr).label, nullptr);
}

TEST_F(OmDimensionNodeTest, DestroyingANodeDeletesItsLabelAndReleasesItsIndex) {
  OmMemoryRegion region(false);
  {
    OmDimensionNode node(SpyCell("label"), 7, true, &region);
    Fill(node);
    EXPECT_EQ(SpyCell::Live(), 1);
  }
  EXPECT_EQ(SpyCell::Live(), 0);
  EXPECT_EQ(region.BytesInUse(), 0U);
}

// Order

TEST_F(OmDimensionNodeTest, GroupsSortBeforeCategoriesWhateverTheirLabels) {
  EXPECT_TRUE(Group("z") < Category("a"));
  EXPECT_FALSE(Category("a") < Group("z"));
}

TEST_F(OmDimensionNodeTest, NodesOfOneSortAreOrderedByTheirLabels) {
  EXPECT_TRUE(Category("a") < Category("b"));
  EXPECT_FALSE(Category("b") < Category("a"));
  EXPECT_TRUE(Group("a") < Group("b"));
  EXPECT_FALSE(Group("b") < Group("a"));
}

TEST_F(OmDimensionNodeTest, EqualLabelsAndGroupFlagsAreEquivalentWhateverElseDiffers) {
  OmDimensionNode const plain = Category("a", 1);
  OmDimensionNode other = Category("a", 2);
  Fill(other);
  EXPECT_FALSE(plain < other);
  EXPECT_FALSE(other < plain);
}

TEST_F(OmDimensionNodeTest, TheOrderIsThatOfThisNodesLabelAgainstTheOthers) {
  OmDimensionNode const first = Category("a");
  OmDimensionNode const second = Category("b");
  SpyLog const log;
  EXPECT_TRUE(first < second);
  std::vector<SpyLog::Call> const compared = log.Of(SpyCell::Operation::Compare);
  ASSERT_EQ(compared.size(), 1U);
  EXPECT_EQ(compared[0].cell, first.label);
  EXPECT_EQ(compared[0].other, second.label);
}

TEST_F(OmDimensionNodeTest, TheOrderIsLessOnlyWhenTheComparisonIsNegative) {
  OmDimensionNode const other = Category("a");
  EXPECT_TRUE(OmDimensionNode(Biased(-32768), 0, false, nullptr) < other);
  EXPECT_FALSE(OmDimensionNode(Biased(0), 0, false, nullptr) < other);
  EXPECT_FALSE(OmDimensionNode(Biased(32767), 0, false, nullptr) < other);
}

// Equality

TEST_F(OmDimensionNodeTest, NodesThatDifferInNothingAreEqual) {
  EXPECT_TRUE(Category("a", 1) == Category("a", 1));
  EXPECT_TRUE(Group("a", 1) == Group("a", 1));
}

TEST_F(OmDimensionNodeTest, NodesThatDifferInTheGroupFlagAreNotEqual) {
  EXPECT_FALSE(Category("a", 1) == Group("a", 1));
}

TEST_F(OmDimensionNodeTest, NodesThatDifferInTheSubscriptAreNotEqual) {
  EXPECT_FALSE(Category("a", 1) == Category("a", 1 + (1UL << 32)));
}

TEST_F(OmDimensionNodeTest, NodesThatDifferInTheLabelsTextAreNotEqual) {
  EXPECT_FALSE(Category("a", 1) == Category("b", 1));
}

TEST_F(OmDimensionNodeTest, NodesThatDifferInTheLabelsKindAreNotEqual) {
  OmDimensionNode const other(SpyCell("a", SpyCell::kKind + (1L << 32)), 1, false, nullptr);
  EXPECT_FALSE(Category("a", 1) == other);
}

TEST_F(OmDimensionNodeTest, SortFlagsAndIndexTakeNoPartInEquality) {
  OmDimensionNode other = Category("a", 1);
  Fill(other);
  EXPECT_TRUE(Category("a", 1) == other);
}

TEST_F(OmDimensionNodeTest, AnyComparisonOtherThanZeroIsNotEqual) {
  OmDimensionNode const other = Category("a");
  EXPECT_TRUE(OmDimensionNode(Biased(0), 0, false, nullptr) == other);
  EXPECT_FALSE(OmDimensionNode(Biased(256), 0, false, nullptr) == other);
  EXPECT_FALSE(OmDimensionNode(Biased(-32768), 0, false, nullptr) == other);
}

// Failures

TEST_F(OmDimensionNodeTest, AFailedConstructionLeavesNothingBehind) {
  OmMemoryRegion region(false);
  SpyCell const text("label");
  auto const nothing = [&] {
    EXPECT_EQ(SpyCell::Live(), 1);
    EXPECT_EQ(region.BytesInUse(), 0U);
  };
  auto const make = [&] { OmDimensionNode const node(text, 7, true, &region); };
  EXPECT_GE(FailEveryAllocation(make, nothing), 2U);
  EXPECT_EQ(FailEveryCall(SpyCell::Operation::Clone, make, nothing), 1U);
}

TEST_F(OmDimensionNodeTest, AFailedCopyLeavesNothingBehind) {
  OmMemoryRegion region(false);
  OmDimensionNode node(SpyCell("label"), 7, true, nullptr);
  Fill(node);
  auto const nothing = [&] {
    EXPECT_EQ(SpyCell::Live(), 1);
    EXPECT_EQ(region.BytesInUse(), 0U);
  };
  auto const copy = [&] { OmDimensionNode const made(node, &region); };
  EXPECT_GE(FailEveryAllocation(copy, nothing), 4U) << "the label and the index";
  EXPECT_EQ(FailEveryCall(SpyCell::Operation::Clone, copy, nothing), 1U);
}

}  // namespace
