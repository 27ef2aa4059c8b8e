#include <cells/OmNumber.h>
// This header comes first to show that it is self-contained.
#include <algorithm>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <rapidcheck/gtest.h>
#include <string>

#include "PlainTexts.h"

static_assert(sizeof(OmNumber) <= 32);

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

std::string Text(double value, int decimals = -1) {
  return OmNumber(value, decimals).GetText();
}

/// How many digits are left when the exponent and the zeros at both ends are taken away.
int SignificantDigits(std::string text) {
  text.resize(std::min(text.find('e'), text.size()));
  text.erase(std::remove(text.begin(), text.end(), '.'), text.end());
  std::size_t const first = text.find_first_not_of('0');
  return static_cast<int>(text.find_last_not_of('0') - first + 1);
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

TEST(OmNumber, SizesFromAHundredThousandthUpToAQuadrillionAreWrittenPlainly) {
  EXPECT_EQ(Text(100000), "100000");
  EXPECT_EQ(Text(0.0001), "0.0001");
  EXPECT_EQ(Text(-1e-5), "-0.00001");
  EXPECT_EQ(Text(0.000012345), "0.000012345");
  EXPECT_EQ(Text(-120000000000000), "-120000000000000");
  EXPECT_EQ(Text(1e15), "1000000000000000");
  EXPECT_EQ(Text(123456789012345.67), "123456789012345.67");
  EXPECT_EQ(Text(0), "0");
}

TEST(OmNumber, OtherSizesAreWrittenWithAnExponent) {
  EXPECT_EQ(Text(std::nextafter(1e-5, 0)), "9.999999999999999e-06");
  EXPECT_EQ(Text(-1e-6), "-1e-06");
  EXPECT_EQ(Text(std::nextafter(1e15, kInfinity)), "1.0000000000000001e+15");
  EXPECT_EQ(Text(2e15), "2e+15");
  EXPECT_EQ(Text(std::numeric_limits<double>::denorm_min()), "5e-324");
}

TEST(OmNumber, FixedDecimalsRoundTheExactValue) {
  EXPECT_EQ(Text(2.5, 0), "2");
  EXPECT_EQ(Text(2.675, 2), "2.67");
  EXPECT_EQ(Text(1234.5, 3), "1234.500");
  EXPECT_EQ(Text(99.999, 1), "100.0");
}

TEST(OmNumber, HalvesAreRoundedToTheEvenNeighbor) {
  EXPECT_EQ(Text(0.5, 0), "0");
  EXPECT_EQ(Text(1.5, 0), "2");
  EXPECT_EQ(Text(-3.5, 0), "-4");
  EXPECT_EQ(Text(0.125, 2), "0.12");
  EXPECT_EQ(Text(0.375, 2), "0.38");
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

RC_GTEST_PROP(OmNumberText, ShortestFormHasAnExponentExactlyOutsideThePlainRange, ()) {
  double const digits = *rc::gen::inRange<long long>(1, 10'000'000'000'000'000);
  double const value = digits * std::pow(10, *rc::gen::inRange(-40, 10));
  bool const plain = value >= 1e-5 && value <= 1e15;
  std::string const text = Text(value);
  RC_ASSERT((text.find('e') == std::string::npos) == plain);
  RC_ASSERT(std::strtod(text.c_str(), nullptr) == value);
  int fewest = 1;
  for (char best[64];; ++fewest) {
    std::snprintf(best, sizeof best, "%.*e", fewest - 1, value);
    if (std::strtod(best, nullptr) == value) {
      break;
    }
  }
  RC_ASSERT(SignificantDigits(text) <= fewest);
}

RC_GTEST_PROP(OmNumberText, ShortestFormOfNumbersWithDecimalsAgreesWithTheStandardLibrary, ()) {
  auto const bits = *rc::gen::inRange(1, 63);
  auto const digits = *rc::gen::inRange<long long>(-(1LL << bits), 1LL << bits);
  double const written = static_cast<double>(digits) / std::pow(10, *rc::gen::inRange(0, 12));
  for (double const value : {written, std::nextafter(written, kInfinity), -written,
                             std::nextafter(written, -kInfinity)}) {
    RC_ASSERT(Text(value) == PlainNumberText(value));
  }
}

RC_GTEST_PROP(OmNumberText, ShortestFormOfAnyNumberAgreesWithTheStandardLibrary,
              (std::uint64_t bits)) {
  double value = 0;
  std::memcpy(&value, &bits, sizeof value);
  RC_PRE(!std::isnan(value));
  RC_ASSERT(Text(value) == PlainNumberText(value));
}

RC_GTEST_PROP(OmNumberText, FixedFormAgreesWithPrintf, (double value)) {
  int const decimals = *rc::gen::inRange(0, 20);
  RC_ASSERT(Text(value, decimals) == PlainNumberText(value, decimals));
}

RC_GTEST_PROP(OmNumberText, FixedFormOfHalvesAgreesWithPrintf, (std::int32_t number)) {
  // A number over a power of two lies halfway between two of one decimal less than the power.
  int const decimals = *rc::gen::inRange(0, 8);
  double const value = std::ldexp(number, -decimals - 1);
  RC_ASSERT(Text(value, decimals) == PlainNumberText(value, decimals));
}

}  // namespace
