#include "text/Table.h"

#include <gtest/gtest.h>
#include <limits>
#include <sstream>
#include <string>

#include <lakresvos/render/LayerGrids.h>

#include "render/support/RenderTables.h"
#include "unicode/TextWidth.h"

using lakresvos::render::DisplayGrid;
using lakresvos::render::FootnoteMarks;
using lakresvos::render::LabelTexts;
using lakresvos::render::TextOptions;
using lakresvos::render::TextTable;
using namespace render_tables;

namespace {

/// The first layer of a table, after a line end so that expected drawings may start on a new line.
std::string Drawn(Table& table, TextOptions const& options = {}, bool dimNamesInCorner = true) {
  std::ostringstream out;
  out << '\n';
  OmDisplayLayerHeading layers(table, options.skipEmpty);
  if (layers.NextLayer()) {
    DisplayGrid const grid(layers, options.skipEmpty, dimNamesInCorner);
    LabelTexts labels;
    FootnoteMarks const marks(table, labels, options.ascii);
    TextTable(grid, marks, options).Write(out);
  }
  return out.str();
}

TextOptions Ascii() {
  TextOptions options;
  options.ascii = true;
  return options;
}

TextOptions Wrapping(int width) {
  TextOptions options;
  options.maxColumnWidth = width;
  return options;
}

TextOptions AsWideAs(int width, int columnWidth = 40) {
  TextOptions options;
  options.width = width;
  options.maxColumnWidth = columnWidth;
  return options;
}

TextOptions KeepingEmpty() {
  TextOptions options;
  options.skipEmpty = false;
  return options;
}

/// Class and sex by survival, with counts.
struct Passengers : Table {
  Passengers() {
    AddCategories(*this, "Class", {"First", "Crew"});
    AddCategories(*this, "Sex", {"Male", "Female"});
    AddCategories(*this, "Survived", {"No", "Yes"});
    Place({1, 0}, {2});
    int const counts[] = {118, 670, 4, 3, 62, 192, 141, 20};
    for (int i = 0; i < 8; ++i) {
      Cell({i % 2, i / 2 % 2, i / 4}, OmNumber(counts[i], 0));
    }
  }
};

/// A group of two regions beside a third region.
OmDimension& AddRegions(Table& table) {
  OmDimension& dimension = table.Add("Region");
  auto const north = Group(dimension, dimension.Root(), "North");
  Category(dimension, north, "East", 0);
  Category(dimension, north, "West", 1);
  Category(dimension, dimension.Root(), "South", 2);
  return dimension;
}

}  // namespace

// Headings

TEST(TextTable, RowHeadingsSpanAndGroupsAreRuledOff) {
  Passengers table;
  EXPECT_EQ(Drawn(table), R"(
┌───────┬────────┬───────────┐
│       │        │ Survived  │
│       │        ├─────┬─────┤
│ Class │ Sex    │  No │ Yes │
╞═══════╪════════╪═════╪═════╡
│ First │ Male   │ 118 │  62 │
│       │ Female │   4 │ 141 │
├───────┼────────┼─────┼─────┤
│ Crew  │ Male   │ 670 │ 192 │
│       │ Female │   3 │  20 │
└───────┴────────┴─────┴─────┘
)");
}

TEST(TextTable, AsciiDrawsTheSameTable) {
  Passengers table;
  EXPECT_EQ(Drawn(table, Ascii()), R"(
+-------+--------+-----------+
|       |        | Survived  |
|       |        +-----+-----+
| Class | Sex    |  No | Yes |
+=======+========+=====+=====+
| First | Male   | 118 |  62 |
|       | Female |   4 | 141 |
+-------+--------+-----+-----+
| Crew  | Male   | 670 | 192 |
|       | Female |   3 |  20 |
+-------+--------+-----+-----+
)");
}

TEST(TextTable, ColumnHeadingsSpan) {
  Passengers table;
  table.Place({2}, {1, 0});
  EXPECT_EQ(Drawn(table), R"(
┌──────────┬───────────────────────────────┐
│          │             Class             │
│          ├───────────────┬───────────────┤
│          │     First     │     Crew      │
│          ├───────────────┼───────────────┤
│          │      Sex      │      Sex      │
│          ├──────┬────────┼──────┬────────┤
│ Survived │ Male │ Female │ Male │ Female │
╞══════════╪══════╪════════╪══════╪════════╡
│ No       │  118 │      4 │  670 │      3 │
│ Yes      │   62 │    141 │  192 │     20 │
└──────────┴──────┴────────┴──────┴────────┘
)");
}

TEST(TextTable, GroupsAreHeadingLevels) {
  Table table;
  AddRegions(table);
  AddCategories(table, "Year", {"2023", "2024"});
  table.Place({0}, {1});
  table.PutAll();
  EXPECT_EQ(Drawn(table), R"(
┌──────────────┬─────────────┐
│              │    Year     │
│              ├──────┬──────┤
│ Region       │ 2023 │ 2024 │
╞═══════╤══════╪══════╪══════╡
│ North │ East │    1 │    1 │
│       │ West │    1 │    1 │
├───────┴──────┼──────┼──────┤
│ South        │    1 │    1 │
└──────────────┴──────┴──────┘
)");
  table.Place({1}, {0});
  EXPECT_EQ(Drawn(table), R"(
┌──────┬─────────────────────┐
│      │       Region        │
│      ├─────────────┬───────┤
│      │    North    │       │
│      ├──────┬──────┤       │
│ Year │ East │ West │ South │
╞══════╪══════╪══════╪═══════╡
│ 2023 │    1 │    1 │     1 │
│ 2024 │    1 │    1 │     1 │
└──────┴──────┴──────┴───────┘
)");
}

TEST(TextTable, GroupsInGroupsAreRuledOffWhereTheyEnd) {
  Table table;
  OmDimension& dimension = table.Add("Place");
  auto const europe = Group(dimension, dimension.Root(), "Europe");
  auto const sweden = Group(dimension, europe, "Sweden");
  Category(dimension, sweden, "Lund", 0);
  Category(dimension, sweden, "Umeå", 1);
  auto const norway = Group(dimension, europe, "Norway");
  Category(dimension, norway, "Oslo", 2);
  Category(dimension, dimension.Root(), "Total", 3);
  table.Place({0}, {});
  table.PutAll();
  EXPECT_EQ(Drawn(table), R"(
┌────────────────────────┬───┐
│ Place                  │   │
╞════════╤════════╤══════╪═══╡
│ Europe │ Sweden │ Lund │ 1 │
│        │        │ Umeå │ 1 │
│        ├────────┼──────┼───┤
│        │ Norway │ Oslo │ 1 │
├────────┴────────┴──────┼───┤
│ Total                  │ 1 │
└────────────────────────┴───┘
)");
}

TEST(TextTable, HiddenLevelIsNotThere) {
  Table table;
  AddRegions(table).Root().Child(0).Value().hide = true;
  table.Place({0}, {});
  table.PutAll();
  EXPECT_EQ(Drawn(table), R"(
┌────────┬───┐
│ Region │   │
╞════════╪═══╡
│ East   │ 1 │
│ West   │ 1 │
│ South  │ 1 │
└────────┴───┘
)");
}

TEST(TextTable, GroupWithHiddenLabelsLeavesTheCellAboveToItsRows) {
  Table table;
  OmDimension& dimension = table.Add("Place");
  auto const outer = Group(dimension, dimension.Root(), "outer");
  auto const silent = Group(dimension, outer, "silent");
  silent.Value().hideLabels = true;
  Category(dimension, silent, "x", 0);
  Category(dimension, silent, "y", 1);
  Category(dimension, outer, "z", 2);
  table.Place({0}, {});
  table.PutAll();
  EXPECT_EQ(Drawn(table), R"(
┌───────────┬───┐
│ Place     │   │
╞═══════╤═══╪═══╡
│ outer │   │ 1 │
│       │   │ 1 │
│       │ z │ 1 │
└───────┴───┴───┘
)");
}

TEST(TextTable, EqualLabelsUnderDifferentGroupsStaySeparate) {
  Table table;
  OmDimension& dimension = table.Add("D");
  for (unsigned long i = 0; i < 2; ++i) {
    Category(dimension, Group(dimension, dimension.Root(), "same"), "leaf", i);
  }
  table.Place({}, {0});
  table.PutAll();
  EXPECT_EQ(Drawn(table), R"(
┌─────────────┐
│      D      │
├──────┬──────┤
│ same │ same │
├──────┼──────┤
│ leaf │ leaf │
╞══════╪══════╡
│    1 │    1 │
└──────┴──────┘
)");
}

TEST(TextTable, EmptyLabelsAreEmptyCells) {
  Table table;
  AddCategories(table, "", {"", ""});
  table.Place({}, {0});
  table.PutAll();
  EXPECT_EQ(Drawn(table), R"(
┌───────┐
│       │
├───┬───┤
│   │   │
╞═══╪═══╡
│ 1 │ 1 │
└───┴───┘
)");
}

TEST(TextTable, WideHeadingWidensItsColumnsEqually) {
  Table table;
  AddCategories(table, "A rather long name", {"a", "b", "c"});
  table.Place({}, {0});
  table.PutAll();
  EXPECT_EQ(Drawn(table), R"(
┌────────────────────┐
│ A rather long name │
├──────┬──────┬──────┤
│    a │    b │    c │
╞══════╪══════╪══════╡
│    1 │    1 │    1 │
└──────┴──────┴──────┘
)");
}

TEST(TextTable, WideHeadingWrapsBeforeItWidensBeyondTheMaximum) {
  Table table;
  AddCategories(table, "A rather long name", {"a", "b"});
  table.Place({}, {0});
  table.PutAll();
  EXPECT_EQ(Drawn(table, Wrapping(10)), R"(
┌───────────┐
│ A rather  │
│ long name │
├─────┬─────┤
│   a │   b │
╞═════╪═════╡
│   1 │   1 │
└─────┴─────┘
)");
}

TEST(TextTable, SpanningHeadingUsesTheLinesBetweenItsRows) {
  Table table;
  AddCategories(table, "Row", {"one two three four five six", "x"});
  table.AddFlat("i", 2);
  table.AddFlat("j", 2);
  table.Place({2, 1, 0}, {});
  table.PutAll();
  EXPECT_EQ(Drawn(table, Wrapping(5)), R"(
┌───────┬────┬────┬───┐
│ Row   │ i  │ j  │   │
╞═══════╪════╪════╪═══╡
│ one   │ i0 │ j0 │ 1 │
│ two   │    │ j1 │ 1 │
│ three ├────┼────┼───┤
│ four  │ i1 │ j0 │ 1 │
│ five  │    │ j1 │ 1 │
│ six   │    │    │   │
├───────┼────┼────┼───┤
│ x     │ i0 │ j0 │ 1 │
│       │    │ j1 │ 1 │
│       ├────┼────┼───┤
│       │ i1 │ j0 │ 1 │
│       │    │ j1 │ 1 │
└───────┴────┴────┴───┘
)");
}

TEST(TextTable, DimensionNamesCanBeAHeadingLevel) {
  Passengers table;
  OmStringCell const corner("Corner");
  table.CornerText(&corner);
  EXPECT_EQ(Drawn(table, {}, false), R"(
┌──────────────────────────────┬───────────┐
│                              │ Survived  │
│                              ├─────┬─────┤
│ Corner                       │  No │ Yes │
╞═══════╤═══════╤═════╤════════╪═════╪═════╡
│ Class │ First │ Sex │ Male   │ 118 │  62 │
│       │       │     │ Female │   4 │ 141 │
│       ├───────┼─────┼────────┼─────┼─────┤
│       │ Crew  │ Sex │ Male   │ 670 │ 192 │
│       │       │     │ Female │   3 │  20 │
└───────┴───────┴─────┴────────┴─────┴─────┘
)");
}

// Axes without dimensions or places

TEST(TextTable, NoColumnDimensions) {
  Table table;
  AddCategories(table, "Fruit", {"Apple", "Pear"});
  table.Place({0}, {});
  table.Cell({0}, OmNumber(3));
  table.Cell({1}, OmNumber(12));
  EXPECT_EQ(Drawn(table), R"(
┌───────┬────┐
│ Fruit │    │
╞═══════╪════╡
│ Apple │  3 │
│ Pear  │ 12 │
└───────┴────┘
)");
}

TEST(TextTable, NoRowDimensions) {
  Table table;
  AddCategories(table, "Fruit", {"Apple", "Pear"});
  table.Place({}, {0});
  table.Cell({0}, OmNumber(3));
  table.Cell({1}, OmNumber(12));
  EXPECT_EQ(Drawn(table), R"(
┌──────────────┐
│    Fruit     │
├───────┬──────┤
│ Apple │ Pear │
╞═══════╪══════╡
│     3 │   12 │
└───────┴──────┘
)");
}

TEST(TextTable, NeitherRowNorColumnDimensions) {
  Table table;
  AddCategories(table, "Fruit", {"Apple"});
  table.Place({}, {}, {0});
  table.Cell({0}, OmNumber(3));
  EXPECT_EQ(Drawn(table), R"(
┌───┐
│ 3 │
└───┘
)");
}

TEST(TextTable, NoRowsLeaveTheHeading) {
  Table table;
  table.Add("A");
  AddCategories(table, "B", {"x", "y"});
  table.Place({0}, {1});
  EXPECT_EQ(Drawn(table, KeepingEmpty()), R"(
┌───────┐
│   B   │
├───┬───┤
│ x │ y │
└───┴───┘
)");
}

TEST(TextTable, NeitherRowsNorColumnsDrawNothing) {
  Table table;
  table.Add("A");
  table.Add("B").Root().Value().hide = true;
  table.Place({0}, {1});
  EXPECT_EQ(Drawn(table, KeepingEmpty()), "\n");
}

TEST(TextTable, MissingCellsAreEmpty) {
  Table table;
  AddCategories(table, "A", {"x", "y"});
  AddCategories(table, "B", {"x", "y"});
  table.Place({0}, {1});
  table.Cell({0, 0}, OmNumber(1));
  table.Cell({1, 1}, OmNumber(2));
  EXPECT_EQ(Drawn(table), R"(
┌───┬───────┐
│   │   B   │
│   ├───┬───┤
│ A │ x │ y │
╞═══╪═══╪═══╡
│ x │ 1 │   │
│ y │   │ 2 │
└───┴───┴───┘
)");
}

// Cells

TEST(TextTable, NumbersAreAtTheRightAndTextsAtTheLeft) {
  Table table;
  AddCategories(table, "A", {"x", "y"});
  AddCategories(table, "B", {"number", "text", "both"});
  table.Place({0}, {1});
  table.Cell({0, 0}, OmNumber(1));
  table.Cell({1, 0}, OmNumber(-1234.5));
  table.Cell({0, 1}, Utf8("t"));
  table.Cell({1, 1}, Utf8("longer"));
  table.Cell({0, 2}, OmNumber(std::numeric_limits<double>::quiet_NaN()));
  table.Cell({1, 2}, Utf8("text"));
  EXPECT_EQ(Drawn(table), R"(
┌───┬─────────────────────────┐
│   │            B            │
│   ├─────────┬────────┬──────┤
│ A │  number │ text   │ both │
╞═══╪═════════╪════════╪══════╡
│ x │       1 │ t      │    . │
│ y │ -1234.5 │ longer │ text │
└───┴─────────┴────────┴──────┘
)");
}

TEST(TextTable, CellsWrapAndAllRowsAreRuledOffThen) {
  Table table;
  AddCategories(table, "A", {"first", "second row"});
  AddCategories(table, "B", {"u", "v"});
  table.Place({0}, {1});
  table.Cell({0, 0}, Utf8("some words that wrap"));
  table.Cell({0, 1}, OmNumber(1));
  table.Cell({1, 0}, Utf8("two\nlines"));
  table.Cell({1, 1}, Utf8("abcdefghijklm"));
  EXPECT_EQ(Drawn(table, Wrapping(10)), R"(
┌────────────┬─────────────────────────┐
│            │            B            │
│            ├────────────┬────────────┤
│ A          │ u          │ v          │
╞════════════╪════════════╪════════════╡
│ first      │ some words │          1 │
│            │ that wrap  │            │
├────────────┼────────────┼────────────┤
│ second row │ two        │ abcdefghij │
│            │ lines      │ klm        │
└────────────┴────────────┴────────────┘
)");
}

TEST(TextTable, WidthIsCountedPerCharacterAsReadersSeeIt) {
  Table table;
  AddCategories(table, "文字",
                {"日本語", "e\u0301e\u0301", "👩‍👩‍👧 ❤\ufe0f", "שלום", "ascii"});
  AddCategories(table, "値", {"見出し", "x"});
  table.Place({0}, {1});
  table.PutAll();
  table.Cell({0, 1}, Utf8("👍🏽"));
  EXPECT_EQ(Drawn(table), R"(
┌────────┬─────────────┐
│        │     値      │
│        ├────────┬────┤
│ 文字   │ 見出し │ x  │
╞════════╪════════╪════╡
│ 日本語 │      1 │ 👍🏽 │
│ éé     │      1 │  1 │
│ 👩‍👩‍👧 ❤️  │      1 │  1 │
│ שלום   │      1 │  1 │
│ ascii  │      1 │  1 │
└────────┴────────┴────┘
)");
}

TEST(TextTable, HostileTextsCannotBreakTheFrame) {
  Table table;
  AddCategories(table, "A", {"\x1b[2J", "a\tb", "\xff\xfe", "\u202eover"});
  table.Place({0}, {});
  table.PutAll();
  EXPECT_EQ(Drawn(table), R"(
┌───────┬───┐
│ A     │   │
╞═══════╪═══╡
│ �[2J  │ 1 │
│ a b   │ 1 │
│ ��    │ 1 │
│ �over │ 1 │
└───────┴───┘
)");
}

// Footnotes

TEST(TextTable, MarksHangAfterTheDigitsOfTheirColumn) {
  Table table;
  AddCategories(table, "A", {"x", "y", "z"});
  table.Place({0}, {});
  AddFootnote(table, "first");
  AddFootnote(table, "second", "*");
  OmNumber one(1);
  OmNumber many(100);
  table.Cell({0}, WithFootnotes(one, {0}));
  table.Cell({1}, WithFootnotes(many, {0, 1}));
  table.Cell({2}, OmNumber(10));
  EXPECT_EQ(Drawn(table), R"(
┌───┬────────┐
│ A │        │
╞═══╪════════╡
│ x │   1ᵃ   │
│ y │ 100ᵃ,* │
│ z │  10    │
└───┴────────┘
)");
  EXPECT_EQ(Drawn(table, Ascii()), R"(
+---+----------+
| A |          |
+===+==========+
| x |   1[a]   |
| y | 100[a,*] |
| z |  10      |
+---+----------+
)");
}

TEST(TextTable, MarksComeAfterTextsAndLabels) {
  Table table;
  AddFootnote(table, "note");
  OmDimension& dimension = table.Add("A");
  OmStringCellUTF8 label("label");
  dimension.AddNewChild(dimension.Root(), WithFootnotes(label, {0}), 0, false);
  table.Place({0}, {});
  OmStringCellUTF8 text("text");
  table.Cell({0}, WithFootnotes(text, {0}));
  EXPECT_EQ(Drawn(table), R"(
┌────────┬───────┐
│ A      │       │
╞════════╪═══════╡
│ labelᵃ │ textᵃ │
└────────┴───────┘
)");
}

TEST(TextTable, MarksDoNotHangWhereTheColumnIsTooNarrow) {
  Table table;
  AddCategories(table, "A", {"x", "y"});
  table.Place({0}, {});
  AddFootnote(table, "note");
  OmNumber narrow(1);
  table.Cell({0}, WithFootnotes(narrow, {0}));
  table.Cell({1}, OmNumber(12345));
  EXPECT_EQ(Drawn(table, Wrapping(5)), R"(
┌───┬───────┐
│ A │       │
╞═══╪═══════╡
│ x │    1ᵃ │
│ y │ 12345 │
└───┴───────┘
)");
}

// Width

TEST(TextTable, WideTableContinuesBelowWithItsRowHeadingsRepeated) {
  Passengers table;
  table.Place({2}, {1, 0});
  EXPECT_EQ(Drawn(table, AsWideAs(35)), R"(
┌──────────┬──────────────────────┐
│          │        Class         │
│          ├───────────────┬──────┤
│          │     First     │ Crew │
│          ├───────────────┼──────┤
│          │      Sex      │  Sex │
│          ├──────┬────────┼──────┤
│ Survived │ Male │ Female │ Male │
╞══════════╪══════╪════════╪══════╡
│ No       │  118 │      4 │  670 │
│ Yes      │   62 │    141 │  192 │
└──────────┴──────┴────────┴──────┘

┌──────────┬────────┐
│          │  Class │
│          ├────────┤
│          │   Crew │
│          ├────────┤
│          │    Sex │
│          ├────────┤
│ Survived │ Female │
╞══════════╪════════╡
│ No       │      3 │
│ Yes      │     20 │
└──────────┴────────┘
)");
}

TEST(TextTable, TableThatFitsIsNotCut) {
  Passengers table;
  EXPECT_EQ(Drawn(table, AsWideAs(30)), Drawn(table));
  EXPECT_NE(Drawn(table, AsWideAs(29)), Drawn(table));
}

TEST(TextTable, RowHeadingsWrapWhereTheyLeaveNoRoom) {
  Table table;
  AddCategories(table, "Question", {"How often do you read a newspaper?", "Why?"});
  AddCategories(table, "Answer", {"Sometimes"});
  table.Place({0}, {1});
  table.PutAll();
  EXPECT_EQ(Drawn(table, AsWideAs(28)), R"(
┌──────────────┬───────────┐
│              │    Answer │
│              ├───────────┤
│ Question     │ Sometimes │
╞══════════════╪═══════════╡
│ How often do │         1 │
│ you read a   │           │
│ newspaper?   │           │
├──────────────┼───────────┤
│ Why?         │         1 │
└──────────────┴───────────┘
)");
}

TEST(TextTable, WideHeadingOfAPartHasRoomInIt) {
  Table table;
  AddCategories(table, "Something long to say", {"a", "b", "c", "d", "e", "f", "g"});
  table.Place({}, {0});
  table.PutAll();
  std::istringstream lines(Drawn(table, AsWideAs(25)));
  int parts = 0;
  for (std::string line; std::getline(lines, line);) {
    EXPECT_LE(lakresvos::render::TextWidth(line), 25);
    parts += line.find("│ Something long to say │") != std::string::npos ? 1 : 0;
  }
  EXPECT_EQ(parts, 2);
}

TEST(TextTable, RowHeadingsLeaveRoomForAHeadingThatIsWiderThanItsColumns) {
  Table table;
  AddCategories(table, "Question", {"How often do you read a newspaper?"});
  AddCategories(table, "Answer", {"a", "b"});
  table.Place({0}, {1});
  table.PutAll();
  EXPECT_EQ(Drawn(table, AsWideAs(21)), R"(
┌──────────┬────────┐
│          │ Answer │
│          ├────┬───┤
│ Question │  a │ b │
╞══════════╪════╪═══╡
│ How      │  1 │ 1 │
│ often do │    │   │
│ you read │    │   │
│ a        │    │   │
│ newspape │    │   │
│ r?       │    │   │
└──────────┴────┴───┘
)");
}

TEST(TextTable, ManyPartsAreCutInLinearTime) {
  Table table;
  OmDimension& dimension = table.Add("D");
  constexpr unsigned long kColumns = 50'000;
  for (unsigned long i = 0; i < kColumns; ++i) {
    Category(dimension, dimension.Root(), "c", i);
  }
  table.Place({}, {0});
  table.PutAll();
  std::string const drawn = Drawn(table, AsWideAs(21));
  std::size_t numbers = 0;
  for (std::size_t at = 0; (at = drawn.find(" 1 ", at)) != std::string::npos; ++at) {
    ++numbers;
  }
  EXPECT_EQ(numbers, kColumns);
}

// Extent

TEST(TextTable, DeepGroupsAreDrawnWithoutADeepStack) {
  Table table;
  OmDimension& dimension = table.Add("D");
  auto parent = dimension.Root();
  for (int level = 0; level < 2000; ++level) {
    parent = Group(dimension, parent, "g");
  }
  Category(dimension, parent, "leaf", 0);
  table.Place({0}, {});
  table.PutAll();
  std::string const rows = Drawn(table);
  EXPECT_NE(rows.find("│ g │ leaf │"), std::string::npos);
  table.Place({}, {0});
  std::string const columns = Drawn(table);
  EXPECT_NE(columns.find("│    g │\n├──────┤\n│ leaf │\n╞══════╡\n│    1 │\n└──────┘\n"),
            std::string::npos);
}
