#include "layout/OmDimHeader.h"

#include <deque>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

#include <lakresvos/OmDisplayLayerHeading.h>
#include <lakresvos/OmDisplayRowHeading.h>

#include "support/LayoutTables.h"
#include "support/OmDisplayTestAccess.h"
#include "support/faults/FailingNew.h"

namespace {

using layout_tables::Category;
using layout_tables::Group;
using layout_tables::Node;
using layout_tables::Table;
using layout_tables::Texts;

template <class Vector>
std::vector<long> List(Vector const& vector) {
  return {vector.begin, vector.end};
}

constexpr long kNone = 0xFFFFFFFF;

/// A dimension "root" and the header made of it.
class OmDimHeaderTest : public testing::Test {
 protected:
  OmDimHeader const& Header() {
    header_ = std::make_unique<OmDimHeader>(dimension, &region_);
    return *header_;
  }

  std::vector<std::string> PathTexts(std::size_t leaf) {
    std::vector<std::string> texts;
    for (OmDimHeader::PathNode const& node : Header().paths[leaf].Elements()) {
      texts.push_back(node.Value().label->GetText() + std::to_string(node.depth));
    }
    return texts;
  }

  long LevelsOf(std::size_t leaf) { return Header().levelCounts[leaf]; }

  OmDimension dimension{OmDimensionNode(OmStringCell("root"), ~0UL, true, nullptr), nullptr};
  Node root = dimension.Root();

 private:
  OmMemoryRegion region_{false};
  std::unique_ptr<OmDimHeader> header_;
};

/// One leaf below two groups.
class ChainTest : public OmDimHeaderTest {
 protected:
  ChainTest() { Category(dimension, inner, "leaf", 0); }

  OmDimensionNode& Leaf() { return inner.Child(0).Value(); }

  Node outer = Group(dimension, root, "outer");
  Node inner = Group(dimension, outer, "inner");
};

}  // namespace

TEST_F(OmDimHeaderTest, OfADimensionWithoutNodesIsEmpty) {
  EXPECT_TRUE(Header().paths.empty());
  EXPECT_EQ(Header().maxLevels, 0);
  EXPECT_EQ(Header().visibleCategories.size(), 0U);
  EXPECT_EQ(Header().categoryPositions.size(), 0U);
}

TEST_F(OmDimHeaderTest, ListsLeavesInTreeOrderWhateverTheirSubscripts) {
  Node const a = Group(dimension, root, "a");
  Category(dimension, a, "a1", 3);
  Category(dimension, a, "a0", 0);
  Category(dimension, root, "b", 1);
  Node const c = Group(dimension, root, "c");
  Category(dimension, c, "c2", 2);
  EXPECT_EQ(List(Header().visibleCategories), (std::vector<long>{3, 0, 1, 2}));
  EXPECT_EQ(List(Header().categoryPositions), (std::vector<long>{1, 2, 3, 0}));
}

TEST_F(OmDimHeaderTest, GivesAGroupWithoutChildrenNoPosition) {
  Group(dimension, root, "empty");
  Category(dimension, root, "leaf", 0);
  EXPECT_EQ(Header().paths.size(), 1U);
  EXPECT_EQ(PathTexts(0), (std::vector<std::string>{"leaf1", "root0"}));
}

TEST_F(OmDimHeaderTest, GivesAHiddenLeafAPosition) {
  Category(dimension, root, "hidden", 0);
  Category(dimension, root, "shown", 1);
  root.Child(0).Value().hide = true;
  EXPECT_EQ(List(Header().visibleCategories), (std::vector<long>{0, 1}));
}

TEST_F(OmDimHeaderTest, DoesNotDescendIntoACategory) {
  Node const parent = Category(dimension, root, "parent", 0);
  Category(dimension, parent, "child", 1);
  EXPECT_EQ(List(Header().visibleCategories), (std::vector<long>{0}));
  EXPECT_EQ(List(Header().categoryPositions), (std::vector<long>{0, kNone}));
}

TEST_F(OmDimHeaderTest, TakesARootThatIsACategoryForTheOnlyLeaf) {
  root.Value().group = false;
  root.Value().subscript = 0;
  EXPECT_EQ(PathTexts(0), (std::vector<std::string>{"root0"}));
  EXPECT_EQ(Header().maxLevels, 1);
}

TEST_F(ChainTest, KeepsEachPathFromTheLeafToTheRootWithItsDepths) {
  EXPECT_EQ(PathTexts(0), (std::vector<std::string>{"leaf3", "inner2", "outer1", "root0"}));
}

TEST_F(ChainTest, CountsEveryShownNodeOfThePathAsALevel) {
  EXPECT_EQ(LevelsOf(0), 4);
}

TEST_F(ChainTest, LeavesHiddenNodesOutOfTheLevels) {
  root.Value().hide = true;
  Leaf().hide = true;
  EXPECT_EQ(LevelsOf(0), 2);
}

TEST_F(ChainTest, CountsOnlyWhatStandsAboveAGroupThatHidesItsLabels) {
  inner.Value().hideLabels = true;
  EXPECT_EQ(LevelsOf(0), 2);
}

TEST_F(ChainTest, CountsOnlyWhatStandsAboveTheOutermostGroupThatHidesItsLabels) {
  inner.Value().hideLabels = true;
  outer.Value().hideLabels = true;
  EXPECT_EQ(LevelsOf(0), 1);
}

TEST_F(ChainTest, CountsNothingBelowARootThatHidesItsLabels) {
  root.Value().hideLabels = true;
  EXPECT_EQ(LevelsOf(0), 0);
}

TEST_F(ChainTest, CutsTheLevelsAtAHiddenGroupThatHidesItsLabelsToo) {
  inner.Value().hide = true;
  inner.Value().hideLabels = true;
  EXPECT_EQ(LevelsOf(0), 2);
}

TEST_F(ChainTest, LetsACategoryHideNoLabels) {
  Leaf().hideLabels = true;
  EXPECT_EQ(LevelsOf(0), 4);
}

TEST_F(ChainTest, IsAsWideAsItsDeepestLeaf) {
  Category(dimension, root, "flat", 1);
  EXPECT_EQ(List(Header().levelCounts), (std::vector<long>{4, 2}));
  EXPECT_EQ(Header().maxLevels, 4);
}

TEST_F(ChainTest, IsNotWidenedByALeafUnderHiddenLabels) {
  Category(dimension, root, "flat", 1);
  outer.Value().hideLabels = true;
  EXPECT_EQ(List(Header().levelCounts), (std::vector<long>{1, 2}));
  EXPECT_EQ(Header().maxLevels, 2);
}

TEST_F(OmDimHeaderTest, MarksSubscriptsThatNoLeafCarries) {
  Category(dimension, root, "a", 0);
  Category(dimension, root, "b", 1);
  Category(dimension, root, "c", 2);
  Node middle = root.Child(1);
  dimension.Delete(middle);
  EXPECT_EQ(List(Header().categoryPositions), (std::vector<long>{0, kNone, 1}));
}

TEST_F(OmDimHeaderTest, GrowsToASubscriptPastTheSize) {
  Category(dimension, root, "far", 4);
  EXPECT_EQ(List(Header().categoryPositions), (std::vector<long>{kNone, kNone, kNone, kNone, 0}));
}

TEST_F(OmDimHeaderTest, KeepsBothLeavesOfOneSubscriptAndFindsTheLaterOne) {
  Category(dimension, root, "first", 0);
  Category(dimension, root, "second", 0);
  EXPECT_EQ(List(Header().visibleCategories), (std::vector<long>{0, 0}));
  EXPECT_EQ(Header().FindPosition(0), 1U);
}

TEST_F(OmDimHeaderTest, FindsFarSubscriptsWithoutASlotForEachBeforeThem) {
  Category(dimension, root, "far", 2'000'000'000);
  Category(dimension, root, "near", 5);
  Category(dimension, root, "farther", (1UL << 31) - 1);
  Category(dimension, root, "far again", 2'000'000'000);
  MemoryMeter const meter;
  OmDimHeader const& header = Header();
  EXPECT_LT(meter.Peak(), 1U << 20);
  EXPECT_EQ(header.FindPosition(5), 1U);
  EXPECT_EQ(header.FindPosition(2'000'000'000), 3U);
  EXPECT_EQ(header.FindPosition((1UL << 31) - 1), 2U);
  for (unsigned long const other :
       {0UL, 4UL, 6UL, 1'999'999'999UL, 2'000'000'001UL, 1UL << 31, (1UL << 32) + 5, ~0UL}) {
    EXPECT_EQ(header.FindPosition(other), OmDimHeader::kNoPosition) << other;
  }
}

TEST_F(OmDimHeaderTest, GivesASubscriptBeyondAnyCellAPositionButNoSlot) {
  Category(dimension, root, "far", 1UL << 31);
  EXPECT_EQ(List(Header().visibleCategories), (std::vector<long>{1L << 31}));
  EXPECT_EQ(List(Header().categoryPositions), (std::vector<long>{kNone}));
  EXPECT_EQ(Header().FindPosition(1UL << 31), OmDimHeader::kNoPosition);
}

TEST_F(OmDimHeaderTest, TakesPathsFromTheWalkWhereAnEditLeftParentLinksStale) {
  for (char const* label : {"a", "b", "c"}) {
    Node const group = Group(dimension, root, label);
    Category(dimension, group, "leaf", root.NChildren() - 1);
  }
  Node first = root.Child(0);
  dimension.Delete(first);
  EXPECT_EQ(PathTexts(0), (std::vector<std::string>{"leaf2", "b1", "root0"}));
  EXPECT_EQ(PathTexts(1), (std::vector<std::string>{"leaf2", "c1", "root0"}));
}

TEST(OmDimHeader, IsPreparedForEveryDimensionOfTheTablePlacedOrNot) {
  Table table;
  table.AddFlat("A", 2);
  table.AddFlat("B", 3);
  OmDisplayLayerHeading const layers(table, false);
  OmVector<OmDimHeader*> const& headers = OmDisplayTestAccess::GetData(layers).dimHeaders;
  ASSERT_EQ(headers.size(), 2U);
  EXPECT_EQ(headers[1]->paths.size(), 3U);
}

TEST(OmDimHeader, LivesInTheRegionOfTheLayerHeading) {
  Table table;
  table.AddFlat("A", 2);
  OmDisplayLayerHeading const layers(table, false);
  OmDisplayLayerHeading::Data& data = OmDisplayTestAccess::GetData(layers);
  OmDimHeader const& header = *data.dimHeaders[0];
  EXPECT_EQ(data.dimHeaders.region, &data);
  EXPECT_EQ(header.region, &data);
  EXPECT_EQ(header.levelCounts.region, &data);
  EXPECT_EQ(header.visibleCategories.region, &data);
  EXPECT_EQ(header.categoryPositions.region, &data);
  EXPECT_EQ(header.paths[0].region, &data);
}

TEST(OmDimHeader, OwnsTheNodesThatTheHeadingsGiveOut) {
  Table table;
  table.AddFlat("A", 2);
  table.Place({0}, {});
  OmDisplayLayerHeading layers(table, false);
  OmDisplayRowHeading const rows(layers, false, false);
  OmDimHeader::Path& path = OmDisplayTestAccess::GetData(layers).dimHeaders[0]->paths[1];
  EXPECT_EQ(rows.Row(1), (std::deque<OmDimHeader::PathNode*>{&path[1], &path[0]}));
}

TEST_F(OmDimHeaderTest, TakesAHundredThousandLevelsAndCountsAsManyAsFit) {
  Node at = root;
  for (int level = 1; level < 100000; ++level) {
    at = Group(dimension, at, "g");
  }
  Category(dimension, at, "leaf", 0);
  EXPECT_EQ(Header().paths[0].size(), 100001U);
  EXPECT_EQ(LevelsOf(0), 32767);
  EXPECT_EQ(Header().maxLevels, 32767);
}

TEST_F(OmDimHeaderTest, CountsFromTheRootDownEvenBelowMoreLevelsThanFit) {
  Node at = root;
  for (int level = 1; level < 40000; ++level) {
    at = Group(dimension, at, "g");
    at.Value().hideLabels = level == 3;
  }
  Category(dimension, at, "leaf", 0);
  EXPECT_EQ(LevelsOf(0), 3);
}

TEST_F(OmDimHeaderTest, TakesAMillionCategories) {
  constexpr unsigned int kCount = 1000000;
  OmStringCell const label("c");
  for (unsigned int i = 0; i < kCount; ++i) {
    dimension.AddNewChild(root, label, i, false);
  }
  EXPECT_EQ(Header().paths.size(), kCount);
  EXPECT_EQ(Header().FindPosition(kCount - 1), kCount - 1);
}
