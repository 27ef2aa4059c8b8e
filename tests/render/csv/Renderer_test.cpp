#include <gtest/gtest.h>
#include <limits>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include <cells/OmComposite.h>
#include <cells/OmDataValue.h>
#include <cells/OmVariable.h>
#include <lakresvos/OmHeading.h>
#include <lakresvos/OmOutputTree.h>
#include <lakresvos/render/CsvRenderer.h>

#include "csv/Record.h"
#include "render/support/RenderTables.h"

using namespace lakresvos::render;
using namespace render_tables;

namespace {

std::string Written(OmPivotTable& table, CsvOptions const& options = {}) {
  std::ostringstream out;
  RenderCsv(TableDocument(table).Tree(), out, options);
  return out.str();
}

CsvOptions Display() {
  CsvOptions options;
  options.shape = CsvOptions::Shape::Display;
  return options;
}

CsvOptions KeepEmpty() {
  CsvOptions options;
  options.skipEmpty = false;
  return options;
}

/// A record of one text.
std::string Field(std::string const& text, bool safe = false) {
  std::string out;
  CsvRecord record(out, safe);
  record.AddText(text);
  record.End();
  return out;
}

void AddTotal(OmDimension& dimension, unsigned long subscript) {
  OmStringCell label("Total");
  OmCellMetaData meta;
  meta.setTotal(true);
  label.setMeta(&meta);
  dimension.AddNewChild(dimension.Root(), label, subscript, false);
}

/// Two rows, two columns, two layers; the combination b, y, second is missing.
struct Cube : Table {
  Cube() {
    AddCategories(*this, "Row", {"a", "b"});
    AddCategories(*this, "Column", {"x", "y"});
    AddCategories(*this, "Layer", {"first", "second"});
    Place({0}, {1}, {2});
    int number = 0;
    for (int r = 0; r < 2; ++r) {
      for (int c = 0; c < 2; ++c) {
        for (int l = 0; l < 2; ++l) {
          if (r + c + l < 3) {
            Cell({r, c, l}, OmNumber(++number + 0.125, 1));
          }
        }
      }
    }
  }
};

}  // namespace

// Fields

TEST(CsvRecord, FieldsAreQuotedWhereTheyHaveTo) {
  EXPECT_EQ(Field("plain text"), "plain text\r\n");
  EXPECT_EQ(Field("a,b"), "\"a,b\"\r\n");
  EXPECT_EQ(Field("say \"hi\""), "\"say \"\"hi\"\"\"\r\n");
  EXPECT_EQ(Field("a\nb"), "\"a\nb\"\r\n");
  EXPECT_EQ(Field(" a"), "\" a\"\r\n");
  EXPECT_EQ(Field("a "), "\"a \"\r\n");
}

TEST(CsvRecord, EmptyRecordIsNoEmptyLine) {
  EXPECT_EQ(Field(""), "\"\"\r\n");
}

TEST(CsvRecord, BrokenTextIsReplaced) {
  EXPECT_EQ(Field("\xFF\x01"), "\xEF\xBF\xBD\xEF\xBF\xBD\r\n");
}

TEST(CsvRecord, FormulasAreDefusedOnlyWhenAsked) {
  EXPECT_EQ(Field("=1+1"), "=1+1\r\n");
  for (char const* text : {"=1", "+1", "-1", "@a", "\ta", " =1",
                           "\xEF\xBC\x9D"
                           "1"}) {
    std::string const written = Field(text, true);
    EXPECT_EQ(written[written[0] == '"' ? 1 : 0], '\'') << text;
  }
  EXPECT_EQ(Field("1+1", true), "1+1\r\n");
  EXPECT_EQ(Field("", true), "\"\"\r\n");
}

TEST(CsvRecord, FormulasAreDefusedWhereverAFieldMayStart) {
  EXPECT_EQ(Field("a;=1", true), "a;'=1\r\n");
  EXPECT_EQ(Field("a\t@b", true), "a\t'@b\r\n");
  EXPECT_EQ(Field("a|+b", true), "a|'+b\r\n");
  EXPECT_EQ(Field("a,-b", true), "\"a,'-b\"\r\n");
  EXPECT_EQ(Field("a\n=1", true), "\"a\n'=1\"\r\n");
  EXPECT_EQ(Field("a\r\n=1", true), "\"a\n'=1\"\r\n");
  EXPECT_EQ(Field("a; \"=1", true), "\"a;' \"\"=1\"\r\n");
  EXPECT_EQ(Field("a;\n=1;-2", true), "\"a;\n'=1;'-2\"\r\n");
  EXPECT_EQ(Field("a - b; c=d", true), "a - b; c=d\r\n");
  EXPECT_EQ(Field("a;=1"), "a;=1\r\n");
}

// Long shape

TEST(CsvRenderer, LongShapeHasARecordForEachStoredCell) {
  Cube cube;
  EXPECT_EQ(Written(cube),
            "Row,Column,Layer,value\r\n"
            "a,x,first,1.125\r\n"
            "b,x,first,5.125\r\n"
            "a,y,first,3.125\r\n"
            "b,y,first,7.125\r\n"
            "a,x,second,2.125\r\n"
            "b,x,second,6.125\r\n"
            "a,y,second,4.125\r\n");
}

TEST(CsvRenderer, LongShapeHasEveryCombinationWhenAsked) {
  Cube cube;
  std::string const written = Written(cube, KeepEmpty());
  std::string const end = "b,x,second,6.125\r\na,y,second,4.125\r\nb,y,second,\r\n";
  EXPECT_EQ(written.substr(written.size() - end.size()), end);
}

TEST(CsvRenderer, LevelsOfGroupsAreColumns) {
  Table table;
  OmDimension& rows = table.Add("Place");
  auto const group = Group(rows, rows.Root(), "house");
  Category(rows, group, "cat", 0);
  Category(rows, rows.Root(), "emu", 1);
  table.Place({0}, {});
  table.Cell({0}, OmNumber(1));
  table.Cell({1}, OmNumber(2));
  EXPECT_EQ(Written(table), "Place 1,Place 2,value\r\nhouse,cat,1\r\n,emu,2\r\n");
}

TEST(CsvRenderer, CompositeLabelNamesTheLevels) {
  OmComposite label("{0} in {1}");
  label.AddPart(OmVariable("kind", "Kind"));
  label.AddPart(OmStringCell("place"));
  Table table;
  OmDimension& rows = table.AddDimension(label);
  Category(rows, Group(rows, rows.Root(), "house"), "cat", 0);
  table.Place({0}, {});
  table.Cell({0}, OmNumber(1));
  EXPECT_EQ(Written(table), "Kind,place,value\r\nhouse,cat,1\r\n");
}

TEST(CsvRenderer, ColumnsOfOneNameAreToldApart) {
  Table table;
  AddCategories(table, "value", {"a"});
  AddCategories(table, "value", {"b"});
  table.Place({0}, {1});
  table.Cell({0, 0}, OmNumber(1));
  EXPECT_EQ(Written(table), "value,value 2,value 3\r\na,b,1\r\n");
}

TEST(CsvRenderer, ColumnsAreToldApartAsTheyAreShown) {
  Table table;
  for (char const* name : {"\x01", "\x02", "=a", "'=a"}) {
    OmDimension& dimension = table.AddDimension(Utf8(name));
    Category(dimension, dimension.Root(), "c", 0);
  }
  table.Place({0, 1, 2, 3}, {});
  CsvOptions options;
  options.safe = true;
  EXPECT_EQ(Written(table, options), "\uFFFD,\uFFFD 2,'=a,'=a 2,value\r\n");
}

TEST(CsvRenderer, CategoryWithoutASubscriptHasNoCells) {
  Table table;
  OmDimension& dimension = AddCategories(table, "d", {"a"});
  Category(dimension, dimension.Root(), "b", ~0UL);
  Category(dimension, dimension.Root(), "c", ~0UL);
  table.Place({0}, {});
  table.Cell({0}, OmNumber(1));
  EXPECT_EQ(Written(table), "d,value\r\na,1\r\n");
  EXPECT_EQ(Written(table, KeepEmpty()), "d,value\r\na,1\r\nb,\r\nc,\r\n");
}

TEST(CsvRenderer, DimensionThatIsACategoryNeedsNoColumn) {
  Table table;
  table.AddDimension(OmDimension(OmDimensionNode(Utf8("all"), 0, false, nullptr), nullptr));
  AddCategories(table, "d", {"a"});
  table.Place({1}, {0});
  table.Cell({0, 0}, OmNumber(1));
  EXPECT_EQ(Written(table), "d,value\r\na,1\r\n");
  EXPECT_EQ(Written(table, KeepEmpty()), "d,value\r\na,1\r\n");
}

TEST(CsvRenderer, NumbersAreWrittenPlainlyWherePeopleDo) {
  Table table;
  AddCategories(table, "d", {"a", "b", "c"});
  table.Place({0}, {});
  table.Cell({0}, OmNumber(100000, 2));
  table.Cell({1}, OmNumber(0.0001));
  table.Cell({2}, OmNumber(1e300));
  EXPECT_EQ(Written(table), "d,value\r\na,100000\r\nb,0.0001\r\nc,1e+300\r\n");
}

TEST(CsvRenderer, InfiniteNumbersAreWords) {
  Table table;
  AddCategories(table, "d", {"a", "b"});
  table.Place({0}, {});
  table.Cell({0}, OmNumber(std::numeric_limits<double>::infinity(), 2));
  table.Cell({1}, OmNumber(-std::numeric_limits<double>::infinity()));
  CsvOptions options;
  options.safe = true;
  EXPECT_EQ(Written(table, options), "d,value\r\na,inf\r\nb,-inf\r\n");
}

TEST(CsvRenderer, ValuesKeepTheirKind) {
  Table table;
  AddCategories(table, "d", {"a", "b", "c", "d", "e"});
  table.Place({0}, {});
  table.Cell({0}, OmNumber(0.1, 0));
  table.Cell({1}, OmNumber(std::numeric_limits<double>::quiet_NaN()));
  table.Cell({2}, Utf8("-x"));
  table.Cell({3}, OmNumDataValue(2, "two"));
  table.Cell({4}, OmNumDataValue(-3, ""));
  CsvOptions options;
  options.safe = true;
  EXPECT_EQ(Written(table, options), "d,value\r\na,0.1\r\nb,\r\nc,'-x\r\nd,two\r\ne,-3\r\n");
}

TEST(CsvRenderer, NumericCategoriesAreNumbersAndNeverMarked) {
  struct Case {
    double value;
    char const* label;
    char const* field;
  };
  for (Case const& one : {Case{-5, "-5", "-5"},
                          {-5, "", "-5"},
                          {5, "+5.0", "+5.0"},
                          {-1e300, "-1e+300", "-1e+300"},
                          {-5, "-five", "'-five"},
                          {-5, "-5+A1", "'-5+A1"},
                          {-5, "--5", "'--5"},
                          {-5, "-", "'-"},
                          {-5, "=5", "'=5"}}) {
    Table table;
    OmDimension& dimension = table.Add("d");
    dimension.AddNewChild(dimension.Root(), OmNumDataValue(one.value, one.label), 0, false);
    dimension.AddNewChild(dimension.Root(), OmStringDataValue("-5", ""), 1, false);
    table.Place({0}, {});
    table.Cell({0}, OmNumDataValue(one.value, one.label));
    table.Cell({1}, OmNumber(1));
    for (CsvOptions options : {CsvOptions(), Display()}) {
      options.safe = true;
      std::string const field = one.field;
      std::string const records = field + ',' + field + "\r\n'-5,1\r\n";
      EXPECT_TRUE(Written(table, options).ends_with("\r\n" + records)) << Written(table, options);
    }
  }
}

TEST(CsvRenderer, FormulasAreMarkedAfterEverySeparator) {
  for (std::string const end :
       {",", ";", "|", "\t", "\n", "\u00A0", "\u2028", "\u2029", "\u0085"}) {
    for (char const* sign : {"=", "+", "-", "@", "\uFF1D"}) {
      std::string const field = Field("a" + end + sign + "1", true);
      EXPECT_NE(field.find(std::string("'") + sign + "1"), std::string::npos) << field;
    }
    std::string const field = Field("a" + end + "1", true);
    EXPECT_EQ(field.find('\''), std::string::npos) << field;
  }
  EXPECT_EQ(Field("\u00A0=1", true), "\u00A0'=1\r\n");
}

TEST(CsvRenderer, FootnotesHaveAColumn) {
  Table table;
  AddCategories(table, "d", {"a", "b"});
  table.Place({0}, {});
  AddFootnote(table, "one");
  AddFootnote(table, "two", "*");
  OmNumber number(1);
  table.Cell({0}, WithFootnotes(number, {1, 0, 7}));
  table.Cell({1}, OmNumber(2));
  EXPECT_EQ(Written(table), "d,value,footnotes\r\na,1,two; one\r\nb,2,\r\n");
}

TEST(CsvRenderer, FootnotesOfLabelsAndTitleAreWithTheCellsThatTheyAreAbout) {
  Table table;
  for (char const* note : {"of a", "of d", "of the title", "of a cell"}) {
    AddFootnote(table, note);
  }
  OmStringCellUTF8 d("d");
  OmDimension& dimension = table.AddDimension(WithFootnotes(d, {1}));
  OmStringCellUTF8 a("a");
  dimension.AddNewChild(dimension.Root(), WithFootnotes(a, {0}), 0, false);
  Category(dimension, dimension.Root(), "b", 1);
  OmStringCellUTF8 title("title");
  table.SetTableTitle(WithFootnotes(title, {2, 1}));
  table.Place({0}, {});
  OmNumber number(1);
  table.Cell({0}, WithFootnotes(number, {3, 0}));
  table.Cell({1}, OmNumber(2));
  EXPECT_EQ(Written(table),
            "d,value,footnotes\r\n"
            "a,1,of a cell; of a; of d; of the title\r\n"
            "b,2,of d; of the title\r\n");
}

TEST(CsvRenderer, TotalIsToldFromACategoryOfThatName) {
  Table table;
  for (char const* name : {"A", "B"}) {
    OmDimension& dimension = table.AddDimension(OmVariable(name, ""));
    dimension.AddNewChild(dimension.Root(), OmStringDataValue("Total", ""), 0, false);
    AddTotal(dimension, 1);
  }
  table.Place({0}, {1});
  table.PutAll();
  EXPECT_EQ(Written(table),
            "A,B,totals,value\r\n"
            "Total,Total,,1\r\n"
            "Total,Total,A,1\r\n"
            "Total,Total,B,1\r\n"
            "Total,Total,A; B,1\r\n");
}

TEST(CsvRenderer, TotalOfNestedVariablesIsOneOfBoth) {
  Table table;
  OmComposite label("{0} / {1}");
  label.AddPart(OmVariable("A", ""));
  label.AddPart(OmVariable("B", ""));
  OmDimension& dimension = table.AddDimension(label);
  Category(dimension, Group(dimension, dimension.Root(), "x"), "y", 0);
  AddTotal(dimension, 1);
  table.Place({0}, {});
  table.PutAll();
  EXPECT_EQ(Written(table), "A,B,totals,value\r\nx,y,,1\r\n,Total,A; B,1\r\n");
}

TEST(CsvRenderer, CellsOfDeletedCategoriesAreLeftOut) {
  Table table;
  OmDimension& dimension = AddCategories(table, "d", {"a", "b"});
  table.Place({0}, {});
  table.Cell({0}, OmNumber(1));
  table.Cell({1}, OmNumber(2));
  auto node = dimension.Root()[0];
  dimension.Delete(node);
  EXPECT_EQ(Written(table), "d,value\r\nb,2\r\n");
}

TEST(CsvRenderer, TableWithoutDimensionsOrCategoriesIsItsHeader) {
  Table table;
  EXPECT_EQ(Written(table), "value\r\n");
  EXPECT_EQ(Written(table, KeepEmpty()), "value\r\n");
  table.Add("d");
  EXPECT_EQ(Written(table), "d,value\r\n");
  EXPECT_EQ(Written(table, KeepEmpty()), "d,value\r\n");
  OmComposite label("{0} / {1}");
  label.AddPart(OmVariable("A", ""));
  label.AddPart(OmVariable("B", ""));
  table.AddDimension(label);
  EXPECT_EQ(Written(table), "d,A,B,value\r\n");
}

// Display shape

TEST(CsvRenderer, DisplayShapeRepeatsHeadingsAndNamesLayers) {
  Cube cube;
  EXPECT_EQ(Written(cube, Display()),
            "Layer: first\r\n"
            "Row,Column,Column\r\n"
            "Row,x,y\r\n"
            "a,1.1,3.1\r\n"
            "b,5.1,7.1\r\n"
            "Layer: second\r\n"
            "Row,Column,Column\r\n"
            "Row,x,y\r\n"
            "a,2.1,4.1\r\n"
            "b,6.1,\r\n");
}

TEST(CsvRenderer, DisplayShapeShowsALabelOverTwoHeadingColumnsOnce) {
  Table table;
  OmDimension& rows = table.Add("Place");
  Category(rows, Group(rows, rows.Root(), "house"), "cat", 0);
  Category(rows, rows.Root(), "emu", 1);
  table.Place({0}, {});
  table.PutAll();
  EXPECT_EQ(Written(table, Display()), "Place,,\r\nhouse,cat,1\r\nemu,,1\r\n");
}

TEST(CsvRenderer, DisplayShapeShowsOneLayerWhenAsked) {
  Cube cube;
  CsvOptions options = Display();
  options.allLayers = false;
  EXPECT_EQ(Written(cube, options).find("second"), std::string::npos);
}

TEST(CsvRenderer, DisplayShapeOfAnEmptyTableNamesItsDimensions) {
  Table table;
  EXPECT_EQ(Written(table, Display()), "");
  table.Add("d");
  table.Add("e");
  table.Place({0}, {1});
  EXPECT_EQ(Written(table, Display()), "d,e\r\n");
}

// Documents

namespace {

/// Tables with one cell each, by name and label of their dimension.
void AppendTables(OmOutputTree& document,
                  std::vector<std::pair<char const*, char const*>> const& tables) {
  for (auto const& [name, dimensionLabel] : tables) {
    auto& table = AppendItem<OmPivotTable>(document.begin(), Utf8(name), Utf8(name), false);
    OmDimension& dimension = table.AddDimension(Utf8(dimensionLabel));
    Category(dimension, dimension.Root(), "a", 0);
    table.Rows().push_back(0);
    table.Cell({0}, OmNumber(1));
  }
}

std::string WrittenDocument(OmOutputTree& document, CsvOptions const& options = {}) {
  std::ostringstream out;
  RenderCsv(document, out, options);
  return out.str();
}

}  // namespace

TEST(CsvRenderer, OneTableNeedsNoName) {
  OmOutputTree document;
  AppendTables(document, {{"Notes", "n"}, {"t", "d"}, {"Warnings", "w"}});
  EXPECT_EQ(WrittenDocument(document), "d,value\r\na,1\r\n");
}

TEST(CsvRenderer, SeveralTablesHaveOneHeaderAndTheirNamesInAColumn) {
  OmOutputTree document;
  AppendTables(document, {{"first", "d"}, {"second", "e"}, {"third", "d"}});
  EXPECT_EQ(WrittenDocument(document),
            "table,d,e,value\r\n"
            "first,a,,1\r\n"
            "second,,a,1\r\n"
            "third,a,,1\r\n");
}

TEST(CsvRenderer, TablesOfOneNameAreToldApart) {
  OmOutputTree document;
  AppendTables(document, {{"t", "table"}, {"t", "value"}});
  EXPECT_EQ(WrittenDocument(document),
            "table,table 2,value,value 2\r\n"
            "t,a,,1\r\n"
            "t 2,,a,1\r\n");
}

TEST(CsvRenderer, ColumnsThatOneTableNeedsAreEmptyInTheOthers) {
  OmOutputTree document;
  AppendTables(document, {{"plain", "d"}});
  auto& table = AppendItem<Table>(document.begin());
  OmStringCellUTF8 title("noted");
  AddFootnote(table, "note");
  table.SetTableTitle(WithFootnotes(title, {0}));
  OmDimension& dimension = table.AddDimension(OmVariable("d", ""));
  AddTotal(dimension, 0);
  table.Place({0}, {});
  table.Cell({0}, OmNumber(2));
  EXPECT_EQ(WrittenDocument(document),
            "table,d,totals,value,footnotes\r\n"
            "plain,a,,1,\r\n"
            "noted,Total,d,2,note\r\n");
}

TEST(CsvRenderer, DisplayShapeNamesEachOfSeveralTables) {
  OmOutputTree document;
  AppendTables(document, {{"=t", "d"}, {"u", "e"}});
  CsvOptions options = Display();
  options.safe = true;
  EXPECT_EQ(WrittenDocument(document, options), "'=t,d,\r\n'=t,a,1\r\n\r\nu,e,\r\nu,a,1\r\n");
}

TEST(CsvRenderer, HiddenTableIsLeftOut) {
  Cube cube;
  cube.Show(false);
  EXPECT_EQ(Written(cube), "");
}

TEST(CsvRenderer, StreamThatFailsTells) {
  Cube cube;
  std::ostringstream out;
  out.setstate(std::ios::badbit);
  RenderCsv(TableDocument(cube).Tree(), out);
  EXPECT_FALSE(out);
}
