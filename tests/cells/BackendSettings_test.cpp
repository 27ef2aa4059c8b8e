#include <cells/BackendSettings.h>
// This header comes first to show that it is self-contained.
#include <climits>
#include <gtest/gtest.h>

namespace {

TEST(BackendSettings, DefaultsAreNoLimitFastTablesUnicodeAndNoLocale) {
  BackendSettings const settings;
  EXPECT_EQ(settings.getMaxCells(), INT_MAX);
  EXPECT_TRUE(settings.getFastTables());
  EXPECT_EQ(settings.getLocale(), "");
  EXPECT_TRUE(settings.getUnicode());
}

TEST(BackendSettings, KeepsEveryFieldApartAndCopiesAll) {
  BackendSettings settings;
  settings.setMaxCells(100);
  settings.setFastTables(false);
  settings.setLocale("de_DE");
  BackendSettings copy;
  copy = settings;
  EXPECT_EQ(copy.getMaxCells(), 100);
  EXPECT_FALSE(copy.getFastTables());
  EXPECT_EQ(copy.getLocale(), "de_DE");
  EXPECT_TRUE(copy.getUnicode());
  copy.setUnicode(false);
  EXPECT_FALSE(copy.getUnicode());
}

}  // namespace
