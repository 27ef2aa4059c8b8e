#include <gtest/gtest.h>

#include <cells/OmNumber.h>
#include <lakresvos/OmPivotTable.h>

#include "core/table/OmPivotTableFixture.h"

namespace {

OmCellMetaData Footnoted(unsigned int number) {
  OmCellMetaData meta;
  meta.addFootnote(number);
  meta.setStyle(static_cast<unsigned short>(number + 100));
  return meta;
}

void ExpectMeta(OmCellText const* cell, unsigned int number) {
  ASSERT_NE(cell, nullptr);
  ASSERT_TRUE(cell->hasMeta());
  EXPECT_EQ(cell->getMeta()->getFootnotes(), std::vector<unsigned int>{number});
  EXPECT_EQ(cell->getMeta()->getStyle(), number + 100);
}

TEST(OmPivotTableMetaData, IsStoredWithItsCell) {
  TestTable table(1);
  OmStringCell cell("cell");
  OmCellMetaData const meta = Footnoted(1);
  cell.setMeta(&meta);
  table.Cell({0}, cell);
  ExpectMeta(table.Cell({0}), 1);
}

TEST(OmPivotTableMetaData, SurvivesTheReplacementOfTheValue) {
  TestTable table(1);
  table.Put({0}, "first");
  OmCellMetaData const meta = Footnoted(1);
  table.Cell({0})->setMeta(&meta);
  table.Put({0}, "second");
  EXPECT_EQ(table.At({0}), "second");
  ExpectMeta(table.Cell({0}), 1);
}

TEST(OmPivotTableMetaData, SurvivesManyReplacements) {
  TestTable table(1);
  table.Put({0}, "0");
  OmCellMetaData const meta = Footnoted(1);
  table.Cell({0})->setMeta(&meta);
  for (int i = 1; i < 10; ++i) {
    table.Cell({0}, OmNumber(i));
  }
  EXPECT_EQ(table.At({0}), "9");
  ExpectMeta(table.Cell({0}), 1);
}

TEST(OmPivotTableMetaData, OfTheOldCellGoesBeforeThatOfTheNew) {
  TestTable table(1);
  table.Put({0}, "first");
  OmCellMetaData const old = Footnoted(1);
  table.Cell({0})->setMeta(&old);
  OmStringCell second("second");
  OmCellMetaData const fresh = Footnoted(2);
  second.setMeta(&fresh);
  table.Cell({0}, second);
  ExpectMeta(table.Cell({0}), 1);
  ExpectMeta(&second, 2);
}

TEST(OmPivotTableMetaData, OfTheNewCellStaysWhenTheOldHadNone) {
  TestTable table(1);
  table.Put({0}, "first");
  OmStringCell second("second");
  OmCellMetaData const fresh = Footnoted(2);
  second.setMeta(&fresh);
  table.Cell({0}, second);
  ExpectMeta(table.Cell({0}), 2);
}

TEST(OmPivotTableMetaData, IsNotInventedByReplacement) {
  TestTable table(1);
  table.Put({0}, "first");
  table.Put({0}, "second");
  EXPECT_FALSE(table.Cell({0})->hasMeta());
}

TEST(OmPivotTableMetaData, GoesWithAClearedCell) {
  TestTable table(1);
  table.Put({0}, "first");
  OmCellMetaData const meta = Footnoted(1);
  table.Cell({0})->setMeta(&meta);
  table.Clear({0});
  table.Put({0}, "second");
  EXPECT_FALSE(table.Cell({0})->hasMeta());
}

TEST(OmPivotTableMetaData, GoesWithADeletedCell) {
  TestTable table(1);
  table.Put({0}, "first");
  OmCellMetaData const meta = Footnoted(1);
  table.Cell({0})->setMeta(&meta);
  table.deleteCell({0});
  table.Put({0}, "second");
  EXPECT_FALSE(table.Cell({0})->hasMeta());
}

TEST(OmPivotTableMetaData, StaysWhenACellIsHandedBack) {
  TestTable table(1);
  table.Put({0}, "cell");
  OmCellMetaData const meta = Footnoted(1);
  table.Cell({0})->setMeta(&meta);
  table.Cell({0}, table.Cell({0}));
  ExpectMeta(table.Cell({0}), 1);
}

TEST(OmPivotTableMetaData, OfANumberStaysWhenAnotherNumberTakesItsPlace) {
  TestTable table(1);
  table.Cell({0}, OmNumber(1));
  OmCellMetaData const meta = Footnoted(1);
  table.Cell({0})->setMeta(&meta);
  unsigned long const bytes = table.data().BytesInUse();
  table.Cell({0}, OmNumber(2.5, 1));
  EXPECT_EQ(table.At({0}), "2.5");
  ExpectMeta(table.Cell({0}), 1);
  EXPECT_EQ(table.data().BytesInUse(), bytes);
}

TEST(OmPivotTableMetaData, ANumberWithMetaDataBringsItToAPlainOne) {
  TestTable table(1);
  table.Cell({0}, OmNumber(1));
  OmNumber number(2);
  OmCellMetaData const meta = Footnoted(1);
  number.setMeta(&meta);
  table.Cell({0}, number);
  EXPECT_EQ(table.At({0}), "2");
  ExpectMeta(table.Cell({0}), 1);
}

TEST(OmPivotTableMetaData, GoesWithATableOfNumbersTheLastOfWhichGotIt) {
  // The leak checker of the address sanitizer sees what is left.
  TestTable table(2);
  for (int i = 0; i < 100; ++i) {
    table.Cell({i % 10, i / 10}, OmNumber(i));
  }
  EXPECT_FALSE(table.data().HasOwners());
  OmCellMetaData const meta = Footnoted(1);
  table.Cell({9, 9})->setMeta(&meta);
  EXPECT_TRUE(table.data().HasOwners());
}

}  // namespace
