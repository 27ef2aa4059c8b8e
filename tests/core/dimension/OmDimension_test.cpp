#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

#include <cells/OmStringCell.h>
#include <lakresvos/OMSException.h>
#include <lakresvos/OmDimension.h>

#include "support/DimensionText.h"
#include "support/SpyCell.h"

namespace {

using Node = OmDimension::Node;
using Index = std::vector<unsigned int>;

constexpr unsigned int kNotFound = 0xFFFFFFFF;

/// A dimension of spies in a region of its own.
class OmDimensionTest : public testing::Test {
 protected:
  Node Child(Node const& parent, std::string const& label, unsigned long subscript, bool group) {
    return dimension_.Child(parent, SpyCell(label), subscript, group);
  }
  Node Child(std::string const& label, unsigned long subscript, bool group = false) {
    return Child(dimension_.Root(), label, subscript, group);
  }
  Node AddNewChild(std::string const& label, unsigned long subscript, bool group = false) {
    return dimension_.AddNewChild(dimension_.Root(), SpyCell(label), subscript, group);
  }
  unsigned int Find(std::string const& label, bool group = false) {
    return OmDimension::FindChild(dimension_.Root(), SpyCell(label), group);
  }
  /// Checks that neither operation adds a child, to this dimension or to any other.
  void ExpectTakesNoChild(Node const& parent) {
    std::string const before = TextOf(dimension_);
    long const live = SpyCell::Live();
    EXPECT_EQ(Child(parent, "new", 7, false).element, nullptr);
    EXPECT_EQ(dimension_.AddNewChild(parent, SpyCell("new"), 7, false).element, nullptr);
    EXPECT_EQ(SpyCell::Live(), live);
    EXPECT_EQ(TextOf(dimension_), before);
  }
  Index RootIndex() { return IndexOf(dimension_.value); }

  SpyBalance balance_;
  OmMemoryRegion region_{false};
  OmDimension dimension_{OmDimensionNode(SpyCell("root"), 3, true, nullptr), &region_};
};

// Construction

TEST_F(OmDimensionTest, ANewDimensionIsARootInItsRegion) {
  EXPECT_EQ(dimension_.CategoryCount(), 0U);
  EXPECT_EQ(LabelOf(dimension_.Root().Value()), "root");
  EXPECT_EQ(dimension_.Root().Value().subscript, 3U);
  EXPECT_TRUE(dimension_.Root().Value().group);
  EXPECT_EQ(dimension_.children.region, &region_);
  EXPECT_EQ(dimension_.value.childIndex.region, &region_);
  EXPECT_EQ(OmMemoryRegion::FindOwner(dimension_.value.label), &region_);
  EXPECT_EQ(dimension_.parent, nullptr);
  EXPECT_EQ(dimension_.Root().NChildren(), 0U);
}

TEST(OmDimension, WithoutARegionUsesTheDefaultHeap) {
  OmDimension const dimension(OmDimensionNode(OmStringCell("root"), 0, true, nullptr), nullptr);
  EXPECT_EQ(dimension.children.region, OmMemoryRegion::DefaultHeap());
  EXPECT_EQ(dimension.value.childIndex.region, OmMemoryRegion::DefaultHeap());
}

// Child

TEST_F(OmDimensionTest, ChildAddsALastChildInTheDimensionsRegion) {
  Child("a", 0);
  Node const child = Child("b", 5);
  EXPECT_EQ(child.element, dimension_.Root()[1].element);
  EXPECT_EQ(child.depth, 1U);
  EXPECT_EQ(LabelOf(child.Value()), "b");
  EXPECT_EQ(child.Value().subscript, 5U);
  EXPECT_FALSE(child.Value().group);
  EXPECT_EQ(child.Value().sort, 2);
  EXPECT_EQ(child.Value().childIndex.region, &region_);
  EXPECT_EQ(OmMemoryRegion::FindOwner(child.Value().label), &region_);
  EXPECT_EQ(child.element->children.region, &region_);
  EXPECT_EQ(child.element->parent, &dimension_);
}

TEST_F(OmDimensionTest, ChildTwiceWithOneLabelGivesTheFirstBothTimesAndCountsOnce) {
  Node const first = Child("a", 0);
  Node const second = Child("a", 9);
  EXPECT_EQ(first.element, second.element);
  EXPECT_EQ(second.depth, 1U);
  EXPECT_EQ(second.Value().subscript, 0U);
  EXPECT_EQ(dimension_.Root().NChildren(), 1U);
  EXPECT_EQ(dimension_.CategoryCount(), 1U);
  EXPECT_EQ(RootIndex(), (Index{0}));
}

TEST_F(OmDimensionTest, ChildThatFindsAMatchLeavesNoLabelBehind) {
  Child("a", 0);
  long const live = SpyCell::Live();
  unsigned long const bytes = region_.BytesInUse();
  Child("a", 9);
  EXPECT_EQ(SpyCell::Live(), live);
  EXPECT_EQ(region_.BytesInUse(), bytes);
}

TEST_F(OmDimensionTest, AGroupAndACategoryWithOneLabelAreTwoChildrenTheGroupFirstInTheIndex) {
  Node const group = Child("a", 0, true);
  Node const category = Child("a", 0, false);
  EXPECT_NE(group.element, category.element);
  EXPECT_EQ(RootIndex(), (Index{0, 1}));
  EXPECT_EQ(dimension_.CategoryCount(), 1U);
}

TEST_F(OmDimensionTest, AGroupAddedAfterACategoryStillComesFirstInTheIndex) {
  Child("a", 0, false);
  Child("a", 0, true);
  Child("z", 0, true);
  EXPECT_EQ(RootIndex(), (Index{1, 2, 0}));
}

TEST_F(OmDimensionTest, ChildKeepsTheIndexInLabelOrder) {
  int subscript = 0;
  for (char const* label : {"m", "c", "x", "a", "p", "z", "b"}) {
    Child(label, static_cast<unsigned long>(subscript++));
  }
  EXPECT_EQ(RootIndex(), (Index{3, 6, 1, 0, 4, 2, 5}));
  EXPECT_EQ(LabelOf(dimension_.Root()[3].Value()), "a");
  EXPECT_EQ(dimension_.CategoryCount(), 7U);
}

TEST_F(OmDimensionTest, LabelsThatDifferInCaseAloneAreDifferentChildren) {
  Child("a", 0);
  Child("A", 1);
  EXPECT_EQ(RootIndex(), (Index{1, 0}));
}

TEST_F(OmDimensionTest, GroupsAreNotCounted) {
  Node const group = Child("g", 0, true);
  EXPECT_EQ(dimension_.CategoryCount(), 0U);
  Child(group, "a", 0, false);
  EXPECT_EQ(dimension_.CategoryCount(), 1U);
}

TEST_F(OmDimensionTest, ChildOfAGroupIsIndexedThere) {
  Node const group = Child("g", 0, true);
  Node const child = Child(group, "a", 0, false);
  EXPECT_EQ(child.depth, 2U);
  EXPECT_EQ(child.element->parent, group.element);
  EXPECT_EQ(IndexOf(group.Value()), (Index{0}));
  EXPECT_EQ(RootIndex(), (Index{0}));
}

TEST_F(OmDimensionTest, ChildSharesTheContextOfItsParentsLabel) {
  Node const group = Child("g", 0, true);
  SpyLog const log;
  Node const child = Child(group, "a", 0, false);
  std::vector<SpyLog::Call> const shared = log.Of(SpyCell::Operation::ShareContext);
  ASSERT_EQ(shared.size(), 1U);
  EXPECT_EQ(shared[0].cell, child.Value().label);
  EXPECT_EQ(shared[0].other, group.Value().label);
}

TEST_F(OmDimensionTest, ChildCopiesTheLabelOnceThenSharesThenSearches) {
  Child("a", 0);
  SpyCell const label("b");
  SpyLog const log;
  Node const child = dimension_.Child(dimension_.Root(), label, 1, false);
  EXPECT_EQ(log.Lines(), (std::vector<std::string>{"Clone b", "ShareContext b", "Compare a"}));
  EXPECT_EQ(log.calls[0].region, &region_);
  EXPECT_EQ(log.calls[0].result, child.Value().label);
  EXPECT_EQ(log.calls[2].other, child.Value().label);
}

TEST_F(OmDimensionTest, ChildSearchesByHalvesUpToTheLastPlace) {
  for (char const* label : {"a", "b", "c", "d", "e", "f", "g"}) {
    Child(label, 0);
  }
  SpyCell const label("h");
  SpyLog const log;
  dimension_.Child(dimension_.Root(), label, 7, false);
  std::vector<std::string> compared;
  for (SpyLog::Call const& call : log.Of(SpyCell::Operation::Compare)) {
    compared.push_back(call.text);
  }
  EXPECT_EQ(compared, (std::vector<std::string>{"d", "f", "g"}));
}

TEST_F(OmDimensionTest, ALabelThatWasReplacedOutOfOrderMisleadsTheSearchAsItMust) {
  for (char const* label : {"a", "b", "c", "d"}) {
    Child(label, 0);
  }
  Node const renamed = dimension_.Root()[2];
  delete std::exchange(renamed.Value().label, SpyCell("z").Clone(&region_));
  Child("e", 4);
  EXPECT_EQ(RootIndex(), (Index{0, 1, 4, 2, 3})) << "the second half was never looked at";
}

TEST_F(OmDimensionTest, ChildCopiesANodeButNotItsIndex) {
  OmDimensionNode node(SpyCell("a"), 4, true, nullptr);
  node.childIndex.push_back(1);
  node.sort = 1;
  node.hide = true;
  node.hideLabels = true;
  Node const child = dimension_.Child(dimension_.Root(), node);
  EXPECT_EQ(child.Value().subscript, 4U);
  EXPECT_EQ(child.Value().sort, 1);
  EXPECT_TRUE(child.Value().group);
  EXPECT_TRUE(child.Value().hide);
  EXPECT_TRUE(child.Value().hideLabels);
  EXPECT_EQ(child.Value().childIndex.begin, nullptr);
  EXPECT_EQ(child.Value().childIndex.region, &region_);
  EXPECT_EQ(node.childIndex.size(), 1U);
}

TEST_F(OmDimensionTest, ChildTakesANodeWithoutALabel) {
  OmDimensionNode const node(nullptr);
  Child("a", 0);
  Node const child = dimension_.Child(dimension_.Root(), node);
  EXPECT_EQ(child.Value().label, nullptr);
  EXPECT_EQ(RootIndex(), (Index{1, 0})) << "it comes before every label";
  EXPECT_EQ(dimension_.Child(dimension_.Root(), node).element, child.element);
}

TEST_F(OmDimensionTest, ADestroyedNodeThatIsStillThereTakesChildrenOnceItIsAGroup) {
  Node const group = Child("g", 0, true);
  Child(group, "a", 0, false);
  OmDimension::DestroySubtree(*group.element);
  EXPECT_THROW(Child(group, "b", 0, false), OMSException);
  group.Value().group = true;
  Node const child = Child(group, "b", 7, false);
  EXPECT_EQ(LabelOf(child.Value()), "b");
  EXPECT_EQ(group.NChildren(), 1U);
}

TEST_F(OmDimensionTest, ChildAcceptsANodeOfTheDimensionItself) {
  Node const group = Child("g", 0, true);
  Child(group, "a", 0, false);
  for (int i = 0; i < 3; ++i) {
    Child(std::to_string(i), 0);
  }
  Node const copy = dimension_.Child(dimension_.Root(), dimension_.Root()[0][0].Value());
  EXPECT_EQ(LabelOf(copy.Value()), "a");
  EXPECT_EQ(LabelOf(dimension_.Root()[0][0].Value()), "a");
}

TEST_F(OmDimensionTest, ChildOfACategoryThrows) {
  Node const category = Child("a", 0);
  std::string const before = TextOf(dimension_);
  try {
    Child(category, "b", 1, false);
    FAIL() << "no exception";
  } catch (OMSException const& exception) {
    EXPECT_EQ(exception.Message(), "OmDimension::Child -- parent is not group");
    EXPECT_EQ(exception.Value1(), 0);
    EXPECT_EQ(exception.Value2(), 0);
    EXPECT_STREQ(exception.what(),
                 "OmDimension::Child -- parent is not group, value 1 == 0, value 2 == 0");
  }
  EXPECT_EQ(TextOf(dimension_), before);
}

TEST_F(OmDimensionTest, ChildOfACategoryThrowsForAFinishedNodeToo) {
  Node const category = Child("a", 0);
  EXPECT_THROW(dimension_.Child(category, OmDimensionNode(SpyCell("b"), 0, false, nullptr)),
               OMSException);
}

// Parents that take no child

TEST_F(OmDimensionTest, ChildOfAnEmptyHandleIsEmptyAsThatOfAddNewChild) {
  ExpectTakesNoChild(Node());
}

TEST_F(OmDimensionTest, APlaceAfterTheLastChildTakesNoChild) {
  AddNewChild("a", 0);
  Node group = AddNewChild("g", 0, true);
  dimension_.Delete(group);
  ExpectTakesNoChild(group);
}

TEST_F(OmDimensionTest, APlaceAfterTheLastChildTakesNoChildAfterItsParentMoved) {
  Node const parent = AddNewChild("g", 0, true);
  Node group = dimension_.AddNewChild(parent, SpyCell("h"), 0, true);
  dimension_.Delete(group);
  for (unsigned long i = 0; i < 8; ++i) {
    AddNewChild("more", i);
  }
  ExpectTakesNoChild(group);
  EXPECT_EQ(group.Parent().element, dimension_.Root()[0].element);
}

TEST_F(OmDimensionTest, TheRootOfAnotherDimensionTakesNoChild) {
  OmDimension other(dimension_, &region_);
  ExpectTakesNoChild(other.Root());
}

TEST_F(OmDimensionTest, AGroupBelowTheRootOfAnotherDimensionTakesNoChild) {
  AddNewChild("g", 0, true);
  OmDimension other(dimension_, &region_);
  ExpectTakesNoChild(other.Root()[0]);
}

TEST_F(OmDimensionTest, ANodeInAnotherRegionTakesNoChild) {
  dimension_.AddNewChild(AddNewChild("g", 0, true), SpyCell("h"), 0, true);
  OmDimension other(dimension_, nullptr);
  ExpectTakesNoChild(other.Root()[0][0]);
}

TEST_F(OmDimensionTest, AGroupTakesChildrenAfterAnEarlierSiblingOfItsParentWasDeleted) {
  Node first = AddNewChild("f", 0, true);
  dimension_.AddNewChild(AddNewChild("g", 0, true), SpyCell("h"), 0, true);
  dimension_.Delete(first);
  Node const inner = dimension_.Root()[0][0];
  EXPECT_NE(Child(inner, "a", 0, false).element, nullptr);
  EXPECT_NE(dimension_.AddNewChild(inner, SpyCell("b"), 1, false).element, nullptr);
  EXPECT_EQ(inner.NChildren(), 2U);
}

TEST_F(OmDimensionTest, TheIndexGrowsLikeAnyVector) {
  for (int i = 0; i < 17; ++i) {
    Child(std::to_string(100 - i), static_cast<unsigned long>(i));
    std::size_t const size = dimension_.value.childIndex.size();
    EXPECT_EQ(dimension_.value.childIndex.capacity(), size <= 4    ? 4U
                                                      : size <= 8  ? 8U
                                                      : size <= 16 ? 16U
                                                                   : 32U);
  }
}

TEST_F(OmDimensionTest, TheFifthChildRepairsTheLinksOfTheGrandchildren) {
  for (int i = 0; i < 4; ++i) {
    Child(Child(std::to_string(i), 0, true), "leaf", 0, false);
  }
  Child("4", 0, true);
  EXPECT_EQ(TextOf(dimension_).find('!'), std::string::npos);
}

TEST_F(OmDimensionTest, ANewEntryIsTheNumberOfEntriesEvenWhenTheIndexIsIncomplete) {
  Child("a", 0);
  Child("b", 1);
  dimension_.value.childIndex.erase(0);
  Child("c", 2);
  EXPECT_EQ(RootIndex(), (Index{1, 1})) << "the third child is entered as the second";
}

TEST_F(OmDimensionTest, AnEntryThatNamesNoChildNeverMatches) {
  Child("a", 0);
  dimension_.value.childIndex[0] = kNotFound;
  EXPECT_EQ(Find("a"), kNotFound);
  Node const second = Child("a", 1);
  EXPECT_EQ(second.element, dimension_.Root()[1].element);
  EXPECT_EQ(RootIndex(), (Index{1, kNotFound})) << "the probe is not less than itself";
  EXPECT_EQ(dimension_.CategoryCount(), 2U);
}

// FindChild

TEST_F(OmDimensionTest, FindChildWithoutChildrenFindsNothing) {
  EXPECT_EQ(Find("a"), kNotFound);
}

TEST_F(OmDimensionTest, FindChildGivesThePositionAmongTheChildren) {
  Child("b", 0);
  Child("a", 1);
  Child("c", 2);
  EXPECT_EQ(Find("b"), 0U);
  EXPECT_EQ(Find("a"), 1U);
  EXPECT_EQ(Find("c"), 2U);
  EXPECT_EQ(Find("d"), kNotFound);
  EXPECT_EQ(Find(""), kNotFound);
}

TEST_F(OmDimensionTest, FindChildTellsGroupsFromCategories) {
  Child("a", 0, true);
  Child("b", 1, false);
  Child("c", 0, true);
  Child("c", 2, false);
  EXPECT_EQ(Find("a", true), 0U);
  EXPECT_EQ(Find("a", false), kNotFound);
  EXPECT_EQ(Find("b", true), kNotFound);
  EXPECT_EQ(Find("c", true), 2U);
  EXPECT_EQ(Find("c", false), 3U);
}

TEST_F(OmDimensionTest, FindChildTakesNoNoticeOfTheSubscript) {
  Child("a", 17);
  EXPECT_EQ(Find("a"), 0U);
}

TEST_F(OmDimensionTest, FindChildOfAnEmptyHandleFindsNothing) {
  EXPECT_EQ(OmDimension::FindChild({}, SpyCell("a"), false), kNotFound);
}

// AddNewChild

TEST_F(OmDimensionTest, AddNewChildAlwaysAdds) {
  Node const first = AddNewChild("a", 0);
  Node const second = AddNewChild("a", 0);
  EXPECT_EQ(first.element, dimension_.Root()[0].element);
  EXPECT_EQ(second.element, dimension_.Root()[1].element);
  EXPECT_EQ(second.depth, 1U);
  EXPECT_EQ(dimension_.CategoryCount(), 2U);
  EXPECT_EQ(RootIndex(), (Index{0, 1}));
}

TEST_F(OmDimensionTest, AddNewChildPutsEverythingIntoTheDimensionsRegion) {
  Node const child = AddNewChild("a", 6);
  EXPECT_EQ(child.Value().subscript, 6U);
  EXPECT_EQ(child.Value().sort, 2);
  EXPECT_EQ(OmMemoryRegion::FindOwner(child.Value().label), &region_);
  EXPECT_EQ(child.Value().childIndex.region, &region_);
  EXPECT_EQ(child.Value().childIndex.begin, nullptr);
  EXPECT_EQ(child.element->children.region, &region_);
  EXPECT_EQ(child.element->parent, &dimension_);
}

TEST_F(OmDimensionTest, AddNewChildWithDescendingLabelsLeavesTheIndexInInsertionOrder) {
  AddNewChild("c", 0);
  AddNewChild("b", 1);
  AddNewChild("a", 2);
  EXPECT_EQ(RootIndex(), (Index{0, 1, 2}));
}

TEST_F(OmDimensionTest, FindChildMayMissWhatAddNewChildPutOutOfOrder) {
  AddNewChild("c", 0);
  AddNewChild("b", 1);
  AddNewChild("a", 2);
  EXPECT_EQ(Find("a"), kNotFound);
  EXPECT_EQ(Find("b"), kNotFound);
  EXPECT_EQ(Find("c"), kNotFound);
}

TEST_F(OmDimensionTest, ChildSearchesAnIndexOutOfOrderAndMayAddASecondEqualChild) {
  AddNewChild("c", 0);
  AddNewChild("b", 1);
  AddNewChild("a", 2);
  Node const again = Child("a", 3);
  EXPECT_EQ(again.Value().subscript, 3U);
  EXPECT_EQ(RootIndex(), (Index{3, 0, 1, 2}));
  EXPECT_EQ(dimension_.CategoryCount(), 4U);
}

TEST_F(OmDimensionTest, AddNewChildDoesNotCountGroups) {
  AddNewChild("g", 0, true);
  EXPECT_EQ(dimension_.CategoryCount(), 0U);
  EXPECT_TRUE(dimension_.Root()[0].Value().group);
}

TEST_F(OmDimensionTest, AddNewChildDoesNotTestWhetherTheParentIsAGroup) {
  Node const category = AddNewChild("a", 0);
  Node const below = dimension_.AddNewChild(category, SpyCell("b"), 1, false);
  EXPECT_EQ(below.depth, 2U);
  EXPECT_EQ(below.element->parent, category.element);
  EXPECT_EQ(IndexOf(category.Value()), (Index{0}));
  EXPECT_EQ(dimension_.CategoryCount(), 2U);
}

TEST_F(OmDimensionTest, AddNewChildSharesTheContextOfItsParentsLabel) {
  SpyLog const log;
  Node const child = AddNewChild("a", 0);
  std::vector<SpyLog::Call> const shared = log.Of(SpyCell::Operation::ShareContext);
  ASSERT_EQ(shared.size(), 1U);
  EXPECT_EQ(shared[0].cell, child.Value().label);
  EXPECT_EQ(shared[0].other, dimension_.Root().Value().label);
}

TEST_F(OmDimensionTest, AddNewChildEntersTheNumberOfEntriesEvenWhenTheIndexIsIncomplete) {
  AddNewChild("a", 0);
  AddNewChild("b", 1);
  dimension_.value.childIndex.erase(0);
  AddNewChild("c", 2);
  EXPECT_EQ(RootIndex(), (Index{1, 1}));
}

TEST_F(OmDimensionTest, AddNewChildBelowAnEmptyHandleDoesNothing) {
  EXPECT_EQ(dimension_.AddNewChild({}, SpyCell("a"), 0, false).element, nullptr);
  EXPECT_EQ(dimension_.CategoryCount(), 0U);
}

TEST(OmDimension, AMillionCategoriesOfOneRoot) {
  OmMemoryRegion region(false);
  OmDimension dimension(OmDimensionNode(OmStringCell("root"), 0, true, nullptr), &region);
  OmStringCell const label("category");
  for (unsigned long i = 0; i < 1000000; ++i) {
    dimension.AddNewChild(dimension.Root(), label, i, false);
  }
  EXPECT_EQ(dimension.CategoryCount(), 1000000U);
  EXPECT_EQ(dimension.Root().NChildren(), 1000000U);
  EXPECT_EQ(dimension.getMaxVisibleGroupCount(), 1U);
  region.WorkingRelease(false);
}

}  // namespace
