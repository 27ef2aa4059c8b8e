#include "table/Moments.h"

#include <boost/multiprecision/cpp_bin_float.hpp>
#include <boost/multiprecision/cpp_int.hpp>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <rapidcheck/gtest.h>
#include <vector>

using namespace lakresvos::tabulate;

namespace {

struct Weighted {
  double number;
  double weight;
};

Moments Gather(std::vector<Weighted> const& values) {
  Moments moments;
  for (Weighted const& value : values) {
    moments.Add(value.number, value.weight);
  }
  return moments;
}

}  // namespace

TEST(Moments, SumUpWhatPlainAdditionLoses) {
  Moments large = Gather({{1e16, 1}, {1, 1}});
  EXPECT_EQ(Gather({{1e16, 1}, {1, 1}, {1, 1}, {-1e16, 1}}).Sum(), 2);
  large.Merge(Gather({{-1e16, 1}, {1, 1}}));
  EXPECT_EQ(large.Sum(), 2);
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
  Moments const one = Gather({{3, 1}});
  EXPECT_EQ(one.Mean(), 3);
  EXPECT_EQ(one.Minimum(), 3);
  EXPECT_EQ(one.Maximum(), 3);
  EXPECT_TRUE(std::isnan(one.Deviation()));
}

TEST(Moments, OfAFewNumbers) {
  Moments const few = Gather({{2, 1}, {4, 1}, {4, 1}, {4, 1}, {5, 1}, {5, 1}, {7, 1}, {9, 1}});
  EXPECT_DOUBLE_EQ(few.Mean(), 5);
  EXPECT_DOUBLE_EQ(few.Deviation(), std::sqrt(32.0 / 7));
  EXPECT_EQ(few.Sum(), 40);
  EXPECT_EQ(few.Minimum(), 2);
  EXPECT_EQ(few.Maximum(), 9);
}

TEST(Moments, TakeAWeightAsSoManyEqualNumbers) {
  Moments const weighted = Gather({{2, 3}, {7, 2}});
  Moments const spelled = Gather({{2, 1}, {2, 1}, {2, 1}, {7, 1}, {7, 1}});
  EXPECT_DOUBLE_EQ(weighted.Mean(), spelled.Mean());
  EXPECT_DOUBLE_EQ(weighted.Deviation(), spelled.Deviation());
  EXPECT_EQ(weighted.Sum(), spelled.Sum());
}

TEST(Moments, DoNotSeeANumberOfWeightZero) {
  Moments const moments = Gather({{-100, 0}, {2, 1}, {100, 0}});
  EXPECT_EQ(moments.Minimum(), 2);
  EXPECT_EQ(moments.Maximum(), 2);
  EXPECT_EQ(moments.Mean(), 2);
}

TEST(Moments, StayExactFarFromZero) {
  Moments const far = Gather({{1e9 + 4, 1}, {1e9 + 7, 1}, {1e9 + 13, 1}, {1e9 + 16, 1}});
  EXPECT_DOUBLE_EQ(far.Deviation(), std::sqrt(30.0));
}

TEST(Moments, HaveADeviationHoweverSmallItIsBesideTheNumbers) {
  Moments const times = Gather({{1700000039, 1.3}, {1700000042, 0.2}, {1700000024, 0.4}});
  EXPECT_NEAR(times.Deviation(), 9.22, 0.005);
}

TEST(Moments, OfEqualNumbersHaveNoSpread) {
  Moments constant = Gather({{250000, 0.7}, {250000, 1.1}, {250000, 2.1}});
  EXPECT_EQ(constant.Mean(), 250000);
  EXPECT_EQ(constant.Deviation(), 0);
  Moments total;
  total.Merge(constant);
  total.Merge(Gather({{250000, 0.3}}));
  EXPECT_EQ(total.Mean(), 250000);
  EXPECT_EQ(total.Deviation(), 0);
}

TEST(Moments, WeightsThatAreWrittenAsOneInAllHaveNoDeviation) {
  EXPECT_TRUE(std::isnan(Gather(std::vector<Weighted>(10, {3, 0.1})).Deviation()));
  EXPECT_TRUE(std::isnan(Gather({{1, 0.7}, {2, 0.2}, {3, 0.1}}).Deviation()));
}

TEST(Moments, StayFiniteWhereSumsOnTheWayAreNot) {
  Moments const large = Gather({{1e308, 1}, {1e308, 1}, {-1e308, 1}});
  EXPECT_EQ(large.Sum(), 1e308);
  EXPECT_DOUBLE_EQ(large.Mean(), 1e308 / 3);
  EXPECT_DOUBLE_EQ(large.Deviation(), 1e308 * std::sqrt(4.0 / 3));
  EXPECT_DOUBLE_EQ(Gather({{1, 1e308}, {3, 1e308}}).Mean(), 2);
  EXPECT_DOUBLE_EQ(Gather({{1, 1e308}, {3, 1e308}}).Deviation(), 1);
  EXPECT_DOUBLE_EQ(Gather({{1e-300, 1}, {3e-300, 1}}).Deviation(), 1e-300 * std::sqrt(2.0));
}

TEST(Moments, HaveNoNumberWhereItIsOutOfRange) {
  double const largest = std::numeric_limits<double>::max();
  Moments const pair = Gather({{largest, 1}, {largest, 1}});
  EXPECT_TRUE(std::isnan(pair.Sum()));
  EXPECT_EQ(pair.Mean(), largest);
  EXPECT_EQ(pair.Deviation(), 0);
  EXPECT_TRUE(std::isnan(Gather({{largest, 1}, {-largest, 1}}).Deviation()));
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

namespace {

using Exact = boost::multiprecision::cpp_rational;
using Long = boost::multiprecision::cpp_bin_float_100;

/// A random number from 0 to 1 of at most 20 binary digits.
rc::Gen<double> Fraction() {
  return rc::gen::map(rc::gen::inRange(0, 1 << 20), [](int number) { return number / 1048576.0; });
}

/// Weights as they are written, numbers within 1 of an offset of up to 1e12, or the offset itself.
rc::Gen<std::vector<Weighted>> Group() {
  auto const offset = rc::gen::apply(
      [](int power, double factor, bool negative) {
        return (negative ? -factor : factor) * std::pow(10, power);
      },
      rc::gen::inRange(-3, 13), Fraction(), rc::gen::arbitrary<bool>());
  return rc::gen::mapcat(offset, [](double from) {
    return rc::gen::container<std::vector<Weighted>>(rc::gen::apply(
        [from](double distance, int tenths, bool spread) {
          return Weighted{spread ? from + distance : from, tenths / 10.0};
        },
        Fraction(), rc::gen::inRange(0, 40), rc::gen::arbitrary<bool>()));
  });
}

bool IsClose(double number, Long const& exact) {
  return abs(Long(number) - exact) <= 1e-10 * abs(exact);
}

}  // namespace

RC_GTEST_PROP(Moments, AgreeWithExactArithmetic, ()) {
  auto const values = *Group();
  auto const cut = *rc::gen::inRange<std::size_t>(0, values.size() + 1);
  Moments merged;
  Moments rest;
  Exact weight = 0;
  Exact sum = 0;
  Exact squares = 0;
  for (std::size_t i = 0; i < values.size(); ++i) {
    auto const& [number, times] = values[i];
    (i < cut ? merged : rest).Add(number, times);
    weight += Exact(times);
    sum += Exact(number) * Exact(times);
    squares += Exact(number) * Exact(number) * Exact(times);
  }
  merged.Merge(rest);
  RC_ASSERT(IsClose(merged.Sum(), Long(sum)));
  if (weight > 0) {
    RC_ASSERT(IsClose(merged.Mean(), Long(Exact(sum / weight))));
  }
  if (weight.convert_to<double>() > 1) {
    Exact const variance = (squares - sum * sum / weight) / (weight - 1);
    RC_ASSERT(IsClose(merged.Deviation(), sqrt(Long(variance))));
  } else {
    RC_ASSERT(std::isnan(merged.Deviation()));
  }
}

RC_GTEST_PROP(Moments, OfOneRowHaveItsNumberForTheirMean, ()) {
  auto const number = *rc::gen::arbitrary<double>();
  auto const weight = *rc::gen::positive<double>();
  RC_PRE(std::isfinite(number) && std::isfinite(weight));
  RC_ASSERT(Gather({{number, weight}}).Mean() == number);
}
