#include <gtest/gtest.h>

#include <cells/icuTracker.h>
#include <lakresvos/OmPivotTable.h>

#include "core/table/OmPivotTableFixture.h"

namespace {

// The settings

TEST(OmPivotTableBackend, SettingsAreStored) {
  TestTable table;
  BackendSettings settings = Settings(false, false, "ja_JP");
  settings.setMaxCells(7);
  table.setBackendSettings(settings);
  EXPECT_EQ(table.getBackendSettings().getMaxCells(), 7);
  EXPECT_FALSE(table.getBackendSettings().getFastTables());
  EXPECT_FALSE(table.getBackendSettings().getUnicode());
  EXPECT_EQ(table.getBackendSettings().getLocale(), "ja_JP");
}

TEST(OmPivotTableBackend, SettingsDecideWhetherTheTableIsFast) {
  TestTable table;
  table.setBackendSettings(Settings(false));
  EXPECT_FALSE(table.fastTable());
  table.setBackendSettings(Settings(true));
  EXPECT_TRUE(table.fastTable());
  table.setBackendSettings(Settings(false));
  EXPECT_FALSE(table.fastTable());
}

TEST(OmPivotTableBackend, TheFlagSetByHandMakesNoTracker) {
  TestTable table;
  table.setFastTable(true);
  EXPECT_EQ(table.getICUTracker(), nullptr);
}

TEST(OmPivotTableBackend, TheFlagSetByHandKeepsNoTrackerAway) {
  TestTable table;
  table.setFastTable(false);
  table.setBackendSettings(Settings(true));
  EXPECT_TRUE(table.fastTable());
  EXPECT_NE(table.getICUTracker(), nullptr);
}

TEST(OmPivotTableBackend, TheStoredSettingsMayBeHandedBack) {
  TestTable table;
  table.setBackendSettings(Settings(true, true, std::string(100, 'x')));
  table.setBackendSettings(table.getBackendSettings());
  EXPECT_EQ(table.getBackendSettings().getLocale(), std::string(100, 'x'));
}

// The trackers

TEST(OmPivotTableTrackers, SlowTablesHaveNone) {
  TestTable table;
  table.setBackendSettings(Settings(false));
  EXPECT_EQ(table.getICUTracker(), nullptr);
  EXPECT_EQ(table.getU8Tracker(), nullptr);
}

TEST(OmPivotTableTrackers, AreMadeWhenTheTableBecomesFast) {
  TestTable table;
  table.setBackendSettings(Settings(false, true, "first"));
  table.setBackendSettings(Settings(true, true, "second"));
  ASSERT_NE(table.getICUTracker(), nullptr);
  EXPECT_EQ(table.getICUTracker()->getLocale(), "second");
}

TEST(OmPivotTableTrackers, AreMadeByTheSecondCallAndKeptByTheThird) {
  TestTable table;
  table.setBackendSettings(Settings(false, false, "first"));
  EXPECT_EQ(table.getICUTracker(), nullptr);
  EXPECT_EQ(table.getU8Tracker(), nullptr);
  table.setBackendSettings(Settings(true, false, "second"));
  icuTracker const* const texts = table.getICUTracker();
  icuTracker const* const unicode = table.getU8Tracker();
  ASSERT_NE(texts, nullptr);
  ASSERT_NE(unicode, nullptr);
  table.setBackendSettings(Settings(true, true, "third"));
  EXPECT_EQ(table.getICUTracker(), texts);
  EXPECT_EQ(table.getU8Tracker(), unicode);
}

TEST(OmPivotTableTrackers, AreNeverReplaced) {
  TestTable table;
  table.setBackendSettings(Settings(true, false, "first"));
  icuTracker const* const texts = table.getICUTracker();
  icuTracker const* const unicode = table.getU8Tracker();
  table.setBackendSettings(Settings(true, true, "second"));
  EXPECT_EQ(table.getICUTracker(), texts);
  EXPECT_EQ(table.getU8Tracker(), unicode);
  EXPECT_EQ(table.getICUTracker()->getLocale(), "first");
  EXPECT_EQ(table.getBackendSettings().getLocale(), "second");
}

TEST(OmPivotTableTrackers, StayWhenTheTableBecomesSlow) {
  TestTable table;
  table.setBackendSettings(Settings(true));
  icuTracker const* const texts = table.getICUTracker();
  table.setBackendSettings(Settings(false));
  EXPECT_EQ(table.getICUTracker(), texts);
  EXPECT_EQ(table.getU8Tracker(), texts);
}

TEST(OmPivotTableTrackers, AreOneObjectInUnicode) {
  TestTable table;
  table.setBackendSettings(Settings(true, true, "de_DE"));
  ASSERT_NE(table.getICUTracker(), nullptr);
  EXPECT_EQ(table.getICUTracker(), table.getU8Tracker());
  EXPECT_TRUE(table.getICUTracker()->getUnicode());
  EXPECT_EQ(table.getICUTracker()->getLocale(), "de_DE");
}

TEST(OmPivotTableTrackers, AreTwoObjectsOtherwise) {
  TestTable table;
  table.setBackendSettings(Settings(true, false, "de_DE"));
  ASSERT_NE(table.getICUTracker(), nullptr);
  ASSERT_NE(table.getU8Tracker(), nullptr);
  EXPECT_NE(table.getICUTracker(), table.getU8Tracker());
  EXPECT_FALSE(table.getICUTracker()->getUnicode());
  EXPECT_TRUE(table.getU8Tracker()->getUnicode());
  EXPECT_EQ(table.getICUTracker()->getLocale(), "de_DE");
  EXPECT_EQ(table.getU8Tracker()->getLocale(), "de_DE");
}

}  // namespace
