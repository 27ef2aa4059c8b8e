#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <string>

#include <cells/cells.h>
#include <lakresvos/lakresvos.h>
#include <lakresvos/render/JsonReader.h>

#include "render/json/Documents.h"
#include "render/support/RenderTables.h"

namespace {

using namespace render_tables;
using json_documents::ErrorOf;
using json_documents::Read;
using json_documents::Written;

/// A document with these items.
std::string Document(std::string const& parts) {
  return R"({"format":"lakresvos-document","version":1,"parts":[)" + parts + "]}";
}

std::string TextBlock(std::string const& label, std::string const& more = "") {
  return Document(R"({"depth":0,"type":"text","text":"","label":)" + label + more + "}");
}

/// A document with one table, whose only dimension has these nodes.
std::string Table1(std::string const& nodes, std::string const& cells = "",
                   std::string const& more = "", std::string const& size = "1") {
  return Document(
      R"({"depth":0,"type":"table","label":{"text":""},"template":{"text":""},"dimensions":[{"size":)" +
      size + R"(,"nodes":[)" + nodes + R"(]}],"rows":[0],"cells":[)" + cells + "]" + more + "}");
}

constexpr char kRoot[] = R"({"id":0,"group":true,"label":{"text":"d"}})";
constexpr char kNodes[] =
    R"({"id":0,"group":true,"label":{"text":"d"}},{"id":1,"parent":0,"subscript":0})";

/// A small document with something of everything.
std::string SmallDocument() {
  OmOutputTree tree;
  auto& table = AppendItem<layout_tables::Table>(tree.begin());
  AddCategories(table, "d", {"x"});
  table.Place({0}, {});
  OmComposite composite("{0}");
  composite.AddPart(Utf8("\xFF"));
  table.Cell({0}, composite);
  AddFootnote(table, "note");
  auto area = std::make_unique<FormatArea>(FormatArea::AreaData);
  area->setFontSize(1.5F);
  table.setAreaFormat(area.release());
  table.setBackendSettings(BackendSettings());
  auto& chart = AppendItem<OmChart>(tree.begin(), Utf8("c"), "iso-8859-1", 3);
  chart.SetImageStream("png", 3);
  return Written(tree);
}

// What is not JSON

TEST(JsonReader, TellsLineAndColumnOfWhatIsNotJson) {
  EXPECT_EQ(ErrorOf("{\n  \"\xC3\xBC\" 1}"), "2:7: invalid JSON");
}

TEST(JsonReader, RefusesTheEmptyText) {
  EXPECT_EQ(ErrorOf(""), "1:1: invalid JSON: unexpected end");
}

TEST(JsonReader, RefusesWhatFollowsTheDocument) {
  EXPECT_EQ(ErrorOf(Document("") + "\n]"), "2:1: invalid JSON");
}

TEST(JsonReader, TellsWhatIsNotJsonInItsOwnWords) {
  std::string const text = SmallDocument();
  for (std::size_t at = 0; at < text.size(); at += 3) {
    for (char const c : {'"', '9', '{', ']', ',', '\xFF', '\0', 'a', '-', '\\', '\n'}) {
      std::string changed = text;
      changed[at] = c;
      for (std::string const& damaged : {changed, changed.substr(0, at + 1)}) {
        std::string const error = ErrorOf(damaged);
        for (char const* words : {"literal", "syntax", "parse", "exception", "ill-formed"}) {
          ASSERT_EQ(error.find(words), std::string::npos) << error;
        }
      }
    }
  }
}

TEST(JsonReader, RefusesATextThatBreaksOffAnywhere) {
  std::string const text = SmallDocument();
  ASSERT_EQ(Written(*Read(text)), text);
  for (std::size_t length = 0; length + 2 < text.size(); ++length) {
    ASSERT_NE(ErrorOf(text.substr(0, length)), "no error") << length;
  }
}

TEST(JsonReader, TakesOrRefusesATextWithAnyByteChanged) {
  std::string const text = SmallDocument();
  for (std::size_t at = 0; at < text.size(); ++at) {
    for (char const c : {'"', '9', '{', ']', ',', '\xFF', '\0', 'a', '-'}) {
      std::string changed = text;
      changed[at] = c;
      (void)ErrorOf(changed);
    }
  }
}

TEST(JsonReader, RefusesANumberThatNoDoubleHolds) {
  EXPECT_EQ(ErrorOf("[1e999]"), "1:6: number out of range");
}

TEST(JsonReader, RefusesDeepNesting) {
  EXPECT_EQ(ErrorOf(std::string(1000000, '[')),
            "/0/0/0/0/0/0/0/0/0/0/0/0: nested too deeply (at most 12 levels)");
  std::string objects;
  for (int i = 0; i < 100000; ++i) {
    objects += "{\"a\":";
  }
  EXPECT_EQ(ErrorOf(objects), "/a/a/a/a/a/a/a/a/a/a/a/a: nested too deeply (at most 12 levels)");
}

TEST(JsonReader, RefusesAFieldThatComesTwice) {
  EXPECT_EQ(ErrorOf(R"({"format":"lakresvos-document","version":1,"version":1})"),
            "/version: duplicate field");
  EXPECT_EQ(ErrorOf(TextBlock(R"({"text":"a","text":"b"})")),
            "/parts/0/label/text: duplicate field");
}

TEST(JsonReader, RefusesBytesThatAreNotUtf8) {
  EXPECT_EQ(ErrorOf(TextBlock("{\"text\":\"\xFF\"}")), "1:105: invalid UTF-8");
}

TEST(JsonReader, RefusesAnObjectWithMoreFieldsThanAnyHas) {
  std::string fields;
  for (int i = 0; i < 100000; ++i) {
    fields += (i != 0 ? ",\"" : "\"") + std::to_string(i) + "\":0";
  }
  EXPECT_EQ(ErrorOf("{" + fields + "}"), "/63: too many fields (at most 64)");
}

// What is JSON but no document

TEST(JsonReader, RefusesOtherJson) {
  EXPECT_EQ(ErrorOf("[]"), "expected an object");
  EXPECT_EQ(ErrorOf("{}"), "missing field 'format'");
  EXPECT_EQ(ErrorOf(R"({"format":"x"})"), "/format: expected \"lakresvos-document\"");
}

TEST(JsonReader, RefusesOtherVersions) {
  EXPECT_EQ(ErrorOf(R"({"format":"lakresvos-document","version":2,"new":1})"),
            "/version: unsupported version; expected 1");
}

TEST(JsonReader, RefusesFieldsThatItDoesNotKnow) {
  EXPECT_EQ(ErrorOf(R"({"format":"lakresvos-document","version":1,"parts":[],"a/b~":1})"),
            "/a~1b~0: unknown field");
  EXPECT_EQ(ErrorOf(TextBlock(R"({"number":1,"text":""})")), "/parts/0/label/text: unknown field");
}

TEST(JsonReader, RefusesTypesThatItDoesNotKnow) {
  EXPECT_EQ(ErrorOf(Document(R"({"depth":0,"type":"song"})")), "/parts/0/type: unknown item type");
}

TEST(JsonReader, RefusesValuesOfTheWrongType) {
  EXPECT_EQ(ErrorOf(Document("1")), "/parts/0: expected an object");
  EXPECT_EQ(ErrorOf(TextBlock(R"({"text":1})")), "/parts/0/label/text: expected a string");
  EXPECT_EQ(ErrorOf(TextBlock(R"({"text":"","translatable":0})")),
            "/parts/0/label/translatable: expected true or false");
  EXPECT_EQ(ErrorOf(TextBlock(R"({"text":"","footnotes":{}})")),
            "/parts/0/label/footnotes: expected an array");
  EXPECT_EQ(ErrorOf(TextBlock(R"({"number":"1"})")),
            "/parts/0/label/number: expected a number, \"NaN\", \"Infinity\" or "
            "\"-Infinity\"");
  EXPECT_EQ(ErrorOf(TextBlock(R"({"number":1,"decimals":1.5})")),
            "/parts/0/label/decimals: expected a whole number from -2147483648 to "
            "2147483647");
}

TEST(JsonReader, RefusesAWordThatIsNoneOfTheChoices) {
  EXPECT_EQ(ErrorOf(TextBlock(R"({"variable":"v","display":"name"})")),
            "/parts/0/label/display: expected one of \"value\", \"label\", \"both\"");
}

TEST(JsonReader, RefusesAProcedureWithoutItsFourCodes) {
  EXPECT_EQ(ErrorOf(Document(R"({"depth":0,"type":"procedure","label":{"text":""},"codes":[1]})")),
            "/parts/0/codes: expected 4 numbers");
}

TEST(JsonReader, RefusesNumbersOutOfRange) {
  EXPECT_EQ(ErrorOf(TextBlock(R"({"number":1,"style":65536})")),
            "/parts/0/label/style: expected a whole number from 0 to 65535");
  EXPECT_EQ(ErrorOf(TextBlock(R"({"number":1,"style":-1})")),
            "/parts/0/label/style: expected a whole number from 0 to 65535");
  EXPECT_EQ(ErrorOf(TextBlock(R"({"number":1,"decimals":18446744073709551615})")),
            "/parts/0/label/decimals: expected a whole number from -2147483648 to "
            "2147483647");
  EXPECT_EQ(ErrorOf(Table1(kNodes, "", R"(,"areas":{"data":{"fontSize":1e200}})")),
            "/parts/0/areas/data/fontSize: number out of range");
}

TEST(JsonReader, AlignmentsAndFontStylesMayBeNames) {
  std::string const named =
      Table1(kNodes, "",
             R"(,"areas":{"data":{"fontStyle":"bold italic",)"
             R"("horizontalAlignment":"center","verticalAlignment":"bottom"}})");
  std::istringstream in(named);
  std::string const written = Written(*lakresvos::render::ReadJson(in));
  EXPECT_NE(written.find(R"("fontStyle":3,"horizontalAlignment":1,"verticalAlignment":2)"),
            std::string::npos)
      << written;
}

TEST(JsonReader, NameThatIsNoneIsAnError) {
  EXPECT_EQ(ErrorOf(Table1(kNodes, "", R"(,"areas":{"data":{"horizontalAlignment":"justified"}})")),
            "/parts/0/areas/data/horizontalAlignment: unknown name");
}

TEST(JsonReader, RefusesWhatIsNotBase64) {
  for (char const* text : {"A", "AA", "AAA", "A===", "AB==", "AAB=", "AA=A", "AAAA====", "AA A",
                           "AA\\n=", "====", "-_-_"}) {
    EXPECT_EQ(ErrorOf(TextBlock(R"({"text":{"base64":")" + std::string(text) + "\"}}")),
              "/parts/0/label/text/base64: invalid base64")
        << text;
  }
}

TEST(JsonReader, RefusesADepthThatLeavesALevelOut) {
  std::string const title = R"({"depth":0,"type":"pageTitle","text":""})";
  EXPECT_EQ(ErrorOf(Document(R"({"depth":1,"type":"pageTitle","text":""})")),
            "/parts/0/depth: expected a whole number from 0 to 0");
  EXPECT_EQ(ErrorOf(Document(title + R"(,{"depth":2,"type":"pageTitle","text":""})")),
            "/parts/1/depth: expected a whole number from 0 to 1");
}

TEST(JsonReader, RefusesACellWithoutAValue) {
  EXPECT_EQ(ErrorOf(TextBlock("{}")),
            "/parts/0/label: missing field 'number', 'text', 'utf8', 'variable', 'numberValue', "
            "'textValue' or 'composite'");
}

TEST(JsonReader, RefusesPartsInTheWrongPlace) {
  std::string const start = R"({"composite":"","parts":[{"number":1},)";
  std::string const path = "/parts/0/label/parts/1/";
  EXPECT_EQ(ErrorOf(TextBlock(start + R"({"in":0,"number":2}]})")),
            path + "in: expected a part that is a composite");
  EXPECT_EQ(ErrorOf(TextBlock(start + R"({"below":1,"number":2}]})")),
            path + "below: expected the previous part or one of its ancestors");
  EXPECT_EQ(ErrorOf(TextBlock(start + R"({"below":0,"in":0,"number":2}]})")),
            path + "below: expected either 'in' or 'below', not both");
}

/// A composite of composites, each of which puts the next in twice, around a text.
std::string NestedPatterns(int levels, std::string const& text) {
  std::string parts;
  for (int i = 0; i < levels; ++i) {
    parts +=
        (i != 0 ? R"({"in":)" + std::to_string(i - 1) + "," : "{") + R"("composite":"{0}{0}"},)";
  }
  return R"({"composite":"{0}{0}","parts":[)" + parts + R"({"in":)" + std::to_string(levels - 1) +
         R"(,"text":")" + text + "\"}]}";
}

TEST(JsonReader, RefusesNestedPatternsThatMakeALongText) {
  EXPECT_EQ(ErrorOf(TextBlock(NestedPatterns(8, "abcdef"))), "no error");
  EXPECT_EQ(ErrorOf(TextBlock(NestedPatterns(26, "abcdef"))),
            "/parts/0/label/parts: needs too much memory for the size of the document");
}

TEST(JsonReader, RefusesNestedPatternsThatMakeAnEmptyTextOfManyPieces) {
  EXPECT_EQ(ErrorOf(TextBlock(NestedPatterns(60, ""))),
            "/parts/0/label/parts: needs too much memory for the size of the document");
}

TEST(JsonReader, RefusesAMapThatIsNotFourTexts) {
  std::string const start =
      R"({"depth":0,"type":"chart","id":1,"label":{"text":""},"map":["","",""])";
  EXPECT_EQ(ErrorOf(Document(start + "}")), "/parts/0/map: expected four strings");
  EXPECT_EQ(ErrorOf(Document(start.substr(0, start.size() - 1) + ",\"" + std::string(65536, 'x') +
                             "\"]}")),
            "/parts/0/map: second or fourth string longer than 65535 bytes");
}

// Dimensions and cells

TEST(JsonReader, RefusesNodesThatAreNotNumberedInOrder) {
  EXPECT_EQ(ErrorOf(Table1(R"({"id":1})")), "/parts/0/dimensions/0/nodes/0/id: expected id 0");
}

TEST(JsonReader, RefusesADimensionWithoutARoot) {
  EXPECT_EQ(ErrorOf(Table1("")), "/parts/0/dimensions/0/nodes: missing root node");
}

TEST(JsonReader, RefusesANodeBelowItselfOrBelowAFinishedOne) {
  std::string const root = kRoot;
  std::string const problem = "expected the previous node or one of its ancestors";
  EXPECT_EQ(ErrorOf(Table1(root + R"(,{"id":1,"parent":1})")),
            "/parts/0/dimensions/0/nodes/1/parent: " + problem);
  EXPECT_EQ(ErrorOf(Table1(root + R"(,{"id":1,"parent":0},{"id":2,"parent":0},)"
                                  R"({"id":3,"parent":1})")),
            "/parts/0/dimensions/0/nodes/3/parent: " + problem);
}

TEST(JsonReader, RefusesASecondRoot) {
  EXPECT_EQ(ErrorOf(Table1(std::string(kRoot) + R"(,{"id":1})")),
            "/parts/0/dimensions/0/nodes/1: missing field 'parent'");
}

TEST(JsonReader, TakesNodesWithoutALabel) {
  std::unique_ptr<OmOutputTree> const tree = Read(Table1(R"({"id":0},{"id":1,"parent":0})"));
  auto& table = dynamic_cast<OmPivotTable&>(*tree->begin().Value());
  EXPECT_EQ(table.Dimension(0).Root().Value().label, nullptr);
  EXPECT_EQ(table.Dimension(0).Root().NChildren(), 1U);
}

TEST(JsonReader, RefusesCellsWithTheWrongNumberOfSubscripts) {
  EXPECT_EQ(ErrorOf(Table1(kNodes, R"({"index":[0,0],"number":1})")),
            "/parts/0/cells/0/index: expected 1 subscript, one per dimension");
  std::string const dimension = R"({"size":1,"nodes":[)" + std::string(kNodes) + "]}";
  EXPECT_EQ(
      ErrorOf(Document(R"({"depth":0,"type":"table","label":{"text":""},"template":)"
                       R"({"text":""},"dimensions":[)" +
                       dimension + "," + dimension + R"(],"cells":[{"index":[0],"number":1}]})")),
      "/parts/0/cells/0/index: expected 2 subscripts, one per dimension");
}

TEST(JsonReader, RefusesCellsOfATableWithoutDimensions) {
  EXPECT_EQ(ErrorOf(Document(R"({"depth":0,"type":"table","label":{"text":""},"template":)"
                             R"({"text":""},"dimensions":[],"cells":[{"index":[],"number":1}]})")),
            "/parts/0/cells/0/index: a table without dimensions has no cells");
}

TEST(JsonReader, RefusesNegativeSubscripts) {
  EXPECT_EQ(ErrorOf(Table1(kNodes, R"({"index":[-1],"number":1})")),
            "/parts/0/cells/0/index/0: expected a whole number from 0 to 2147483647");
}

TEST(JsonReader, RefusesSubscriptsBeyondAnInteger) {
  EXPECT_EQ(ErrorOf(Table1(kNodes, R"({"index":[2147483648],"number":1})")),
            "/parts/0/cells/0/index/0: expected a whole number from 0 to 2147483647");
}

TEST(JsonReader, TakesCellsAtFarSubscripts) {
  std::unique_ptr<OmOutputTree> const tree =
      Read(Table1(kNodes, R"({"index":[9000000],"number":1},{"index":[2147483647],"number":2})"));
  auto const& table = dynamic_cast<OmPivotTable&>(*tree->begin().Value());
  EXPECT_NE(table.Cell({9000000}), nullptr);
  EXPECT_NE(table.Cell({2147483647}), nullptr);
}

// Nothing takes memory for subscripts that no category has.
TEST(JsonReader, TakesAnySizeAndAnySubscript) {
  for (char const* const subscript : {"2000000000", "2147483647", "4294967294", "6442450943"}) {
    std::string const nodes =
        R"({"id":0},{"id":1,"parent":0,"subscript":)" + std::string(subscript);
    EXPECT_EQ(ErrorOf(Table1(nodes + "}", "", "", "4294967295")), "no error") << subscript;
  }
}

TEST(JsonReader, TakesALargeSubscriptInAShortText) {
  std::string const large = "1000000";
  std::unique_ptr<OmOutputTree> const tree =
      Read(Table1(R"({"id":0},{"id":1,"parent":0,"subscript":)" + large + "}",
                  R"({"index":[)" + large + R"(],"number":1})", "", "1000001"));
  EXPECT_NE(dynamic_cast<OmPivotTable&>(*tree->begin().Value()).Cell({1000000}), nullptr);
}

TEST(JsonReader, RefusesAnAxisThatNamesADimensionAgainAndAgain) {
  std::string nodes = kRoot;
  std::string cells;
  for (int i = 0; i < 100; ++i) {
    std::string const number = std::to_string(i);
    nodes += R"(,{"id":)" + std::to_string(i + 1) + R"(,"parent":0,"subscript":)" + number + "}";
    cells += (i != 0 ? "," : "") + std::string(R"({"index":[)") + number + R"(],"number":1})";
  }
  std::string text = Table1(nodes, cells, "", "100");
  std::string const once = R"("rows":[0])";
  EXPECT_EQ(ErrorOf(text), "no error");
  EXPECT_EQ(ErrorOf(text.replace(text.find(once), once.size(), R"("rows":[0,0,0,0])")),
            "/parts/0: needs too much memory for the size of the document");
}

TEST(JsonReader, RefusesCategoriesThatShareSubscriptsInManyDimensions) {
  std::string nodes = kRoot;
  for (int i = 1; i <= 10; ++i) {
    nodes += R"(,{"id":)" + std::to_string(i) + R"(,"parent":0,"subscript":0})";
  }
  std::string dimensions;
  std::string numbers;
  std::string index;
  for (int d = 0; d < 10; ++d) {
    std::string const comma = d != 0 ? "," : "";
    dimensions += comma + R"({"size":10,"nodes":[)" + nodes + "]}";
    numbers += comma + std::to_string(d);
    index += comma + "0";
  }
  EXPECT_EQ(ErrorOf(Document(R"({"depth":0,"type":"table","label":{"text":""},"template":)"
                             R"({"text":""},"dimensions":[)" +
                             dimensions + R"(],"rows":[)" + numbers + R"(],"cells":[{"index":[)" +
                             index + R"(],"number":1}]})")),
            "/parts/0: needs too much memory for the size of the document");
}

TEST(JsonReader, ReadsBackATableWithItsCellsOnTheDiagonal) {
  constexpr int kCategories = 16400;  // a list for each, of all subscripts up to its cell's
  std::string text;
  {
    OmOutputTree tree;
    auto& table = AppendItem<layout_tables::Table>(tree.begin());
    table.AddFlat("A", kCategories);
    table.AddFlat("B", kCategories);
    table.Place({0}, {1});
    for (int i = 0; i < kCategories; ++i) {
      table.Cell({i, i}, OmNumber(i));
    }
    text = Written(tree);
  }
  EXPECT_TRUE(Written(*Read(text)) == text);
}

TEST(JsonReader, TakesOldSpellingsOfSubscriptsThatStandForNoPosition) {
  std::unique_ptr<OmOutputTree> const tree = Read(
      Table1(R"({"id":0},{"id":1,"parent":0,"subscript":18446744073709551615},)"
             R"({"id":2,"parent":0,"subscript":18446744073709551614},)"
             R"({"id":3,"parent":0,"subscript":null},{"id":4,"parent":0,"subscript":"removed"},)"
             R"({"id":5,"parent":0,"subscript":"18446744073709551613"})"));
  OmDimension::Node const root =
      dynamic_cast<OmPivotTable&>(*tree->begin().Value()).Dimension(0).Root();
  EXPECT_EQ(root.Child(0).Value().subscript, ~0UL);
  EXPECT_EQ(root.Child(1).Value().subscript, ~1UL);
  EXPECT_EQ(root.Child(2).Value().subscript, ~0UL);
  EXPECT_EQ(root.Child(3).Value().subscript, ~1UL);
  EXPECT_EQ(root.Child(4).Value().subscript, ~2UL);
}

TEST(JsonReader, RefusesDigitsInATextThatANumberCouldHave) {
  std::string const problem =
      "/parts/0/dimensions/0/nodes/1/subscript: expected a whole number from 0 to "
      "18446744073709551615";
  for (char const* const text : {"7", "9007199254740992", "18446744073709551616", "", "gone",
                                 "-9007199254740993", "9007199254740993 ", "9007199254740993.0"}) {
    EXPECT_EQ(
        ErrorOf(Table1(R"({"id":0},{"id":1,"parent":0,"subscript":")" + std::string(text) + "\"}")),
        problem)
        << text;
  }
}

TEST(JsonReader, RefusesCellsThatAreNotInOrder) {
  std::string const problem =
      "/parts/0/cells/1/index: cells out of order: expected ascending subscripts, the first "
      "varying fastest";
  EXPECT_EQ(ErrorOf(Table1(kNodes, R"({"index":[1],"number":1},{"index":[0],"number":1})")),
            problem);
  EXPECT_EQ(ErrorOf(Table1(kNodes, R"({"index":[1],"number":1},{"index":[1],"number":1})")),
            problem);
}

TEST(JsonReader, RefusesAnEmptyCellStyleThatComesTwice) {
  EXPECT_EQ(ErrorOf(Table1(kNodes, "", R"(,"emptyCellStyles":[[1,2],[1,3]])")),
            "/parts/0/emptyCellStyles/1: duplicate place");
  EXPECT_EQ(ErrorOf(Table1(kNodes, "", R"(,"emptyCellStyles":[[1]])")),
            "/parts/0/emptyCellStyles/0: expected a place and a style");
}

TEST(JsonReader, StoresAllCellsOfATableWithACellLimit) {
  std::unique_ptr<OmOutputTree> const tree =
      Read(Table1(kNodes, R"({"index":[0],"number":1},{"index":[1],"number":2})",
                  R"(,"backend":{"maxCells":0})"));
  auto& table = dynamic_cast<OmPivotTable&>(*tree->begin().Value());
  EXPECT_NE(table.Cell({1}), nullptr);
  EXPECT_FALSE(table.IsScratched());
  EXPECT_EQ(table.getBackendSettings().getMaxCells(), 0);
}

TEST(JsonReader, KeepsTheSizeOfADimensionWhateverItsNodes) {
  std::unique_ptr<OmOutputTree> const tree = Read(Table1(kNodes, "", "", "7"));
  EXPECT_EQ(dynamic_cast<OmPivotTable&>(*tree->begin().Value()).Size(0), 7);
}

TEST(JsonReader, KeepsALabelThatIsInACodePage) {
  OmOutputTree tree;
  AppendItem<OmChart>(tree.begin(), Utf8("\xC3\x83\xC2\xBC"), "iso-8859-1", 1);
  std::unique_ptr<OmOutputTree> const copy = Read(Written(tree));
  EXPECT_EQ(copy->begin().FirstChild().Value()->Label()->GetText(), "\xC3\xBC");
}

TEST(JsonReader, LetsLabelsOfADimensionShareTheirContext) {
  std::string const variable = R"("label":{"variable":"v","label":"l","context":"value"})";
  std::unique_ptr<OmOutputTree> const tree =
      Read(Table1(R"({"id":0,)" + variable + R"(},{"id":1,"parent":0,)" + variable + "}"));
  OmDimension& dimension = dynamic_cast<OmPivotTable&>(*tree->begin().Value()).Dimension(0);
  dimension.Root().Value().label->ContextDisplay(OmLabelDisplay::Both);
  EXPECT_EQ(dimension.Root().Child(0).Value().label->GetText(), "v l");
}

// Streams and memory

TEST(JsonReader, RefusesAStreamThatCannotBeRead) {
  std::ifstream in("/no such file");
  try {
    lakresvos::render::ReadJson(in);
    FAIL();
  } catch (lakresvos::render::JsonError const& error) {
    EXPECT_STREQ(error.what(), "cannot read the input");
    EXPECT_EQ(error.Place(), "");
  }
}

TEST(JsonReader, TellsThePlaceApart) {
  std::istringstream in("{}}");
  try {
    lakresvos::render::ReadJson(in);
    FAIL();
  } catch (lakresvos::render::JsonError const& error) {
    EXPECT_EQ(error.Place(), "1:3");
  }
}

}  // namespace
