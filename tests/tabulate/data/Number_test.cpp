#include "data/Number.h"

#include <boost/multiprecision/cpp_int.hpp>
#include <cmath>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <string>

using namespace lakresvos::tabulate;

TEST(ParseNumber, ReadsTheUsualForms) {
  EXPECT_EQ(ParseNumber("0"), 0);
  EXPECT_EQ(ParseNumber("-12"), -12);
  EXPECT_EQ(ParseNumber("+7"), 7);
  EXPECT_EQ(ParseNumber(".5"), 0.5);
  EXPECT_EQ(ParseNumber("-.5"), -0.5);
  EXPECT_EQ(ParseNumber("5."), 5);
  EXPECT_EQ(ParseNumber("6.02e23"), 6.02e23);
  EXPECT_EQ(ParseNumber("1E-3"), 1e-3);
}

TEST(ParseNumber, HasOneZero) {
  for (char const* text : {"-0", "-0.00", "-0e5", "+0", "-.0"}) {
    EXPECT_FALSE(std::signbit(ParseNumber(text))) << text;
  }
}

TEST(ParseNumber, TakesNothingElseForANumber) {
  for (char const* text :
       {"",    "-",   "+",   ".",    "x",   "1x",       "1 ", " 1", "1,5",   "0x10",
        "+-1", "--1", "inf", "-inf", "nan", "infinity", "1e", "e5", "1e999", "-1e999"}) {
    EXPECT_TRUE(std::isnan(ParseNumber(text))) << text;
  }
}

TEST(CountDecimals, CountsWhatIsWritten) {
  EXPECT_EQ(CountDecimals("12"), 0);
  EXPECT_EQ(CountDecimals("5."), 0);
  EXPECT_EQ(CountDecimals("1.50"), 2);
  EXPECT_EQ(CountDecimals("-.125"), 3);
}

TEST(CountDecimals, MovesThePointByTheExponent) {
  EXPECT_EQ(CountDecimals("1.5e-4"), 5);
  EXPECT_EQ(CountDecimals("1.5e+1"), 0);
  EXPECT_EQ(CountDecimals("1.25E1"), 1);
  EXPECT_EQ(CountDecimals("6.02e23"), 0);
}

TEST(CountDecimals, StopsAtWhatADoubleHolds) {
  EXPECT_EQ(CountDecimals("0.00000000000000000001"), 15);
  EXPECT_EQ(CountDecimals("1e-300"), 15);
  EXPECT_EQ(CountDecimals("0e-99999999999999999999"), 0);
}

TEST(CompareNumbers, SeesDigitsThatADoubleLacks) {
  EXPECT_GT(CompareNumbers("9007199254740993", "9007199254740992"), 0);
  EXPECT_LT(CompareNumbers("-9007199254740993", "-9007199254740992"), 0);
  EXPECT_LT(CompareNumbers("0.1", "0.10000000000000000000000001"), 0);
}

TEST(CompareNumbers, DoesNotSeeHowANumberIsWritten) {
  for (char const* text : {"100", "+100", "100.", "100.00", "1e2", "1E+2", "10000e-2", ".1e3"}) {
    EXPECT_EQ(CompareNumbers(text, "100"), 0) << text;
  }
  for (char const* text : {"-0", "+0", "0.000", "0e5", "-.0", "0e-99999999999999999999"}) {
    EXPECT_EQ(CompareNumbers(text, "0"), 0) << text;
  }
}

TEST(CompareNumbers, OrdersBySignAndSize) {
  char const* const ascending[] = {"-1e3", "-20", "-3", "-0.5", "0", "1e-9", "0.25", "7", "12"};
  for (std::size_t i = 0; i < std::size(ascending); ++i) {
    for (std::size_t j = 0; j < std::size(ascending); ++j) {
      int const found = CompareNumbers(ascending[i], ascending[j]);
      EXPECT_EQ(found < 0, i < j) << ascending[i] << ' ' << ascending[j];
      EXPECT_EQ(found > 0, i > j) << ascending[i] << ' ' << ascending[j];
    }
  }
}

TEST(HasNeedlessZero, IsTrueOfCodes) {
  for (char const* code : {"007", "00", "-05", "+05", "00.5", "01e3"}) {
    EXPECT_TRUE(HasNeedlessZero(code)) << code;
  }
}

TEST(HasNeedlessZero, IsFalseOfQuantities) {
  for (char const* quantity : {"0", "-0", "0.5", ".05", "0e1", "100", "10.0", "1e05"}) {
    EXPECT_FALSE(HasNeedlessZero(quantity)) << quantity;
  }
}

namespace {

/// A number as it may be written, and 1e40 times that number.
struct Written {
  std::string text;
  boost::multiprecision::cpp_int scaled;
};

std::string Zeros(int count) {
  return std::string(static_cast<std::size_t>(count), '0');
}

rc::Gen<Written> Numbers() {
  return rc::gen::apply(
      [](std::vector<int> const& digits, int point, int exponent, int zeros, bool negative) {
        std::string text;
        for (int const digit : digits) {
          text += std::to_string(digit);
        }
        auto const decimals = std::min<std::size_t>(static_cast<std::size_t>(point), text.size());
        std::string const scaled = text + Zeros(40 - static_cast<int>(decimals) + exponent);
        text.insert(text.size() - decimals, ".");
        text = Zeros(zeros) + "0" + text + Zeros(zeros) + "e" + std::to_string(exponent);
        boost::multiprecision::cpp_int value(0);
        for (char const digit : scaled) {
          value = value * 10 + (digit - '0');
        }
        return negative ? Written{"-" + text, -value} : Written{text, value};
      },
      rc::gen::container<std::vector<int>>(rc::gen::inRange(0, 3)), rc::gen::inRange(0, 6),
      rc::gen::inRange(-3, 4), rc::gen::inRange(0, 3), rc::gen::arbitrary<bool>());
}

}  // namespace

RC_GTEST_PROP(CompareNumbers, AgreesWithIntegers, ()) {
  Written const a = *Numbers();
  Written const b = *Numbers();
  int const found = CompareNumbers(a.text, b.text);
  int const expected = a.scaled.compare(b.scaled);
  RC_ASSERT((found < 0) == (expected < 0));
  RC_ASSERT((found > 0) == (expected > 0));
}
