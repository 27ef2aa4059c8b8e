#include "table/CompensatedSum.h"

#include <boost/multiprecision/cpp_bin_float.hpp>
#include <boost/multiprecision/cpp_int.hpp>
#include <cmath>
#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <rapidcheck/gtest.h>
#include <utility>
#include <vector>

using namespace lakresvos::tabulate;

namespace {

using Exact = boost::multiprecision::cpp_rational;

CompensatedSum Gather(std::vector<double> const& numbers) {
  CompensatedSum sum;
  for (double const number : numbers) {
    sum.Add(number);
  }
  return sum;
}

double Rounded(CompensatedSum const& sum) {
  return sum.Value().convert_to<double>();
}

/// Whether a sum differs from the exact one by a tiny part of the sum of the terms' sizes.
bool IsClose(CompensatedSum const& sum, Exact const& exact, Exact const& size) {
  return abs(Exact(sum.Value()) - exact) <= size / Exact(boost::multiprecision::cpp_int(1) << 110);
}

/// Any finite number of moderate size, or of any size at all.
rc::Gen<double> Number() {
  auto const finite = rc::gen::suchThat(rc::gen::arbitrary<double>(),
                                        [](double number) { return std::isfinite(number); });
  auto const scaled = rc::gen::apply(
      [](double number, int power) {
        double const all = std::ldexp(number, power);
        return std::isfinite(all) ? all : number;
      },
      finite, rc::gen::inRange(-1074, 1024));
  return rc::gen::oneOf(finite, scaled);
}

}  // namespace

TEST(CompensatedSum, OfNothingIsZero) {
  EXPECT_EQ(CompensatedSum().Value(), 0);
}

TEST(CompensatedSum, KeepsWhatPlainAdditionLoses) {
  EXPECT_EQ(Rounded(Gather({1e16, 1, 1, -1e16})), 2);
}

TEST(CompensatedSum, KeepsASmallTermBesideOneThatIsFarLarger) {
  EXPECT_EQ(Rounded(Gather({1e100, 0.1, -1e100})), 0.1);
  EXPECT_EQ(Rounded(Gather({1e60, 1e30, 0.1, -1e30, -1e60})), 0.1);
}

TEST(CompensatedSum, StaysFiniteWhereSumsOnTheWayAreNot) {
  double const largest = std::numeric_limits<double>::max();
  EXPECT_EQ(Rounded(Gather({largest, largest, -largest})), largest);
  CompensatedSum sum;
  sum.AddProduct(1e300, 1e300);
  sum.Add(1);
  sum.AddProduct(-1e300, 1e300);
  EXPECT_EQ(sum.Value(), 1);
}

TEST(CompensatedSum, StaysAsItIsWithoutAFactor) {
  CompensatedSum sum = Gather({3});
  sum.AddProduct(0, 2);
  sum.AddProduct(2, 0);
  sum.AddProduct(-std::numeric_limits<double>::max(), 0);
  EXPECT_EQ(sum.Value(), 3);
}

TEST(CompensatedSum, KeepsAProductBelowTheRangeOfADouble) {
  CompensatedSum sum;
  sum.AddProduct(std::numeric_limits<double>::denorm_min(), 0.25);
  sum.AddProduct(std::numeric_limits<double>::denorm_min(), 0.75);
  EXPECT_EQ(Rounded(sum), std::numeric_limits<double>::denorm_min());
}

RC_GTEST_PROP(CompensatedSum, LosesNothingOfWhatCancelsOut, ()) {
  std::int64_t const most = std::int64_t{1} << 53;
  auto const digits = rc::gen::resize(rc::kNominalSize, rc::gen::inRange(-most, most));
  auto const list = rc::gen::container<std::vector<std::int64_t>>(digits);
  std::vector<std::int64_t> const large = *list;
  std::vector<std::int64_t> const small = *list;
  CompensatedSum sum;
  Exact exact = 0;
  auto const add = [&](std::int64_t term, int power) {
    double const number = std::ldexp(term, power);
    sum.AddProduct(number, 0.1);
    exact += Exact(number) * Exact(0.1);
  };
  for (std::int64_t const term : large) {
    add(term, 30);
  }
  for (std::int64_t const term : small) {
    add(term, -80);
  }
  for (std::int64_t const term : large) {
    add(-term, 30);
  }
  RC_ASSERT(Rounded(sum) == exact.convert_to<double>());
}

RC_GTEST_PROP(CompensatedSum, AgreesWithExactArithmeticHoweverItIsMerged, ()) {
  auto const terms = *rc::gen::container<std::vector<std::pair<double, double>>>(
      rc::gen::pair(Number(), rc::gen::oneOf(rc::gen::just(1.0), Number())));
  auto const cut = *rc::gen::inRange<std::size_t>(0, terms.size() + 1);
  CompensatedSum merged;
  CompensatedSum rest;
  Exact exact = 0;
  Exact size = 0;
  for (std::size_t i = 0; i < terms.size(); ++i) {
    auto const& [number, weight] = terms[i];
    CompensatedSum& sum = i < cut ? merged : rest;
    if (weight == 1) {
      sum.Add(number);
    } else {
      sum.AddProduct(number, weight);
    }
    exact += Exact(number) * Exact(weight);
    size += abs(Exact(number) * Exact(weight));
  }
  merged.Add(rest);
  RC_ASSERT(IsClose(merged, exact, size));
}
