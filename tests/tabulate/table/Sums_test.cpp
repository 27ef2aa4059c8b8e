#include "table/Sums.h"

#include <boost/multiprecision/cpp_int.hpp>
#include <cmath>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <utility>
#include <vector>

using namespace lakresvos::tabulate;

namespace {

using Exact = boost::multiprecision::cpp_rational;
using Weighted = std::pair<double, double>;  // a number and its weight

Sums Gather(std::vector<Weighted> const& values) {
  Sums sums;
  for (auto const& [number, weight] : values) {
    sums.Add(number, weight);
  }
  return sums;
}

}  // namespace

TEST(Sums, OfNothingHaveASumAlone) {
  Sums const none = Gather({{3, 0}});
  EXPECT_EQ(none.Sum(), 0);
  EXPECT_TRUE(std::isnan(none.Mean()));
  EXPECT_TRUE(std::isnan(none.Minimum()));
  EXPECT_TRUE(std::isnan(none.Maximum()));
}

TEST(Sums, TakeAWeightAsSoManyEqualNumbers) {
  Sums const weighted = Gather({{2, 3}, {7, 2}});
  EXPECT_EQ(weighted.Sum(), 20);
  EXPECT_EQ(weighted.Mean(), 4);
  EXPECT_EQ(weighted.Minimum(), 2);
  EXPECT_EQ(weighted.Maximum(), 7);
}

TEST(Sums, KeepASmallNumberBesideOneThatIsFarLarger) {
  EXPECT_EQ(Gather({{1e50, 1}, {0.1, 1}, {-1e50, 1}}).Sum(), 0.1);
  EXPECT_EQ(Gather({{1e50, 3}, {0.1, 1}, {-1e50, 3}}).Sum(), 0.1);
}

TEST(Sums, OfNothingAddNothingWhenMerged) {
  Sums sums = Gather({{-2, 1}});
  sums.Merge(Sums());
  EXPECT_EQ(sums.Maximum(), -2);
  Sums none;
  none.Merge(sums);
  EXPECT_EQ(none.Maximum(), -2);
  EXPECT_EQ(none.Mean(), -2);
}

RC_GTEST_PROP(Sums, RoundTheExactSumAndMeanHoweverTheyAreMerged, ()) {
  auto const values = *rc::gen::container<std::vector<Weighted>>(rc::gen::pair(
      rc::gen::map(rc::gen::inRange(-100000, 100000), [](int number) { return number / 100.0; }),
      rc::gen::map(rc::gen::inRange(0, 40), [](int tenths) { return tenths / 10.0; })));
  auto const cut = *rc::gen::inRange<std::size_t>(0, values.size() + 1);
  auto const middle = values.begin() + static_cast<std::ptrdiff_t>(cut);
  Sums sums = Gather({values.begin(), middle});
  sums.Merge(Gather({middle, values.end()}));
  Exact weight = 0;
  Exact sum = 0;
  for (auto const& [number, times] : values) {
    weight += Exact(times);
    sum += Exact(number) * Exact(times);
  }
  RC_ASSERT(sums.Sum() == sum.convert_to<double>());
  if (weight > 0) {
    RC_ASSERT(sums.Mean() == Exact(sum / weight).convert_to<double>());
  }
}
