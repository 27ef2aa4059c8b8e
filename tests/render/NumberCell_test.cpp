#include "NumberCell.h"

#include <gtest/gtest.h>
#include <limits>

#include <cells/OmComposite.h>
#include <cells/OmDataValue.h>
#include <cells/OmNumber.h>
#include <cells/OmStringCell.h>
#include <cells/OmVariable.h>

using lakresvos::render::ShowsNumber;

TEST(NumberCell, NumbersShowNumbers) {
  OmNumber number(1.5);
  OmNumber missing(std::numeric_limits<double>::quiet_NaN());
  EXPECT_TRUE(ShowsNumber(number));
  EXPECT_TRUE(ShowsNumber(missing));
}

TEST(NumberCell, TextsDoNotEvenWhenTheyLookLikeNumbers) {
  OmStringCell text("1.5");
  OmStringCellUTF8 utf8("1.5");
  OmStringDataValue value("1.5", "");
  OmVariable variable("x", "1.5");
  OmComposite composite("1.5");
  EXPECT_FALSE(ShowsNumber(text));
  EXPECT_FALSE(ShowsNumber(utf8));
  EXPECT_FALSE(ShowsNumber(value));
  EXPECT_FALSE(ShowsNumber(variable));
  EXPECT_FALSE(ShowsNumber(composite));
}

TEST(NumberCell, NumericDataValueShowsANumberUnlessItShowsItsLabel) {
  OmNumDataValue labelled(1, "one");
  EXPECT_FALSE(ShowsNumber(labelled));
  labelled.Display(OmLabelDisplay::Both);
  EXPECT_FALSE(ShowsNumber(labelled));
  labelled.Display(OmLabelDisplay::Value);
  EXPECT_TRUE(ShowsNumber(labelled));
  OmNumDataValue plain(1, "");
  EXPECT_TRUE(ShowsNumber(plain));
}
