#include <gtest/gtest.h>

#include <cells/OmStringCell.h>
#include <lakresvos/OmHeading.h>
#include <lakresvos/OmOutputTree.h>

// Handles of another tree: nothing happens to either.

namespace {

class ForeignHandle : public testing::Test {
 protected:
  ForeignHandle() {
    for (int i = 0; i < 4; ++i) {
      theirs.begin().AppendChild(new OmHeading(OmStringCell("item")));
    }
  }

  void ExpectUnchanged() {
    EXPECT_EQ(ours.size(), 1U);
    EXPECT_EQ(theirs.size(), 5U);
    for (auto node = theirs.begin().FirstChild(); !node.AtEnd(); ++node) {
      EXPECT_EQ(node.depth, 1);
      EXPECT_NE(node.Value(), nullptr);
    }
  }

  OmOutputTree ours;
  OmOutputTree theirs;
};

TEST_F(ForeignHandle, IsNotErased) {
  auto node = theirs.begin();
  ours.Erase(node);
  ExpectUnchanged();
}

TEST_F(ForeignHandle, IsNotPruned) {
  auto node = theirs.begin();
  ours.Prune(node);
  ExpectUnchanged();
}

TEST_F(ForeignHandle, IsNotUnlinkedNorAreItsDescendantsPromoted) {
  ours.Unlink(theirs.begin());
  ours.PromoteDescendants(theirs.begin());
  ExpectUnchanged();
}

}  // namespace
