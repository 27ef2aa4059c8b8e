#include <climits>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>

#include <lakresvos/FormatArea.h>

#include "support/faults/FailingNew.h"

namespace {

static_assert(sizeof(FormatArea) == sizeof(void*));
static_assert(std::is_same_v<std::underlying_type_t<FormatArea::Area>, int>);
static_assert(std::is_convertible_v<FormatArea::Area, int>, "an unscoped enumeration");

TEST(FormatArea, NewFormatHasTheDefaultsOfItsArea) {
  FormatArea const format(FormatArea::Area(3));
  EXPECT_EQ(format.getArea(), 3);
  EXPECT_EQ(format.getFontName(), "");
  EXPECT_EQ(format.getFontSize(), 0.0F);
  EXPECT_EQ(format.getFontStyle(), -1);
  EXPECT_EQ(format.getMarginLeft(), 6);
  EXPECT_EQ(format.getMarginRight(), 2);
  EXPECT_EQ(format.getMarginTop(), 2);
  EXPECT_EQ(format.getMarginBottom(), 2);
  EXPECT_FALSE(format.getUnderline());
  EXPECT_EQ(format.getHorizontalAlignment(), -1);
  EXPECT_EQ(format.getVerticalAlignment(), -1);
  EXPECT_EQ(format.getTextColor(), "");
  EXPECT_EQ(format.getBackgroundColor(), "");
  EXPECT_FALSE(format.getUseAltRowColors());
  EXPECT_EQ(format.getAlternateTextColor(), "");
  EXPECT_EQ(format.getAlternateBackgroundColor(), "");
}

TEST(FormatArea, AreasHaveTheNumbersZeroToEight) {
  EXPECT_EQ(FormatArea::AreaTitle, 0);
  EXPECT_EQ(FormatArea::AreaCaption, 1);
  EXPECT_EQ(FormatArea::AreaFootnotes, 2);
  EXPECT_EQ(FormatArea::AreaCorner, 3);
  EXPECT_EQ(FormatArea::AreaColumnLabels, 4);
  EXPECT_EQ(FormatArea::AreaRowLabels, 5);
  EXPECT_EQ(FormatArea::AreaData, 6);
  EXPECT_EQ(FormatArea::AreaLayers, 7);
  EXPECT_EQ(FormatArea::AreaFrame, 8);
}

TEST(FormatArea, AnyAreaNumberIsKept) {
  for (int const number : {-1, 9, INT_MIN, INT_MAX}) {
    EXPECT_EQ(FormatArea(FormatArea::Area(number)).getArea(), number);
  }
}

TEST(FormatArea, EverySetterIsReadBackByItsOwnGetterAlone) {
  FormatArea format(FormatArea::Area(0));
  format.setFontName("Serif");
  format.setFontSize(9.5F);
  format.setFontStyle(3);
  format.setMarginLeft(11);
  format.setMarginRight(-12);
  format.setMarginTop(13);
  format.setMarginBottom(INT_MAX);
  format.setUnderline(true);
  format.setHorizontalAlignment(4);
  format.setVerticalAlignment(5);
  format.setTextColor("#010203");
  format.setBackgroundColor("#040506");
  format.setUseAltRowColors(true);
  format.setAlternateTextColor("red");
  format.setAlternateBackgroundColor("no colour at all");

  EXPECT_EQ(format.getArea(), 0);
  EXPECT_EQ(format.getFontName(), "Serif");
  EXPECT_EQ(format.getFontSize(), 9.5F);
  EXPECT_EQ(format.getFontStyle(), 3);
  EXPECT_EQ(format.getMarginLeft(), 11);
  EXPECT_EQ(format.getMarginRight(), -12);
  EXPECT_EQ(format.getMarginTop(), 13);
  EXPECT_EQ(format.getMarginBottom(), INT_MAX);
  EXPECT_TRUE(format.getUnderline());
  EXPECT_EQ(format.getHorizontalAlignment(), 4);
  EXPECT_EQ(format.getVerticalAlignment(), 5);
  EXPECT_EQ(format.getTextColor(), "#010203");
  EXPECT_EQ(format.getBackgroundColor(), "#040506");
  EXPECT_TRUE(format.getUseAltRowColors());
  EXPECT_EQ(format.getAlternateTextColor(), "red");
  EXPECT_EQ(format.getAlternateBackgroundColor(), "no colour at all");
}

TEST(FormatArea, FlagsCanBeTurnedOffAgain) {
  FormatArea format(FormatArea::Area(0));
  format.setUnderline(true);
  format.setUnderline(false);
  format.setUseAltRowColors(true);
  format.setUseAltRowColors(false);
  EXPECT_FALSE(format.getUnderline());
  EXPECT_FALSE(format.getUseAltRowColors());
}

TEST(FormatArea, StringGettersReturnTheStoredStrings) {
  FormatArea format(FormatArea::Area(0));
  std::string const& font = format.getFontName();
  std::string const& text = format.getTextColor();
  std::string const& background = format.getBackgroundColor();
  std::string const& alternateText = format.getAlternateTextColor();
  std::string const& alternateBackground = format.getAlternateBackgroundColor();
  format.setFontName("Sans");
  format.setTextColor("blue");
  format.setBackgroundColor("white");
  format.setAlternateTextColor("red");
  format.setAlternateBackgroundColor("grey");
  EXPECT_EQ(&font, &format.getFontName());
  EXPECT_EQ(font, "Sans");
  EXPECT_EQ(text, "blue");
  EXPECT_EQ(background, "white");
  EXPECT_EQ(alternateText, "red");
  EXPECT_EQ(alternateBackground, "grey");
}

TEST(FormatArea, AStoredStringMayBeHandedBack) {
  FormatArea format(FormatArea::Area(0));
  format.setFontName("a name that is too long to be kept inside a string object");
  format.setFontName(format.getFontName());
  EXPECT_EQ(format.getFontName(), "a name that is too long to be kept inside a string object");
}

TEST(FormatArea, CopiesShareOneRecord) {
  FormatArea first(FormatArea::Area(5));
  FormatArea second(first);
  second.setFontName("Sans");
  EXPECT_EQ(second.getArea(), 5);
  EXPECT_EQ(first.getFontName(), "Sans");
}

TEST(FormatArea, ACopyOutlivesItsSource) {
  auto first = std::make_unique<FormatArea>(FormatArea::Area(5));
  FormatArea const second(*first);
  first->setFontName("a name that is too long to be kept inside a string object");
  first.reset();
  EXPECT_EQ(second.getFontName(), "a name that is too long to be kept inside a string object");
}

TEST(FormatArea, TheSourceOutlivesItsCopy) {
  FormatArea const first(FormatArea::Area(5));
  {
    FormatArea copy(first);
    copy.setMarginTop(40);
  }
  EXPECT_EQ(first.getMarginTop(), 40);
}

TEST(FormatArea, AssignmentSharesTheOtherRecordAndLeavesTheOwnToItsCopies) {
  FormatArea first(FormatArea::Area(1));
  FormatArea const copyOfFirst(first);
  FormatArea second(FormatArea::Area(2));
  first = second;
  second.setFontName("Sans");
  EXPECT_EQ(first.getArea(), 2);
  EXPECT_EQ(first.getFontName(), "Sans");
  EXPECT_EQ(copyOfFirst.getArea(), 1);
  EXPECT_EQ(copyOfFirst.getFontName(), "");
}

TEST(FormatArea, SelfAssignmentKeepsTheRecord) {
  FormatArea format(FormatArea::Area(4));
  FormatArea const& same = format;
  format = same;
  EXPECT_EQ(format.getArea(), 4);
}

TEST(FormatArea, AFormatThatCannotBeMadeLeavesNothing) {
  FormatArea::Area made = FormatArea::Area(0);
  EXPECT_GT(FailEveryAllocation([&] { made = FormatArea(FormatArea::Area(3)).getArea(); }, [] {}),
            0U);
  EXPECT_EQ(made, 3);
}

TEST(FormatArea, ATextThatCannotBeKeptLeavesTheOldOne) {
  std::string const text(100, 'x');
  using Setter = void (FormatArea::*)(std::string const&);
  using Getter = std::string const& (FormatArea::*)() const;
  std::pair<Setter, Getter> const fields[] = {
      {&FormatArea::setFontName, &FormatArea::getFontName},
      {&FormatArea::setTextColor, &FormatArea::getTextColor},
      {&FormatArea::setBackgroundColor, &FormatArea::getBackgroundColor},
      {&FormatArea::setAlternateTextColor, &FormatArea::getAlternateTextColor},
      {&FormatArea::setAlternateBackgroundColor, &FormatArea::getAlternateBackgroundColor}};
  for (auto const& field : fields) {
    Setter const set = field.first;
    Getter const get = field.second;
    FormatArea format(FormatArea::AreaData);
    (format.*set)("old");
    EXPECT_GT(FailEveryAllocation([&] { (format.*set)(text); },
                                  [&] { EXPECT_EQ((format.*get)(), "old"); }),
              0U);
    EXPECT_EQ((format.*get)(), text);
  }
}

}  // namespace
