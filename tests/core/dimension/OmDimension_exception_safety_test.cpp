#include <gtest/gtest.h>
#include <string>

#include <lakresvos/OmDimension.h>

#include "support/DimensionText.h"
#include "support/SpyCell.h"
#include "support/faults/FailingNew.h"

namespace {

using Node = OmDimension::Node;

/// A dimension whose root's children and index are full, so that one more grows both.
class OmDimensionSafety : public testing::Test {
 protected:
  OmDimensionSafety() { Fill(dimension_); }

  static void Fill(OmDimension& dimension) {
    for (char const* label : {"d", "c", "b", "a"}) {
      Node const group = dimension.Child(dimension.Root(), SpyCell(label), 0, true);
      dimension.Child(group, SpyCell("x"), 0, false);
    }
  }

  /// Makes what `failEvery` says fail in turn while a child is added: each failure changes nothing,
  /// and in the end the dimension is as one that never saw a failure.
  /// @return the number of failures.
  template <class FailEvery, class Attempt>
  std::size_t FailuresOf(FailEvery failEvery, Attempt attempt) {
    std::string const before = TextOf(dimension_);
    long const live = SpyCell::Live();
    std::size_t const failures = failEvery([&] { attempt(dimension_); },
                                           [&] {
                                             EXPECT_EQ(TextOf(dimension_), before);
                                             EXPECT_EQ(SpyCell::Live(), live);
                                           });
    OmDimension twin(OmDimensionNode(SpyCell("root"), 5, true, nullptr), &region_);
    Fill(twin);
    attempt(twin);
    EXPECT_NE(TextOf(dimension_), before);
    EXPECT_EQ(TextOf(dimension_), TextOf(twin));
    return failures;
  }

  template <class Attempt>
  void ExpectNothingChangedByFailuresOf(Attempt attempt) {
    auto const clones = [](auto run, auto check) {
      return FailEveryCall(SpyCell::Operation::Clone, run, check);
    };
    EXPECT_GE(FailuresOf(clones, attempt), 1U);
  }

  template <class Attempt>
  void ExpectNothingChangedByRefusalsIn(Attempt attempt) {
    auto const requests = [](auto run, auto check) { return FailEveryAllocation(run, check); };
    EXPECT_GE(FailuresOf(requests, attempt), 5U)
        << "a label, an index, which then stays grown, and a buffer";
  }

  SpyBalance balance_;
  OmMemoryRegion region_{false};
  OmDimension dimension_{OmDimensionNode(SpyCell("root"), 5, true, nullptr), &region_};
  SpyCell label_{"aa"};
};

TEST_F(OmDimensionSafety, ChildWithAFailingCloneChangesNothing) {
  ExpectNothingChangedByFailuresOf([&](OmDimension& to) { to.Child(to.Root(), label_, 7, false); });
}

TEST_F(OmDimensionSafety, ChildWithRefusedMemoryChangesNothing) {
  ExpectNothingChangedByRefusalsIn([&](OmDimension& to) { to.Child(to.Root(), label_, 7, false); });
}

TEST_F(OmDimensionSafety, ChildOfAFinishedNodeWithAFailingCloneChangesNothing) {
  OmDimensionNode const node(label_, 7, false, nullptr);
  ExpectNothingChangedByFailuresOf([&](OmDimension& to) { to.Child(to.Root(), node); });
}

TEST_F(OmDimensionSafety, ChildOfAFinishedNodeWithRefusedMemoryChangesNothing) {
  OmDimensionNode const node(label_, 7, false, nullptr);
  ExpectNothingChangedByRefusalsIn([&](OmDimension& to) { to.Child(to.Root(), node); });
}

TEST_F(OmDimensionSafety, AddNewChildWithAFailingCloneChangesNothing) {
  ExpectNothingChangedByFailuresOf(
      [&](OmDimension& to) { to.AddNewChild(to.Root(), label_, 7, false); });
}

TEST_F(OmDimensionSafety, AddNewChildWithRefusedMemoryChangesNothing) {
  ExpectNothingChangedByRefusalsIn(
      [&](OmDimension& to) { to.AddNewChild(to.Root(), label_, 7, false); });
}

TEST_F(OmDimensionSafety, AContextThatCannotBeSharedChangesNothing) {
  std::string const before = TextOf(dimension_);
  auto const unchanged = [&] { EXPECT_EQ(TextOf(dimension_), before); };
  EXPECT_EQ(FailEveryCall(
                SpyCell::Operation::ShareContext,
                [&] { dimension_.Child(dimension_.Root(), label_, 7, false); }, unchanged),
            1U);
}

TEST_F(OmDimensionSafety, ALookupThatFailsChangesNothing) {
  std::string const before = TextOf(dimension_);
  auto const unchanged = [&] { EXPECT_EQ(TextOf(dimension_), before); };
  EXPECT_GE(FailEveryCall(
                SpyCell::Operation::Compare,
                [&] { dimension_.Child(dimension_.Root(), SpyCell("dd"), 7, true); }, unchanged),
            2U);
}

TEST_F(OmDimensionSafety, ADimensionThatCannotBeMadeLeavesNothingBehind) {
  OmMemoryRegion other(false);
  OmDimensionNode const root(label_, 0, true, nullptr);
  long const live = SpyCell::Live();
  auto const nothing = [&] {
    EXPECT_EQ(other.BytesInUse(), 0U);
    EXPECT_EQ(SpyCell::Live(), live);
  };
  auto const make = [&] { OmDimension const dimension(root, &other); };
  EXPECT_GE(FailEveryAllocation(make, nothing), 2U);
  EXPECT_EQ(FailEveryCall(SpyCell::Operation::Clone, make, nothing), 1U);
}

TEST_F(OmDimensionSafety, ACopyThatCannotBeMadeLeavesNothingBehind) {
  OmMemoryRegion other(false);
  std::string const before = TextOf(dimension_);
  long const live = SpyCell::Live();
  auto const nothing = [&] {
    EXPECT_EQ(other.BytesInUse(), 0U);
    EXPECT_EQ(SpyCell::Live(), live);
    EXPECT_EQ(TextOf(dimension_), before);
  };
  auto const copy = [&] { OmDimension const made(dimension_, &other); };
  EXPECT_GE(FailEveryAllocation(copy, nothing), 18U) << "every label at least";
  EXPECT_EQ(FailEveryCall(SpyCell::Operation::Clone, copy, nothing), 9U);
}

}  // namespace
