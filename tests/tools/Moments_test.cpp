#include "Moments.h"

#include <cmath>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <vector>

using namespace lakresvos::report;

namespace {

struct Weighted {
  double number;
  double weight;
};

Moments Of(std::vector<Weighted> const& values) {
  Moments moments;
  for (Weighted const& value : values) {
    moments.Add(value.number, value.weight);
  }
  return moments;
}

}  // namespace

TEST(CompensatedSum, KeepsWhatPlainAdditionLoses) {
  CompensatedSum sum;
  for (double const number : {1e16, 1.0, 1.0, -1e16}) {
    sum.Add(number);
  }
  EXPECT_EQ(sum.Value(), 2);
}

TEST(CompensatedSum, KeepsItThroughAMerge) {
  CompensatedSum large;
  large.Add(1e16);
  large.Add(1);
  CompensatedSum back;
  back.Add(-1e16);
  back.Add(1);
  large.Merge(back);
  EXPECT_EQ(large.Value(), 2);
}

TEST(Moments, OfNothingHasASumAlone) {
  Moments const none;
  EXPECT_EQ(none.Sum(), 0);
  EXPECT_TRUE(std::isnan(none.Mean()));
  EXPECT_TRUE(std::isnan(none.Deviation()));
  EXPECT_TRUE(std::isnan(none.Minimum()));
  EXPECT_TRUE(std::isnan(none.Maximum()));
}

TEST(Moments, OfOneNumberHasNoDeviation) {
  Moments const one = Of({{3, 1}});
  EXPECT_EQ(one.Mean(), 3);
  EXPECT_EQ(one.Minimum(), 3);
  EXPECT_EQ(one.Maximum(), 3);
  EXPECT_TRUE(std::isnan(one.Deviation()));
}

TEST(Moments, OfAFewNumbers) {
  Moments const few = Of({{2, 1}, {4, 1}, {4, 1}, {4, 1}, {5, 1}, {5, 1}, {7, 1}, {9, 1}});
  EXPECT_DOUBLE_EQ(few.Mean(), 5);
  EXPECT_DOUBLE_EQ(few.Deviation(), std::sqrt(32.0 / 7));
  EXPECT_EQ(few.Sum(), 40);
  EXPECT_EQ(few.Minimum(), 2);
  EXPECT_EQ(few.Maximum(), 9);
}

TEST(Moments, TakeAWeightAsSoManyEqualNumbers) {
  Moments const weighted = Of({{2, 3}, {7, 2}});
  Moments const spelled = Of({{2, 1}, {2, 1}, {2, 1}, {7, 1}, {7, 1}});
  EXPECT_DOUBLE_EQ(weighted.Mean(), spelled.Mean());
  EXPECT_DOUBLE_EQ(weighted.Deviation(), spelled.Deviation());
  EXPECT_EQ(weighted.Sum(), spelled.Sum());
}

TEST(Moments, DoNotSeeANumberOfWeightZero) {
  Moments const moments = Of({{-100, 0}, {2, 1}, {100, 0}});
  EXPECT_EQ(moments.Minimum(), 2);
  EXPECT_EQ(moments.Maximum(), 2);
  EXPECT_EQ(moments.Mean(), 2);
}

TEST(Moments, StayExactFarFromZero) {
  Moments const far = Of({{1e9 + 4, 1}, {1e9 + 7, 1}, {1e9 + 13, 1}, {1e9 + 16, 1}});
  EXPECT_DOUBLE_EQ(far.Deviation(), std::sqrt(30.0));
}

TEST(Moments, CountMissingRows) {
  Moments moments;
  moments.AddMissing();
  Moments others;
  others.AddMissing();
  others.AddMissing();
  moments.Merge(others);
  EXPECT_EQ(moments.Missing(), 3u);
}

RC_GTEST_PROP(Moments, AgreeWithTwoPassesHoweverTheyAreMerged, ()) {
  auto const values = *rc::gen::container<std::vector<std::pair<int, int>>>(
      rc::gen::pair(rc::gen::inRange(-1000, 1000), rc::gen::inRange(0, 4)));
  auto const cut = *rc::gen::inRange<std::size_t>(0, values.size() + 1);
  Moments merged;
  Moments rest;
  double weight = 0;
  double sum = 0;
  for (std::size_t i = 0; i < values.size(); ++i) {
    (i < cut ? merged : rest).Add(values[i].first, values[i].second);
    weight += values[i].second;
    sum += 1.0 * values[i].first * values[i].second;
  }
  merged.Merge(rest);
  double squares = 0;
  for (auto const& [number, times] : values) {
    squares += times * std::pow(number - sum / weight, 2);
  }
  RC_ASSERT(merged.Sum() == sum);
  RC_ASSERT(std::isnan(merged.Mean()) == (weight == 0));
  RC_ASSERT(std::isnan(merged.Deviation()) == (weight <= 1));
  if (weight > 0) {
    RC_ASSERT(std::abs(merged.Mean() - sum / weight) < 1e-9);
  }
  if (weight > 1) {
    RC_ASSERT(std::abs(merged.Deviation() - std::sqrt(squares / (weight - 1))) < 1e-9);
  }
}
