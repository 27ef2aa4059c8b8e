#include <gtest/gtest.h>
#include <string>
#include <vector>

#include <cells/OmStringCell.h>
#include <lakresvos/OmDimension.h>

#include "support/DimensionText.h"
#include "support/SpyCell.h"

namespace {

using Node = OmDimension::Node;
using Index = std::vector<unsigned int>;

class OmDimensionDelete : public testing::Test {
 protected:
  Node Add(Node const& parent, std::string const& label, unsigned long subscript,
           bool group = false) {
    return dimension_.AddNewChild(parent, SpyCell(label), subscript, group);
  }
  Node Add(std::string const& label, unsigned long subscript, bool group = false) {
    return Add(dimension_.Root(), label, subscript, group);
  }
  void AddCategories(int count) {
    for (int i = 0; i < count; ++i) {
      Add(std::string(1, static_cast<char>('a' + i)), static_cast<unsigned long>(i));
    }
  }
  void Delete(Node node) { dimension_.Delete(node); }

  void SetIndex(Index const& entries) {
    dimension_.value.childIndex.Clear();
    for (unsigned int const entry : entries) {
      dimension_.value.childIndex.push_back(entry);
    }
  }
  Index RootIndex() { return IndexOf(dimension_.value); }

  std::string Labels() {
    std::string labels;
    for (OmDimension::Element const& child : dimension_.children.Elements()) {
      labels += LabelOf(child.value);
    }
    return labels;
  }

  SpyBalance balance_;
  OmMemoryRegion region_{false};
  OmDimension dimension_{OmDimensionNode(SpyCell("root"), 0, true, nullptr), &region_};
};

// The tree

TEST_F(OmDimensionDelete, RemovesTheNodeAndClosesTheGap) {
  AddCategories(4);
  Delete(dimension_.Root()[1]);
  EXPECT_EQ(Labels(), "acd");
}

TEST_F(OmDimensionDelete, DestroysTheWholeSubtree) {
  Node const group = Add("g", 0, true);
  Node const inner = Add(group, "h", 0, true);
  Add(inner, "a", 0);
  Add(inner, "b", 1);
  Add("c", 2);
  long const live = SpyCell::Live();
  Delete(dimension_.Root()[0]);
  EXPECT_EQ(SpyCell::Live(), live - 4);
  EXPECT_EQ(Labels(), "c");
}

TEST_F(OmDimensionDelete, RepairsNoParentLink) {
  for (char const* label : {"f", "g", "h"}) {
    Add(Add(label, 0, true), "a", 0);
  }
  Delete(dimension_.Root()[0]);
  EXPECT_EQ(dimension_.Root()[0][0].element->parent, dimension_.children.begin + 1);
  EXPECT_EQ(dimension_.Root()[1][0].element->parent, dimension_.children.begin + 2);
  EXPECT_EQ(dimension_.Root()[0].element->parent, &dimension_);
}

TEST_F(OmDimensionDelete, RemovesWhatTheHandleNamesBelowANodeThatHasMoved) {
  for (char const* label : {"f", "g", "h"}) {
    Node const group = Add(label, 0, true);
    Add(group, std::string(label) + "1", 0);
    Add(group, std::string(label) + "2", 1);
  }
  Delete(dimension_.Root()[0]);
  Delete(dimension_.Root()[0][0]);
  ASSERT_EQ(dimension_.Root()[0].NChildren(), 1U);
  EXPECT_EQ(LabelOf(dimension_.Root()[0][0].Value()), "g2");
  EXPECT_EQ(dimension_.Root()[1].NChildren(), 2U);
  EXPECT_EQ(IndexOf(dimension_.Root()[0].Value()), (Index{0}));
  EXPECT_EQ(IndexOf(dimension_.Root()[1].Value()), (Index{0, 1}));
}

TEST_F(OmDimensionDelete, OfTheRootDoesNothing) {
  AddCategories(2);
  std::string const before = TextOf(dimension_);
  Delete(dimension_.Root());
  EXPECT_EQ(TextOf(dimension_), before);
}

TEST_F(OmDimensionDelete, OfAnEmptyHandleOrANodeOfAnotherDimensionDoesNothing) {
  AddCategories(2);
  OmDimension other(dimension_, nullptr);
  std::string const before = TextOf(dimension_);
  Delete(Node());
  Delete(other.Root()[0]);
  EXPECT_EQ(TextOf(dimension_), before);
  EXPECT_EQ(TextOf(other), before);
}

// The index

TEST_F(OmDimensionDelete, RepairsAnIndexInChildOrder) {
  AddCategories(4);
  Delete(dimension_.Root()[1]);
  EXPECT_EQ(RootIndex(), (Index{0, 1, 2}));
}

TEST_F(OmDimensionDelete, OfTheFirstAndOfTheLastChildRepairAnIndexInChildOrder) {
  AddCategories(4);
  Delete(dimension_.Root()[0]);
  EXPECT_EQ(RootIndex(), (Index{0, 1, 2}));
  Delete(dimension_.Root()[2]);
  EXPECT_EQ(RootIndex(), (Index{0, 1}));
}

TEST_F(OmDimensionDelete, AtPlaceOneOfAnIndexThatReadsOneZeroTwoLeavesItEmpty) {
  AddCategories(3);
  SetIndex({1, 0, 2});
  Delete(dimension_.Root()[1]);
  EXPECT_EQ(RootIndex(), Index());
  EXPECT_EQ(dimension_.Root().NChildren(), 2U);
}

TEST_F(OmDimensionDelete, TakesTheEntryNumberedLikeTheChildFromAnIndexOutOfOrder) {
  AddCategories(3);
  SetIndex({2, 0, 1});
  Delete(dimension_.Root()[0]);
  EXPECT_EQ(RootIndex(), (Index{0, 0})) << "the first entry went, not the one that named the child";
}

TEST_F(OmDimensionDelete, LowersOnlyTheEntriesAboveTheChild) {
  AddCategories(5);
  SetIndex({4, 3, 2, 1, 0});
  Delete(dimension_.Root()[2]);
  EXPECT_EQ(RootIndex(), (Index{3, 2, 1, 0}));
}

TEST_F(OmDimensionDelete, LeavesAnIndexThatDoesNotNameTheChildAtItsLength) {
  AddCategories(3);
  SetIndex({0, 2});
  Delete(dimension_.Root()[1]);
  EXPECT_EQ(RootIndex(), (Index{0, 1}));
}

TEST_F(OmDimensionDelete, RemovesPastTheEndOfAShortIndex) {
  AddCategories(3);
  SetIndex({0, 2});
  Delete(dimension_.Root()[2]);
  EXPECT_EQ(RootIndex(), (Index{0}));
}

TEST_F(OmDimensionDelete, ComparesEntriesAsSignedNumbers) {
  AddCategories(3);
  SetIndex({0xFFFFFFFF, 0x80000000, 0x7FFFFFFF});
  Delete(dimension_.Root()[0]);
  EXPECT_EQ(RootIndex(), (Index{0xFFFFFFFF, 0x80000000, 0x7FFFFFFE}));
}

TEST_F(OmDimensionDelete, AnEmptyIndexStaysEmpty) {
  AddCategories(2);
  SetIndex({});
  Delete(dimension_.Root()[0]);
  EXPECT_EQ(RootIndex(), Index());
}

TEST_F(OmDimensionDelete, TouchesNoOtherIndex) {
  Node const first = Add("f", 0, true);
  Add(first, "a", 0);
  Add(first, "b", 1);
  Node const second = Add("g", 0, true);
  Add(second, "c", 2);
  Add(second, "d", 3);
  Delete(dimension_.Root()[0][0]);
  EXPECT_EQ(IndexOf(dimension_.Root()[0].Value()), (Index{0}));
  EXPECT_EQ(IndexOf(dimension_.Root()[1].Value()), (Index{0, 1}));
  EXPECT_EQ(RootIndex(), (Index{0, 1}));
}

// The category count

TEST_F(OmDimensionDelete, OfTheLastCategoryLeavesACountOfOne) {
  Add("a", 0);
  Delete(dimension_.Root()[0]);
  EXPECT_EQ(dimension_.CategoryCount(), 1U);
}

TEST_F(OmDimensionDelete, OfEverythingButGroupsLeavesACountOfOne) {
  Node const group = Add("g", 50, true);
  Add(group, "a", 7);
  Delete(dimension_.Root()[0][0]);
  EXPECT_EQ(dimension_.CategoryCount(), 1U);
}

TEST_F(OmDimensionDelete, CountsOnePastTheLargestSubscriptAndClosesNoGap) {
  AddCategories(4);
  Delete(dimension_.Root()[1]);
  EXPECT_EQ(dimension_.CategoryCount(), 4U);
  Delete(dimension_.Root()[2]);
  EXPECT_EQ(dimension_.CategoryCount(), 3U);
}

TEST_F(OmDimensionDelete, CountsSubscriptsBeyondTheNumberOfCategories) {
  Add("a", 0);
  Add("b", 41);
  EXPECT_EQ(dimension_.CategoryCount(), 2U);
  Delete(dimension_.Root()[0]);
  EXPECT_EQ(dimension_.CategoryCount(), 42U);
}

TEST_F(OmDimensionDelete, CountsCategoriesAtEveryLevel) {
  Node const group = Add("g", 0, true);
  Node const category = Add(group, "a", 3);
  Add(category, "b", 8);
  Add("c", 0);
  Delete(dimension_.Root()[1]);
  EXPECT_EQ(dimension_.CategoryCount(), 9U);
}

TEST_F(OmDimensionDelete, TakesNoNoticeOfTheSubscriptsOfGroups) {
  Add("g", 100, true);
  Add("a", 2);
  Add("b", 3);
  Delete(dimension_.Root()[2]);
  EXPECT_EQ(dimension_.CategoryCount(), 3U);
}

TEST_F(OmDimensionDelete, TakesTheLowHalfOfEachSubscript) {
  Add("a", (5UL << 32) + 3);
  Add("b", 1UL << 40);
  Add("c", 0);
  Delete(dimension_.Root()[2]);
  EXPECT_EQ(dimension_.CategoryCount(), 4U);
}

TEST_F(OmDimensionDelete, ACategoryWithoutASubscriptWrapsTheCountToZero) {
  Add("a", static_cast<unsigned long>(-1));
  Add("b", 0);
  Delete(dimension_.Root()[1]);
  EXPECT_EQ(dimension_.CategoryCount(), 0U);
}

TEST_F(OmDimensionDelete, ARootThatIsACategoryCounts) {
  OmDimension dimension(OmDimensionNode(SpyCell("root"), 9, false, nullptr), nullptr);
  Node child = dimension.AddNewChild(dimension.Root(), SpyCell("a"), 20, false);
  dimension.Delete(child);
  EXPECT_EQ(dimension.CategoryCount(), 10U);
}

TEST(OmDimensionDeleteDeep, BelowAHundredThousandLevels) {
  OmDimension dimension(OmDimensionNode(OmStringCell("root"), 0, true, nullptr), nullptr);
  Node node = dimension.Root();
  for (int i = 0; i < 100000; ++i) {
    node = dimension.AddNewChild(node, OmStringCell("g"), 0, true);
  }
  Node leaf = dimension.AddNewChild(node, OmStringCell("a"), 0, false);
  dimension.Delete(leaf);
  EXPECT_EQ(dimension.getMaximumDepth(), 100001U);
  Node top = dimension.Root()[0];
  dimension.Delete(top);
  EXPECT_EQ(dimension.getMaximumDepth(), 1U);
}

}  // namespace
