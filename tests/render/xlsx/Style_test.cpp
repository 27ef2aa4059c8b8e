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
  XlsxStyle const style = ApplyArea(base, table, FormatArea::AreaData);
  EXPECT_EQ(style.font, "Serif");
  EXPECT_EQ(style.size, 12);
  EXPECT_FALSE(style.bold);
  EXPECT_TRUE(style.italic);
  EXPECT_TRUE(style.underline);
  EXPECT_EQ(style.horizontal, HorizontalAlignment::Center);
  EXPECT_EQ(style.vertical, VerticalAlignment::Top);
  EXPECT_EQ(style.color, "#aabbcc");
  EXPECT_EQ(style.background, "");
  EXPECT_TRUE(ApplyArea(base, table, FormatArea::AreaTitle).bold);
}

TEST(XlsxStyle, CellStyleOverridesWhatItSays) {
  XlsxStyle base;
  base.bold = true;
  base.color = "#010203";
  OmCellProperties properties;
  EXPECT_FALSE(ApplyProperties(base, properties) < base ||
               base < ApplyProperties(base, properties));
  properties.setFontStyle(2);
  XlsxStyle const style = ApplyProperties(base, properties);
  EXPECT_FALSE(style.bold);
  EXPECT_TRUE(style.italic);
  EXPECT_EQ(style.color, "#010203");
}

TEST(XlsxStyle, WhatAWorkbookCannotHaveIsLeftOut) {
  OmCellProperties properties;
  properties.setFontName(std::string(32, 'x'));
  properties.setFontSize(std::numeric_limits<float>::quiet_NaN());
  properties.setFontStyle(17);
  properties.setHorizontalAlignment(3);
  properties.setTextColor("#12345g");
  XlsxStyle const plain;
  XlsxStyle const style = ApplyProperties(plain, properties);
  EXPECT_FALSE(style < plain || plain < style);
  properties.setFontSize(410);
  EXPECT_EQ(ApplyProperties(plain, properties).size, 0);
}

TEST(XlsxStyle, FontNamesAreCleaned) {
  OmCellProperties properties;
  properties.setFontName("a\xFF\a");
  EXPECT_EQ(ApplyProperties(XlsxStyle(), properties).font, "a\uFFFD\uFFFD");
}
