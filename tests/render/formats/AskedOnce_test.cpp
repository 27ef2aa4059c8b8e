#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <ostream>
#include <sstream>
#include <string>

#include <lakresvos/OmHeading.h>
#include <lakresvos/OmTextBlock.h>
#include <lakresvos/render/CsvRenderer.h>
#include <lakresvos/render/HtmlRenderer.h>
#include <lakresvos/render/JsonRenderer.h>
#include <lakresvos/render/MarkdownRenderer.h>
#include <lakresvos/render/TextRenderer.h>
#include <lakresvos/render/XlsxRenderer.h>

#include "render/support/RenderTables.h"
#include "support/SpyCell.h"

using namespace lakresvos::render;
using namespace render_tables;

// What a cell shows may be costly to find out: every renderer asks it once, however often it shows
// it.

namespace {

using Render = std::function<void(OmOutputTree const& document, std::ostream& out)>;

/// Adds a dimension of two groups with two categories each; "B" is a total.
void AddGroups(OmPivotTable& table, std::string const& name) {
  OmDimension& dimension = table.AddDimension(SpyCell(name));
  int subscript = 0;
  for (char const* const group : {"a long word of a group", "B"}) {
    SpyCell label(name + group);
    OmCellMetaData meta;
    meta.setTotal(*group == 'B');
    label.setMeta(&meta);
    auto const node = dimension.AddNewChild(dimension.Root(), label, subscript, true);
    for (int i = 0; i < 2; ++i) {
      dimension.AddNewChild(node, SpyCell(name + group + std::to_string(i)), subscript++, false);
    }
  }
}

void AddNote(OmPivotTable& table, std::string const& text, std::string const& marker) {
  OmFootnote footnote;
  footnote.text = new SpyCell(text);
  footnote.marker = marker.empty() ? nullptr : new SpyCell(marker);
  table.Footnote(footnote, true);
}

/// Layers, groups on both axes, footnotes, a title and a caption, all of them spies.
void AddTable(OmOutputTree& document) {
  auto& table =
      AppendItem<OmPivotTable>(document.begin(), SpyCell("label"), SpyCell("name"), false);
  for (char const* const name : {"rows", "columns", "layers"}) {
    AddGroups(table, name);
  }
  table.Rows().push_back(0);
  table.Columns().push_back(1);
  table.Layers().push_back(2);
  AddNote(table, "first note", "");
  AddNote(table, "second note", "*");
  AddNote(table, "note of nothing", "");
  for (int i = 0; i < 4 * 4 * 4; ++i) {
    SpyCell cell("cell " + std::to_string(i));
    table.Cell({i / 16, i / 4 % 4, i % 4}, WithFootnotes(cell, {0, 1}));
  }
  SpyCell title("title");
  table.SetTableTitle(WithFootnotes(title, {0}));
  SpyCell caption("caption");
  table.Caption(&WithFootnotes(caption, {1}));
  table.EndTable();
}

/// How often the cell that was asked most often was asked for its text, and which one it is.
std::string MostAsked(Render const& render) {
  OmOutputTree document;
  AppendItem<OmHeading>(document.begin(), SpyCell("heading"));
  AppendItem<OmTextBlock>(document.begin(), SpyCell("block"), "text");
  AddTable(document);
  AddTable(document);
  SpyLog const log;
  std::ostringstream out;
  render(document, out);
  std::map<SpyCell const*, int> asked;
  int most = 0;
  std::string text;
  for (SpyLog::Call const& call : log.Of(SpyCell::Operation::GetText)) {
    if (++asked[call.cell] > most) {
      most = asked[call.cell];
      text = call.text;
    }
  }
  EXPECT_GE(asked.size(), 2U * 64);
  return most == 1 ? "once" : "'" + text + "' " + std::to_string(most) + " times";
}

}  // namespace

TEST(AskedOnce, Text) {
  EXPECT_EQ(MostAsked([](auto const& document, auto& out) { RenderText(document, out); }), "once");
}

TEST(AskedOnce, TextInParts) {
  EXPECT_EQ(MostAsked([](auto const& document, auto& out) {
              TextOptions options;
              options.width = 20;
              RenderText(document, out, options);
            }),
            "once");
}

TEST(AskedOnce, Html) {
  EXPECT_EQ(MostAsked([](auto const& document, auto& out) { RenderHtml(document, out); }), "once");
}

TEST(AskedOnce, Markdown) {
  EXPECT_EQ(MostAsked([](auto const& document, auto& out) { RenderMarkdown(document, out); }),
            "once");
}

TEST(AskedOnce, LongCsv) {
  for (bool const skipEmpty : {true, false}) {
    EXPECT_EQ(MostAsked([skipEmpty](auto const& document, auto& out) {
                CsvOptions options;
                options.skipEmpty = skipEmpty;
                RenderCsv(document, out, options);
              }),
              "once");
  }
}

TEST(AskedOnce, DisplayedCsv) {
  EXPECT_EQ(MostAsked([](auto const& document, auto& out) {
              CsvOptions options;
              options.shape = CsvOptions::Shape::Display;
              RenderCsv(document, out, options);
            }),
            "once");
}

TEST(AskedOnce, Json) {
  EXPECT_EQ(MostAsked([](auto const& document, auto& out) { RenderJson(document, out); }), "once");
}

// The document keeps no texts, which would take as much memory as itself; the layout asks again.
TEST(AskedOnce, JsonOncePerPartOfTheText) {
  std::string const most = MostAsked([](auto const& document, auto& out) {
    JsonOptions options;
    options.layout = true;
    RenderJson(document, out, options);
  });
  EXPECT_NE(most.find("' 2 times"), std::string::npos) << most;
}

TEST(AskedOnce, Xlsx) {
  EXPECT_EQ(MostAsked([](auto const& document, auto& out) { RenderXlsx(document, out); }), "once");
}

TEST(AskedOnce, XlsxWithASheetForEachLayer) {
  EXPECT_EQ(MostAsked([](auto const& document, auto& out) {
              XlsxOptions options;
              options.layersAsSheets = true;
              RenderXlsx(document, out, options);
            }),
            "once");
}
