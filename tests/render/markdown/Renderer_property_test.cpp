#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <sstream>
#include <string>
#include <vector>

#include <lakresvos/OmHeading.h>
#include <lakresvos/OmTextBlock.h>
#include <lakresvos/render/LayerGrids.h>
#include <lakresvos/render/MarkdownRenderer.h>

#include "render/markdown/Document.h"
#include "render/support/HostileText.h"
#include "render/support/PlainGrid.h"
#include "render/support/RenderTables.h"
#include "support/RandomLayoutTable.h"
#include "unicode/CleanText.h"

using namespace lakresvos::render;
using namespace render_tables;

namespace {

using Blocks = std::vector<MarkdownBlock>;

void PrintTo(MarkdownBlock const& block, std::ostream& out) {
  out << block.kind << " '" << block.text << "'\n";
  for (auto const& row : block.rows) {
    for (std::string const& text : row) {
      out << " | " << text;
    }
    out << " |\n";
  }
}

std::string Described(Blocks const& blocks) {
  std::ostringstream out;
  for (MarkdownBlock const& block : blocks) {
    PrintTo(block, out);
  }
  return out.str();
}

/// A text as a reader sees it: without spaces and line ends around it.
std::string Seen(std::string const& text) {
  std::string seen = CleanText(text);
  for (bool found = true; found;) {
    found = false;
    for (std::string const space : {" ", "\t", "\n", "\u00A0", "\u3000"}) {
      if (seen.starts_with(space)) {
        seen.erase(0, space.size());
        found = true;
      }
      if (seen.ends_with(space)) {
        seen.erase(seen.size() - space.size());
        found = true;
      }
    }
  }
  return seen;
}

std::string Joined(std::string const& text, char const* separator, std::string const& other) {
  return text + (text.empty() || other.empty() ? "" : separator) + other;
}

void AddUnlessEmpty(Blocks& blocks, char const* kind, std::string const& text) {
  if (!text.empty()) {
    blocks.push_back({kind, text, {}});
  }
}

/// The pipe table that shows a grid.
MarkdownBlock Expected(DisplayGrid const& grid) {
  PlainGrid const plain(grid);
  MarkdownBlock block{"table", "", {{}}};
  for (int column = 0; column < grid.Columns(); ++column) {
    std::string heading;
    for (int row = 0; row < grid.HeadingRows(); ++row) {
      if (plain.Heading(row, column)->row == row) {
        heading = Joined(heading, " / ", Seen(plain.TextOnce(row, column)));
      }
    }
    block.rows.front().push_back(heading);
  }
  for (int row = grid.HeadingRows(); row < grid.Rows(); ++row) {
    block.rows.emplace_back();
    for (int column = 0; column < grid.Columns(); ++column) {
      block.rows.back().push_back(Seen(plain.TextOnce(row, column)));
    }
  }
  return block;
}

}  // namespace

RC_GTEST_PROP(MarkdownRendererProperty, EveryTextIsShownAsText, ()) {
  std::vector<std::string> texts;
  for (int i = 0; i < 13; ++i) {
    texts.push_back(HostileText());
  }
  OmOutputTree document;
  auto const root = document.begin();
  AppendItem<OmHeading>(root, Utf8(texts[0]));
  AppendItem<OmTextBlock>(root, Utf8(texts[1]), texts[2]);
  AppendItem<OmPageTitle>(root, texts[3]);
  auto& table = AppendItem<Table>(root);
  table.SetTableTitle(Utf8(texts[4]));
  int const positions[] = {5, 7, 9};
  for (int const at : positions) {
    OmDimension& dimension = table.AddDimension(Utf8(texts[static_cast<std::size_t>(at)]));
    dimension.AddNewChild(dimension.Root(), Utf8(texts[static_cast<std::size_t>(at) + 1]), 0,
                          false);
  }
  table.Place({0}, {1}, {2});
  AddFootnote(table, texts[11]);
  OmStringCellUTF8 cell(texts[12]);
  table.Cell({0, 0, 0}, WithFootnotes(cell, {0}));
  OmStringCellUTF8 const caption(texts[12]);
  table.Caption(&caption);
  std::ostringstream out;
  RenderMarkdown(document, out);
  RC_LOG() << out.str();

  for (std::string& text : texts) {
    text = &text == &texts[2] ? CleanText(text) : Seen(text);
  }
  Blocks expected = {{"heading1", "Output", {}}, {"heading2", texts[0], {}}};
  AddUnlessEmpty(expected, "strong", texts[1]);
  bool const open = texts[2].empty() || texts[2].back() != '\n';
  expected.push_back({"code_block", texts[2] + (open ? "\n" : ""), {}});
  AddUnlessEmpty(expected, "strong", texts[3]);
  AddUnlessEmpty(expected, "strong", texts[4]);
  AddUnlessEmpty(expected, "emph", Joined(texts[9], ": ", texts[10]));
  expected.push_back(
      {"table", "", {{texts[5], Joined(texts[7], " / ", texts[8])}, {texts[6], texts[12]}}});
  AddUnlessEmpty(expected, "paragraph", texts[12]);
  expected.push_back({"footnote_definition", texts[11], {}});
  Blocks const shown = ReadMarkdown(out.str());
  RC_LOG() << Described(shown) << "instead of\n" << Described(expected);
  RC_ASSERT(shown == expected);
}

RC_GTEST_PROP(MarkdownRendererProperty, TablesReadBackAsTheGrids, ()) {
  Table table;
  MakeRandomTable(table);
  RelabelWithHostileTexts(table);
  MarkdownOptions options;
  options.skipEmpty = *rc::gen::arbitrary<bool>();
  std::ostringstream out;
  RenderMarkdown(TableDocument(table).Tree(), out, options);
  Blocks tables;
  for (MarkdownBlock& block : ReadMarkdown(out.str())) {
    if (block.kind == "table") {
      tables.push_back(std::move(block));
    }
  }
  Blocks expected;
  LayerGrids layers(table, options);
  while (DisplayGrid const* grid = layers.Next()) {
    if (grid->Columns() > 0) {
      expected.push_back(Expected(*grid));
    }
  }
  RC_LOG() << out.str() << Described(tables) << "instead of\n" << Described(expected);
  RC_ASSERT(tables == expected);
}
