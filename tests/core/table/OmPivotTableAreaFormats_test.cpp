#include <climits>
#include <gtest/gtest.h>
#include <memory>

#include <lakresvos/OmPivotTable.h>

#include "core/table/OmPivotTableFixture.h"
#include "support/faults/FailingNew.h"

namespace {

FormatArea* NewFormat(int area, std::string const& font) {
  auto* const format = new FormatArea(FormatArea::Area(area));
  format->setFontName(font);
  return format;
}

TEST(OmPivotTableAreaFormats, NewTableHasNone) {
  TestTable table;
  EXPECT_TRUE(table.data().areaFormats.empty());
  for (int area = 0; area <= 8; ++area) {
    EXPECT_EQ(table.getAreaFormat(FormatArea::Area(area)), nullptr);
  }
}

TEST(OmPivotTableAreaFormats, FormatsAreFoundByTheirArea) {
  TestTable table;
  std::vector<FormatArea*> formats;
  for (int area = 0; area <= 8; ++area) {
    formats.push_back(NewFormat(area, "font"));
    table.setAreaFormat(formats.back());
  }
  for (int area = 0; area <= 8; ++area) {
    EXPECT_EQ(table.getAreaFormat(FormatArea::Area(area)), formats[static_cast<std::size_t>(area)]);
  }
}

TEST(OmPivotTableAreaFormats, SettingAgainReplacesTheFirstFormat) {
  TestTable table;
  table.setAreaFormat(NewFormat(2, "first"));
  FormatArea* const second = NewFormat(2, "second");
  table.setAreaFormat(second);
  EXPECT_EQ(table.getAreaFormat(FormatArea::Area(2)), second);
  EXPECT_EQ(second->getFontName(), "second");
  EXPECT_EQ(table.data().areaFormats.size(), 1U);
}

TEST(OmPivotTableAreaFormats, AFormatThatTheTableHoldsForAnotherAreaMoves) {
  TestTable table;
  FormatArea* const format = NewFormat(2, "moved");
  table.setAreaFormat(format);
  table.setAreaFormat(NewFormat(5, "replaced"));
  *format = FormatArea(FormatArea::Area(5));
  table.setAreaFormat(format);
  EXPECT_EQ(table.getAreaFormat(FormatArea::Area(5)), format);
  EXPECT_EQ(table.getAreaFormat(FormatArea::Area(2)), nullptr);
  table.setAreaFormat(format);
  EXPECT_EQ(table.getAreaFormat(FormatArea::Area(5)), format);
}

TEST(OmPivotTableAreaFormats, SettingNullChangesNothing) {
  TestTable table;
  FormatArea* const format = NewFormat(0, "font");
  table.setAreaFormat(format);
  table.setAreaFormat(nullptr);
  EXPECT_EQ(table.data().areaFormats.size(), 1U);
  EXPECT_EQ(table.getAreaFormat(FormatArea::Area(0)), format);
}

TEST(OmPivotTableAreaFormats, ReadingAnAbsentAreaLeavesAnEmptyEntry) {
  TestTable table;
  OmPivotTable const& reader = table;
  EXPECT_EQ(reader.getAreaFormat(FormatArea::Area(6)), nullptr);
  ASSERT_EQ(table.data().areaFormats.count(FormatArea::Area(6)), 1U);
  EXPECT_EQ(table.data().areaFormats.at(FormatArea::Area(6)), nullptr);
}

TEST(OmPivotTableAreaFormats, ReadingANegativeAreaLeavesAnEmptyEntry) {
  TestTable table;
  EXPECT_EQ(table.getAreaFormat(FormatArea::Area(-1)), nullptr);
  ASSERT_EQ(table.data().areaFormats.size(), 1U);
  EXPECT_EQ(table.data().areaFormats.count(FormatArea::Area(-1)), 1U);
}

TEST(OmPivotTableAreaFormats, ReadingPastTheLastAreaGivesNullAndLeavesNoEntry) {
  TestTable table;
  EXPECT_EQ(table.getAreaFormat(FormatArea::Area(9)), nullptr);
  EXPECT_EQ(table.getAreaFormat(FormatArea::Area(INT_MAX)), nullptr);
  EXPECT_TRUE(table.data().areaFormats.empty());
}

TEST(OmPivotTableAreaFormats, ANegativeAreaCanBeSetAndRead) {
  TestTable table;
  FormatArea* const format = NewFormat(-1, "font");
  table.setAreaFormat(format);
  EXPECT_EQ(table.getAreaFormat(FormatArea::Area(-1)), format);
}

TEST(OmPivotTableAreaFormats, AnAreaPastTheLastIsStoredButNotRead) {
  TestTable table;
  FormatArea* const format = NewFormat(9, "font");
  table.setAreaFormat(format);
  EXPECT_EQ(table.data().areaFormats.at(FormatArea::Area(9)), format);
  EXPECT_EQ(table.getAreaFormat(FormatArea::Area(9)), nullptr);
}

TEST(OmPivotTableAreaFormats, ReplacingAnAreaPastTheLastLosesNothing) {
  TestTable table;
  table.setAreaFormat(NewFormat(12, "first"));
  FormatArea* const second = NewFormat(12, "second");
  table.setAreaFormat(second);
  EXPECT_EQ(table.data().areaFormats.at(FormatArea::Area(12)), second);
}

TEST(OmPivotTableAreaFormats, TheStoredFormatMayBeHandedBack) {
  TestTable table;
  FormatArea* const format = NewFormat(4, "font");
  table.setAreaFormat(format);
  table.setAreaFormat(format);
  EXPECT_EQ(table.getAreaFormat(FormatArea::Area(4)), format);
  EXPECT_EQ(format->getFontName(), "font");
}

TEST(OmPivotTableAreaFormats, ACopyOfTheReplacedFormatStaysUsable) {
  TestTable table;
  FormatArea* const first = NewFormat(4, "first");
  table.setAreaFormat(first);
  FormatArea const copy(*first);
  table.setAreaFormat(NewFormat(4, "second"));
  EXPECT_EQ(copy.getFontName(), "first");
}

TEST(OmPivotTableAreaFormats, ACopyOfAStoredFormatOutlivesTheTable) {
  auto table = std::make_unique<TestTable>();
  FormatArea* const format = NewFormat(4, "font");
  FormatArea const copy(*format);
  table->setAreaFormat(format);
  table.reset();
  EXPECT_EQ(copy.getFontName(), "font");
}

TEST(OmPivotTableAreaFormats, WhenSettingFailsTheCallerKeepsTheFormat) {
  TestTable table;
  auto format = std::make_unique<FormatArea>(FormatArea::Area(7));
  std::size_t const failures =
      FailEveryAllocation([&] { table.setAreaFormat(format.get()); },
                          [&] { EXPECT_EQ(table.data().areaFormats.size(), 0U); });
  EXPECT_GT(failures, 0U);
  EXPECT_EQ(table.getAreaFormat(FormatArea::Area(7)), format.release());
}

}  // namespace
