#include <gtest/gtest.h>
#include <vector>

#include <cells/OmStringCell.h>
#include <lakresvos/OmDimension.h>
#include <lakresvos/OmVectorTreeWalk.h>

#include "support/faults/FailingNew.h"

namespace {

OmDimensionNode Root() {
  return OmDimensionNode(OmStringCell("root"), 0, true, nullptr);
}

TEST(OmDimensionRefusedMemory, DeletingChangesNothingOrAllOfIt) {
  OmDimension dimension(Root(), nullptr);
  dimension.Child(dimension.Root(), OmStringCell("a"), 0, false);
  dimension.Child(dimension.Root(), OmStringCell("b"), 7, false);
  dimension.Child(dimension.Root(), OmStringCell("c"), 1, false);
  auto node = dimension.Root().Child(1);
  EXPECT_GT(FailEveryAllocation([&] { dimension.Delete(node); },
                                [&] {
                                  EXPECT_EQ(dimension.Root().NChildren(), 3U);
                                  EXPECT_EQ(dimension.value.childIndex.size(), 3U);
                                  EXPECT_EQ(dimension.CategoryCount(), 3U);
                                }),
            0U);
  EXPECT_EQ(dimension.Root().NChildren(), 2U);
  EXPECT_EQ(dimension.CategoryCount(), 2U);
}

TEST(OmDimensionRefusedMemory, CountingGroupsChangesNothingOrAllOfIt) {
  OmDimension dimension(Root(), nullptr);
  auto const group = dimension.Child(dimension.Root(), OmStringCell("group"), 0, true);
  dimension.Child(group, OmStringCell("a"), 0, false);
  std::vector<unsigned long> counts{5, 5, 5};
  EXPECT_GT(FailEveryAllocation([&] { dimension.getGroupCountsByLevel(dimension.Root(), counts); },
                                [&] {
                                  EXPECT_EQ(counts, (std::vector<unsigned long>{5, 5, 5}));
                                }),
            0U);
  EXPECT_EQ(counts, (std::vector<unsigned long>{5, 6, 6}));
}

TEST(OmDimensionRefusedMemory, AWalkStandsWhereItStood) {
  OmDimension dimension(Root(), nullptr);
  auto const group = dimension.Child(dimension.Root(), OmStringCell("group"), 0, true);
  dimension.Child(group, OmStringCell("a"), 0, false);
  OmVectorTreeWalk<OmDimension::Node> walk(dimension.Root());
  for (unsigned int depth = 0; depth < 3; ++depth) {
    FailEveryAllocation([&] { EXPECT_TRUE(walk.Next()); }, [] {});
    EXPECT_EQ(walk.Current().depth, depth);
  }
  EXPECT_FALSE(walk.Next());
}

TEST(OmDimensionRefusedMemory, AsksForWhatQueriesNeedAndNothingElse) {
  OmDimension dimension(Root(), nullptr);
  auto group = dimension.Child(dimension.Root(), OmStringCell("group"), 0, true);
  dimension.Child(group, OmStringCell("a"), 0, false);
  OmDimension const copy(dimension, nullptr);
  OmDimension::ConstNode const root = copy.Root();
  OmStringCell const label("group");
  EXPECT_GT(FailEveryAllocationOf([&] { return copy.getDepth(root); }), 0U);
  EXPECT_GT(FailEveryAllocationOf([&] { return copy.getMaximumDepth(); }), 0U);
  EXPECT_GT(FailEveryAllocationOf([&] { return copy.getMaxVisibleGroupCount(); }), 0U);
  FailEveryAllocationOf([&] { return OmDimension::FindChild(root, label, true); });
  EXPECT_EQ(OmDimension::FindChild(root, label, true), 0U);
  FailEveryAllocationOf([&] { return dimension.Counterpart(group).element; });
  FailEveryAllocationOf([&] { return root.Value() == dimension.Root().Value(); });
  FailEveryAllocationOf([&] { return root.Value() < dimension.Root().Value(); });
}

TEST(OmDimensionIndex, StartsEmptyThoughTheRootWasCopiedFromAFullGroup) {
  OmDimension source(Root(), nullptr);
  source.Child(source.Root(), OmStringCell("a"), 0, false);
  OmDimension const fresh(source.value, nullptr);
  EXPECT_EQ(fresh.value.childIndex.size(), 0U);
}

TEST(OmDimensionCounterpart, OfAnEmptyHandleIsEmpty) {
  OmDimension dimension(Root(), nullptr);
  OmDimension::Node nothing;
  EXPECT_EQ(dimension.Counterpart(nothing).element, nullptr);
}

}  // namespace
