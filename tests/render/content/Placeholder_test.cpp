#include "content/Placeholder.h"

#include <gtest/gtest.h>
#include <sstream>
#include <string>

#include <lakresvos/OmTextBlock.h>
#include <lakresvos/render/TextRenderer.h>

#include "render/support/RenderTables.h"

using lakresvos::render::MakePlaceholder;
using lakresvos::render::RenderText;
using namespace render_tables;

namespace {

std::string DescribeChart(ChartXMLContentSubType type) {
  OmChart chart(Utf8("Survival"), "", 1);
  chart.SetImageSubType(type);
  return MakePlaceholder(chart);
}

std::string Rendered(OmOutputTree const& document) {
  std::ostringstream out;
  out << '\n';
  RenderText(document, out);
  return out.str();
}

}  // namespace

// Charts

TEST(Placeholder, NamesEverySubTypeOfChart) {
  EXPECT_EQ(DescribeChart(ChartXMLBar), "[Chart: Survival (bar)]");
  EXPECT_EQ(DescribeChart(ChartXMLLine), "[Chart: Survival (line)]");
  EXPECT_EQ(DescribeChart(ChartXMLArea), "[Chart: Survival (area)]");
  EXPECT_EQ(DescribeChart(ChartXMLPie), "[Chart: Survival (pie)]");
  EXPECT_EQ(DescribeChart(ChartXMLScatter), "[Chart: Survival (scatter)]");
  EXPECT_EQ(DescribeChart(ChartXMLHistogram), "[Chart: Survival (histogram)]");
  EXPECT_EQ(DescribeChart(ChartXMLBoxplot), "[Chart: Survival (boxplot)]");
  EXPECT_EQ(DescribeChart(ChartXMLMap), "[Chart: Survival (map)]");
}

TEST(Placeholder, UnspecifiedSubTypeIsLeftOut) {
  EXPECT_EQ(DescribeChart(ChartXMLUnspecified), "[Chart: Survival]");
}

TEST(Placeholder, UnknownSubTypeIsShownByItsNumber) {
  EXPECT_EQ(DescribeChart(static_cast<ChartXMLContentSubType>(9)), "[Chart: Survival (type 9)]");
  EXPECT_EQ(DescribeChart(static_cast<ChartXMLContentSubType>(-1)), "[Chart: Survival (type -1)]");
}

TEST(Placeholder, EmptyLabelIsLeftOut) {
  OmChart chart(Utf8(""), "", 1);
  EXPECT_EQ(MakePlaceholder(chart), "[Chart]");
  chart.SetImageSubType(ChartXMLPie);
  EXPECT_EQ(MakePlaceholder(chart), "[Chart (pie)]");
}

// Items with sizes

TEST(Placeholder, ModelTellsTheSizeOfEachStream) {
  OmModel model(Utf8("Regression"));
  model.SetPMML("<PMML/>", 7);
  model.SetBinaryDataStream("\0", 1);
  model.SetPMMLContainer("abc", 3);
  model.SetStatXMLContainer("abcd", 4);
  EXPECT_EQ(MakePlaceholder(model),
            "[Model: Regression (PMML: 7 bytes, binary data: 1 byte, PMML container: 3 bytes, "
            "StatXML container: 4 bytes)]");
}

TEST(Placeholder, AnswerTreeTellsTheSizeOfEachStream) {
  OmAnswerTree tree(Utf8("Segments"), "");
  tree.SetPath("a/b", 3);
  tree.SetCompressedXML("ab", 2, 500);
  tree.SetUncompressedXML("<a/>", 4);
  tree.SetUncompressedDisplayXML("<view/>", 7);
  EXPECT_EQ(MakePlaceholder(tree),
            "[Answer tree: Segments (path: 3 bytes, compressed XML: 2 bytes, XML: 4 bytes, "
            "display XML: 7 bytes)]");
}

TEST(Placeholder, InteractiveItemTellsTheSizesOfItsContents) {
  OmInteractive item(Utf8("Explorer"), "", 1);
  item.setInteractiveJSON("{}", 2);
  item.addGeoJSONFileName("north", 5);
  item.addGeoJSONFileContent("[1]", 3);
  item.addGeoJSONFileName("south", 5);
  item.addGeoJSONFileContent("[12]", 4);
  EXPECT_EQ(MakePlaceholder(item),
            "[Interactive item: Explorer (JSON: 2 bytes, GeoJSON: 7 bytes)]");
}

TEST(Placeholder, EmptyStreamsAreLeftOut) {
  OmModel model(Utf8("Regression"));
  EXPECT_EQ(MakePlaceholder(model), "[Model: Regression]");
  model.SetBinaryDataStream("ab", 2);
  EXPECT_EQ(MakePlaceholder(model), "[Model: Regression (binary data: 2 bytes)]");
  EXPECT_EQ(MakePlaceholder(OmAnswerTree(Utf8("Segments"), "")), "[Answer tree: Segments]");
  EXPECT_EQ(MakePlaceholder(OmInteractive(Utf8("Explorer"), "", 1)),
            "[Interactive item: Explorer]");
}

// In a document

TEST(Placeholder, IsABlockOfItsOwn) {
  OmOutputTree document;
  AppendItem<OmChart>(document.begin(), Utf8("Survival"), "", 1).SetImageSubType(ChartXMLBar);
  AppendItem<OmModel>(document.begin(), Utf8("Regression"));
  AppendItem<OmAnswerTree>(document.begin(), Utf8("Segments"), "");
  AppendItem<OmInteractive>(document.begin(), Utf8("Explorer"), "", 2);
  AppendItem<OmTextBlock>(document.begin(), Utf8(""), "after");
  EXPECT_EQ(Rendered(document), R"(
Output
══════

[Chart: Survival (bar)]

[Model: Regression]

[Answer tree: Segments]

[Interactive item: Explorer]

after
)");
}

TEST(Placeholder, LabelIsCleanedUpAsOtherTexts) {
  OmOutputTree document;
  AppendItem<OmChart>(document.begin(), Utf8("\x1b[1mBold\tand\nbroken \xff"), "", 1);
  EXPECT_EQ(Rendered(document), R"(
Output
══════

[Chart: �[1mBold and
broken �]
)");
}

TEST(Placeholder, LabelInACodePageStaysReadableWhereItIsAscii) {
  OmOutputTree document;
  AppendItem<OmChart>(document.begin(), Utf8("Café"), "ISO-8859-1", 1);
  EXPECT_EQ(Rendered(document), R"(
Output
══════

[Chart: Caf�]
)");
}
