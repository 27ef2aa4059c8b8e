#include "layout/MultiBase.h"

#include <climits>
#include <cstddef>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <vector>

#include "support/Assertions.h"

namespace {

using Digits = std::vector<unsigned int>;

Digits DigitsOf(Digits const& bases, unsigned long long number) {
  return MultiBase(bases).Digits(number);
}

unsigned long long ValueOf(Digits const& bases, Digits const& digits) {
  return MultiBase(bases).Value(digits);
}

// Digits

TEST(MultiBase, SplitsANumberWithTheFirstDigitMostSignificant) {
  EXPECT_EQ(DigitsOf({3, 4}, 7), (Digits{1, 3}));
}

TEST(MultiBase, DoesNotReduceTheFirstDigit) {
  EXPECT_EQ(DigitsOf({3, 4}, 13), (Digits{3, 1}));
  EXPECT_EQ(DigitsOf({3, 4}, 25), (Digits{6, 1}));
}

TEST(MultiBase, ZeroHasAllDigitsZero) {
  EXPECT_EQ(DigitsOf({3, 4, 5}, 0), (Digits{0, 0, 0}));
  EXPECT_EQ(DigitsOf({0, 0}, 0), (Digits{0, 0}));
}

TEST(MultiBase, WithOneBaseTheNumberIsTheDigit) {
  EXPECT_EQ(DigitsOf({5}, 3), (Digits{3}));
  EXPECT_EQ(DigitsOf({5}, 17), (Digits{17}));
  EXPECT_EQ(DigitsOf({0}, 17), (Digits{17}));
}

TEST(MultiBase, WithoutBasesThereAreNoDigits) {
  EXPECT_EQ(DigitsOf({}, 0), Digits());
  EXPECT_EQ(DigitsOf({}, 7), Digits());
}

TEST(MultiBase, StopsAtAQuotientOfZeroBeforeABaseOfZero) {
  EXPECT_EQ(DigitsOf({5, 0, 2}, 1), (Digits{0, 0, 1}));
}

TEST(MultiBase, TheFirstBaseIsNeverConsulted) {
  EXPECT_EQ(DigitsOf({0, 4}, 7), (Digits{1, 3}));
  EXPECT_EQ(ValueOf({0, 4}, {1, 3}), 7U);
  EXPECT_EQ(DigitsOf({0, 4, 2}, 13), (Digits{1, 2, 1}));
}

TEST(MultiBase, ABaseOfOneHasTheDigitZero) {
  EXPECT_EQ(DigitsOf({3, 1, 4}, 7), (Digits{1, 0, 3}));
}

TEST(MultiBase, SplitsNumbersOfSixtyFourBits) {
  EXPECT_EQ(DigitsOf({4, UINT_MAX, UINT_MAX}, ULLONG_MAX), (Digits{1, 2, 0}));
  EXPECT_EQ(DigitsOf({2, 1U << 31, 1U << 31}, (1ULL << 62) + 5), (Digits{1, 0, 5}));
}

TEST(MultiBase, DigitsCanBePutIntoAVectorThatIsUsedAgain) {
  MultiBase const system({3, 4});
  Digits digits{9, 9, 9};
  system.Digits(7, digits);
  EXPECT_EQ(digits, (Digits{1, 3}));
}

// Value

TEST(MultiBase, JoinsDigits) {
  EXPECT_EQ(ValueOf({3, 4}, {1, 3}), 7U);
  EXPECT_EQ(ValueOf({3, 4, 5}, {2, 3, 4}), 59U);
}

TEST(MultiBase, JoinsDigitsThatAreTooLarge) {
  EXPECT_EQ(ValueOf({3, 4}, {6, 1}), 25U);
  EXPECT_EQ(ValueOf({3, 4}, {1, 9}), 13U);
}

TEST(MultiBase, ASingleDigitIsItsValue) {
  EXPECT_EQ(ValueOf({3}, {UINT_MAX}), 4294967295U);
}

TEST(MultiBase, ValuesWrapAtSixtyFourBits) {
  EXPECT_EQ(ValueOf({1, UINT_MAX, UINT_MAX}, {2, 3, 4}),
            2ULL * UINT_MAX * UINT_MAX + 3ULL * UINT_MAX + 4);
}

TEST(MultiBase, ABaseOfZeroForgetsTheDigitsBefore) {
  EXPECT_EQ(ValueOf({3, 0, 5}, {2, 3, 4}), 19U);
}

TEST(MultiBase, GivesACopyOfItsBases) {
  MultiBase const system({3, 4});
  Digits bases = system.Bases();
  bases[0] = 9;
  EXPECT_EQ(system.Bases(), (Digits{3, 4}));
}

// Assertions

std::string FailedDigits() {
  return AssertionPattern("backend/tables/MultiBase:[0-9]+", ".*MultiBase::Digits\\(.*\\) const",
                          "b>0");
}

std::string FailedValue() {
  return AssertionPattern("backend/tables/MultiBase:[0-9]+", ".*MultiBase::Value\\(.*\\) const",
                          "digit == end && i == size");
}

TEST(MultiBaseDeathTest, ReachingABaseOfZeroAborts) {
  EXPECT_ABORT(DigitsOf({5, 0, 2}, 7), FailedDigits());
  EXPECT_ABORT(DigitsOf({5, 0}, 1), FailedDigits());
}

TEST(MultiBaseDeathTest, TooFewDigitsAbort) {
  EXPECT_ABORT(ValueOf({3, 4}, {1}), FailedValue());
  EXPECT_ABORT(ValueOf({3, 4, 5}, {1, 2}), FailedValue());
}

TEST(MultiBaseDeathTest, TooManyDigitsAbort) {
  EXPECT_ABORT(ValueOf({3, 4}, {1, 2, 3}), FailedValue());
  EXPECT_ABORT(ValueOf({3}, {1, 2}), FailedValue());
}

TEST(MultiBaseDeathTest, ADigitWithoutABaseAborts) {
  EXPECT_ABORT(ValueOf({}, {1}), FailedValue());
}

// Round trip

RC_GTEST_PROP(MultiBase, TheDigitsOfAnyNumberJoinToIt, ()) {
  auto const bases =
      *rc::gen::nonEmpty(rc::gen::container<Digits>(rc::gen::inRange<unsigned int>(1, 100)));
  auto const number = *rc::gen::inRange<unsigned long long>(0, 1ULL << 31);
  MultiBase const system(bases);
  Digits const digits = system.Digits(number);
  RC_ASSERT(digits.size() == bases.size());
  for (std::size_t i = 1; i < digits.size(); ++i) {
    RC_ASSERT(digits[i] < bases[i]);
  }
  RC_ASSERT(system.Value(digits) == number);
}

RC_GTEST_PROP(MultiBase, AnyDigitsBelowTheirBasesComeBack, ()) {
  auto const bases = *rc::gen::resize(
      5, rc::gen::nonEmpty(rc::gen::container<Digits>(rc::gen::inRange<unsigned int>(1, 1000))));
  Digits digits;
  for (unsigned int const base : bases) {
    digits.push_back(*rc::gen::inRange<unsigned int>(0, base));
  }
  MultiBase const system(bases);
  RC_ASSERT(system.Digits(system.Value(digits)) == digits);
}

RC_GTEST_PROP(MultiBase, CountingGoesThroughAllCombinationsInOrder, ()) {
  auto const bases = *rc::gen::resize(
      3, rc::gen::nonEmpty(rc::gen::container<Digits>(rc::gen::inRange<unsigned int>(1, 5))));
  MultiBase const system(bases);
  Digits odometer(bases.size(), 0);
  unsigned long long number = 0;
  for (bool more = true; more; ++number) {
    RC_ASSERT(system.Digits(number) == odometer);
    RC_ASSERT(system.Value(odometer) == number);
    std::size_t i = bases.size();
    while (i != 0 && ++odometer[i - 1] == bases[i - 1]) {
      odometer[--i] = 0;
    }
    more = i != 0;
  }
}

}  // namespace
