#include "layout/OmPlaceSet.h"

#include <cstddef>
#include <gtest/gtest.h>
#include <random>
#include <set>
#include <vector>

namespace {

using Places = std::vector<unsigned long long>;

/// Inserts `count` random places below `range` and compares with an ordered set.
void CompareWithASet(unsigned long long bound, unsigned long long range, std::size_t count) {
  std::mt19937_64 random(17);
  OmPlaceSet places(bound);
  std::set<unsigned long long> model;
  for (std::size_t i = 0; i < count; ++i) {
    unsigned long long const place = random() % range;
    places.Insert(place);
    model.insert(place);
  }
  Places result{7};
  places.AppendTo(result);
  Places expected{7};
  expected.insert(expected.end(), model.begin(), model.end());
  EXPECT_EQ(result, expected);
}

TEST(OmPlaceSet, MarksFewPossiblePlaces) {
  CompareWithASet(1000, 1000, 5000);
}

TEST(OmPlaceSet, TakesPlacesBeyondTheBound) {
  CompareWithASet(1000, 5000, 5000);
}

TEST(OmPlaceSet, KeepsFewOfManyPossiblePlaces) {
  CompareWithASet(1ULL << 40, 1ULL << 40, 5000);
}

TEST(OmPlaceSet, SortsOutManyRepeatsNowAndThen) {
  CompareWithASet(1ULL << 40, 3000, 140000);
}

TEST(OmPlaceSet, GrowsWithManyDifferentPlaces) {
  CompareWithASet(1ULL << 40, 1ULL << 40, 140000);
}

TEST(OmPlaceSet, IsEmptyAtFirst) {
  Places result;
  OmPlaceSet(0).AppendTo(result);
  OmPlaceSet(1ULL << 63).AppendTo(result);
  EXPECT_TRUE(result.empty());
}

}  // namespace
