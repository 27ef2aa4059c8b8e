#include "content/NumberCell.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

#include <cells/OmComposite.h>
#include <cells/OmDataValue.h>
#include <cells/OmNumber.h>
#include <cells/OmStringCell.h>
#include <cells/OmVariable.h>

using lakresvos::render::FindNumber;

TEST(NumberCell, NumbersShowNumbers) {
  OmNumber number(1.5, 2);
  ASSERT_TRUE(FindNumber(number).has_value());
  EXPECT_EQ(FindNumber(number)->value, 1.5);
  EXPECT_EQ(FindNumber(number)->decimals, 2);
  OmNumber missing(std::numeric_limits<double>::quiet_NaN());
  ASSERT_TRUE(FindNumber(missing).has_value());
  EXPECT_TRUE(std::isnan(FindNumber(missing)->value));
}

TEST(NumberCell, TextsDoNotEvenWhenTheyLookLikeNumbers) {
  OmStringCell text("1.5");
  OmStringCellUTF8 utf8("1.5");
  OmStringDataValue value("1.5", "");
  OmVariable variable("x", "1.5");
  OmComposite composite("1.5");
  EXPECT_FALSE(FindNumber(text).has_value());
  EXPECT_FALSE(FindNumber(utf8).has_value());
  EXPECT_FALSE(FindNumber(value).has_value());
  EXPECT_FALSE(FindNumber(variable).has_value());
  EXPECT_FALSE(FindNumber(composite).has_value());
}

TEST(NumberCell, NumericDataValueShowsANumberUnlessItShowsItsLabel) {
  OmNumDataValue labelled(1, "one");
  EXPECT_FALSE(FindNumber(labelled).has_value());
  labelled.Display(OmLabelDisplay::Both);
  EXPECT_FALSE(FindNumber(labelled).has_value());
  labelled.Display(OmLabelDisplay::Value);
  ASSERT_TRUE(FindNumber(labelled).has_value());
  EXPECT_EQ(FindNumber(labelled)->value, 1);
  EXPECT_EQ(FindNumber(labelled)->decimals, -1);
  OmNumDataValue plain(1, "");
  EXPECT_TRUE(FindNumber(plain).has_value());
}
