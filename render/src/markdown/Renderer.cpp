#include <algorithm>

#include <lakresvos/OmHeading.h>
#include <lakresvos/OmPivotTable.h>
#include <lakresvos/OmTextBlock.h>
#include <lakresvos/render/LayerGrids.h>
#include <lakresvos/render/MarkdownRenderer.h>

#include "content/CellText.h"
#include "content/Placeholder.h"
#include "grid/DocumentWalk.h"
#include "grid/LayerLine.h"
#include "markdown/Table.h"
#include "markdown/Text.h"

namespace lakresvos::render {

namespace {

/// The markdown between two marks; nothing for nothing.
std::string Between(char const* marks, std::string const& markdown) {
  return markdown.empty() ? markdown : marks + markdown + marks;
}

}  // namespace

MarkdownRenderer::MarkdownRenderer(std::ostream& out, TableOptions const& options)
    : out_(out), options_(options) {}

void MarkdownRenderer::Render(OmOutputTree& tree) {
  VisitAll(tree, *this, depth_);
}

void MarkdownRenderer::Visit(OmHeading& heading) {
  WriteHeading(TextOf(heading.Label()));
}

void MarkdownRenderer::Visit(OmProcedure& procedure) {
  WriteHeading(procedure.OutlineText());
}

void MarkdownRenderer::Visit(OmTextBlock& block) {
  WriteParagraph(Between("**", MarkdownText(TextOf(block.Label()))));
  WriteParagraph(MarkdownCode(block.Text()));
}

void MarkdownRenderer::Visit(OmPageTitle& title) {
  WriteParagraph(Between("**", MarkdownText(title.Text())));
}

void MarkdownRenderer::Visit(OmPivotTable& table) {
  if (!table.Show()) {
    return;
  }
  MarkdownNotes notes(table, ++tables_);
  auto const shown = [&notes](OmCellText const* label) { return notes.Marked(label); };
  WriteParagraph(Between("**", shown(HeadlineOf(table))));
  LayerGrids layers(table, {options_.skipEmpty, true});
  DisplayGrid const* grid = layers.Next();
  while (grid != nullptr) {
    WriteParagraph(Between("*", LayerLine(grid->LayerLabels(), shown)));
    if (grid->Columns() > 0) {
      OutputBuffer buffer(out_);
      buffer << (started_ ? "\n" : "");
      started_ = true;
      WriteMarkdownTable(buffer, *grid, notes);
      buffer.Flush();
    }
    grid = options_.allLayers ? layers.Next() : nullptr;
  }
  if (table.showCaption()) {
    WriteParagraph(AtLineStart(shown(table.Caption())));
  }
  WriteParagraph(notes.Rest());
  WriteParagraph(notes.Definitions());
}

void MarkdownRenderer::Visit(OmChart& chart) {
  WriteParagraph(MarkdownText(Announcement(chart)));
}

void MarkdownRenderer::Visit(OmAnswerTree& tree) {
  WriteParagraph(MarkdownText(Announcement(tree)));
}

void MarkdownRenderer::Visit(OmModel& model) {
  WriteParagraph(MarkdownText(Announcement(model)));
}

void MarkdownRenderer::Visit(OmInteractive& item) {
  WriteParagraph(MarkdownText(Announcement(item)));
}

void MarkdownRenderer::WriteHeading(std::string const& text) {
  auto const level = static_cast<std::size_t>(std::clamp(depth_ + 1, 1, 6));
  WriteParagraph(std::string(level, '#') + ' ' + InHeading(MarkdownText(text)));
}

void MarkdownRenderer::WriteParagraph(std::string const& markdown) {
  if (markdown.empty()) {
    return;
  }
  out_ << (started_ ? "\n" : "") << markdown << '\n';
  started_ = true;
}

}  // namespace lakresvos::render
