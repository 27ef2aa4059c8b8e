#include "Number.h"

#include <cmath>
#include <gtest/gtest.h>

using namespace lakresvos::report;

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

TEST(ParseNumber, TakesNothingElseForANumber) {
  for (char const* text :
       {"",    "-",   "+",   ".",    "x",   "1x",       "1 ", " 1", "1,5",   "0x10",
        "+-1", "--1", "inf", "-inf", "nan", "infinity", "1e", "e5", "1e999", "-1e999"}) {
    EXPECT_TRUE(std::isnan(ParseNumber(text))) << text;
  }
}

TEST(DecimalsOf, CountsWhatIsWritten) {
  EXPECT_EQ(DecimalsOf("12"), 0);
  EXPECT_EQ(DecimalsOf("5."), 0);
  EXPECT_EQ(DecimalsOf("1.50"), 2);
  EXPECT_EQ(DecimalsOf("-.125"), 3);
}

TEST(DecimalsOf, MovesThePointByTheExponent) {
  EXPECT_EQ(DecimalsOf("1.5e-4"), 5);
  EXPECT_EQ(DecimalsOf("1.5e+1"), 0);
  EXPECT_EQ(DecimalsOf("1.25E1"), 1);
  EXPECT_EQ(DecimalsOf("6.02e23"), 0);
}

TEST(DecimalsOf, StopsAtWhatADoubleHolds) {
  EXPECT_EQ(DecimalsOf("0.00000000000000000001"), 15);
  EXPECT_EQ(DecimalsOf("1e-300"), 15);
  EXPECT_EQ(DecimalsOf("0e-99999999999999999999"), 0);
}
