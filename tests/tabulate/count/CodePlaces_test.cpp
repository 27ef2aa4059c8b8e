#include "count/CodePlaces.h"

#include <gtest/gtest.h>

#include <lakresvos/tabulate/ColumnNumbers.h>

#include "support/Property.h"

using namespace lakresvos::tabulate;

namespace {

/// Cells as a table has them, and how often a combination was not found at its place.
struct Cells {
  explicit Cells(std::size_t width) : known(width), places(width) {}

  std::uint32_t Find(std::vector<std::uint32_t> const& codes) {
    return places.Find(codes, known, [&] {
      ++asked;
      return known.Intern(codes);
    });
  }

  TupleIndex known;
  CodePlaces places;
  int asked = 0;
};

}  // namespace

TEST(CodePlaces, AsksOnceForEachCombination) {
  Cells cells(2);
  for (int round = 0; round < 3; ++round) {
    EXPECT_EQ(cells.Find({0, 0}), 0u);
    EXPECT_EQ(cells.Find({0, 1}), 1u);
    EXPECT_EQ(cells.Find({5, 0}), 2u);
    EXPECT_EQ(cells.Find({kMissingCode, 1}), 3u);
  }
  EXPECT_EQ(cells.asked, 4);
}

TEST(CodePlaces, HasOneCellWithoutAnyCodes) {
  Cells cells(0);
  EXPECT_EQ(cells.Find({}), 0u);
  EXPECT_EQ(cells.Find({}), 0u);
  EXPECT_EQ(cells.asked, 1);
}

TEST(CodePlaces, AsksForEveryCombinationWhenThereAreTooManyPlaces) {
  Cells cells(2);
  EXPECT_EQ(cells.Find({1, 1}), 0u);
  EXPECT_EQ(cells.Find({1000, 1000}), 1u);
  EXPECT_EQ(cells.Find({1, 1}), 0u);
  EXPECT_EQ(cells.asked, 3);
}

TEST(CodePlaces, UsesPlacesUpToTheLastThatFits) {
  Cells cells(1);
  for (int round = 0; round < 2; ++round) {
    EXPECT_EQ(cells.Find({(1U << 18) - 2}), 0u);
  }
  EXPECT_EQ(cells.asked, 1);
  for (int round = 0; round < 2; ++round) {
    EXPECT_EQ(cells.Find({(1U << 18) - 1}), 1u);
  }
  EXPECT_EQ(cells.asked, 3);
}

PROPERTY(CodePlaces, FindsTheSameCellsAsAnIndex) {
  auto const width = *rc::gen::inRange<std::size_t>(1, 5);
  Cells cells(width);
  TupleIndex plain(width);
  auto const count = *rc::gen::inRange(1, 100);
  for (int i = 0; i < count; ++i) {
    std::vector<std::uint32_t> codes;
    while (codes.size() < width) {
      bool const missing = *rc::gen::inRange(0, 8) == 0;
      codes.push_back(missing ? kMissingCode : *rc::gen::inRange<std::uint32_t>(0, 40));
    }
    RC_ASSERT(cells.Find(codes) == plain.Intern(codes));
  }
}
