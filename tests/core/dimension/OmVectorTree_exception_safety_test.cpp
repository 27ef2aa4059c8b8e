#include <gtest/gtest.h>
#include <string>

#include <lakresvos/OmVectorTree.h>

#include "support/TrackedValue.h"
#include "support/faults/FailingNew.h"

namespace {

using Tree = OmVectorTree<TrackedValue>;
using Element = Tree::Element;

/// Root 0 with four children, which fill its buffer; child i has i children.
void Fill(Tree& tree) {
  for (int i = 0; i < 4; ++i) {
    Tree::Node const child = Tree::AppendChild(tree.Root(), 10 * i);
    for (int k = 0; k < i; ++k) {
      Tree::AppendChild(child, 10 * i + k);
    }
  }
}

std::string Shape(Element const& element) {
  std::string shape = std::to_string(element.value.number) + "@" +
                      std::to_string(element.children.capacity()) + "(";
  for (Element const& child : element.children.Elements()) {
    shape += Shape(child) + (child.parent == &element ? " " : "! ");
  }
  return shape + ")";
}

/// A tree that an operation is tried on with every allocation and every copy failing in turn.
class OmVectorTreeSafety : public testing::Test {
 protected:
  OmVectorTreeSafety() : tree_(&region_) { Fill(tree_); }
  ~OmVectorTreeSafety() override {
    Tree::DestroySubtree(tree_);
    EXPECT_EQ(region_.BytesInUse(), 0U);
  }

  template <class Attempt>
  void ExpectNothingChangedByFailuresOf(Attempt attempt) {
    std::string const shape = Shape(tree_);
    unsigned long const bytes = region_.BytesInUse();
    unsigned long const heap = OmMemoryRegion::DefaultHeap()->BytesInUse();
    long const live = TrackedValue::live;
    auto const unchanged = [&] {
      EXPECT_EQ(Shape(tree_), shape);
      EXPECT_EQ(region_.BytesInUse(), bytes);
      EXPECT_EQ(OmMemoryRegion::DefaultHeap()->BytesInUse(), heap);
      EXPECT_EQ(TrackedValue::live, live);
    };
    // Each time the last attempt succeeds, and is undone.
    EXPECT_GE(FailEveryAllocation([&] { attempt(); }, unchanged), 1U);
    Undo();
    EXPECT_GE(FailEveryCopy([&] { attempt(); }, unchanged), 1U);
  }

  void Undo() {
    Tree::DestroySubtree(tree_);
    tree_.children.region = &region_;
    Fill(tree_);
  }

  OmMemoryRegion region_{false};
  Tree tree_;
};

TEST_F(OmVectorTreeSafety, AFailedAppendChangesNothing) {
  TrackedValue const value(5);
  ExpectNothingChangedByFailuresOf([&] { Tree::AppendChild(tree_.Root(), value); });
}

TEST_F(OmVectorTreeSafety, AFailedInsertionChangesNothing) {
  ExpectNothingChangedByFailuresOf(
      [&] { Tree::InsertChildAt(tree_.children, 1, tree_.children[3]); });
}

TEST_F(OmVectorTreeSafety, AFailedPushBackChangesNothing) {
  ExpectNothingChangedByFailuresOf([&] { Tree::PushBackChild(tree_.children, tree_.children[3]); });
}

TEST_F(OmVectorTreeSafety, AFailedInsertionBeforeAnAnchorChangesNothing) {
  TrackedValue const anchor(20);
  ExpectNothingChangedByFailuresOf(
      [&] { Tree::InsertChildBefore(tree_, tree_.children[3], &anchor); });
}

TEST_F(OmVectorTreeSafety, AFailedElementCopyLeavesNothingBehind) {
  ExpectNothingChangedByFailuresOf([&] { Element const copy(tree_); });
}

TEST_F(OmVectorTreeSafety, AFailedSubtreeCopyChangesNothing) {
  Tree source;
  Fill(source);
  ExpectNothingChangedByFailuresOf([&] { Tree::CopySubtree(tree_, source, nullptr, &region_); });
}

}  // namespace
