#include "xlsx/Style.h"

#include <gtest/gtest.h>
#include <limits>
#include <string>

#include "render/support/RenderTables.h"

using namespace lakresvos::render;
using namespace render_tables;

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
  EXPECT_EQ(style.horizontal, HorizontalAlignment::Center);
  EXPECT_EQ(style.vertical, VerticalAlignment::Top);
  EXPECT_EQ(style.colour, "#aabbcc");
  EXPECT_EQ(style.background, "");
  EXPECT_TRUE(WithArea(base, table, FormatArea::AreaTitle).bold);
}

TEST(XlsxStyle, CellStyleOverridesWhatItSays) {
  XlsxStyle base;
  base.bold = true;
  base.colour = "#010203";
  OmCellProperties properties;
  EXPECT_FALSE(WithProperties(base, properties) < base || base < WithProperties(base, properties));
  properties.setFontStyle(2);
  XlsxStyle const style = WithProperties(base, properties);
  EXPECT_FALSE(style.bold);
  EXPECT_TRUE(style.italic);
  EXPECT_EQ(style.colour, "#010203");
}

TEST(XlsxStyle, WhatAWorkbookCannotHaveIsLeftOut) {
  OmCellProperties properties;
  properties.setFontName(std::string(32, 'x'));
  properties.setFontSize(std::numeric_limits<float>::quiet_NaN());
  properties.setFontStyle(17);
  properties.setHorizontalAlignment(3);
  properties.setTextColor("#12345g");
  XlsxStyle const plain;
  XlsxStyle const style = WithProperties(plain, properties);
  EXPECT_FALSE(style < plain || plain < style);
  properties.setFontSize(410);
  EXPECT_EQ(WithProperties(plain, properties).size, 0);
}

TEST(XlsxStyle, FontNamesAreCleaned) {
  OmCellProperties properties;
  properties.setFontName("a\xFF\a");
  EXPECT_EQ(WithProperties(XlsxStyle(), properties).font, "a\uFFFD\uFFFD");
}
