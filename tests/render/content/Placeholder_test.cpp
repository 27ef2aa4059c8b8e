#include "content/Placeholder.h"

#include <gtest/gtest.h>
#include <sstream>
#include <string>

#include <lakresvos/OmTextBlock.h>
#include <lakresvos/render/TextRenderer.h>

#include "render/support/RenderTables.h"

using lakresvos::render::Announcement;
using lakresvos::render::TextRenderer;
using namespace render_tables;

namespace {

std::string ChartOf(ChartXMLContentSubType type) {
  OmChart chart(Utf8("Survival"), "", 1);
  chart.SetImageSubType(type);
  return Announcement(chart);
}

std::string Rendered(OmOutputTree& document) {
  std::ostringstream out;
  out << '\n';
  TextRenderer(out).Render(document);
  return out.str();
}

}  // namespace

// Charts

TEST(ItemAnnouncement, NamesEverySubTypeOfChart) {
  EXPECT_EQ(ChartOf(ChartXMLBar), "[Chart: Survival (bar)]");
  EXPECT_EQ(ChartOf(ChartXMLLine), "[Chart: Survival (line)]");
  EXPECT_EQ(ChartOf(ChartXMLArea), "[Chart: Survival (area)]");
  EXPECT_EQ(ChartOf(ChartXMLPie), "[Chart: Survival (pie)]");
  EXPECT_EQ(ChartOf(ChartXMLScatter), "[Chart: Survival (scatter)]");
  EXPECT_EQ(ChartOf(ChartXMLHistogram), "[Chart: Survival (histogram)]");
  EXPECT_EQ(ChartOf(ChartXMLBoxplot), "[Chart: Survival (boxplot)]");
  EXPECT_EQ(ChartOf(ChartXMLMap), "[Chart: Survival (map)]");
}

TEST(ItemAnnouncement, UnspecifiedSubTypeIsLeftOut) {
  EXPECT_EQ(ChartOf(ChartXMLUnspecified), "[Chart: Survival]");
}

TEST(ItemAnnouncement, UnknownSubTypeIsShownByItsNumber) {
  EXPECT_EQ(ChartOf(static_cast<ChartXMLContentSubType>(9)), "[Chart: Survival (type 9)]");
  EXPECT_EQ(ChartOf(static_cast<ChartXMLContentSubType>(-1)), "[Chart: Survival (type -1)]");
}

TEST(ItemAnnouncement, EmptyLabelIsLeftOut) {
  OmChart chart(Utf8(""), "", 1);
  EXPECT_EQ(Announcement(chart), "[Chart]");
  chart.SetImageSubType(ChartXMLPie);
  EXPECT_EQ(Announcement(chart), "[Chart (pie)]");
}

// Items with sizes

TEST(ItemAnnouncement, ModelTellsTheSizeOfEachStream) {
  OmModel model(Utf8("Regression"));
  model.SetPMML("<PMML/>", 7);
  model.SetBinaryDataStream("\0", 1);
  model.SetPMMLContainer("abc", 3);
  model.SetStatXMLContainer("abcd", 4);
  EXPECT_EQ(Announcement(model),
            "[Model: Regression (PMML: 7 bytes, binary data: 1 byte, PMML container: 3 bytes, "
            "StatXML container: 4 bytes)]");
}

TEST(ItemAnnouncement, AnswerTreeTellsTheSizeOfEachStream) {
  OmAnswerTree tree(Utf8("Segments"), "");
  tree.SetPath("a/b", 3);
  tree.SetCompressedXML("ab", 2, 500);
  tree.SetUncompressedXML("<a/>", 4);
  tree.SetUncompressedDisplayXML("<view/>", 7);
  EXPECT_EQ(Announcement(tree),
            "[Answer tree: Segments (path: 3 bytes, compressed XML: 2 bytes, XML: 4 bytes, "
            "display XML: 7 bytes)]");
}

TEST(ItemAnnouncement, InteractiveItemTellsTheSizesOfItsContents) {
  OmInteractive item(Utf8("Explorer"), "", 1);
  item.setInteractiveJSON("{}", 2);
  item.addGeoJSONFileName("north", 5);
  item.addGeoJSONFileContent("[1]", 3);
  item.addGeoJSONFileName("south", 5);
  item.addGeoJSONFileContent("[12]", 4);
  EXPECT_EQ(Announcement(item), "[Interactive item: Explorer (JSON: 2 bytes, GeoJSON: 7 bytes)]");
}

TEST(ItemAnnouncement, EmptyStreamsAreLeftOut) {
  OmModel model(Utf8("Regression"));
  EXPECT_EQ(Announcement(model), "[Model: Regression]");
  model.SetBinaryDataStream("ab", 2);
  EXPECT_EQ(Announcement(model), "[Model: Regression (binary data: 2 bytes)]");
  EXPECT_EQ(Announcement(OmAnswerTree(Utf8("Segments"), "")), "[Answer tree: Segments]");
  EXPECT_EQ(Announcement(OmInteractive(Utf8("Explorer"), "", 1)), "[Interactive item: Explorer]");
}

// In a document

TEST(ItemAnnouncement, StandsInADocumentAsABlockOfItsOwn) {
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

TEST(ItemAnnouncement, LabelIsCleanedUpAsOtherTexts) {
  OmOutputTree document;
  AppendItem<OmChart>(document.begin(), Utf8("\x1b[1mBold\tand\nbroken \xff"), "", 1);
  EXPECT_EQ(Rendered(document), R"(
Output
══════

[Chart: �[1mBold and
broken �]
)");
}

TEST(ItemAnnouncement, LabelInACodePageStaysReadableWhereItIsAscii) {
  OmOutputTree document;
  AppendItem<OmChart>(document.begin(), Utf8("Café"), "ISO-8859-1", 1);
  EXPECT_EQ(Rendered(document), R"(
Output
══════

[Chart: Caf�]
)");
}
