#include "chart/AxisScale.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <rapidcheck/gtest.h>
#include <string>
#include <vector>

using lakresvos::report::AxisScale;

namespace {

using Texts = std::vector<std::string>;

constexpr double kLargest = std::numeric_limits<double>::max();

Texts Labels(AxisScale const& scale) {
  Texts labels;
  for (int tick = 0; tick < scale.Ticks(); ++tick) {
    labels.push_back(scale.TickLabel(tick));
  }
  return labels;
}

}  // namespace

TEST(AxisScale, TicksAreRoundNumbersAroundTheValues) {
  EXPECT_EQ(Labels({0, 862, true}), (Texts{"0", "200", "400", "600", "800", "1000"}));
  EXPECT_EQ(Labels({0, 25, true}), (Texts{"0", "5", "10", "15", "20", "25"}));
}

TEST(AxisScale, FitsItsNumbers) {
  EXPECT_EQ(Labels({0, 101, true}).back(), "120");
  EXPECT_EQ(Labels({0, 10.1, false}).back(), "12");
  EXPECT_EQ(Labels({0, 2100, true}).back(), "2500");
}

RC_GTEST_PROP(AxisScale, LeavesAtMostAQuarterUnused, ()) {
  double const power = std::pow(10, *rc::gen::inRange(-200, 200));
  double const highest = *rc::gen::inRange(1, 100'000) * power;
  RC_ASSERT(AxisScale(0, highest, false).Position(highest) >= 0.75);
  double const whole = *rc::gen::inRange(3, 1'000'000);
  RC_ASSERT(AxisScale(0, whole, true).Position(whole) >= 0.75);
}

TEST(AxisScale, ZeroIsOnTheAxis) {
  EXPECT_EQ(Labels({7, 9, true}).front(), "0");
  EXPECT_EQ(Labels({-9, -7, true}).back(), "0");
}

TEST(AxisScale, NegativeNumbersHaveAMinus) {
  EXPECT_EQ(Labels({-3.5, 10, false}), (Texts{"−4", "−2", "0", "2", "4", "6", "8", "10"}));
  EXPECT_EQ(Labels({-0.02, 0, false}), (Texts{"−0.020", "−0.015", "−0.010", "−0.005", "0"}));
}

TEST(AxisScale, FractionsHaveAsManyDecimalsAsTheyNeed) {
  EXPECT_EQ(Labels({0, 1, false}), (Texts{"0", "0.2", "0.4", "0.6", "0.8", "1.0"}));
}

TEST(AxisScale, NoTickStandsBetweenWholeNumbers) {
  EXPECT_EQ(Labels({0, 1, true}), (Texts{"0", "1"}));
  EXPECT_EQ(Labels({-1, 2, true}), (Texts{"−1", "0", "1", "2"}));
}

TEST(AxisScale, NothingButZeroHasAnAxisToo) {
  EXPECT_EQ(Labels({0, 0, true}), (Texts{"0", "1"}));
}

TEST(AxisScale, HugeAndTinyNumbersHaveAnExponent) {
  EXPECT_EQ(Labels({0, 1e21, true}).back(), "1e21");
  EXPECT_EQ(Labels({0, 4e-12, false}).back(), "4e-12");
}

TEST(AxisScale, LargestNumbersOfBothSignsFit) {
  AxisScale const scale(-kLargest, kLargest, true);
  EXPECT_EQ(Labels(scale), (Texts{"−2e308", "−1e308", "0", "1e308", "2e308"}));
  EXPECT_NEAR(scale.Position(kLargest), 0.95, 0.01);
}

TEST(AxisScale, SmallestNumberStandsAtZero) {
  AxisScale const scale(0, std::numeric_limits<double>::denorm_min(), false);
  EXPECT_NEAR(scale.Position(std::numeric_limits<double>::denorm_min()), 0, 1e-9);
}

RC_GTEST_PROP(AxisScale, HasAFewTicksInOrderThatEncloseEveryValue, (bool whole)) {
  auto const mantissa = [] { return *rc::gen::inRange(-1000, 1000); };
  double const power = std::pow(10, *rc::gen::inRange(whole ? 0 : -290, 290));
  double const one = mantissa() * power;
  double const other = mantissa() * power;
  AxisScale const scale(std::min(one, other), std::max(one, other), whole);
  RC_ASSERT(scale.Ticks() >= 2);
  RC_ASSERT(scale.Ticks() <= 8);
  RC_ASSERT(scale.TickPosition(0) == 0);
  RC_ASSERT(scale.TickPosition(scale.Ticks() - 1) == 1);
  for (double const value : {one, other, 0.0}) {
    RC_ASSERT(scale.Position(value) >= 0);
    RC_ASSERT(scale.Position(value) <= 1);
  }
}
