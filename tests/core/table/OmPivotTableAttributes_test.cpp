#include <climits>
#include <gtest/gtest.h>
#include <type_traits>

#include <lakresvos/OmPivotTable.h>

#include "core/table/OmPivotTableFixture.h"

namespace {

// Defaults

TEST(OmPivotTableAttributes, FlagsAtFirst) {
  TestTable const table;
  EXPECT_TRUE(table.Show());
  EXPECT_FALSE(table.RotateRowLabels());
  EXPECT_FALSE(table.RotateColumnLabels());
  EXPECT_FALSE(table.IsScratched());
  EXPECT_FALSE(table.IsWarnings());
  EXPECT_FALSE(table.IsNotes());
  EXPECT_FALSE(table.hasMarkers());
  EXPECT_TRUE(table.backendOwns());
  EXPECT_TRUE(table.fastTable());
  EXPECT_TRUE(table.showCaption());
  EXPECT_FALSE(table.getLabelsOnly());
  EXPECT_FALSE(table.getImputed());
  EXPECT_FALSE(table.HasRemovedFootnotes());
}

TEST(OmPivotTableAttributes, NumbersAtFirst) {
  TestTable const table;
  EXPECT_EQ(table.OptionNumber(), -1);
  EXPECT_EQ(table.MinColumnWidth(), -1);
  EXPECT_EQ(table.MaxColumnWidth(), -1);
  EXPECT_EQ(table.MinRowWidth(), -1);
  EXPECT_EQ(table.MaxRowWidth(), -1);
  EXPECT_EQ(table.getLayerLoc(), -1);
  EXPECT_EQ(table.TableId(), -1);
  EXPECT_EQ(table.getLang(), 0);
  EXPECT_EQ(table.getVariableMode(), 0);
  EXPECT_EQ(table.getValueMode(), 0);
  EXPECT_EQ(table.getStartColor(), -1);
  EXPECT_EQ(table.getEndColor(), -1);
  EXPECT_EQ(table.getNumCells(), 0);
}

TEST(OmPivotTableAttributes, StringsAndListsAreEmptyAtFirst) {
  TestTable const table;
  EXPECT_EQ(table.TableLocale(), "");
  EXPECT_EQ(table.getBorderInfo(), "");
  EXPECT_EQ(table.getTableLookInfo(), "");
  EXPECT_EQ(table.getTablePropertiesInfo(), "");
  EXPECT_EQ(table.getMiscProperties(), "");
  EXPECT_TRUE(table.getTableCustomWidths().empty());
  EXPECT_TRUE(table.getTableCustomHeights().empty());
  EXPECT_TRUE(table.getEmptyCellStyles().empty());
  EXPECT_TRUE(table.getCellStyles().empty());
  EXPECT_EQ(table.Footnotes().size(), 0U);
}

TEST(OmPivotTableAttributes, SettingsAndTrackersAtFirst) {
  TestTable const table;
  BackendSettings const unset;
  EXPECT_EQ(table.getBackendSettings().getMaxCells(), unset.getMaxCells());
  EXPECT_EQ(table.getBackendSettings().getFastTables(), unset.getFastTables());
  EXPECT_EQ(table.getBackendSettings().getLocale(), unset.getLocale());
  EXPECT_EQ(table.getBackendSettings().getUnicode(), unset.getUnicode());
  EXPECT_EQ(table.getICUTracker(), nullptr);
  EXPECT_EQ(table.getU8Tracker(), nullptr);
}

TEST(OmPivotTableAttributes, TheSplitsFlagActsOnNothingElse) {
  OmPivotTable const table(Text("label"), Text("name"), true);
  EXPECT_TRUE(table.HasSplits());
  EXPECT_TRUE(table.Show());
  EXPECT_FALSE(table.IsScratched());
}

// Flags

struct Flag {
  char const* name;
  void (OmPivotTable::*set)(bool);
  bool (OmPivotTable::*get)() const;
};

Flag const kFlags[] = {
    {"Show", &OmPivotTable::Show, &OmPivotTable::Show},
    {"RotateRowLabels", &OmPivotTable::RotateRowLabels, &OmPivotTable::RotateRowLabels},
    {"RotateColumnLabels", &OmPivotTable::RotateColumnLabels, &OmPivotTable::RotateColumnLabels},
    {"Scratch", &OmPivotTable::Scratch, &OmPivotTable::IsScratched},
    {"setBackendOwns", &OmPivotTable::setBackendOwns, &OmPivotTable::backendOwns},
    {"setFastTable", &OmPivotTable::setFastTable, &OmPivotTable::fastTable},
    {"showCaption", &OmPivotTable::showCaption, &OmPivotTable::showCaption},
    {"setLabelsOnly", &OmPivotTable::setLabelsOnly, &OmPivotTable::getLabelsOnly},
    {"setImputed", &OmPivotTable::setImputed, &OmPivotTable::getImputed},
    {"RemovedFootnotes", &OmPivotTable::RemovedFootnotes, &OmPivotTable::HasRemovedFootnotes},
};

std::vector<bool> AllFlags(OmPivotTable const& table) {
  std::vector<bool> values;
  for (Flag const& flag : kFlags) {
    values.push_back((table.*flag.get)());
  }
  values.insert(values.end(), {table.hasMarkers(), table.IsWarnings(), table.IsNotes()});
  return values;
}

class OmPivotTableFlag : public testing::TestWithParam<std::size_t> {};

INSTANTIATE_TEST_SUITE_P(EveryFlag, OmPivotTableFlag,
                         testing::Range(std::size_t{0}, std::size(kFlags)),
                         [](auto const& flag) { return std::string(kFlags[flag.param].name); });

TEST_P(OmPivotTableFlag, IsSetAndReadWithoutTouchingAnotherFlag) {
  Flag const& flag = kFlags[GetParam()];
  TestTable table;
  std::vector<bool> expected = AllFlags(table);
  for (bool const value : {true, false, true}) {
    (table.*flag.set)(value);
    expected[GetParam()] = value;
    EXPECT_EQ(AllFlags(table), expected);
  }
}

TEST(OmPivotTableAttributes, MarkersCanOnlyBeTurnedOn) {
  TestTable table;
  std::vector<bool> expected = AllFlags(table);
  table.setHasMarkers();
  EXPECT_TRUE(table.hasMarkers());
  table.setHasMarkers();
  EXPECT_TRUE(table.hasMarkers());
  expected[std::size(kFlags)] = true;
  EXPECT_EQ(AllFlags(table), expected);
}

// Numbers

struct Number {
  char const* name;
  void (OmPivotTable::*set)(int);
  int (OmPivotTable::*get)() const;
};

Number const kNumbers[] = {
    {"OptionNumber", &OmPivotTable::OptionNumber, &OmPivotTable::OptionNumber},
    {"MinColumnWidth", &OmPivotTable::MinColumnWidth, &OmPivotTable::MinColumnWidth},
    {"MaxColumnWidth", &OmPivotTable::MaxColumnWidth, &OmPivotTable::MaxColumnWidth},
    {"MinRowWidth", &OmPivotTable::MinRowWidth, &OmPivotTable::MinRowWidth},
    {"MaxRowWidth", &OmPivotTable::MaxRowWidth, &OmPivotTable::MaxRowWidth},
    {"setLayerLoc", &OmPivotTable::setLayerLoc, &OmPivotTable::getLayerLoc},
    {"setLang", &OmPivotTable::setLang, &OmPivotTable::getLang},
    {"setVariableMode", &OmPivotTable::setVariableMode, &OmPivotTable::getVariableMode},
    {"setValueMode", &OmPivotTable::setValueMode, &OmPivotTable::getValueMode},
    {"setStartColor", &OmPivotTable::setStartColor, &OmPivotTable::getStartColor},
    {"setEndColor", &OmPivotTable::setEndColor, &OmPivotTable::getEndColor},
};

std::vector<int> AllNumbers(OmPivotTable const& table) {
  std::vector<int> values;
  for (Number const& number : kNumbers) {
    values.push_back((table.*number.get)());
  }
  return values;
}

class OmPivotTableNumber : public testing::TestWithParam<std::size_t> {};

INSTANTIATE_TEST_SUITE_P(EveryNumber, OmPivotTableNumber,
                         testing::Range(std::size_t{0}, std::size(kNumbers)),
                         [](auto const& number) {
                           return std::string(kNumbers[number.param].name);
                         });

TEST_P(OmPivotTableNumber, IsSetAndReadWithoutTouchingAnotherNumber) {
  Number const& number = kNumbers[GetParam()];
  TestTable table;
  std::vector<int> expected = AllNumbers(table);
  for (int const value : {7, 0, -1, INT_MIN, INT_MAX}) {
    (table.*number.set)(value);
    expected[GetParam()] = value;
    EXPECT_EQ(AllNumbers(table), expected);
  }
}

TEST(OmPivotTableAttributes, TheTableIdHas64Bits) {
  TestTable table;
  for (long long const id : {0LL, LLONG_MAX, LLONG_MIN, 1LL << 40}) {
    table.TableId(id);
    EXPECT_EQ(table.TableId(), id);
  }
}

// Strings

struct String {
  char const* name;
  void (OmPivotTable::*set)(std::string const&);
  std::string const& (OmPivotTable::*get)() const;
};

String const kStrings[] = {
    {"TableLocale", &OmPivotTable::TableLocale, &OmPivotTable::TableLocale},
    {"setBorderInfo", &OmPivotTable::setBorderInfo, &OmPivotTable::getBorderInfo},
    {"setTableLookInfo", &OmPivotTable::setTableLookInfo, &OmPivotTable::getTableLookInfo},
    {"setTablePropertiesInfo", &OmPivotTable::setTablePropertiesInfo,
     &OmPivotTable::getTablePropertiesInfo},
};

std::vector<std::string> AllStrings(OmPivotTable const& table) {
  std::vector<std::string> values{table.getMiscProperties()};
  for (String const& string : kStrings) {
    values.push_back((table.*string.get)());
  }
  return values;
}

class OmPivotTableString : public testing::TestWithParam<std::size_t> {};

INSTANTIATE_TEST_SUITE_P(EveryString, OmPivotTableString,
                         testing::Range(std::size_t{0}, std::size(kStrings)),
                         [](auto const& string) {
                           return std::string(kStrings[string.param].name);
                         });

TEST_P(OmPivotTableString, IsReplacedAndReadWithoutTouchingAnotherString) {
  String const& string = kStrings[GetParam()];
  TestTable table;
  std::vector<std::string> expected = AllStrings(table);
  for (std::string const& value :
       {std::string("first"), std::string("a\0b", 3), std::string(1000, 'x'), std::string()}) {
    (table.*string.set)(value);
    expected[GetParam() + 1] = value;
    EXPECT_EQ(AllStrings(table), expected);
  }
}

TEST_P(OmPivotTableString, ItselfMayBeHandedBack) {
  String const& string = kStrings[GetParam()];
  TestTable table;
  std::string const value(100, 'x');
  (table.*string.set)(value);
  (table.*string.set)((table.*string.get)());
  EXPECT_EQ((table.*string.get)(), value);
}

TEST_P(OmPivotTableString, IsReadByReference) {
  String const& string = kStrings[GetParam()];
  TestTable table;
  std::string const& stored = (table.*string.get)();
  (table.*string.set)("later");
  EXPECT_EQ(stored, "later");
}

// The list of properties

TEST(OmPivotTableMiscProperties, AreJoinedByCommasInTheOrderOfTheCalls) {
  TestTable table;
  table.addMiscProperty("a");
  EXPECT_EQ(table.getMiscProperties(), "a");
  table.addMiscProperty("b");
  EXPECT_EQ(table.getMiscProperties(), "a,b");
  table.addMiscProperty("c");
  EXPECT_EQ(table.getMiscProperties(), "a,b,c");
}

TEST(OmPivotTableMiscProperties, AnEmptyFirstOneLeavesTheListEmpty) {
  TestTable table;
  table.addMiscProperty("");
  EXPECT_EQ(table.getMiscProperties(), "");
  table.addMiscProperty("b");
  EXPECT_EQ(table.getMiscProperties(), "b");
}

TEST(OmPivotTableMiscProperties, AnEmptyLaterOneAddsItsComma) {
  TestTable table;
  table.addMiscProperty("a");
  table.addMiscProperty("");
  EXPECT_EQ(table.getMiscProperties(), "a,");
  table.addMiscProperty("c");
  EXPECT_EQ(table.getMiscProperties(), "a,,c");
}

TEST(OmPivotTableMiscProperties, AreKeptAsTheyAre) {
  TestTable table;
  table.addMiscProperty("x=1,y=2");
  table.addMiscProperty("a b");
  EXPECT_EQ(table.getMiscProperties(), "x=1,y=2,a b");
}

TEST(OmPivotTableMiscProperties, TheListItselfMayBeAdded) {
  TestTable table;
  table.addMiscProperty("a");
  table.addMiscProperty(table.getMiscProperties());
  EXPECT_EQ(table.getMiscProperties(), "a,a");
}

// Widths, heights and styles

TEST(OmPivotTableAttributes, CustomWidthsAndHeightsAreReplaced) {
  TestTable table;
  table.setTableCustomWidths({1, 2, UINT_MAX});
  table.setTableCustomHeights({4});
  EXPECT_EQ(table.getTableCustomWidths(), (std::vector<unsigned int>{1, 2, UINT_MAX}));
  EXPECT_EQ(table.getTableCustomHeights(), std::vector<unsigned int>{4});
  table.setTableCustomWidths({});
  EXPECT_TRUE(table.getTableCustomWidths().empty());
  EXPECT_EQ(table.getTableCustomHeights(), std::vector<unsigned int>{4});
}

TEST(OmPivotTableAttributes, EmptyCellStylesAreChangedInPlace) {
  TestTable table;
  table.emptyCellStyles()[1ULL << 40] = 65535;
  table.emptyCellStyles()[0] = 1;
  EXPECT_EQ(&table.getEmptyCellStyles(), &table.emptyCellStyles());
  EXPECT_EQ(table.getEmptyCellStyles(),
            (std::map<unsigned long long, unsigned short>{{0, 1}, {1ULL << 40, 65535}}));
}

TEST(OmPivotTableAttributes, CellStylesAreChangedInPlace) {
  TestTable table;
  OmCellProperties bold;
  bold.setFontName("Serif");
  table.cellStyles().push_back(bold);
  EXPECT_EQ(&table.getCellStyles(), &table.cellStyles());
  ASSERT_EQ(table.getCellStyles().size(), 1U);
  EXPECT_EQ(table.getCellStyles()[0].getFontName(), "Serif");
}

TEST(OmPivotTableAttributes, RemovedFootnotesIsAFlagAlone) {
  TestTable table;
  OmFootnote note;
  note.text = new OmStringCell("note");
  table.Footnote(note, true);
  table.RemovedFootnotes(true);
  EXPECT_TRUE(table.HasRemovedFootnotes());
  EXPECT_EQ(table.Footnotes().size(), 1U);
}

}  // namespace
