#include <cmath>
#include <fstream>
#include <gtest/gtest.h>
#include <limits>
#include <map>
#include <new>
#include <sstream>
#include <string>

#include <cells/cells.h>
#include <lakresvos/lakresvos.h>
#include <lakresvos/render/JsonRenderer.h>

#include "render/json/Documents.h"
#include "render/support/SpyTable.h"
#include "support/faults/FailingNew.h"

namespace {

using namespace render_tables;
using json_documents::Read;
using json_documents::Written;

/// The one line of a document that holds a text block with this label.
std::string LabelLine(OmCellText const& label) {
  OmOutputTree tree;
  AppendItem<OmTextBlock>(tree.begin(), label, "");
  std::string const text = Written(tree);
  EXPECT_EQ(Written(*Read(text)), text);
  std::string const before = R"({"depth":1,"type":"text","label":)";
  std::string const after = ",\"text\":\"\"}\n]}\n";
  std::size_t const start = text.find(before) + before.size();
  return text.substr(start, text.size() - after.size() - start);
}

std::string NumberLine(double number) {
  return LabelLine(OmNumber(number));
}

TEST(JsonRenderer, WritesANewDocument) {
  OmOutputTree tree;
  EXPECT_EQ(Written(tree), R"({"format":"lakresvos-document","version":1,"parts":[
{"depth":0,"type":"heading","label":{"text":"Output","translatable":true}}
]}
)");
}

TEST(JsonRenderer, WritesADocumentWithoutItems) {
  OmOutputTree tree;
  OmOutputTree::Node root = tree.begin();
  tree.Erase(root);
  EXPECT_EQ(Written(tree), "{\"format\":\"lakresvos-document\",\"version\":1,\"parts\":[]}\n");
  EXPECT_TRUE(Read(Written(tree))->empty());
}

/// A table with a group, a hidden category, a footnote and two cells.
Table& AppendTable(OmOutputTree& tree) {
  auto& table = AppendItem<Table>(tree.begin());
  OmDimension& rows = table.Add("rows");
  layout_tables::Node const group = Group(rows, rows.Root(), "g");
  Category(rows, group, "a", 0);
  Category(rows, rows.Root(), "b", 1).Value().hide = true;
  AddCategories(table, "columns", {"x"});
  table.Place({0}, {1});
  table.SetTableTitle(Utf8("Title"));
  AddFootnote(table, "note", "*");
  OmNumber cell(1.5, 2);
  table.Cell({0, 0}, WithFootnotes(cell, {0}));
  table.Cell({1, 0}, OmNumber(2));
  return table;
}

TEST(JsonRenderer, WritesATable) {
  OmOutputTree tree;
  AppendTable(tree);
  EXPECT_EQ(Written(tree), R"({"format":"lakresvos-document","version":1,"parts":[
{"depth":0,"type":"heading","label":{"text":"Output","translatable":true}},
{"depth":1,"type":"table","label":{"text":"table"},"template":{"text":"layout"},"title":{"utf8":"Title"},"footnotes":[
{"text":{"utf8":"note"},"marker":{"utf8":"*"},"count":1}
],"dimensions":[
{"size":2,"nodes":[
{"id":0,"label":{"text":"rows"},"subscript":0,"group":true},
{"id":1,"parent":0,"label":{"text":"g"},"group":true},
{"id":2,"parent":1,"label":{"text":"a"},"subscript":0},
{"id":3,"parent":0,"label":{"text":"b"},"subscript":1,"hide":true}
]},
{"size":1,"nodes":[
{"id":0,"label":{"text":"columns"},"subscript":1,"group":true},
{"id":1,"parent":0,"label":{"text":"x"},"subscript":0}
]}
],"rows":[0],"columns":[1],"cells":[
{"index":[0,0],"number":1.5,"decimals":2,"footnotes":[0]},
{"index":[1,0],"number":2}
]}
]}
)");
}

TEST(JsonRenderer, AddsTheLayout) {
  OmOutputTree tree;
  AppendTable(tree);
  lakresvos::render::JsonOptions options;
  options.layout = true;
  std::string const text = Written(tree, options);
  EXPECT_EQ(text.substr(text.find(",\"layout\"")), R"(,"layout":[
{"part":1,"layers":[
{"rows":4,"columns":3,"headingRows":2,"headingColumns":2,"frame":[
{"role":"corner","row":0,"column":0,"rowSpan":2,"columnSpan":2,"text":"rows"},
{"role":"column","row":0,"column":2,"text":"columns"},
{"role":"column","row":1,"column":2,"text":"x"},
{"role":"row","row":2,"column":0,"text":"g"},
{"role":"row","row":2,"column":1,"text":"a"},
{"role":"row","row":3,"column":0,"columnSpan":2}
],"body":[
["1.50"],
["2"]
]}
]}
]}
)");
}

/// How often writing a table with so many cells allocates.
std::size_t CountAllocations(unsigned int cells) {
  OmOutputTree tree;
  auto& table = AppendItem<Table>(tree.begin());
  table.Add("d");
  for (unsigned int i = 0; i < cells; ++i) {
    table.Put({static_cast<int>(i)});
  }
  std::ofstream out("/dev/null");
  auto const suffice = [&](std::size_t allocations) {
    try {
      FailAfter const failing(allocations + 1);
      lakresvos::render::RenderJson(tree, out);
      return true;
    } catch (std::bad_alloc const&) {
      return false;
    }
  };
  std::size_t enough = 1;
  while (!suffice(enough)) {
    enough *= 2;
  }
  for (std::size_t step = enough / 2; step > 0; step /= 2) {
    enough -= suffice(enough - step) ? step : 0;
  }
  return enough;
}

TEST(JsonRenderer, TakesNoMemoryForEachCell) {
  EXPECT_LT(CountAllocations(5000), CountAllocations(50) + 50);
}

TEST(JsonRenderer, LaysOutTheFirstLayerOnlyWhenThatIsAskedFor) {
  OmOutputTree tree;
  auto& table = AppendItem<Table>(tree.begin());
  AddCategories(table, "layers", {"first", "second"});
  table.Place({}, {}, {0});
  table.PutAll();
  lakresvos::render::JsonOptions options;
  options.layout = true;
  EXPECT_NE(Written(tree, options).find(R"("categories":["second"])"), std::string::npos);
  options.allLayers = false;
  std::string const text = Written(tree, options);
  EXPECT_NE(text.find(R"("layer":[{"dimension":"layers","categories":["first"]}])"),
            std::string::npos);
  EXPECT_EQ(text.find(R"("categories":["second"])"), std::string::npos);
}

TEST(JsonRenderer, WritesATableThatIsNotShownButNoLayoutOfIt) {
  OmOutputTree tree;
  AppendTable(tree).Show(false);
  lakresvos::render::JsonOptions options;
  options.layout = true;
  std::string const text = Written(tree, options);
  EXPECT_NE(text.find(R"("show":false)"), std::string::npos);
  EXPECT_NE(text.find("\"layout\":[]}"), std::string::npos);
}

// Numbers and texts

TEST(JsonRenderer, WritesNumbersThatReadBackAsTheSame) {
  EXPECT_EQ(NumberLine(0.1), R"({"number":0.1})");
  EXPECT_EQ(NumberLine(1e300), R"({"number":1e+300})");
  EXPECT_EQ(NumberLine(9007199254740993.0), R"({"number":9.007199254740992e+15})");
}

TEST(JsonRenderer, WritesNumbersPlainlyWherePeopleDo) {
  EXPECT_EQ(NumberLine(100000), R"({"number":100000})");
  EXPECT_EQ(NumberLine(-0.0001), R"({"number":-0.0001})");
}

TEST(JsonRenderer, WritesWholeNumbersThatADoubleDoesNotHoldAsDigits) {
  OmOutputTree tree;
  auto& table = AppendTable(tree);
  table.TableId(-(1LL << 53) - 1);
  table.emptyCellStyles()[1ULL << 53] = 1;
  table.emptyCellStyles()[(1ULL << 53) + 1] = 2;
  std::string const text = Written(tree);
  EXPECT_NE(text.find(R"("id":"-9007199254740993")"), std::string::npos) << text;
  EXPECT_NE(text.find(R"([[9007199254740992,1],["9007199254740993",2]])"), std::string::npos)
      << text;
  EXPECT_EQ(Written(*Read(text)), text);
}

TEST(JsonRenderer, SaysInAWordThatAGroupWasRemoved) {
  OmOutputTree tree;
  OmDimension& rows = AppendTable(tree).Dimension(0);
  layout_tables::Node group = Group(rows, rows.Root(), "empty");
  rows.removeChild(group);
  std::string const text = Written(tree);
  EXPECT_NE(text.find(R"("label":{"text":"empty"},"subscript":"removed")"), std::string::npos)
      << text;
  EXPECT_EQ(text.find("1844674407370955161"), std::string::npos) << text;
  EXPECT_EQ(Written(*Read(text)), text);
}

TEST(JsonRenderer, KeepsTheSignOfZero) {
  EXPECT_EQ(NumberLine(-0.0), R"({"number":-0.0})");
}

TEST(JsonRenderer, WritesWhatIsNotFiniteAsText) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  EXPECT_EQ(NumberLine(std::nan("")), R"({"number":"NaN"})");
  EXPECT_EQ(NumberLine(kInfinity), R"({"number":"Infinity"})");
  EXPECT_EQ(NumberLine(-kInfinity), R"({"number":"-Infinity"})");
}

TEST(JsonRenderer, EscapesQuotesAndControlCharacters) {
  EXPECT_EQ(LabelLine(Utf8(std::string("\"\\/\n\t\r\x01\0", 8))),
            "{\"utf8\":\"\\\"\\\\/\\n\\t\\u000d\\u0001\\u0000\"}");
}

TEST(JsonRenderer, WritesBytesThatAreNotUtf8InBase64) {
  EXPECT_EQ(LabelLine(Utf8("a\xFF")), R"({"utf8":{"base64":"Yf8="}})");
  EXPECT_EQ(LabelLine(Utf8("\xED\xA0\x80")), R"({"utf8":{"base64":"7aCA"}})");
}

// Cells

TEST(JsonRenderer, WritesCellsOfEveryKind) {
  EXPECT_EQ(LabelLine(OmStringCell("t", true)), R"({"text":"t","translatable":true})");
  EXPECT_EQ(LabelLine(OmVariable("v", "l")), R"({"variable":"v","label":"l"})");
  EXPECT_EQ(LabelLine(OmNumDataValue(1, "")), R"({"numberValue":1})");
  EXPECT_EQ(LabelLine(OmStringDataValue("m", "male")), R"({"textValue":"m","label":"male"})");
}

TEST(JsonRenderer, WritesHowALabelledCellIsShown) {
  OmVariable variable("v", "l");
  variable.Display(OmLabelDisplay::Both);
  EXPECT_EQ(LabelLine(variable), R"({"variable":"v","label":"l","display":"both"})");
  variable.ContextDisplay(OmLabelDisplay::Value);
  EXPECT_EQ(LabelLine(variable),
            R"({"variable":"v","label":"l","display":"both","context":"value"})");
}

TEST(JsonRenderer, WritesAStyleOfNumberZeroAsTheSignOfMetadata) {
  OmNumber number(1);
  OmCellMetaData meta;
  number.setMeta(&meta);
  EXPECT_EQ(LabelLine(number), R"({"number":1,"style":0})");
}

TEST(JsonRenderer, WritesThatACellIsATotal) {
  OmStringCell label("Total");
  OmCellMetaData meta;
  meta.setTotal(true);
  label.setMeta(&meta);
  EXPECT_EQ(LabelLine(label), R"({"text":"Total","total":true})");
}

TEST(JsonRenderer, WritesTheTextOfAKindThatItDoesNotKnow) {
  OmOutputTree tree;
  auto& table = AppendItem<Table>(tree.begin());
  AddCategories(table, "d", {"x"});
  table.Cell({0}, SpyCell("spy"));
  EXPECT_NE(Written(tree).find(R"({"index":[0],"utf8":"spy"})"), std::string::npos);
}

TEST(JsonRenderer, AsksEachLabelAndCellForItsTextOnceForTheDocumentAndOnceForItsLayout) {
  OmOutputTree tree;
  FillWithSpies(AppendItem<Table>(tree.begin()));
  for (bool const layout : {false, true}) {
    lakresvos::render::JsonOptions options;
    options.layout = layout;
    SpyLog const log;
    Written(tree, options);
    std::map<std::string, int> const times = TimesAsked(log);
    EXPECT_EQ(times.size(), 16u);
    for (auto const& [text, count] : times) {
      bool const laidOut = text != "title" && text != "caption" && text != "note";
      EXPECT_EQ(count, layout && laidOut ? 2 : 1) << text;
    }
  }
}

TEST(JsonRenderer, WritesAllPartsOfACompositeAsOneList) {
  OmComposite inner("{0}");
  inner.AddPart(OmNumber(1));
  OmComposite outer("{0}{1}");
  outer.AddPart(inner);
  outer.AddPart(OmNumber(3));
  OmVectorTree<OmCellText*>::AppendChild(outer.Parts().Root().Child(0), new OmNumber(2));
  EXPECT_EQ(LabelLine(outer), R"({"composite":"{0}{1}","parts":[{"composite":"{0}"},)"
                              R"({"in":0,"number":1},{"below":0,"number":2},{"number":3}]})");
}

// Structure

TEST(JsonRenderer, LeavesOutElementsWithoutAnItem) {
  OmOutputTree tree;
  OmOutputTree::Node const nothing = tree.begin().AppendChild(nullptr);
  AppendItem<OmPageTitle>(nothing, "below");
  AppendItem<OmPageTitle>(nothing, "beside");
  std::string const text = Written(tree);
  EXPECT_NE(text.find(R"({"depth":1,"type":"pageTitle","text":"below"})"), std::string::npos);
  EXPECT_NE(text.find(R"({"depth":1,"type":"pageTitle","text":"beside"})"), std::string::npos);
}

TEST(JsonRenderer, ChangesNothingOfTheDocument) {
  OmOutputTree tree;
  AppendTable(tree);
  std::string const first = Written(tree);
  EXPECT_EQ(Written(tree), first);
}

TEST(JsonRenderer, TakesAStreamThatFails) {
  OmOutputTree tree;
  AppendTable(tree);
  std::ostringstream out;
  out.setstate(std::ios::badbit);
  lakresvos::render::RenderJson(tree, out);
  EXPECT_TRUE(out.bad());
  EXPECT_EQ(out.str(), "");
}

// Depth

TEST(JsonRenderer, TakesADocumentOfAHundredThousandLevels) {
  OmOutputTree tree;
  OmOutputTree::Node at = tree.begin();
  for (int level = 0; level < 100000; ++level) {
    at = at.AppendChild(new OmPageTitle(""));
  }
  std::string const text = Written(tree);
  EXPECT_EQ(Written(*Read(text)), text);
}

TEST(JsonRenderer, TakesADimensionOfAHundredThousandLevels) {
  OmOutputTree tree;
  auto& table = AppendItem<Table>(tree.begin());
  OmDimension& dimension = table.Add("deep");
  layout_tables::Node at = dimension.Root();
  for (int level = 0; level < 100000; ++level) {
    at = Group(dimension, at, "");
  }
  std::string const text = Written(tree);
  EXPECT_EQ(Written(*Read(text)), text);
}

TEST(JsonRenderer, TakesACompositeOfAHundredThousandLevels) {
  auto outer = std::make_unique<OmComposite>("{0}");
  for (int level = 0; level < 100000; ++level) {
    auto around = std::make_unique<OmComposite>("");
    OmVectorTree<OmCellText*>::AppendChild(around->Parts().Root(), outer.get());
    (void)outer.release();
    outer = std::move(around);
  }
  std::string const line = LabelLine(*outer);
  EXPECT_NE(line.find("{\"in\":99998,\"composite\":\"{0}\"}"), std::string::npos);
}

}  // namespace
