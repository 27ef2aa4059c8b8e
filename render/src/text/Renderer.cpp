#include <algorithm>
#include <array>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include <lakresvos/OmHeading.h>
#include <lakresvos/OmPivotTable.h>
#include <lakresvos/OmTextBlock.h>
#include <lakresvos/render/LayerGrids.h>
#include <lakresvos/render/TextRenderer.h>

#include "content/AreaAlignment.h"
#include "content/CellText.h"
#include "content/PlaceholderVisitor.h"
#include "grid/DocumentWalk.h"
#include "grid/LayerLine.h"
#include "text/Table.h"
#include "unicode/Wrap.h"

namespace lakresvos::render {

namespace {

constexpr std::array<std::string_view, 4> kUnderlines = {"═", "─", "╌", "┈"};
constexpr std::array<std::string_view, 4> kAsciiUnderlines = {"=", "-", "~", "."};
constexpr std::string_view kPageLine = "━";
constexpr std::string_view kAsciiPageLine = "=";

std::string Repeat(std::string_view text, int count) {
  std::string repeated;
  for (int i = 0; i < count; ++i) {
    repeated += text;
  }
  return repeated;
}

/// The lines of a text after an indent, wrapped at a width; 0: only at its own line ends.
std::vector<TextLine> WrapAt(int width, std::string const& text, std::size_t indent = 0) {
  constexpr int kMinWidth = 2;
  constexpr int kNowhere = std::numeric_limits<int>::max() - kMinWidth;
  return Wrap(text, width > 0 ? std::max(width - static_cast<int>(indent), kMinWidth) : kNowhere);
}

std::string MarkLabel(OmCellText const* label, FootnoteMarks const& marks) {
  MarkedText const shown = ShowLabel(label, marks);
  return shown.text + shown.marks;
}

class TextVisitor : public PlaceholderVisitor {
 public:
  using PlaceholderVisitor::Visit;

  TextVisitor(std::ostream& out, TextOptions const& options) : out_(out), options_(options) {}

  void Visit(OmPivotTable& table) override;
  void Visit(OmProcedure& procedure) override;
  void Visit(OmHeading& heading) override;
  void Visit(OmTextBlock& block) override;
  void Visit(OmPageTitle& title) override;

  int depth = 0;  ///< of the item that is visited next

 private:
  void StartItem();
  void WriteHeading(std::string const& text);
  void WritePlaceholder(std::string const& placeholder) override;
  void WriteAligned(std::string const& text, HorizontalAlignment alignment, int width);
  void WriteLines(std::string const& text, std::string const& indent = {});

  std::ostream& out_;
  TextOptions const& options_;
  LabelTexts labels_;
  bool started_ = false;
};

// Headings and texts

void TextVisitor::Visit(OmHeading& heading) {
  WriteHeading(GetText(heading.Label()));
}

void TextVisitor::Visit(OmProcedure& procedure) {
  WriteHeading(procedure.OutlineText());
}

void TextVisitor::Visit(OmTextBlock& block) {
  StartItem();
  std::string const label = GetText(block.Label());
  if (label.empty()) {
    WriteLines(block.Text());
  } else {
    WriteLines(label);
    WriteLines(block.Text(), "  ");
  }
}

void TextVisitor::Visit(OmPageTitle& title) {
  StartItem();
  std::string const line = Repeat(options_.ascii ? kAsciiPageLine : kPageLine,
                                  MeasureWidestLine(WrapAt(options_.width, title.Text())));
  WriteLines(line);
  WriteLines(title.Text());
  WriteLines(line);
}

void TextVisitor::WriteHeading(std::string const& text) {
  StartItem();
  auto const& lines = options_.ascii ? kAsciiUnderlines : kUnderlines;
  auto const last = static_cast<int>(lines.size()) - 1;
  WriteLines(text);
  WriteLines(Repeat(lines[static_cast<std::size_t>(std::clamp(depth, 0, last))],
                    MeasureWidestLine(WrapAt(options_.width, text))));
}

// Tables

void TextVisitor::Visit(OmPivotTable& table) {
  if (!table.Show()) {
    return;
  }
  StartItem();
  FootnoteMarks const marks(table, labels_, options_.ascii);
  auto const shown = [&marks](OmCellText const* label) { return MarkLabel(label, marks); };
  std::string const title = shown(FindHeadline(table));
  HorizontalAlignment const titleAlignment = FindAlignment(table, FormatArea::AreaTitle);
  LayerGrids layers(table, options_);
  DisplayGrid const* grid = layers.Next();
  if (grid == nullptr) {
    WriteAligned(title, titleAlignment, 0);
  }
  int width = 0;
  for (bool first = true; grid != nullptr; first = false) {
    TextTable const text(*grid, marks, options_);
    width = text.Width();
    if (first) {
      WriteAligned(title, titleAlignment, width);
    } else {
      out_ << '\n';
    }
    std::string const layer = LayerLine(grid->LayerLabels(), shown);
    if (!layer.empty()) {
      WriteLines(layer);
    }
    text.Write(out_);
    grid = layers.Next();
  }
  for (std::string const& note : marks.Notes()) {
    WriteLines(note);
  }
  if (table.showCaption() && table.Caption() != nullptr) {
    WriteAligned(shown(table.Caption()), FindAlignment(table, FormatArea::AreaCaption), width);
  }
}

void TextVisitor::WritePlaceholder(std::string const& placeholder) {
  StartItem();
  WriteLines(placeholder);
}

// Output

void TextVisitor::StartItem() {
  if (started_) {
    out_ << '\n';
  }
  started_ = true;
}

void TextVisitor::WriteAligned(std::string const& text, HorizontalAlignment alignment, int width) {
  std::vector<TextLine> const lines = WrapAt(options_.width, text);
  int const room = std::max(width, MeasureWidestLine(lines));
  for (TextLine const& line : lines) {
    int const before = line.text.empty() ? 0 : CountSpacesBefore(alignment, room - line.width);
    out_ << std::string(static_cast<std::size_t>(before), ' ') << line.text << '\n';
  }
}

void TextVisitor::WriteLines(std::string const& text, std::string const& indent) {
  for (TextLine const& line : WrapAt(options_.width, text, indent.size())) {
    out_ << (line.text.empty() ? std::string() : indent + line.text) << '\n';
  }
}

}  // namespace

void RenderText(OmOutputTree const& tree, std::ostream& out, TextOptions const& options) {
  TextVisitor visitor(out, options);
  VisitAll(tree, visitor, visitor.depth);
}

}  // namespace lakresvos::render
