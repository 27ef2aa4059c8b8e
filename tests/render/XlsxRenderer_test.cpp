#include <filesystem>
#include <gtest/gtest.h>
#include <sstream>
#include <string>

#include <lakresvos/OmHeading.h>
#include <lakresvos/OmOutputTree.h>
#include <lakresvos/render/XlsxRenderer.h>

#include "RenderTables.h"
#include "SheetNames.h"
#include "XlsxStyle.h"

using namespace lakresvos::render;
using namespace render_tables;

namespace {

std::string Written(OmOutputTree& document, XlsxOptions const& options = {}) {
  std::ostringstream out;
  RenderXlsx(document, out, options);
  return out.str();
}

std::string ErrorIn(OmOutputTree& document) {
  std::ostringstream out;
  try {
    RenderXlsx(document, out);
  } catch (std::length_error const& error) {
    EXPECT_EQ(out.str(), "");
    return error.what();
  }
  return "none";
}

}  // namespace

TEST(SheetNames, GoodNameStays) {
  SheetNames names;
  EXPECT_EQ(names.Next("Survival by class"), "Survival by class");
}

TEST(SheetNames, ForbiddenCharactersBecomeBlanks) {
  SheetNames names;
  EXPECT_EQ(names.Next("[a]:b*c?d/e\\f\ng"), "a b c d e f g");
}

TEST(SheetNames, ApostrophesAndBlanksAtTheEndsGo) {
  SheetNames names;
  EXPECT_EQ(names.Next(" 'it's' "), "it's");
}

TEST(SheetNames, LongNameIsCutAtThirtyOneUnits) {
  SheetNames names;
  EXPECT_EQ(names.Next(std::string(40, 'x')), std::string(31, 'x'));
  std::string emoji;
  for (int i = 0; i < 20; ++i) {
    emoji += "\xF0\x9F\x98\x80";
  }
  EXPECT_EQ(names.Next(emoji).size(), 15u * 4u);  // two UTF-16 units each
}

TEST(SheetNames, NamesDifferWhateverTheCase) {
  SheetNames names;
  EXPECT_EQ(names.Next("Table"), "Table");
  EXPECT_EQ(names.Next("TABLE"), "TABLE (2)");
  EXPECT_EQ(names.Next("table"), "table (3)");
  EXPECT_EQ(names.Next("\xC3\x84"), "\xC3\x84");
  EXPECT_EQ(names.Next("\xC3\xA4"), "\xC3\xA4 (2)");
}

TEST(SheetNames, NumberFitsBehindALongName) {
  SheetNames names;
  names.Next(std::string(31, 'x'));
  EXPECT_EQ(names.Next(std::string(31, 'x')), std::string(27, 'x') + " (2)");
}

TEST(SheetNames, ReservedAndEmptyNamesAreReplaced) {
  SheetNames names;
  EXPECT_EQ(names.Next("History"), "History (2)");
  EXPECT_EQ(names.Next(""), "Table");
  EXPECT_EQ(names.Next("'"), "Table 2");
}

TEST(XlsxStyle, AreaFormatOverridesWhatItSays) {
  Table table;
  auto* const format = new FormatArea(FormatArea::AreaData);
  format->setFontName("Serif");
  format->setFontSize(12);
  format->setFontStyle(2);
  format->setUnderline(true);
  format->setHorizontalAlignment(1);
  format->setVerticalAlignment(7);
  format->setTextColor("#abc");
  format->setBackgroundColor("none");
  table.setAreaFormat(format);
  XlsxStyle base;
  base.bold = true;
  XlsxStyle const style = WithArea(base, table, FormatArea::AreaData);
  EXPECT_EQ(style.font, "Serif");
  EXPECT_EQ(style.size, 12);
  EXPECT_FALSE(style.bold);
  EXPECT_TRUE(style.italic);
  EXPECT_TRUE(style.underline);
  EXPECT_EQ(style.horizontal, HorizontalAlignment::Centre);
  EXPECT_EQ(style.vertical, VerticalAlignment::Top);
  EXPECT_EQ(style.colour, "#aabbcc");
  EXPECT_EQ(style.background, "");
  EXPECT_TRUE(WithArea(base, table, FormatArea::AreaTitle).bold);
}

TEST(XlsxRenderer, WritesAZipArchive) {
  OmOutputTree document;
  EXPECT_EQ(Written(document).substr(0, 4), "PK\x03\x04");
}

TEST(XlsxRenderer, TooManyColumnsNameTheTable) {
  OmOutputTree document;
  Table& table = AppendItem<Table>(document.begin());
  table.AddFlat("d", 16'385);
  table.Place({}, {0});
  table.Cell({16'384}, OmNumber(1));
  table.Cell({0}, OmNumber(1));
  XlsxOptions options;
  options.skipEmpty = false;
  std::ostringstream out;
  EXPECT_THROW(RenderXlsx(document, out, options), std::length_error);
  EXPECT_EQ(out.str(), "");
}

TEST(XlsxRenderer, TextThatIsTooLongNamesTheTable) {
  OmOutputTree document;
  Table& table = AppendItem<Table>(document.begin());
  AddCategories(table, "d", {"a"});
  table.Place({0}, {});
  table.Cell({0}, Utf8(std::string(32'768, 'x')));
  EXPECT_EQ(ErrorIn(document),
            "'table' has a text that is too long for a cell, which has 32767 characters");
  std::string wide;
  for (int i = 0; i < 32'767; ++i) {
    wide += "\xC3\xA4";
  }
  table.Cell({0}, Utf8(wide));
  EXPECT_EQ(ErrorIn(document), "none");
}

TEST(XlsxRenderer, TemporaryFilesAreRemoved) {
  auto const count = [] {
    std::size_t files = 0;
    for (auto const& entry :
         std::filesystem::directory_iterator(std::filesystem::temp_directory_path())) {
      files += entry.path().filename().string().starts_with("lakresvos-") ? 1U : 0U;
    }
    return files;
  };
  std::size_t const before = count();
  OmOutputTree document;
  Written(document);
  EXPECT_EQ(count(), before);
}

TEST(XlsxRenderer, StreamThatFailsTells) {
  OmOutputTree document;
  std::ostringstream out;
  out.setstate(std::ios::badbit);
  RenderXlsx(document, out);
  EXPECT_FALSE(out);
}
