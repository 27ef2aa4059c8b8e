#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include <cells/OmStringCell.h>

#include "core/dimension/OmDimensionEditingFixture.h"

namespace {

class OmDimensionInsertChild : public OmDimensionEditing {
 protected:
  void Wrap(std::vector<Node> nodes) {
    std::vector<Node*> pointers;
    for (Node& node : nodes) {
      pointers.push_back(&node);
    }
    dimension_.insertChild(SpyCell("new"), pointers);
  }
  void WrapLabelled(std::vector<std::string> const& labels) {
    std::vector<Node> nodes;
    for (std::string const& label : labels) {
      nodes.push_back(At(label));
    }
    Wrap(nodes);
  }
  void ExpectNoChangeBy(std::vector<Node> const& nodes) {
    std::string const before = TextOf(dimension_);
    Wrap(nodes);
    EXPECT_EQ(TextOf(dimension_), before);
  }
};

// The place

TEST_F(OmDimensionInsertChild, TheFirstTwoOfThreeSiblingsGoToTheFront) {
  Build("a b c");
  WrapLabelled({"a", "b"});
  EXPECT_EQ(Shape(), "new(a b) c");
}

TEST_F(OmDimensionInsertChild, TheLastTwoOfThreeSiblingsStayBehindTheFirst) {
  Build("a b c");
  WrapLabelled({"b", "c"});
  EXPECT_EQ(Shape(), "a new(b c)");
}

TEST_F(OmDimensionInsertChild, SiblingsInTheMiddleStayInTheMiddle) {
  Build("x a b y");
  WrapLabelled({"a", "b"});
  EXPECT_EQ(Shape(), "x new(a b) y");
}

TEST_F(OmDimensionInsertChild, ASingleNodeStaysWhereItStood) {
  Build("x a y");
  WrapLabelled({"a"});
  EXPECT_EQ(Shape(), "x new(a) y");
}

TEST_F(OmDimensionInsertChild, AllSiblingsBecomeTheOnlyGroup) {
  Build("a b c");
  WrapLabelled({"a", "b", "c"});
  EXPECT_EQ(Shape(), "new(a b c)");
}

TEST_F(OmDimensionInsertChild, SiblingsWithAGapGoWhereTheFirstStood) {
  Build("x a y b z");
  WrapLabelled({"a", "b"});
  EXPECT_EQ(Shape(), "x new(a b) y z");
}

TEST_F(OmDimensionInsertChild, SiblingsInAGroupStayInIt) {
  Build("x g(a b c) y");
  WrapLabelled({"b", "c"});
  EXPECT_EQ(Shape(), "x g(a new(b c)) y");
}

TEST_F(OmDimensionInsertChild, BeforeASiblingThatEqualsAnEarlierOneTheGroupStandsBeforeThatOne) {
  Build("x g(a) y z g(b)");
  WrapLabelled({"y", "z"});
  EXPECT_EQ(Shape(), "x new(y z) g(a) g(b)");
}

TEST_F(OmDimensionInsertChild, AtTheFrontNoEqualSiblingCanComeBetween) {
  Build("x g(a) g(b)");
  WrapLabelled({"x"});
  EXPECT_EQ(Shape(), "new(x) g(a) g(b)");
}

TEST_F(OmDimensionInsertChild, BehindTheLastSiblingNoValueIsLookedFor) {
  Build("g(a) x g(b)");
  Wrap({root()[2]});
  EXPECT_EQ(Shape(), "g(a) x new(g(b))");
}

TEST_F(OmDimensionInsertChild, TheNodesThemselvesGoThoughEarlierSiblingsAreEqual) {
  Build("g(a) x g(b) y");
  Wrap({root()[2], root()[3]});
  EXPECT_EQ(Shape(), "g(a) x new(g(b) y)");
}

// The group

TEST_F(OmDimensionInsertChild, TheGroupHasNoSubscriptAndNoIndex) {
  Build("a b");
  WrapLabelled({"a", "b"});
  OmDimensionNode const& group = At("new").Value();
  EXPECT_TRUE(group.group);
  EXPECT_EQ(group.subscript, ~0UL);
  EXPECT_EQ(IndexOf(group), Index());
  EXPECT_EQ(group.sort, 2);
  EXPECT_FALSE(group.hide);
  EXPECT_FALSE(group.hideLabels);
}

TEST_F(OmDimensionInsertChild, TheGroupHasTheDefaultHeapAndChildrenInTheDimensionsRegion) {
  Build("a b");
  WrapLabelled({"a", "b"});
  EXPECT_EQ(At("new").Value().childIndex.region, OmMemoryRegion::DefaultHeap());
  EXPECT_EQ(At("new").element->children.region, &region_);
  EXPECT_EQ(At("a").Value().childIndex.region, &region_) << "copies stay in their values' region";
}

TEST_F(OmDimensionInsertChild, TheGroupSharesTheContextOfTheFirstNodesLabelOnly) {
  Build("x a b");
  std::vector<Node> nodes{At("a"), At("b")};
  SpyLog const log;
  Wrap(nodes);
  auto const shared = log.Of(SpyCell::Operation::ShareContext);
  ASSERT_EQ(shared.size(), 1U);
  EXPECT_EQ(shared[0].text, "new");
  auto const clones = log.Of(SpyCell::Operation::Clone);
  OmCellText const* const label = shared[0].other;
  EXPECT_TRUE(std::any_of(clones.begin(), clones.end(), [&](SpyLog::Call const& call) {
    return call.cell == label && call.text == "a";
  })) << "the label that was copied into the group later";
}

TEST_F(OmDimensionInsertChild, AFirstNodeWithoutALabelGivesNoContext) {
  Node const bare = OmDimension::AppendChild(root(), OmDimensionNode(&region_));
  SpyLog const log;
  Wrap({bare});
  EXPECT_TRUE(log.Of(SpyCell::Operation::ShareContext).empty());
  EXPECT_EQ(Shape(), "new(-)");
}

// What the nodes keep

TEST_F(OmDimensionInsertChild, SubscriptsTravelAndTheCategoryCountStays) {
  Build("a b c d");
  WrapLabelled({"b", "c"});
  EXPECT_EQ(Subscripts(), "a=0 new=-1 b=1 c=2 d=3");
  EXPECT_EQ(dimension_.CategoryCount(), 4U);
}

TEST_F(OmDimensionInsertChild, WholeSubtreesTravelWithTheirFlagsAndIndexes) {
  Build("x g(a h(b c)) y");
  OmDimensionNode& group = At("g").Value();
  group.hide = group.hideLabels = true;
  group.sort = 1;
  WrapLabelled({"g", "y"});
  EXPECT_EQ(Shape(), "x new(g(a h(b c)) y)");
  OmDimensionNode const& moved = At("g").Value();
  EXPECT_TRUE(moved.hide && moved.hideLabels);
  EXPECT_EQ(moved.sort, 1);
  EXPECT_EQ(IndexOf(moved), (Index{0, 1}));
  EXPECT_EQ(IndexOf(At("h").Value()), (Index{0, 1}));
}

TEST_F(OmDimensionInsertChild, TheParentsIndexStaysThoughItNamesChildrenThatAreGone) {
  Build("a b c");
  WrapLabelled({"a", "b"});
  EXPECT_EQ(IndexOf(root().Value()), (Index{0, 1, 2}));
}

TEST_F(OmDimensionInsertChild, LinksEverythingBelowTheParent) {
  Build("g(a) h(b(c)) i(d) j(e)");
  WrapLabelled({"h", "i"});
  EXPECT_EQ(Shape(), "g(a) new(h(b(c)) i(d)) j(e)");
  EXPECT_EQ(StaleLinks(), "");
}

TEST_F(OmDimensionInsertChild, LinksOutsideTheParentStayStale) {
  Build("x g(a) h(b c d)");
  OmDimension::EraseChildAt(dimension_, 0);
  ASSERT_EQ(StaleLinks(), "a b c d");
  Wrap({root()[1][0], root()[1][1]});
  EXPECT_EQ(Shape(), "g(a) h(new(b c) d)");
  EXPECT_EQ(StaleLinks(), "a");
}

// Senseless arguments, and nodes in an order that nobody asks for

TEST_F(OmDimensionInsertChild, NoNodesChangeNothing) {
  Build("a b");
  ExpectNoChangeBy({});
}

TEST_F(OmDimensionInsertChild, TheRootCannotBeWrapped) {
  Build("a b");
  ExpectNoChangeBy({root()});
}

TEST_F(OmDimensionInsertChild, NodesOfDifferentParentsChangeNothing) {
  Build("a g(b)");
  ExpectNoChangeBy({At("a"), At("b")});
}

TEST_F(OmDimensionInsertChild, ANodeAndItsOwnParentChangeNothing) {
  Build("x g(b)");
  ExpectNoChangeBy({At("g"), At("b")});
  ExpectNoChangeBy({At("b"), At("g")});
}

TEST_F(OmDimensionInsertChild, OneNodeTwiceChangesNothing) {
  Build("a b");
  ExpectNoChangeBy({At("a"), At("a")});
}

TEST_F(OmDimensionInsertChild, AnEmptyHandleChangesNothing) {
  Build("a b");
  ExpectNoChangeBy({Node()});
  ExpectNoChangeBy({At("a"), Node()});
}

TEST_F(OmDimensionInsertChild, ANullPointerChangesNothing) {
  Build("a b");
  std::string const before = TextOf(dimension_);
  Node node = At("a");
  dimension_.insertChild(SpyCell("new"), {nullptr});
  dimension_.insertChild(SpyCell("new"), {&node, nullptr});
  EXPECT_EQ(TextOf(dimension_), before);
}

TEST_F(OmDimensionInsertChild, NodesOfAnotherDimensionChangeNothing) {
  Build("a b");
  OmDimension other(dimension_, nullptr);
  std::string const before = TextOf(other);
  ExpectNoChangeBy({other.Root()[0]});
  ExpectNoChangeBy({At("a"), other.Root()[1]});
  EXPECT_EQ(TextOf(other), before);
}

TEST_F(OmDimensionInsertChild, DecreasingNodesKeepTheGivenOrderWhereTheFirstStood) {
  Build("a b c d");
  WrapLabelled({"c", "a"});
  EXPECT_EQ(Shape(), "b new(c a) d");
}

// Storage and order

TEST_F(OmDimensionInsertChild, TheGroupHasExactlyTheCapacityOfItsChildren) {
  for (std::size_t const count : {1U, 3U, 5U}) {
    std::vector<Node> nodes;
    for (std::size_t i = 0; i < count; ++i) {
      dimension_.AddNewChild(root(), SpyCell("a"), i, false);
    }
    std::size_t const first = root().NChildren() - count;
    for (std::size_t i = 0; i < count; ++i) {
      nodes.push_back(root()[first + i]);
    }
    Wrap(nodes);
    EXPECT_EQ(root()[first].NChildren(), count);
    EXPECT_EQ(root()[first].element->children.capacity(), count);
  }
}

TEST_F(OmDimensionInsertChild, TheNodesGoFromTheLastToTheFirst) {
  Build("x a(b) c d y");
  SpyLog const log;
  std::vector<SpyCell const*> nodes;
  for (char const* label : {"d", "c", "b", "a"}) {
    nodes.push_back(static_cast<SpyCell const*>(At(label).Value().label));
  }
  WrapLabelled({"a", "c", "d"});
  EXPECT_EQ(Destroyed(log, nodes), nodes);
}

TEST_F(OmDimensionInsertChild, TakesTimeInProportionToTheNodes) {
  // In descending order: looking through the siblings for each node takes minutes.
  constexpr std::size_t kCount = 200000;
  OmDimension dimension(OmDimensionNode(OmStringCell("root"), 0, true, nullptr), nullptr);
  for (std::size_t i = 0; i < kCount; ++i) {
    dimension.AddNewChild(dimension.Root(), OmStringCell("a"), i, false);
  }
  std::vector<Node> nodes;
  std::vector<Node*> pointers;
  nodes.reserve(kCount);
  for (std::size_t i = kCount; i != 0; --i) {
    nodes.push_back(dimension.Root()[i - 1]);
    pointers.push_back(&nodes.back());
  }
  dimension.insertChild(OmStringCell("new"), pointers);
  ASSERT_EQ(dimension.Root().NChildren(), 1U);
  ASSERT_EQ(dimension.Root()[0].NChildren(), kCount);
  EXPECT_EQ(dimension.Root()[0][0].Value().subscript, kCount - 1);
}

}  // namespace
