#include "style/StyleSheet.h"

#include <gtest/gtest.h>
#include <string>

#include <cells/OmStringCell.h>

#include "style/StyleProperties.h"
#include "support/ErrorOf.h"
#include "support/TemporaryDirectory.h"
#include "support/faults/FailingNew.h"

using namespace lakresvos::report;
using namespace lakresvos::tabulate;

namespace {

StyleSheet Read(std::string const& json) {
  TemporaryDirectory const directory;
  return ReadStyleSheet(directory.Write("style.json", json));
}

/// What is wrong with a style file, without the path of its directory.
std::string ErrorIn(std::string const& json) {
  TemporaryDirectory const directory;
  std::string const file = directory.Write("style.json", json);
  std::string const error = ErrorOf([&] { ReadStyleSheet(file); });
  return error.starts_with(file) ? "style.json" + error.substr(file.size()) : error;
}

std::string Repeat(std::string const& text, int count) {
  std::string repeated;
  for (int i = 0; i < count; ++i) {
    repeated += text;
  }
  return repeated;
}

}  // namespace

// What is read

TEST(StyleSheet, EveryPropertyReachesTheFormat) {
  StyleSheet const style = Read(R"({"data": {
    "font": "Serif", "size": 9.5, "style": "bold italic", "underline": true,
    "horizontal": "right", "vertical": "middle",
    "textColor": "#102030", "backgroundColor": "#FFFFFF",
    "alternateRows": true, "alternateTextColor": "#000001", "alternateBackgroundColor": "#eeeeee",
    "marginLeft": 1, "marginRight": 0, "marginTop": 3, "marginBottom": 4}})");
  ASSERT_EQ(style.size(), 1u);
  FormatArea const& format = style[0];
  EXPECT_EQ(format.getArea(), FormatArea::AreaData);
  EXPECT_EQ(format.getFontName(), "Serif");
  EXPECT_EQ(format.getFontSize(), 9.5F);
  EXPECT_EQ(format.getFontStyle(), 3);
  EXPECT_TRUE(format.getUnderline());
  EXPECT_EQ(format.getHorizontalAlignment(), 2);
  EXPECT_EQ(format.getVerticalAlignment(), 1);
  EXPECT_EQ(format.getTextColor(), "#102030");
  EXPECT_EQ(format.getBackgroundColor(), "#FFFFFF");
  EXPECT_TRUE(format.getUseAltRowColors());
  EXPECT_EQ(format.getAlternateTextColor(), "#000001");
  EXPECT_EQ(format.getAlternateBackgroundColor(), "#eeeeee");
  EXPECT_EQ(format.getMarginLeft(), 1);
  EXPECT_EQ(format.getMarginRight(), 0);
  EXPECT_EQ(format.getMarginTop(), 3);
  EXPECT_EQ(format.getMarginBottom(), 4);
}

TEST(StyleSheet, PropertiesHaveTheNamesThatDocumentsHaveForThem) {
  StyleSheet const style = Read(R"({"data": {
    "fontName": "Serif", "fontSize": 9.5, "fontStyle": "bold",
    "horizontalAlignment": "right", "verticalAlignment": "bottom",
    "useAlternateRowColors": true}})");
  FormatArea const& format = style.at(0);
  EXPECT_EQ(format.getFontName(), "Serif");
  EXPECT_EQ(format.getFontSize(), 9.5F);
  EXPECT_EQ(format.getFontStyle(), 1);
  EXPECT_EQ(format.getHorizontalAlignment(), 2);
  EXPECT_EQ(format.getVerticalAlignment(), 2);
  EXPECT_TRUE(format.getUseAltRowColors());
}

TEST(StyleSheet, PropertyComesOnceUnderWhicheverName) {
  EXPECT_EQ(ErrorIn(R"({"data": {"font": "a", "fontName": "b"}})"),
            "style.json: /data: duplicate property 'fontName'");
}

TEST(StyleSheet, CenterIsSpeltEitherWay) {
  EXPECT_EQ(Read(R"({"data": {"horizontal": "center"}})").at(0).getHorizontalAlignment(), 1);
  EXPECT_EQ(Read(R"({"data": {"horizontal": "centre"}})").at(0).getHorizontalAlignment(), 1);
}

TEST(StyleSheet, ColorsHaveThreeOrSixDigits) {
  EXPECT_EQ(Read(R"({"data": {"textColor": "#1aF"}})").at(0).getTextColor(), "#1aF");
  EXPECT_EQ(Read(R"({"data": {"textColor": "#1a2B3c"}})").at(0).getTextColor(), "#1a2B3c");
}

TEST(StyleSheet, PropertiesLeftOutStayAsInANewFormat) {
  StyleSheet const style = Read(R"({"title": {}})");
  ASSERT_EQ(style.size(), 1u);
  EXPECT_EQ(style[0].getFontStyle(), -1);
  EXPECT_EQ(style[0].getHorizontalAlignment(), -1);
  EXPECT_EQ(style[0].getMarginLeft(), 6);
}

TEST(StyleSheet, AreasGoByNameOrNumber) {
  char const* const names[] = {"title",     "caption", "footnotes", "corner", "columnLabels",
                               "rowLabels", "data",    "layers",    "frame"};
  for (int area = 0; area < 9; ++area) {
    EXPECT_EQ(FindStyleArea(names[area]), static_cast<FormatArea::Area>(area));
    EXPECT_EQ(FindStyleArea(std::to_string(area)), static_cast<FormatArea::Area>(area));
  }
  StyleSheet const style = Read(R"({"0": {}, "caption": {}})");
  ASSERT_EQ(style.size(), 2u);
  EXPECT_EQ(style[0].getArea(), FormatArea::AreaTitle);
  EXPECT_EQ(style[1].getArea(), FormatArea::AreaCaption);
}

TEST(StyleSheet, MayBeEmpty) {
  EXPECT_TRUE(Read("{}").empty());
}

TEST(StyleSheet, ByteOrderMarkIsPassedOver) {
  EXPECT_EQ(Read("\xEF\xBB\xBF{\"title\": {}}").size(), 1u);
}

TEST(StyleSheet, IsAttachedToATable) {
  OmPivotTable table(OmStringCell("t"), OmStringCell("t"), false);
  Attach(Read(R"({"title": {"size": 12}, "data": {"horizontal": "centre"}})"), table);
  ASSERT_NE(table.getAreaFormat(FormatArea::AreaTitle), nullptr);
  EXPECT_EQ(table.getAreaFormat(FormatArea::AreaTitle)->getFontSize(), 12);
  ASSERT_NE(table.getAreaFormat(FormatArea::AreaData), nullptr);
  EXPECT_EQ(table.getAreaFormat(FormatArea::AreaData)->getHorizontalAlignment(), 1);
  EXPECT_EQ(table.getAreaFormat(FormatArea::AreaCaption), nullptr);
}

// Files that cannot be read

TEST(StyleSheet, MissingFileIsNamed) {
  TemporaryDirectory const directory;
  std::string const file = directory.Path("none.json");
  EXPECT_EQ(ErrorOf([&] { ReadStyleSheet(file); }), file + ": No such file or directory");
}

TEST(StyleSheet, DirectoryIsNoFile) {
  TemporaryDirectory const directory;
  EXPECT_EQ(ErrorOf([&] { ReadStyleSheet(directory.Path("")); }),
            directory.Path("") + ": Is a directory");
}

// What is no JSON

TEST(StyleSheet, ParseErrorNamesLineAndColumn) {
  EXPECT_EQ(ErrorIn("{\"data\":\n  {\"font\": oops}}"), "style.json:2:12: invalid JSON");
}

TEST(StyleSheet, ColumnsCountCharacters) {
  EXPECT_EQ(ErrorIn("{\"data\": {\"font\": \"é\" x"), "style.json:1:23: invalid JSON");
}

TEST(StyleSheet, EmptyFileIsNoJson) {
  EXPECT_EQ(ErrorIn(""), "style.json:1:1: invalid JSON: unexpected end");
}

TEST(StyleSheet, EndInTheMiddleIsFound) {
  EXPECT_EQ(ErrorIn("{\"data\": {\n"), "style.json:2:1: invalid JSON: unexpected end");
}

TEST(StyleSheet, TextBehindTheObjectIsFound) {
  EXPECT_EQ(ErrorIn("{} {}"), "style.json:1:4: invalid JSON");
}

TEST(StyleSheet, BytesThatAreNoUtf8AreFound) {
  EXPECT_EQ(ErrorIn("{\"data\": {\"font\": \"\xFF\"}}"), "style.json:1:20: invalid UTF-8");
}

TEST(StyleSheet, NumberBeyondAllBoundsIsFound) {
  EXPECT_EQ(ErrorIn("{\"data\": {\"size\": 1e999}}"), "style.json:1:23: number out of range");
}

TEST(StyleSheet, LongTokensDoNotFillTheMessage) {
  EXPECT_LT(ErrorIn("{\"data\": {\"font\": \"" + Repeat("x", 100'000)).size(), 200u);
  EXPECT_LT(ErrorIn("{\"" + Repeat("x", 100'000) + "\": {}}").size(), 200u);
}

// Wrong keys and types

TEST(StyleSheet, UnknownAreaIsNamed) {
  EXPECT_EQ(ErrorIn(R"({"footer": {}})"), "style.json: unknown area 'footer'");
  EXPECT_EQ(ErrorIn(R"({"9": {}})"), "style.json: unknown area '9'");
  EXPECT_EQ(ErrorIn(R"({"": {}})"), "style.json: unknown area ''");
}

TEST(StyleSheet, UnknownPropertyIsNamed) {
  EXPECT_EQ(ErrorIn(R"({"data": {"colour": "red"}})"),
            "style.json: /data: unknown property 'colour'");
}

TEST(StyleSheet, RepeatedAreaIsFoundUnderEitherName) {
  EXPECT_EQ(ErrorIn(R"({"data": {}, "data": {}})"), "style.json: /data: duplicate area");
  EXPECT_EQ(ErrorIn(R"({"data": {}, "6": {}})"), "style.json: /6: duplicate area");
}

TEST(StyleSheet, RepeatedPropertyIsFound) {
  EXPECT_EQ(ErrorIn(R"({"data": {"size": 1, "size": 1}})"),
            "style.json: /data: duplicate property 'size'");
}

TEST(StyleSheet, SamePropertyInTwoAreasIsNoRepetition) {
  EXPECT_EQ(Read(R"({"data": {"size": 1}, "title": {"size": 1}})").size(), 2u);
}

TEST(StyleSheet, OutermostValueIsAnObject) {
  for (char const* const json : {"[]", "null", "1", "-1", "1.5", "true", "\"data\""}) {
    EXPECT_EQ(ErrorIn(json), "style.json: expected an object") << json;
  }
}

TEST(StyleSheet, AreaIsAnObject) {
  for (char const* const json : {"[]", "null", "1", "-1", "1.5", "true", "\"data\""}) {
    EXPECT_EQ(ErrorIn(R"({"6": )" + std::string(json) + "}"), "style.json: /6: expected an object")
        << json;
  }
}

TEST(StyleSheet, TextIsNothingElse) {
  for (char const* const json : {"[]", "{}", "null", "1", "true"}) {
    EXPECT_EQ(ErrorIn(R"({"data": {"font": )" + std::string(json) + "}}"),
              "style.json: /data/font: expected a string")
        << json;
  }
}

TEST(StyleSheet, FlagIsNothingElse) {
  for (char const* const json : {"[]", "{}", "null", "1", "\"true\""}) {
    EXPECT_EQ(ErrorIn(R"({"data": {"underline": )" + std::string(json) + "}}"),
              "style.json: /data/underline: expected true or false")
        << json;
  }
}

TEST(StyleSheet, SizeHasBounds) {
  for (char const* const json : {"-1", "-0.5", "1000.5", "1e300", "\"9\"", "null", "[9]"}) {
    EXPECT_EQ(ErrorIn(R"({"data": {"size": )" + std::string(json) + "}}"),
              "style.json: /data/size: expected a number from 0 to 1000")
        << json;
  }
  EXPECT_EQ(Read(R"({"data": {"size": 1000}})")[0].getFontSize(), 1000);
}

TEST(StyleSheet, MarginIsAWholeNumberInBounds) {
  for (char const* const json : {"-1", "0.5", "1001", "18446744073709551615", "\"9\"", "null"}) {
    EXPECT_EQ(ErrorIn(R"({"data": {"marginTop": )" + std::string(json) + "}}"),
              "style.json: /data/marginTop: expected a whole number from 0 to 1000")
        << json;
  }
  EXPECT_EQ(Read(R"({"data": {"marginTop": 1e3}})")[0].getMarginTop(), 1000);
}

TEST(StyleSheet, ChoicesAreNamedWhenNoneIsMet) {
  EXPECT_EQ(ErrorIn(R"({"data": {"horizontal": "middle"}})"),
            "style.json: /data/horizontal: expected \"left\", \"center\", \"centre\" or \"right\"");
  EXPECT_EQ(ErrorIn(R"({"data": {"vertical": 1}})"),
            "style.json: /data/vertical: expected \"top\", \"middle\" or \"bottom\"");
  EXPECT_EQ(ErrorIn(R"({"data": {"style": ""}})"),
            "style.json: /data/style: expected \"regular\", \"bold\", \"italic\" or "
            "\"bold italic\"");
}

TEST(StyleSheet, ColorsAreHexadecimal) {
  for (char const* const json : {"\"red\"", "\"#12345\"", "\"#1234567\"", "\"#12345g\"",
                                 "\"0123456\"", "\"\"", "123456", "null"}) {
    EXPECT_EQ(ErrorIn(R"({"data": {"textColor": )" + std::string(json) + "}}"),
              "style.json: /data/textColor: expected a color as in \"#1f77b4\"")
        << json;
  }
}

// Hostile files

TEST(StyleSheet, DeepNestingIsRefusedWhereItStarts) {
  EXPECT_EQ(ErrorIn(Repeat("[", 1'000'000)), "style.json: expected an object");
  EXPECT_EQ(ErrorIn(R"({"data": {"font": )" + Repeat("{\"a\": ", 1'000'000)),
            "style.json: /data/font: expected a string");
  EXPECT_EQ(ErrorIn(R"({"data": )" + Repeat("[", 1'000'000)),
            "style.json: /data: expected an object");
}

TEST(StyleSheet, ZeroBytesAreNoJson) {
  EXPECT_EQ(ErrorIn(std::string(3, '\0')), "style.json:1:1: invalid JSON");
}

// Refused memory

TEST(StyleSheet, WithoutMemoryNothingIsReadAndNothingLeftBehind) {
  TemporaryDirectory const directory;
  std::string const file = directory.Write(
      "style.json", R"({"data": {"font": "A font with a long name", "textColor": "#102030"},
                        "title": {"alternateBackgroundColor": "#eeeeee", "size": 9.5}})");
  EXPECT_GT(FailEveryAllocationOf([&] {
              StyleSheet const style = ReadStyleSheet(file);
              return style[0].getFontName() + style[0].getTextColor() +
                     style[1].getAlternateBackgroundColor();
            }),
            20U);
  std::string const wrong = directory.Write("wrong.json", R"({"data": {"font": 7}})");
  EXPECT_GT(FailEveryAllocationOf([&]() -> std::string {
              try {
                ReadStyleSheet(wrong);
              } catch (InputError const& error) {
                return error.what();
              }
              return "none";
            }),
            10U);
}

TEST(StyleSheet, WithoutMemoryATableHasFormatsOfItsOwnOrNone) {
  StyleSheet const style = Read(R"({"data": {"font": "Serif"}, "title": {"font": "Sans"}})");
  OmPivotTable table(OmStringCell("label"), OmStringCell("name"), false);
  EXPECT_GT(FailEveryAllocation([&] { Attach(style, table); }, [] {}), 2U);
  EXPECT_EQ(table.getAreaFormat(FormatArea::AreaData)->getFontName(), "Serif");
  EXPECT_EQ(table.getAreaFormat(FormatArea::AreaTitle)->getFontName(), "Sans");
}
