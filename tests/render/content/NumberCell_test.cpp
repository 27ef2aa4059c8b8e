#include "content/NumberCell.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

#include <cells/OmComposite.h>
#include <cells/OmDataValue.h>
#include <cells/OmNumber.h>
#include <cells/OmStringCell.h>
#include <cells/OmVariable.h>

using lakresvos::render::NumberOf;

TEST(NumberCell, NumbersShowNumbers) {
  OmNumber number(1.5, 2);
  ASSERT_TRUE(NumberOf(number).has_value());
  EXPECT_EQ(NumberOf(number)->value, 1.5);
  EXPECT_EQ(NumberOf(number)->decimals, 2);
  OmNumber missing(std::numeric_limits<double>::quiet_NaN());
  ASSERT_TRUE(NumberOf(missing).has_value());
  EXPECT_TRUE(std::isnan(NumberOf(missing)->value));
}

TEST(NumberCell, TextsDoNotEvenWhenTheyLookLikeNumbers) {
  OmStringCell text("1.5");
  OmStringCellUTF8 utf8("1.5");
  OmStringDataValue value("1.5", "");
  OmVariable variable("x", "1.5");
  OmComposite composite("1.5");
  EXPECT_FALSE(NumberOf(text).has_value());
  EXPECT_FALSE(NumberOf(utf8).has_value());
  EXPECT_FALSE(NumberOf(value).has_value());
  EXPECT_FALSE(NumberOf(variable).has_value());
  EXPECT_FALSE(NumberOf(composite).has_value());
}

TEST(NumberCell, NumericDataValueShowsANumberUnlessItShowsItsLabel) {
  OmNumDataValue labelled(1, "one");
  EXPECT_FALSE(NumberOf(labelled).has_value());
  labelled.Display(OmLabelDisplay::Both);
  EXPECT_FALSE(NumberOf(labelled).has_value());
  labelled.Display(OmLabelDisplay::Value);
  ASSERT_TRUE(NumberOf(labelled).has_value());
  EXPECT_EQ(NumberOf(labelled)->value, 1);
  EXPECT_EQ(NumberOf(labelled)->decimals, -1);
  OmNumDataValue plain(1, "");
  EXPECT_TRUE(NumberOf(plain).has_value());
}
