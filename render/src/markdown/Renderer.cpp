#include <algorithm>

#include <lakresvos/OmHeading.h>
#include <lakresvos/OmPivotTable.h>
#include <lakresvos/OmTextBlock.h>
#include <lakresvos/render/LayerGrids.h>
#include <lakresvos/render/MarkdownRenderer.h>

#include "content/CellText.h"
#include "content/PlaceholderVisitor.h"
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

class MarkdownVisitor : public PlaceholderVisitor {
 public:
  using PlaceholderVisitor::Visit;

  MarkdownVisitor(std::ostream& out, MarkdownOptions const& options)
      : out_(out), options_(options) {}

  void Visit(OmPivotTable& table) override;
  void Visit(OmProcedure& procedure) override { WriteHeading(procedure.OutlineText()); }
  void Visit(OmHeading& heading) override { WriteHeading(GetText(heading.Label())); }
  void Visit(OmTextBlock& block) override;
  void Visit(OmPageTitle& title) override;

  int depth = 0;  ///< of the item that is visited next

 private:
  void WriteHeading(std::string const& text);
  void WritePlaceholder(std::string const& placeholder) override;
  void WriteParagraph(std::string const& markdown);

  std::ostream& out_;
  MarkdownOptions const& options_;
  LabelTexts labels_;
  bool started_ = false;
  std::size_t tables_ = 0;
};

void MarkdownVisitor::Visit(OmTextBlock& block) {
  WriteParagraph(Between("**", MarkdownText(GetText(block.Label()))));
  WriteParagraph(MarkdownCode(block.Text()));
}

void MarkdownVisitor::Visit(OmPageTitle& title) {
  WriteParagraph(Between("**", MarkdownText(title.Text())));
}

void MarkdownVisitor::Visit(OmPivotTable& table) {
  if (!table.Show()) {
    return;
  }
  MarkdownNotes notes(table, labels_, ++tables_);
  auto const shown = [&notes](OmCellText const* label) { return notes.MarkLabel(label); };
  WriteParagraph(Between("**", shown(FindHeadline(table))));
  LayerGrids layers(table, options_);
  DisplayGrid const* grid = layers.Next();
  while (grid != nullptr) {
    WriteParagraph(Between("*", LayerLine(grid->LayerLabels(), shown)));
    if (grid->Columns() > 0) {
      OutputBuffer buffer(out_);
      buffer << (started_ ? "\n" : "");
      started_ = true;
      WriteMarkdownTable(buffer, *grid, notes, options_.threads);
      buffer.Flush();
    }
    grid = layers.Next();
  }
  if (table.showCaption()) {
    WriteParagraph(AtLineStart(shown(table.Caption())));
  }
  WriteParagraph(notes.Rest());
  WriteParagraph(notes.Definitions());
}

void MarkdownVisitor::WriteHeading(std::string const& text) {
  auto const level = static_cast<std::size_t>(std::clamp(depth + 1, 1, 6));
  WriteParagraph(std::string(level, '#') + ' ' + InHeading(MarkdownText(text)));
}

void MarkdownVisitor::WritePlaceholder(std::string const& placeholder) {
  WriteParagraph(MarkdownText(placeholder));
}

void MarkdownVisitor::WriteParagraph(std::string const& markdown) {
  if (markdown.empty()) {
    return;
  }
  out_ << (started_ ? "\n" : "") << markdown << '\n';
  started_ = true;
}

}  // namespace

void RenderMarkdown(OmOutputTree const& tree, std::ostream& out, MarkdownOptions const& options) {
  MarkdownVisitor visitor(out, options);
  VisitAll(tree, visitor, visitor.depth);
}

}  // namespace lakresvos::render
