#include <gtest/gtest.h>

#include <cells/OmComposite.h>
#include <cells/OmVariable.h>
#include <lakresvos/OmPivotTable.h>

#include "core/table/OmPivotTableFixture.h"
#include "support/SpyCell.h"

namespace {

using Operation = SpyCell::Operation;

TEST(OmPivotTableTemplateName, IsACloneInTheTablesRegion) {
  SpyCell const spy("kind");
  SpyLog const log;
  TestTable table(0, spy);
  ASSERT_EQ(log.Of(Operation::Clone).size(), 1U);
  EXPECT_EQ(log.Of(Operation::Clone)[0].region, &table.data());
  EXPECT_EQ(log.Of(Operation::Clone)[0].result, table.TemplateName());
}

TEST(OmPivotTableTemplateName, WarningsMarksATableOfWarnings) {
  TestTable const table(0, Text("Warnings"));
  EXPECT_TRUE(table.IsWarnings());
  EXPECT_FALSE(table.IsNotes());
}

TEST(OmPivotTableTemplateName, NotesMarksATableOfNotes) {
  TestTable const table(0, Text("Notes"));
  EXPECT_FALSE(table.IsWarnings());
  EXPECT_TRUE(table.IsNotes());
}

TEST(OmPivotTableTemplateName, AnyOtherTextMarksNothing) {
  for (char const* name : {"", "warnings", "WARNINGS", "Warning", "Warnings ", "notes", " Notes",
                           "Notes\n", "Crosstabulation"}) {
    TestTable const table(0, Text(name));
    EXPECT_FALSE(table.IsWarnings()) << name;
    EXPECT_FALSE(table.IsNotes()) << name;
  }
}

TEST(OmPivotTableTemplateName, TheTextCountsWhateverTheKindOfCell) {
  EXPECT_TRUE(TestTable(0, OmStringCellUTF8("Warnings")).IsWarnings());
  EXPECT_TRUE(TestTable(0, OmVariable("w", "Notes")).IsNotes());
  OmComposite composite("No{0}");
  composite.AddPart(Text("tes"));
  EXPECT_TRUE(TestTable(0, composite).IsNotes());
}

TEST(OmPivotTableTemplateName, TheLabelMarksNothing) {
  OmPivotTable const table(Text("Warnings"), Text("name"), false);
  EXPECT_FALSE(table.IsWarnings());
}

TEST(OmPivotTableTemplateName, GoesWithTheTable) {
  SpyCell const spy("kind");
  {
    TestTable const table(0, spy);
    EXPECT_EQ(SpyCell::Live(), 2);
  }
  EXPECT_EQ(SpyCell::Live(), 1);
}

}  // namespace
