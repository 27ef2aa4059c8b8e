#include <gtest/gtest.h>
#include <string>
#include <vector>

#include <cells/OmStringCell.h>
#include <lakresvos/OmHeading.h>
#include <lakresvos/OmOutputTree.h>

#include "support/SampleOutputTree.h"
#include "support/SpyCell.h"
#include "support/faults/FailingNew.h"

namespace {

using Node = OmOutputTree::Node;
using Names = std::vector<std::string>;

class OmOutputTreeSafety : public testing::Test, protected SampleOutputTree {
 protected:
  SpyBalance balance_;
};

// Allocation and labels

TEST(OmOutputTree, ATreeThatCannotBeMadeLeavesNothingBehind) {
  unsigned long const heap = OmMemoryRegion::DefaultHeap()->BytesInUse();
  EXPECT_GE(
      FailEveryAllocation([] { OmOutputTree const tree; },
                          [&] { EXPECT_EQ(OmMemoryRegion::DefaultHeap()->BytesInUse(), heap); }),
      8U);
}

TEST_F(OmOutputTreeSafety, AnItemThatCannotBeAppendedIsStillTheCallers) {
  OmHeading heading(OmStringCell("heading"));
  Node const b = Find("b");
  EXPECT_GE(
      FailEveryAllocation([&] { b.AppendChild(&heading); }, [&] { EXPECT_EQ(Text(), kText); }), 2U);
  Node const added = Find("heading");
  *added = nullptr;
}

TEST_F(OmOutputTreeSafety, CuttingADeeperItemThatFailsChangesNothing) {
  Find("b2").AppendChild(new OmHeading(SpyCell(std::string(100, 'd'))));
  Node const deep = Find("b2").FirstChild();
  Add(deep, "child");
  std::string const before = Text();
  std::string const text(100, 't');
  auto const unchanged = [&] {
    EXPECT_EQ(Text(), before);
    EXPECT_TRUE(deleted.empty());
    EXPECT_EQ(SpyCell::Live(), 1);
  };
  auto const cut = [&] { Amputate(Find("b2").FirstChild(), nullptr, text); };
  EXPECT_EQ(FailEveryCall(SpyCell::Operation::Clone, cut, unchanged), 1U);
  tree.reset();
}

TEST_F(OmOutputTreeSafety, CuttingADeeperItemWithRefusedMemoryChangesNothing) {
  Node const b1 = Find("b1");
  std::string const text(100, 't');
  EXPECT_GE(FailEveryAllocation([&] { Amputate(b1, nullptr, text); },
                                [&] {
                                  EXPECT_EQ(Text(), kText);
                                  EXPECT_TRUE(deleted.empty());
                                }),
            6U)
      << "the block, its label, its text and the element";
  EXPECT_EQ(deleted, (Names{"b1"}));
}

TEST_F(OmOutputTreeSafety, CuttingAnItemBelowTheRootThatFailsHasPrunedItsContent) {
  Node const b = Find("b");
  SpyCell const label("label");
  auto const pruned = [&] {
    EXPECT_EQ(Text(), "Output@0 a@1 b@1 c@1 ");
    EXPECT_EQ(SpyCell::Live(), 1);
  };
  auto const cut = [&] { Amputate(b, &label, "text"); };
  EXPECT_EQ(FailEveryCall(SpyCell::Operation::Clone, cut, pruned), 1U);
  EXPECT_EQ(Text(), "Output@0 a@1 b@1 label@2 c@1 ");
  tree.reset();
}

TEST_F(OmOutputTreeSafety, CuttingAnItemBelowTheRootWithRefusedMemoryLeavesNothingBehind) {
  Node const b = Find("b");
  SpyCell const label(std::string(100, 'l'));
  std::string const text(100, 't');
  EXPECT_GE(FailEveryAllocation([&] { Amputate(b, &label, text); },
                                [&] {
                                  EXPECT_EQ(Text(), "Output@0 a@1 b@1 c@1 ");
                                  EXPECT_EQ(SpyCell::Live(), 1);
                                }),
            6U);
  tree.reset();
}

// Destructors that throw

TEST_F(OmOutputTreeSafety, TheTreesDestructorDiscardsExceptionsAndGoesOn) {
  Add(Find("a"), "bad1", true);
  Add(Find("b12"), "bad2", true);
  EXPECT_NO_THROW(tree.reset());
  EXPECT_EQ(deleted, (Names{"a", "bad1", "b", "b1", "b11", "b12", "b121", "bad2", "b2", "c"}));
}

TEST_F(OmOutputTreeSafety, ErasingLetsAnItemsExceptionPass) {
  Node bad = Add(Find("b"), "bad", true);
  EXPECT_THROW(tree->Erase(bad), SpyPart::Exception);
  EXPECT_EQ(deleted, (Names{"bad"}));
  EXPECT_EQ(Text(), "Output@0 a@1 b@1 b1@2 b11@3 b12@3 b121@4 b2@2 -@2 c@1 ");
  tree->Erase(bad);
  EXPECT_EQ(Text(), kText);
}

TEST_F(OmOutputTreeSafety, PruningLetsAnItemsExceptionPassAndDeletesNothingTwice) {
  Add(Find("b12"), "bad", true);
  Node b = Find("b");
  EXPECT_THROW(tree->Prune(b), SpyPart::Exception);
  EXPECT_EQ(deleted, (Names{"b11", "b121", "bad"}));
  EXPECT_EQ(Text(), "Output@0 a@1 b@1 b1@2 b12@3 -@4 b2@2 c@1 ");
  tree->Prune(b);
  EXPECT_EQ(Text(), "Output@0 a@1 c@1 ");
  EXPECT_EQ(deleted, (Names{"b11", "b121", "bad", "b12", "b1", "b2", "b"}));
}

TEST_F(OmOutputTreeSafety, CuttingADeeperItemThatThrowsLeavesItsChildrenWhereTheyWere) {
  Node const bad = Add(Find("b"), "bad", true);
  Add(Add(bad, "child"), "grandchild");
  Add(bad, "other");
  EXPECT_THROW(Amputate(bad, nullptr, "text"), SpyPart::Exception);
  EXPECT_EQ(deleted, (Names{"bad"}));
  EXPECT_EQ(Text(),
            "Output@0 a@1 b@1 b1@2 b11@3 b12@3 b121@4 b2@2 -@2 child@3 grandchild@4 other@3 c@1 ");
  Amputate(bad, nullptr, "text");
  EXPECT_EQ(Text(),
            "Output@0 a@1 b@1 b1@2 b11@3 b12@3 b121@4 b2@2 child@2 grandchild@3 other@2 @2 c@1 ");
}

TEST_F(OmOutputTreeSafety, CuttingAnItemBelowTheRootLeavesWhatFollowsADescendantThatThrows) {
  Add(Find("b12"), "bad", true);
  OmStringCell const label("label");
  Node const b = Find("b");
  EXPECT_THROW(Amputate(b, &label, "text"), SpyPart::Exception);
  EXPECT_EQ(deleted, (Names{"b11", "b121", "bad"}));
  EXPECT_EQ(Text(), "Output@0 a@1 b@1 b1@2 b12@3 -@4 b2@2 c@1 ");
  Amputate(b, &label, "text");
  EXPECT_EQ(Text(), "Output@0 a@1 b@1 label@2 c@1 ");
}

TEST_F(OmOutputTreeSafety, CuttingADeeperItemLetsItsExceptionPassAndDeletesNothingTwice) {
  Node const bad = Add(Find("b"), "bad", true);
  EXPECT_THROW(Amputate(bad, nullptr, "text"), SpyPart::Exception);
  EXPECT_EQ(deleted, (Names{"bad"}));
  tree.reset();
  EXPECT_EQ(deleted, (Names{"bad", "a", "b", "b1", "b11", "b12", "b121", "b2", "c"}));
}

}  // namespace
