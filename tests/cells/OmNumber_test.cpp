#include <cells/OmNumber.h>
// This header comes first to show that it stands alone.
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <rapidcheck/gtest.h>
#include <string>

static_assert(sizeof(OmNumber) <= 32);

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

std::string Text(double value, int decimals = -1) {
  return OmNumber(value, decimals).GetText();
}

TEST(OmNumber, KeepsValueAndDecimals) {
  OmNumber const number(1.5, 3);
  EXPECT_EQ(number.Value(), 1.5);
  EXPECT_EQ(number.Decimals(), 3);
  EXPECT_EQ(OmNumber(1).Decimals(), -1);
}

TEST(OmNumber, ShortestTextReadsBackToTheSameValue) {
  EXPECT_EQ(Text(0.1), "0.1");
  EXPECT_EQ(Text(1.0 / 3), "0.3333333333333333");
  EXPECT_EQ(Text(42), "42");
  EXPECT_EQ(Text(-2.5), "-2.5");
  EXPECT_EQ(Text(1e300), "1e+300");
}

TEST(OmNumber, FixedDecimalsRoundTheExactValue) {
  EXPECT_EQ(Text(2.5, 0), "2");
  EXPECT_EQ(Text(2.675, 2), "2.67");
  EXPECT_EQ(Text(1234.5, 3), "1234.500");
  EXPECT_EQ(Text(99.999, 1), "100.0");
}

TEST(OmNumber, MissingRendersAsAPointWhateverTheDecimals) {
  EXPECT_EQ(Text(kNaN), ".");
  EXPECT_EQ(Text(-kNaN, 2), ".");
}

TEST(OmNumber, InfinitiesRenderWithoutDecimals) {
  EXPECT_EQ(Text(kInfinity), "inf");
  EXPECT_EQ(Text(-kInfinity, 2), "-inf");
}

TEST(OmNumber, NegativeZeroKeepsItsSign) {
  EXPECT_EQ(Text(-0.0), "-0");
  EXPECT_EQ(Text(-0.001, 2), "-0.00");
}

TEST(OmNumber, AnyNegativeNumberOfDecimalsMeansShortest) {
  EXPECT_EQ(Text(0.5, std::numeric_limits<int>::min()), "0.5");
}

TEST(OmNumber, MoreDecimalsThanAnyDoubleHasAreNotRendered) {
  OmNumber const number(0.5, 1000000);
  EXPECT_EQ(number.GetText(), "0.5" + std::string(1073, '0'));
  EXPECT_EQ(number.Decimals(), 1000000);
}

TEST(OmNumber, TheLargestAndTheSmallestDoublesFitWithAllDecimals) {
  std::string const largest = Text(-std::numeric_limits<double>::max(), 1074);
  EXPECT_EQ(largest.size(), 1U + 309 + 1 + 1074);
  std::string const smallest = Text(std::numeric_limits<double>::denorm_min(), 1074);
  EXPECT_EQ(smallest.size(), 2U + 1074);
  EXPECT_EQ(smallest.back(), '5');
}

TEST(OmNumber, TheLocaleHasNoInfluence) {
  std::string const before = std::setlocale(LC_ALL, nullptr);
  for (char const* name : {"de_DE.UTF-8", "fr_FR.UTF-8", "C.UTF-8"}) {
    std::setlocale(LC_ALL, name);
    EXPECT_EQ(Text(1234567.25, 2), "1234567.25");
  }
  std::setlocale(LC_ALL, before.c_str());
}

RC_GTEST_PROP(OmNumberText, ShortestFormReadsBackBitForBit, (std::uint64_t bits)) {
  double value = 0;
  std::memcpy(&value, &bits, sizeof value);
  RC_PRE(!std::isnan(value));
  double const back = std::strtod(Text(value).c_str(), nullptr);
  RC_ASSERT(std::memcmp(&back, &value, sizeof value) == 0);
}

RC_GTEST_PROP(OmNumberText, FixedFormAgreesWithPrintf, (double value)) {
  int const decimals = *rc::gen::inRange(0, 20);
  char expected[512];
  std::snprintf(expected, sizeof expected, "%.*f", decimals, value);
  RC_ASSERT(Text(value, decimals) == expected);
}

}  // namespace
