#include <gtest/gtest.h>
#include <string>

#include <lakresvos/render/AreaNames.h>
#include <lakresvos/render/AreaStyle.h>

using namespace lakresvos::render;

TEST(AreaNames, EveryAreaIsFoundByItsName) {
  for (std::size_t i = 0; i < kAreaNames.size(); ++i) {
    EXPECT_EQ(FindArea(kAreaNames[i]), static_cast<FormatArea::Area>(i)) << kAreaNames[i];
  }
  EXPECT_EQ(FindArea("data"), FormatArea::AreaData);
  EXPECT_EQ(FindArea("Data"), std::nullopt);
  EXPECT_EQ(FindArea(""), std::nullopt);
}

TEST(AreaNames, AlignmentsAndFontStylesAreFoundByName) {
  EXPECT_EQ(FindHorizontal("left"), static_cast<int>(HorizontalAlignment::Left));
  EXPECT_EQ(FindHorizontal("center"), static_cast<int>(HorizontalAlignment::Center));
  EXPECT_EQ(FindHorizontal("centre"), FindHorizontal("center"));
  EXPECT_EQ(FindHorizontal("middle"), std::nullopt);
  EXPECT_EQ(FindVertical("middle"), static_cast<int>(VerticalAlignment::Middle));
  EXPECT_EQ(FindVertical("center"), std::nullopt);
  EXPECT_EQ(FindFontStyle("bold italic"), static_cast<int>(FontStyle::BoldItalic));
  EXPECT_EQ(FindFontStyle("bolditalic"), std::nullopt);
}

TEST(AreaNames, ColorsHaveThreeOrSixHexadecimalDigits) {
  for (char const* const color : {"#fff", "#09aAfF", "#ABCDEF"}) {
    EXPECT_TRUE(IsColor(color)) << color;
  }
  for (char const* const text : {"", "#", "#ff", "#ffff", "#fffff", "#fffffff", "fff", "ffffff",
                                 "#ggg", "#12345 ", "##12345", "red"}) {
    EXPECT_FALSE(IsColor(text)) << text;
  }
}
