#include <gtest/gtest.h>
#include <string>
#include <type_traits>
#include <vector>

#include <cells/OmStringCell.h>
#include <lakresvos/OmDimension.h>
#include <lakresvos/OmVectorTreeWalk.h>

#include "support/DimensionText.h"
#include "support/SpyCell.h"

namespace {

using Node = OmDimension::Node;

static_assert(!std::is_copy_constructible_v<OmDimension>, "a copy names its region");
static_assert(std::is_base_of_v<OmVectorTree<OmDimensionNode>, OmDimension>);

class OmDimensionCopy : public testing::Test {
 protected:
  /// Six groups of six categories each, in descending label order, and a stray of everything else.
  OmDimensionCopy() {
    for (int g = 0; g < 6; ++g) {
      Node const group =
          source_.Child(source_.Root(), SpyCell("g" + std::to_string(9 - g)), 0, true);
      for (int c = 0; c < 6; ++c) {
        source_.Child(group, SpyCell("c" + std::to_string(9 - c)),
                      static_cast<unsigned long>(6 * g + c), false);
      }
    }
    OmDimensionNode& node = source_.Root()[2][3].Value();
    node.sort = 0;
    node.hide = true;
    source_.Root()[4].Value().hideLabels = true;
    source_.value.sort = 1;
    source_.AddNewChild(source_.Root()[2][3], SpyCell("below"), 99, false);
  }

  SpyBalance balance_;
  OmMemoryRegion region_{false};
  OmMemoryRegion other_{false};
  OmDimension source_{OmDimensionNode(SpyCell("root"), 5, true, nullptr), &region_};
};

TEST_F(OmDimensionCopy, IsEqualInEveryNodeAndFullyLinked) {
  OmDimension const copy(source_, &other_);
  EXPECT_EQ(TextOf(copy), TextOf(source_));
  EXPECT_EQ(TextOf(copy).find('!'), std::string::npos);
  EXPECT_EQ(copy.CategoryCount(), 37U);
  EXPECT_EQ(copy.parent, nullptr);
}

TEST_F(OmDimensionCopy, LivesInItsOwnRegion) {
  OmDimension const copy(source_, &other_);
  OmVectorTreeWalk<OmDimension::ConstNode> walk(copy.Root());
  while (walk.Next()) {
    OmDimension::Element const& element = *walk.Current().element;
    EXPECT_EQ(OmMemoryRegion::FindOwner(element.value.label), &other_);
    EXPECT_EQ(element.value.childIndex.region, &other_);
    EXPECT_EQ(element.children.region, &other_);
    if (element.children.size() != 0) {
      EXPECT_EQ(OmMemoryRegion::FindOwner(element.children.begin), &other_);
    }
  }
}

TEST_F(OmDimensionCopy, WithoutARegionLivesOnTheDefaultHeap) {
  OmDimension const copy(source_, nullptr);
  EXPECT_EQ(copy.children.region, OmMemoryRegion::DefaultHeap());
  EXPECT_EQ(copy.value.childIndex.region, OmMemoryRegion::DefaultHeap());
  EXPECT_EQ(copy.Root()[1][2].Value().childIndex.region, OmMemoryRegion::DefaultHeap());
  EXPECT_EQ(OmMemoryRegion::FindOwner(copy.Root()[1][2].Value().label),
            OmMemoryRegion::DefaultHeap());
}

TEST_F(OmDimensionCopy, IsIndependentOfItsSource) {
  std::string const before = TextOf(source_);
  OmDimension copy(source_, &other_);
  Node first = source_.Root()[0];
  source_.Delete(first);
  EXPECT_EQ(TextOf(copy), before);
  std::string const shortened = TextOf(source_);
  copy.Child(copy.Root(), SpyCell("new"), 100, false);
  EXPECT_EQ(TextOf(source_), shortened);
}

TEST_F(OmDimensionCopy, MayShareTheRegionOfItsSource) {
  unsigned long const before = region_.BytesInUse();
  {
    OmDimension const copy(source_, &region_);
    EXPECT_EQ(TextOf(copy), TextOf(source_));
  }
  EXPECT_EQ(region_.BytesInUse(), before);
}

TEST_F(OmDimensionCopy, ReleasesEverythingWithItself) {
  { OmDimension const copy(source_, &other_); }
  EXPECT_EQ(other_.BytesInUse(), 0U);
}

TEST_F(OmDimensionCopy, KeepsACountThatTheTreeDoesNotShow) {
  Node group = source_.Root()[5];
  source_.Delete(group);
  ASSERT_EQ(source_.CategoryCount(), 100U);
  EXPECT_EQ(OmDimension(source_, nullptr).CategoryCount(), 100U);
}

TEST_F(OmDimensionCopy, IsLinkedEvenWhenTheSourceIsNot) {
  Node first = source_.Root()[0];
  source_.Delete(first);
  ASSERT_NE(TextOf(source_).find('!'), std::string::npos);
  EXPECT_EQ(TextOf(OmDimension(source_, nullptr)).find('!'), std::string::npos);
}

TEST_F(OmDimensionCopy, ClonesLabelsInTheOrderOfTheTree) {
  SpyLog const log;
  OmDimension const copy(source_, &other_);
  std::vector<std::string> cloned;
  for (SpyLog::Call const& call : log.Of(SpyCell::Operation::Clone)) {
    EXPECT_EQ(call.region, &other_);
    cloned.push_back(call.text);
  }
  std::vector<std::string> expected;
  OmVectorTreeWalk<OmDimension::ConstNode> walk(copy.Root());
  while (walk.Next()) {
    expected.push_back(LabelOf(walk.Current().Value()));
  }
  EXPECT_EQ(cloned, expected);
}

TEST(OmDimensionCopyDeep, OfAHundredThousandLevels) {
  OmDimension source(OmDimensionNode(OmStringCell("root"), 0, true, nullptr), nullptr);
  Node node = source.Root();
  for (int i = 0; i < 100000; ++i) {
    node = source.AddNewChild(node, OmStringCell("g"), 0, true);
  }
  OmDimension copy(source, nullptr);
  EXPECT_EQ(copy.getMaximumDepth(), 100001U);
  EXPECT_EQ(copy.Counterpart(node).depth, 100000U);
}

}  // namespace
