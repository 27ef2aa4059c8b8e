#include <gtest/gtest.h>
#include <set>
#include <sstream>
#include <string>
#include <utility>

#include <lakresvos/OmChart.h>
#include <lakresvos/OmHeading.h>
#include <lakresvos/OmModel.h>
#include <lakresvos/OmOutputTree.h>
#include <lakresvos/OmTextBlock.h>
#include <lakresvos/render/HtmlRenderer.h>

#include "content/ImageType.h"
#include "html/Chart.h"
#include "html/Text.h"
#include "render/support/RenderTables.h"

using namespace lakresvos::render;
using namespace render_tables;

namespace {

std::string Page(OmOutputTree const& document, HtmlOptions const& options = {}) {
  std::ostringstream out;
  RenderHtml(document, out, options);
  return out.str();
}

/// What is between two marks, the first of each kind.
std::string Between(std::string const& text, std::string const& start, std::string const& end) {
  std::size_t const from = text.find(start);
  if (from == std::string::npos) {
    return "nothing starts with " + start;
  }
  std::size_t const after = from + start.size();
  return text.substr(after, text.find(end, after) - after);
}

std::string Main(OmOutputTree const& document, HtmlOptions const& options = {}) {
  return Between(Page(document, options), "<main>\n", "</main>");
}

std::string Outline(OmOutputTree const& document) {
  return Between(Page(document), "<summary>Outline</summary><ul>\n", "</ul></details></nav>");
}

std::size_t Count(std::string const& text, std::string const& part) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
    ++count;
  }
  return count;
}

/// Adds a table below the root.
Table& AddTable(OmOutputTree& document) {
  return AppendItem<Table>(document.begin());
}

/// Two groups of two rows, two columns.
Table& AddGrouped(OmOutputTree& document) {
  Table& table = AddTable(document);
  OmDimension& rows = table.Add("R");
  for (char const* name : {"a", "b"}) {
    auto const group = Group(rows, rows.Root(), name);
    for (int i = 0; i < 2; ++i) {
      Category(rows, group, name + std::to_string(i), rows.CategoryCount());
    }
  }
  AddCategories(table, "C", {"x", "y"});
  table.Place({0}, {1});
  table.PutAll();
  return table;
}

}  // namespace

// Texts

TEST(HtmlText, MarkupIsEscaped) {
  EXPECT_EQ(HtmlText("<script>alert('a' & \"b\")</script>"),
            "&lt;script&gt;alert(&#39;a&#39; &amp; &quot;b&quot;)&lt;/script&gt;");
}

TEST(HtmlText, BrokenTextIsReplaced) {
  EXPECT_EQ(HtmlText("a\xFF\x02z"), "a\xEF\xBF\xBD\xEF\xBF\xBDz");
}

TEST(HtmlText, WordsFromThirteenToTwentyFourCharactersAreWide) {
  for (auto const& [length, wide] : {std::pair(12, false), {13, true}, {24, true}, {25, false}}) {
    std::string word;
    for (int i = 0; i < length; ++i) {
      word += i % 2 == 0 ? "w" : "\xC3\xA4";
    }
    EXPECT_EQ(HasWideWord(word), wide) << length;
    EXPECT_EQ(HasWideWord("so " + word + "\nand so on "), wide) << length;
  }
  EXPECT_FALSE(HasWideWord(""));
  EXPECT_FALSE(HasWideWord("many words that are not"));
}

// The page

TEST(HtmlRenderer, PageIsWhole) {
  OmOutputTree document;
  HtmlOptions options;
  options.title = "A & B";
  std::string const page = Page(document, options);
  EXPECT_EQ(page.substr(0, 46), "<!DOCTYPE html>\n<html lang=\"en\" dir=\"ltr\">\n<he");
  EXPECT_NE(page.find("<title>A &amp; B</title>"), std::string::npos);
  EXPECT_EQ(page.substr(page.size() - 8), "</html>\n");
  EXPECT_EQ(page.find("http"), std::string::npos);
}

TEST(HtmlRenderer, PageWithoutATitleGetsOne) {
  OmOutputTree document;
  HtmlOptions options;
  options.title = "";
  EXPECT_NE(Page(document, options).find("<title>Output</title>"), std::string::npos);
}

TEST(HtmlRenderer, PageHasTheDocumentsTitle) {
  auto const titleOf = [](OmOutputTree& document) {
    return Between(Page(document), "<title>", "</title>");
  };
  OmOutputTree document;
  AppendItem<OmProcedure>(document.begin(), Utf8("program"), "", "", "");
  EXPECT_EQ(titleOf(document), "Output");
  AddTable(document);
  EXPECT_EQ(titleOf(document), "Output");
  AddTable(document).SetTableTitle(OmStringCell("Notes", true));
  EXPECT_EQ(titleOf(document), "Output");
  AddTable(document).SetTableTitle(Utf8("Table & more"));
  EXPECT_EQ(titleOf(document), "Table &amp; more");
  AppendItem<OmHeading>(document.begin(), Utf8(" "));
  AppendItem<OmHeading>(document.begin(), Utf8("Chapter"));
  EXPECT_EQ(titleOf(document), "Chapter");
  AppendItem<OmPageTitle>(document.begin(), "Book");
  EXPECT_EQ(titleOf(document), "Book");
}

TEST(HtmlRenderer, LogReadsFromLeftToRight) {
  OmOutputTree document;
  document.begin().AppendChild(new OmTextBlock(Utf8("Log"), "--table 'a ~'"));
  EXPECT_NE(Main(document).find("<pre dir=\"ltr\">\n--table"), std::string::npos);
}

TEST(HtmlRenderer, OutlineTellsAChartFromItsTable) {
  OmOutputTree document;
  AddTable(document).SetTableTitle(Utf8("Sales"));
  AppendItem<OmChart>(document.begin(), Utf8("Sales"), "", 1);
  AppendItem<OmChart>(document.begin(), Utf8(" "), "", 2);
  std::string const outline = Outline(document);
  EXPECT_NE(outline.find("<li><a href=\"#part-1\">Sales</a></li>"), std::string::npos);
  EXPECT_NE(outline.find("<li><a href=\"#part-2\">Chart: Sales</a></li>"), std::string::npos);
  EXPECT_NE(outline.find("<li><a href=\"#part-3\">Chart</a></li>"), std::string::npos);
}

TEST(HtmlRenderer, DocumentWithoutAHeadingGetsOne) {
  OmOutputTree document;
  delete document.begin().Value();
  document.begin().Value() = nullptr;
  EXPECT_EQ(Main(document), "<h1>Output</h1>\n");
}

TEST(HtmlRenderer, HeadingsNeverSkipALevel) {
  OmOutputTree document;
  auto node = document.begin();
  node = node.AppendChild(new OmTextBlock(Utf8(""), "t"));
  node = node.AppendChild(new OmHeading(Utf8("deep")));
  for (int depth = 0; depth < 6; ++depth) {
    node = node.AppendChild(new OmHeading(Utf8("d")));
  }
  std::string const main = Main(document);
  EXPECT_NE(main.find("<h1 id=\"part-0\">Output</h1>"), std::string::npos);
  EXPECT_NE(main.find("<h2 id=\"part-2\">deep</h2>"), std::string::npos);
  EXPECT_NE(main.find("<h3 id=\"part-3\">d</h3>"), std::string::npos);
  EXPECT_NE(main.find("<h6 id=\"part-8\">d</h6>"), std::string::npos);
}

TEST(HtmlRenderer, TextsKeepTheirLines) {
  OmOutputTree document;
  document.begin().AppendChild(new OmTextBlock(Utf8("<Log>"), "\na\n b"));
  document.begin().AppendChild(new OmPageTitle("Page"));
  EXPECT_EQ(Main(document),
            "<h1 id=\"part-0\">Output</h1>\n"
            "<div class=\"text\" id=\"part-1\"><p class=\"label\">&lt;Log&gt;</p><pre>\n"
            "\na\n b</pre></div>\n"
            "<p class=\"page-title\" id=\"part-2\">Page</p>\n");
}

TEST(HtmlRenderer, OutlineNestsWhatHasChildren) {
  OmOutputTree document;
  auto const a = document.begin().AppendChild(new OmHeading(Utf8("a")));
  a.AppendChild(new OmHeading(Utf8("b")));
  a.AppendChild(new OmTextBlock(Utf8("no entry"), ""));
  document.begin().AppendChild(new OmHeading(Utf8("<c>")));
  EXPECT_EQ(Outline(document),
            "<li><a href=\"#part-0\">Output</a>"
            "<details open><summary><span class=\"spoken\">Below Output</span></summary><ul>\n"
            "<li><a href=\"#part-1\">a</a>"
            "<details open><summary><span class=\"spoken\">Below a</span></summary><ul>\n"
            "<li><a href=\"#part-2\">b</a></li>\n"
            "</ul></details></li>\n"
            "<li><a href=\"#part-4\">&lt;c&gt;</a></li>\n"
            "</ul></details></li>\n");
}

TEST(HtmlRenderer, OutlineOfADeepDocumentStaysFlatBelowTheSixthLevel) {
  OmOutputTree document;
  auto node = document.begin();
  for (int depth = 0; depth < 100'000; ++depth) {
    node = node.AppendChild(new OmHeading(Utf8("d")));
  }
  std::string const outline = Outline(document);
  EXPECT_EQ(Count(outline, "<details"), 6u);
  EXPECT_EQ(Count(outline, "</details>"), 6u);
  EXPECT_EQ(Count(outline, "<li>"), 100'001u);
}

// Tables

TEST(HtmlRenderer, SimpleTable) {
  OmOutputTree document;
  Table& table = AddTable(document);
  AddCategories(table, "Sex", {"Male", "Female"});
  table.Place({0}, {});
  table.Cell({0}, OmNumber(1));
  table.Cell({1}, Utf8("<two>"));
  EXPECT_EQ(
      Between(Main(document), "<table", "</table>"),
      " class=\"pivot-table\" aria-labelledby=\"t1l0t\">"
      "<colgroup span=\"1\"></colgroup><colgroup span=\"1\"></colgroup>"
      "<thead><tr><th class=\"corner h0 edge\" scope=\"col\">Sex</th><td></td></tr>\n</thead>\n"
      "<tbody><tr><th class=\"h0 edge\" scope=\"row\">Male</th><td class=\"n\">1</td></tr>\n"
      "<tr><th class=\"h0 edge\" scope=\"row\">Female</th><td>&lt;two&gt;</td></tr>\n</tbody>\n");
}

TEST(HtmlRenderer, CellsOfNestedHeadingsNameAllTheirHeaders) {
  OmOutputTree document;
  AddGrouped(document);
  EXPECT_EQ(Between(Main(document), "<tbody>", "</tbody>"),
            "<tr><th class=\"h0\" id=\"h3\" scope=\"rowgroup\" rowspan=\"2\">"
            "<span class=\"stay\">a</span></th>"
            "<th class=\"h1 edge\" id=\"h4\" scope=\"row\">a0</th>"
            "<td class=\"n\" headers=\"h3 h4 h0 h1\">1</td>"
            "<td class=\"n\" headers=\"h3 h4 h0 h2\">1</td></tr>\n"
            "<tr><th class=\"h1 edge\" id=\"h5\" scope=\"row\">a1</th>"
            "<td class=\"n\" headers=\"h3 h5 h0 h1\">1</td>"
            "<td class=\"n\" headers=\"h3 h5 h0 h2\">1</td></tr>\n");
}

TEST(HtmlRenderer, HeaderCellsOfAllTablesAndLayersHaveIdsOfTheirOwn) {
  OmOutputTree document;
  AddGrouped(document);
  AddGrouped(document).Place({0}, {});
  AddGrouped(document).Place({}, {0});
  std::string const main = Main(document);
  std::set<std::string> ids;
  std::size_t headers = 0;
  for (std::size_t at = main.find("id=\""); at != std::string::npos; at = main.find("id=\"", at)) {
    at += 4;
    EXPECT_TRUE(ids.insert(main.substr(at, main.find('"', at) - at)).second);
  }
  for (std::size_t at = main.find("headers=\""); at != std::string::npos;
       at = main.find("headers=\"", at)) {
    at += 9;
    std::istringstream listed(main.substr(at, main.find('"', at) - at));
    for (std::string id; listed >> id; ++headers) {
      EXPECT_EQ(ids.count(id), 1u) << id;
    }
  }
  EXPECT_GT(headers, 24u);
}

TEST(HtmlRenderer, CellsTakeFewBytesForTheNamesOfTheirHeaders) {
  OmOutputTree document;
  Table& table = AddTable(document);
  table.AddFlat("R", 1000);
  table.AddFlat("C", 40);
  table.Place({0}, {1});
  table.PutAll();
  EXPECT_LT(Main(document).size(), 45u * 40'000);
}

TEST(HtmlRenderer, EachOutermostGroupHasABody) {
  OmOutputTree document;
  AddGrouped(document);
  EXPECT_EQ(Count(Main(document), "<tbody>"), 2u);
}

TEST(HtmlRenderer, EmptyHeadingIsAPlainCell) {
  OmOutputTree document;
  Table& table = AddTable(document);
  AddCategories(table, "Sex", {"", "b"});
  table.Place({0}, {});
  table.PutAll();
  EXPECT_NE(Main(document).find("<tr><td class=\"h0 edge\"></td><td class=\"n\">1</td></tr>"),
            std::string::npos);
}

TEST(HtmlRenderer, HeadingOfSpacesIsAPlainCellWithoutAnId) {
  OmOutputTree document;
  Table& table = AddTable(document);
  AddCategories(table, "A", {" \n", "b"});
  AddCategories(table, "B", {"\t"});
  table.Place({0}, {1});
  table.PutAll();
  std::string const main = Main(document);
  EXPECT_NE(main.find("<tr><td class=\"h0 edge\"> \n</td><td class=\"n\" headers=\"h0\">1</td>"),
            std::string::npos);
  EXPECT_EQ(Count(main, "id=\"h"), 2u);
}

TEST(HtmlRenderer, HeadingWithoutATextIsADash) {
  OmOutputTree document;
  AppendItem<OmHeading>(document.begin(), Utf8(" "));
  EXPECT_NE(Main(document).find("<h2 id=\"part-1\">\u2014</h2>"), std::string::npos);
  EXPECT_EQ(Count(Outline(document), "<li>"), 1u);
}

TEST(HtmlRenderer, HeadingOverMoreColumnsThanACellCanReachOverIsRepeated) {
  OmOutputTree document;
  Table& table = AddTable(document);
  table.AddFlat("C", 1201);
  table.Place({}, {0});
  table.PutAll();
  std::string const main = Main(document);
  EXPECT_NE(main.find("<colgroup span=\"1000\"></colgroup><colgroup span=\"201\"></colgroup>"),
            std::string::npos);
  EXPECT_NE(main.find("<th id=\"h0\" scope=\"colgroup\" colspan=\"1000\"><span "
                      "class=\"stay\">C</span></th>"
                      "<th id=\"h1\" scope=\"colgroup\" colspan=\"201\"><span "
                      "class=\"stay\">C</span></th></tr>"),
            std::string::npos);
  EXPECT_NE(main.find("headers=\"h1 hxe\">1</td></tr>"), std::string::npos);
}

TEST(HtmlRenderer, HeadingBesideMoreRowsThanACellCanReachOverIsRepeated) {
  OmOutputTree document;
  Table& table = AddTable(document);
  OmDimension& rows = table.Add("R");
  auto const group = Group(rows, rows.Root(), "g");
  for (unsigned long i = 0; i < 65'536; ++i) {
    Category(rows, group, "c", i);
  }
  table.Place({0}, {});
  table.PutAll();
  std::string const main = Main(document);
  EXPECT_NE(main.find("scope=\"rowgroup\" rowspan=\"65534\"><span class=\"stay\">g</span></th>"),
            std::string::npos);
  EXPECT_NE(main.find("<tr><th class=\"h0\" id=\"h1ekf\" scope=\"rowgroup\" rowspan=\"2\">"
                      "<span class=\"stay\">g</span></th><th class=\"h1 edge\" id=\"h1ekg\" "
                      "scope=\"row\">c</th>"
                      "<td class=\"n\" headers=\"h1ekf h1ekg\">1</td></tr>"),
            std::string::npos);
  EXPECT_EQ(Count(main, ">g</span></th>"), 2u);
}

TEST(HtmlRenderer, TableWithoutRowsAndColumnsHasItsNotes) {
  OmOutputTree document;
  Table& table = AddTable(document);
  table.Add("A");
  table.Add("B");
  table.Place({0}, {1});
  AddFootnote(table, "note");
  HtmlOptions options;
  options.skipEmpty = false;
  EXPECT_NE(Main(document, options)
                .find("<ul class=\"notes\"><li id=\"part-1n1\"><sup>a</sup> note</li></ul></div>"),
            std::string::npos);
}

TEST(HtmlRenderer, EveryLayerIsATableWithItsNameAndItsOwnIds) {
  OmOutputTree document;
  Table& table = AddTable(document);
  AddCategories(table, "Age", {"Child", "Adult"});
  AddCategories(table, "Sex", {"Male"});
  table.Place({1}, {}, {0});
  table.PutAll();
  std::string const main = Main(document);
  EXPECT_EQ(Count(main, "<table"), 2u);
  EXPECT_NE(main.find("<div class=\"layer\" data-name=\"Age: Child\">"), std::string::npos);
  EXPECT_NE(main.find("<span class=\"layer-line\">Age: Adult</span>"), std::string::npos);
  HtmlOptions options;
  options.allLayers = false;
  EXPECT_EQ(Count(Main(document, options), "<table"), 1u);
}

TEST(HtmlRenderer, FootnotesLinkBothWays) {
  OmOutputTree document;
  Table& table = AddTable(document);
  AddCategories(table, "Sex", {"Male", "Female"});
  table.Place({0}, {});
  AddFootnote(table, "First & last.");
  OmNumber one(1);
  table.Cell({0}, WithFootnotes(one, {0}));
  table.Cell({1}, WithFootnotes(one, {0, 9}));
  std::string const main = Main(document);
  EXPECT_NE(
      main.find("1<sup><a role=\"doc-noteref\" id=\"t1l0m2\" href=\"#t1l0n1\">a</a></sup></td>"),
      std::string::npos);
  EXPECT_NE(main.find("</table>\n</div><ul class=\"notes\"><li id=\"t1l0n1\"><sup>a</sup> "
                      "First &amp; last. <a role=\"doc-backlink\" href=\"#t1l0m1\""),
            std::string::npos);
  EXPECT_EQ(Count(main, "doc-backlink"), 1u);
}

namespace {

/// A page of a table with so many layers, each with a note of its own, and a note without a mark.
std::string MainOfLayersWithNotes(int layers) {
  OmOutputTree document;
  Table& table = AddTable(document);
  table.AddFlat("layer", static_cast<unsigned int>(layers));
  AddCategories(table, "row", {"r"});
  table.Place({1}, {}, {0});
  AddFootnote(table, "unused");
  for (int layer = 0; layer < layers; ++layer) {
    OmNumber one(1);
    table.Cell({layer, 0}, WithFootnotes(one, {AddFootnote(table, "note")}));
  }
  return Main(document);
}

}  // namespace

// Listing all notes below each layer made a page grow as layers times notes.
TEST(HtmlRenderer, LayerListsTheNotesThatItUses) {
  std::string const main = MainOfLayersWithNotes(1000);
  EXPECT_EQ(Count(main, "<li id=\"t1l"), 1000u);
  EXPECT_EQ(Count(Between(main, "id=\"t1l7t\"", "class=\"layer\""), "<li"), 1u);
  EXPECT_NE(main.find("<li id=\"t1l7n9\">"), std::string::npos);
  EXPECT_EQ(Count(main, "unused"), 1u);
  EXPECT_EQ(Count(main, "<ul class=\"notes\"><li id=\"part-1n1\"><sup>a</sup> unused</li></ul>"),
            1u);
}

TEST(HtmlRenderer, PageGrowsAsItsLayersAndNotesDo) {
  EXPECT_LT(MainOfLayersWithNotes(1000).size(), 5'000'000u);
  EXPECT_LT(MainOfLayersWithNotes(200).size(), MainOfLayersWithNotes(100).size() * 21 / 10);
}

TEST(HtmlRenderer, FirstLayerAloneListsNoNotesOfOthers) {
  OmOutputTree document;
  Table& table = AddTable(document);
  AddCategories(table, "layer", {"x", "y"});
  AddCategories(table, "row", {"r"});
  table.Place({1}, {}, {0});
  AddFootnote(table, "note");
  OmNumber one(1);
  table.Cell({0, 0}, one);
  table.Cell({1, 0}, WithFootnotes(one, {0}));
  HtmlOptions options;
  options.allLayers = false;
  EXPECT_EQ(Count(Main(document, options), "note</li>"), 0u);
}

TEST(HtmlRenderer, NumbersLeaveRoomForTheMostMarks) {
  OmOutputTree document;
  AddGrouped(document);
  Table& table = AddTable(document);
  AddCategories(table, "Sex", {"Male", "Female"});
  table.Place({0}, {});
  AddFootnote(table, "first");
  AddFootnote(table, "second", "**");
  OmNumber one(1);
  table.Cell({0}, WithFootnotes(one, {0, 1}));
  table.Cell({1}, WithFootnotes(one, {0}));
  std::string const page = Page(document);
  EXPECT_NE(page.find("#part-2{--marks:4}\n"), std::string::npos);
  EXPECT_EQ(page.find("#part-1{--marks"), std::string::npos);
}

TEST(HtmlRenderer, TotalsAreToldFromCategoriesOfThatName) {
  OmOutputTree document;
  Table& table = AddTable(document);
  OmStringCellUTF8 total("Total");
  OmCellMetaData meta;
  meta.setTotal(true);
  total.setMeta(&meta);
  for (char const* name : {"R", "C"}) {
    OmDimension& dimension = AddCategories(table, name, {"Total"});
    dimension.AddNewChild(dimension.Root(), total, 1, false);
  }
  table.Place({0}, {1});
  table.PutAll();
  std::string const main = Main(document);
  EXPECT_NE(main.find("scope=\"col\">Total</th><th class=\"t\" id="), std::string::npos);
  std::string const body = Between(main, "<tbody>", "</tbody>");
  EXPECT_NE(body.find("<tr><th class=\"h0 edge\" id="), std::string::npos);
  EXPECT_NE(body.find("<tr class=\"total\"><th class=\"h0 edge t\" id="), std::string::npos);
  EXPECT_EQ(Count(body, "<td class=\"n\""), 2u);
  EXPECT_EQ(Count(body, "<td class=\"n t\""), 2u);
}

TEST(HtmlRenderer, AlternateRowsAlternateAcrossGroups) {
  OmOutputTree document;
  Table& table = AddGrouped(document);
  auto* const format = new FormatArea(FormatArea::AreaData);
  format->setUseAltRowColors(true);
  format->setAlternateBackgroundColor("#e8eef5");
  table.setAreaFormat(format);
  Table& three = AddTable(document);
  OmDimension& rows = three.Add("R");
  auto const group = Group(rows, rows.Root(), "g");
  for (unsigned long i = 0; i < 3; ++i) {
    Category(rows, group, "c", i);
  }
  auto const other = Group(rows, rows.Root(), "h");
  for (unsigned long i = 3; i < 5; ++i) {
    Category(rows, other, "c", i);
  }
  three.Place({0}, {});
  three.PutAll();
  three.setAreaFormat(new FormatArea(*format));
  std::string const page = Page(document);
  EXPECT_NE(
      page.find("tbody tr.alt td:not([class^=h])){background-color:#e8eef5;color:var(--text);}"),
      std::string::npos);
  std::string rowsOfThree;
  std::string const body = Between(page, "id=\"t2l0t\"", "</table>");
  std::size_t const first = body.find("<tbody>");
  for (std::size_t at = body.find("<tr", first); at != std::string::npos;
       at = body.find("<tr", at + 1)) {
    rowsOfThree += body.compare(at, 16, "<tr class=\"alt\">") == 0 ? 'a' : '.';
  }
  EXPECT_EQ(rowsOfThree, ".a.a.");
}

TEST(HtmlRenderer, MarksOfOneCellAreToldApart) {
  OmOutputTree document;
  Table& table = AddTable(document);
  AddCategories(table, "Sex", {"Male"});
  table.Place({0}, {});
  AddFootnote(table, "first");
  AddFootnote(table, "second", "<*>");
  OmNumber one(1);
  table.Cell({0}, WithFootnotes(one, {1, 0}));
  EXPECT_NE(Main(document).find(
                "1<sup><a role=\"doc-noteref\" id=\"t1l0m1\" href=\"#t1l0n2\">&lt;*&gt;</a>,"
                "<a role=\"doc-noteref\" id=\"t1l0m2\" href=\"#t1l0n1\">a</a></sup></td>"),
            std::string::npos);
}

TEST(HtmlRenderer, NoteOfManyCellsLinksBackToTheFirst) {
  OmOutputTree document;
  Table& table = AddTable(document);
  table.AddFlat("d", 1000);
  table.Place({0}, {});
  AddFootnote(table, "n");
  OmNumber one(1);
  WithFootnotes(one, {0});
  for (int i = 0; i < 1000; ++i) {
    table.Cell({i}, one);
  }
  std::string const main = Main(document);
  EXPECT_EQ(Count(main, "doc-noteref"), 1000u);
  EXPECT_EQ(Count(main, "doc-backlink"), 1u);
}

TEST(HtmlRenderer, CaptionIsBelowTheTableUnlessHidden) {
  OmOutputTree document;
  Table& table = AddGrouped(document);
  OmStringCellUTF8 const caption("Source");
  table.Caption(&caption);
  EXPECT_NE(Main(document).find("</table>\n</div><p class=\"table-caption\">Source</p></div>"),
            std::string::npos);
  table.showCaption(false);
  EXPECT_EQ(Main(document).find("Source"), std::string::npos);
}

TEST(HtmlRenderer, HiddenTableIsLeftOut) {
  OmOutputTree document;
  AddGrouped(document).Show(false);
  EXPECT_EQ(Main(document), "<h1 id=\"part-0\">Output</h1>\n");
  EXPECT_EQ(Count(Outline(document), "<li>"), 1u);
}

TEST(HtmlRenderer, TableWithoutCellsIsItsTitleNotesAndCaption) {
  OmOutputTree document;
  Table& table = AddTable(document);
  AddFootnote(table, "note");
  OmStringCellUTF8 title("Nothing");
  table.SetTableTitle(WithFootnotes(title, {0}));
  OmStringCellUTF8 const caption("Source");
  table.Caption(&caption);
  EXPECT_EQ(
      Between(Main(document), "<div class=\"pivot\" id=\"part-1\">\n", "</div>"),
      "<p class=\"title\">Nothing<sup><a role=\"doc-noteref\" id=\"part-1m1\" "
      "href=\"#part-1n1\">a</a></sup></p><ul class=\"notes\"><li id=\"part-1n1\"><sup>a</sup> "
      "note <a role=\"doc-backlink\" href=\"#part-1m1\" aria-label=\"Back to mark a\">"
      "\u21A9</a></li></ul><p class=\"table-caption\">Source</p>");
}

TEST(HtmlRenderer, LocaleOfTheFirstTableIsThePages) {
  OmOutputTree document;
  AddGrouped(document).TableLocale("ar_EG");
  AddGrouped(document).TableLocale("en_US");
  std::string const page = Page(document);
  EXPECT_NE(page.find("<html lang=\"ar-EG\" dir=\"rtl\">"), std::string::npos);
  EXPECT_NE(page.find("<div class=\"pivot\" id=\"part-2\" lang=\"en-US\" dir=\"ltr\">"),
            std::string::npos);
}

// Styles

TEST(HtmlRenderer, AreaFormatsBecomeRules) {
  OmOutputTree document;
  Table& table = AddGrouped(document);
  auto* const format = new FormatArea(FormatArea::AreaData);
  format->setFontName("A\"b</style>");
  format->setFontSize(9.5F);
  format->setFontStyle(3);
  format->setUnderline(true);
  format->setHorizontalAlignment(1);
  format->setVerticalAlignment(2);
  format->setTextColor("#102030");
  format->setBackgroundColor("red;}");
  format->setUseAltRowColors(true);
  format->setAlternateBackgroundColor("#000");
  format->setMarginLeft(-4);
  table.setAreaFormat(format);
  std::string const page = Page(document);
  EXPECT_NE(page.find("#part-1 :where(tbody td:not([class^=h])){font-family:\"A\\22 b\\3c "
                      "/style>\";font-size:9.5pt;"
                      "font-weight:bold;font-style:italic;text-decoration:underline;"
                      "text-align:center;vertical-align:bottom;color:#102030;"
                      "padding:2pt 2pt 2pt 0pt;}\n"
                      "#part-1 :where(tbody tr.alt td:not([class^=h])){"
                      "background-color:#000;color:#fff;}\n"),
            std::string::npos);
  EXPECT_NE(page.find("<div class=\"pivot paper\" id=\"part-1\">"), std::string::npos);
}

TEST(HtmlRenderer, BackgroundAloneGetsAReadableText) {
  OmOutputTree document;
  Table& table = AddGrouped(document);
  auto* const format = new FormatArea(FormatArea::AreaColumnLabels);
  format->setBackgroundColor("#e8eef5");
  table.setAreaFormat(format);
  EXPECT_NE(Page(document).find("{background-color:#e8eef5;color:var(--text);"), std::string::npos);
}

TEST(HtmlRenderer, CellStylesBecomeClasses) {
  OmOutputTree document;
  Table& table = AddGrouped(document);
  table.cellStyles().resize(2);
  table.cellStyles()[1].setFontStyle(1);
  OmNumber styled(5);
  OmCellMetaData meta;
  meta.setStyle(1);
  styled.setMeta(&meta);
  table.Cell({0, 0}, styled);
  meta.setStyle(2);
  styled.setMeta(&meta);
  table.Cell({0, 1}, styled);
  std::string const page = Page(document);
  EXPECT_NE(page.find("#part-1 .s1{font-weight:bold;font-style:normal;}"), std::string::npos);
  EXPECT_EQ(Count(page, "<td class=\"n s1\""), 1u);
  EXPECT_EQ(Count(page, "s2\""), 0u);
}

TEST(HtmlRenderer, HeadingsHaveStylesToo) {
  OmOutputTree document;
  Table& table = AddTable(document);
  table.cellStyles().resize(2);
  OmCellMetaData meta;
  meta.setStyle(1);
  OmStringCellUTF8 label("l");
  label.setMeta(&meta);
  OmDimension& rows = table.AddDimension(label);
  rows.AddNewChild(rows.Root(), label, 0, false);
  OmDimension& columns = table.AddDimension(Utf8("C"));
  columns.AddNewChild(columns.Root(), label, 0, false);
  table.Place({0}, {1});
  table.PutAll();
  std::string const main = Main(document);
  EXPECT_NE(main.find("<th class=\"corner h0 edge s1\""), std::string::npos);
  EXPECT_NE(main.find("<th class=\"s1\" id=\"h1\" scope=\"col\">l</th>"), std::string::npos);
  EXPECT_NE(main.find("<th class=\"h0 edge s1\""), std::string::npos);
}

// Charts and other items

TEST(ImageType, ImagesAreToldByTheirContent) {
  EXPECT_EQ(ImageType("\x89PNG\r\n\x1A\n..."), "image/png");
  EXPECT_EQ(ImageType("\xFF\xD8\xFF\xE0"), "image/jpeg");
  EXPECT_EQ(ImageType("<svg xmlns=''>"), "image/svg+xml");
  EXPECT_EQ(ImageType("\xEF\xBB\xBF <?xml version='1.0'?>\n<svg>"), "image/svg+xml");
  EXPECT_EQ(ImageType("<!DOCTYPE svg><svg>"), "image/svg+xml");
  EXPECT_EQ(ImageType("<?xml version='1.0'?><html>"), "");
  EXPECT_EQ(ImageType("GIF89a"), "");
  EXPECT_EQ(ImageType(""), "");
}

TEST(HtmlChart, PictureHasTheLabelAsItsText) {
  OmChart chart(Utf8("Bars <1>"), "", 1);
  chart.SetImageStream("<svg/>", 6);
  EXPECT_EQ(HtmlChart(chart),
            "<div class=\"scroll\" tabindex=\"0\" role=\"group\" aria-label=\"Bars &lt;1&gt;\">"
            "<img alt=\"Bars &lt;1&gt;\" src=\"data:image/svg+xml;base64,PHN2Zy8+\"></div>"
            "<figcaption>Bars &lt;1&gt;</figcaption>");
}

TEST(HtmlChart, PictureWithoutALabelIsAChart) {
  OmChart chart(Utf8(""), "", 1);
  chart.SetImageStream("<svg/>", 6);
  EXPECT_EQ(HtmlChart(chart),
            "<div class=\"scroll\" tabindex=\"0\" role=\"group\" aria-label=\"Chart\">"
            "<img alt=\"Chart\" src=\"data:image/svg+xml;base64,PHN2Zy8+\"></div>");
}

TEST(HtmlChart, DataAreATable) {
  OmChart chart(Utf8("Bars"), "", 1);
  std::string const json =
      R"({"categories":["<a>","b"],"series":[{"name":"s","values":[1.5,null]}]})";
  chart.SetViZJSON(json.data(), static_cast<unsigned int>(json.size()));
  std::string const table =
      "<div class=\"scroll\" tabindex=\"0\" role=\"group\" aria-label=\"Data of the chart Bars\">"
      "<table class=\"pivot-table\"><caption>Bars</caption>"
      "<thead><tr><td class=\"corner h0 edge\"></td><th scope=\"col\">s</th></tr></thead>"
      "<tbody><tr><th class=\"h0 edge\" scope=\"row\">&lt;a&gt;</th><td class=\"n\">1.5</td></tr>"
      "<tr><th class=\"h0 edge\" scope=\"row\">b</th><td "
      "class=\"n\"></td></tr></tbody></table></div>";
  EXPECT_EQ(HtmlChart(chart), table);
  chart.SetImageStream("<svg/>", 6);
  EXPECT_NE(HtmlChart(chart).find("<details><summary>Data of the chart</summary>" + table +
                                  "</details><figcaption>Bars</figcaption>"),
            std::string::npos);
}

TEST(HtmlChart, NameOfSpacesIsAPlainCell) {
  OmChart chart(Utf8("Bars"), "", 1);
  std::string const json =
      R"({"categories":[" "],"series":[{"name":"","values":[1]},{"name":"s","values":[2]}]})";
  chart.SetViZJSON(json.data(), static_cast<unsigned int>(json.size()));
  EXPECT_EQ(
      Between(HtmlChart(chart), "<thead>", "</tbody>"),
      "<tr><td class=\"corner h0 edge\"></td><td></td><th scope=\"col\">s</th></tr></thead>"
      "<tbody><tr><td class=\"h0 edge\"></td><td class=\"n\">1</td><td class=\"n\">2</td></tr>");
}

TEST(HtmlChart, DataNameWhatTheirCategoriesAre) {
  OmChart chart(Utf8("Bars"), "", 1);
  std::string const json =
      R"({"categories":["a"],"series":[{"name":"","values":[1]}],"categoryTitle":"Class"})";
  chart.SetViZJSON(json.data(), static_cast<unsigned int>(json.size()));
  EXPECT_EQ(Between(HtmlChart(chart), "<thead>", "</thead>"),
            "<tr><th class=\"corner h0 edge\" scope=\"col\">Class</th><td></td></tr>");
}

TEST(HtmlChart, NumbersAreShownAsPeopleWriteThem) {
  OmChart chart(Utf8("Bars"), "", 1);
  std::string const json =
      R"({"kind":"bar","series":[{"values":[100000,-3,1e5,0.00005,1e300,-0.5],)"
      R"("name":""}],"categories":["","","","","",""]})";
  chart.SetViZJSON(json.data(), static_cast<unsigned int>(json.size()));
  std::string const html = HtmlChart(chart);
  for (char const* number : {"100000", "-3", "0.00005", "1e+300", "-0.5"}) {
    EXPECT_NE(html.find(std::string("<td class=\"n\">") + number + "</td>"), std::string::npos)
        << number;
  }
}

TEST(HtmlChart, AnythingElseIsAnnounced) {
  for (char const* json :
       {"", "{", "[]", "{}", R"({"categories":1,"series":[]})", R"({"categories":[1],"series":[]})",
        R"({"categories":["a"],"series":[1]})", R"({"categories":["a"],"series":[{"name":"s"}]})",
        R"({"categories":["a"],"series":[{"name":1,"values":[1]}]})",
        R"({"categories":["a"],"series":[{"name":"s","values":[1,2]}]})",
        R"({"categories":["a"],"series":[{"name":"s","values":["1"]}]})"}) {
    OmChart chart(Utf8("Bars"), "", 1);
    chart.SetViZJSON(json, static_cast<unsigned int>(std::string(json).size()));
    EXPECT_EQ(HtmlChart(chart), "<p class=\"announcement\">[Chart: Bars]</p>") << json;
  }
}

TEST(HtmlRenderer, OtherItemsAreAnnounced) {
  OmOutputTree document;
  document.begin().AppendChild(new OmModel(Utf8("M")));
  EXPECT_NE(Main(document).find("<p class=\"announcement\" id=\"part-1\">[Model: M]</p>"),
            std::string::npos);
}

TEST(HtmlRenderer, StreamThatFailsTells) {
  OmOutputTree document;
  std::ostringstream out;
  out.setstate(std::ios::badbit);
  RenderHtml(document, out);
  EXPECT_FALSE(out);
}
