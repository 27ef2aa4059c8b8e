#include <cells/OmCellMetaData.h>
// This header comes first to show that it is self-contained.
#include <gtest/gtest.h>

namespace {

TEST(OmCellMetaData, HasNoFootnotesAndStyleZeroAtFirst) {
  OmCellMetaData const meta;
  EXPECT_TRUE(meta.getFootnotes().empty());
  EXPECT_EQ(meta.getStyle(), 0);
}

TEST(OmCellMetaData, KeepsFootnotesInTheOrderGivenWithRepeats) {
  OmCellMetaData meta;
  for (unsigned int number : {7U, 2U, 7U}) {
    meta.addFootnote(number);
  }
  EXPECT_EQ(meta.getFootnotes(), (std::vector<unsigned int>{7, 2, 7}));
}

TEST(OmCellMetaData, KeepsTheStyle) {
  OmCellMetaData meta;
  meta.setStyle(65535);
  EXPECT_EQ(meta.getStyle(), 65535);
}

TEST(OmCellMetaData, TellsATotalFromACategory) {
  OmCellMetaData meta;
  EXPECT_FALSE(meta.isTotal());
  meta.setTotal(true);
  EXPECT_TRUE(meta.isTotal());
  OmCellMetaData const copy = meta;
  EXPECT_TRUE(copy.isTotal());
  meta.setTotal(false);
  EXPECT_FALSE(meta.isTotal());
}

TEST(OmCellProperties, StartsWithNothingSet) {
  OmCellProperties const style;
  EXPECT_EQ(style.getFontName(), "");
  EXPECT_EQ(style.getFontSize(), 0.0F);
  EXPECT_EQ(style.getFontStyle(), -1);
  EXPECT_FALSE(style.getUnderline());
  EXPECT_EQ(style.getHorizontalAlignment(), -1);
  EXPECT_EQ(style.getVerticalAlignment(), -1);
  EXPECT_EQ(style.getTextColor(), "");
  EXPECT_EQ(style.getBackgroundColor(), "");
}

TEST(OmCellProperties, KeepsEveryFieldApartAndCopiesAll) {
  OmCellProperties style;
  style.setFontName("Sans");
  style.setFontSize(9.5F);
  style.setFontStyle(2);
  style.setUnderline(true);
  style.setHorizontalAlignment(3);
  style.setVerticalAlignment(4);
  style.setTextColor("#102030");
  style.setBackgroundColor("#ffffff");
  OmCellProperties const copy = style;
  EXPECT_EQ(copy.getFontName(), "Sans");
  EXPECT_EQ(copy.getFontSize(), 9.5F);
  EXPECT_EQ(copy.getFontStyle(), 2);
  EXPECT_TRUE(copy.getUnderline());
  EXPECT_EQ(copy.getHorizontalAlignment(), 3);
  EXPECT_EQ(copy.getVerticalAlignment(), 4);
  EXPECT_EQ(copy.getTextColor(), "#102030");
  EXPECT_EQ(copy.getBackgroundColor(), "#ffffff");
}

}  // namespace
