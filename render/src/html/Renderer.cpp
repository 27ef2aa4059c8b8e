#include <algorithm>
#include <functional>
#include <vector>

#include <cells/OmStringCell.h>
#include <lakresvos/OmHeading.h>
#include <lakresvos/OmOutputTree.h>
#include <lakresvos/OmPivotTable.h>
#include <lakresvos/OmTextBlock.h>
#include <lakresvos/render/HtmlRenderer.h>
#include <lakresvos/render/LayerGrids.h>

#include "content/CellText.h"
#include "content/NumberCell.h"
#include "content/Placeholder.h"
#include "grid/DocumentWalk.h"
#include "grid/IdleVisitor.h"
#include "grid/LayerLine.h"
#include "html/Chart.h"
#include "html/Ids.h"
#include "html/Language.h"
#include "html/Notes.h"
#include "html/Outline.h"
#include "html/Page.h"
#include "html/Style.h"
#include "html/Table.h"
#include "html/Text.h"
#include "io/OutputBuffer.h"
#include "unicode/TextWidth.h"

namespace lakresvos::render {

namespace {

constexpr char kUsualTitle[] = "Output";
constexpr int kMaxMarkRoom = 12;  // in characters; longer marks reach into the next column

std::string PartId(std::size_t part) {
  return "part-" + std::to_string(part);
}

/// Goes through a document for one purpose, counting its items.
class PartVisitor : public IdleVisitor {
 public:
  void VisitAll(OmOutputTree const& tree) { render::VisitAll(tree, *this, depth_, part_); }

 protected:
  std::size_t part_ = 0;
  int depth_ = 0;
};

/// Finds out what the page has to say before the first item.
class HeadVisitor : public PartVisitor {
 public:
  using PartVisitor::Visit;

  explicit HeadVisitor(LabelTexts& labels) : labels_(labels) {}

  void Visit(OmPivotTable& table) override {
    if (table.Show()) {
      css += HtmlStyle(table, "#" + PartId(part_)) + MarkRoom(table);
      language = language.empty() ? FindLanguage(table.TableLocale()) : language;
      UseTitle(tableTitle_, table.GetTableTitle());
    }
  }
  void Visit(OmProcedure& /*procedure*/) override { hasHeading = true; }
  void Visit(OmHeading& heading) override {
    hasHeading = true;
    UseTitle(heading_, heading.Label());
  }
  void Visit(OmPageTitle& title) override {
    pageTitle_ = pageTitle_.empty() ? title.Text() : pageTitle_;
  }

  /// The document's own title: of its first page title, heading or table that has one; a procedure
  /// names a program, and what can be translated is a program's word too.
  std::string Title() const {
    for (std::string const* title : {&pageTitle_, &heading_, &tableTitle_}) {
      if (!IsBlank(*title)) {
        return *title;
      }
    }
    return kUsualTitle;
  }

  std::string css;
  std::string language;
  bool hasHeading = false;

 private:
  /// Beside the numbers of a table, room for the most marks that any of them has.
  std::string MarkRoom(OmPivotTable& table) const {
    TableFootnotes const footnotes(table, labels_);
    if (footnotes.Count() == 0) {
      return {};
    }
    int most = 0;
    for (auto at = table.FirstCell(); at.Cell() != nullptr; ++at) {
      OmCellText& cell = *at.Cell();
      if (cell.hasMeta() && FindNumber(cell)) {
        std::string const marks = footnotes.Marks(cell);
        most = std::max(most, TextWidth(PrintableLines(marks).front()));
      }
    }
    most = std::min(most, kMaxMarkRoom);
    return most == 0 ? "" : "#" + PartId(part_) + "{--marks:" + std::to_string(most) + "}\n";
  }

  void UseTitle(std::string& title, OmCellText const* label) {
    auto const* const word = dynamic_cast<OmStringCell const*>(label);
    std::string const& text = labels_.Text(label);
    if (title.empty() && !IsBlank(text) && (word == nullptr || !word->IsTranslatable())) {
      title = text;
    }
  }

  LabelTexts& labels_;
  std::string pageTitle_;
  std::string heading_;
  std::string tableTitle_;
};

class OutlineVisitor : public PartVisitor {
 public:
  using PartVisitor::Visit;

  OutlineVisitor(OutputBuffer& out, LabelTexts& labels) : labels_(labels), outline_(out) {}

  void Visit(OmPivotTable& table) override {
    if (table.Show()) {
      Add(labels_.Text(FindHeadline(table)));
    }
  }
  void Visit(OmProcedure& procedure) override { Add(procedure.OutlineText()); }
  void Visit(OmHeading& heading) override { Add(labels_.Text(heading.Label())); }
  void Visit(OmChart& chart) override {
    std::string const label = labels_.Text(chart.Label());
    Add(IsBlank(label) ? "Chart" : "Chart: " + label);
  }
  void Visit(OmAnswerTree& tree) override { Add(labels_.Text(tree.Label())); }
  void Visit(OmModel& model) override { Add(labels_.Text(model.Label())); }
  void Visit(OmInteractive& item) override { Add(labels_.Text(item.Label())); }

  void Finish() { outline_.Finish(); }

 private:
  void Add(std::string const& text) { outline_.Add(text, part_, depth_); }

  LabelTexts& labels_;
  HtmlOutline outline_;
};

class MainVisitor : public PartVisitor {
 public:
  MainVisitor(OutputBuffer& out, HtmlOptions const& options, std::string const& language,
              LabelTexts& labels)
      : out_(out), options_(options), language_(language), labels_(labels) {}

  void Visit(OmHeading& heading) override { WriteHeading(labels_.Text(heading.Label())); }
  void Visit(OmProcedure& procedure) override { WriteHeading(procedure.OutlineText()); }

  void Visit(OmTextBlock& block) override {
    out_ << "<div class=\"text\" id=\"" << PartId(part_) << "\">";
    std::string const label = HtmlText(labels_.Text(block.Label()));
    if (!label.empty()) {
      out_ << "<p class=\"label\">" << label << "</p>";
    }
    out_ << (block.IsLog() ? "<pre dir=\"ltr\">\n" : "<pre>\n") << HtmlText(block.Text())
         << "</pre></div>\n";
    out_.Drain();
  }

  void Visit(OmPageTitle& title) override {
    out_ << "<p class=\"page-title\" id=\"" << PartId(part_) << "\">" << HtmlText(title.Text())
         << "</p>\n";
  }

  void Visit(OmPivotTable& table) override {
    if (!table.Show()) {
      return;
    }
    std::string const language = FindLanguage(table.TableLocale());
    out_ << "<div class=\"pivot" << (HasColors(table) ? " paper" : "") << "\" id=\""
         << PartId(part_) << "\"";
    if (!language.empty() && language != language_) {
      out_ << LanguageAttributes(language);
    }
    out_ << ">\n";
    WriteLayers(table);
    out_ << "</div>\n";
    out_.Drain();
  }

  void Visit(OmChart& chart) override {
    out_ << "<figure class=\"chart\" id=\"" << PartId(part_) << "\">" << HtmlChart(chart)
         << "</figure>\n";
    out_.Drain();
  }
  void Visit(OmAnswerTree& tree) override { WritePlaceholder(MakePlaceholder(tree)); }
  void Visit(OmModel& model) override { WritePlaceholder(MakePlaceholder(model)); }
  void Visit(OmInteractive& item) override { WritePlaceholder(MakePlaceholder(item)); }

 private:
  void WriteHeading(std::string const& text) {
    level_ = std::clamp(depth_ + 1, 1, std::min(level_ + 1, 6));
    out_ << "<h" << level_ << " id=\"" << PartId(part_) << "\">"
         << (IsBlank(text) ? "\u2014" : HtmlText(text)) << "</h" << level_ << ">\n";
    out_.Drain();
  }

  void WritePlaceholder(std::string const& placeholder) {
    out_ << "<p class=\"announcement\" id=\"" << PartId(part_) << "\">" << HtmlText(placeholder)
         << "</p>\n";
  }

  void WriteLayers(OmPivotTable& table) {
    TableFootnotes const footnotes(table, labels_);
    std::vector<bool> listed(footnotes.Count());
    LayerGrids layers(table, options_);
    DisplayGrid const* grid = layers.Next();
    bool const first = grid != nullptr && !grid->LayerLabels().empty() && !options_.allLayers;
    HtmlNotes notes(footnotes, PartId(part_));
    if (grid == nullptr) {
      out_ << "<p class=\"title\">" << MarkLabel(notes, FindHeadline(table)) << "</p>";
      WriteFoot(table, notes, listed);
    }
    for (int layer = 0; grid != nullptr; ++layer) {
      WriteLayer(table, *grid, footnotes, layer, listed);
      grid = layers.Next();
    }
    if (!first) {
      notes.AppendOthers(out_.Text(), listed);
    }
  }

  void WriteLayer(OmPivotTable const& table, DisplayGrid const& grid,
                  TableFootnotes const& footnotes, int layer, std::vector<bool>& listed) {
    std::string const prefix = "t" + std::to_string(part_) + "l" + std::to_string(layer);
    HtmlNotes notes(footnotes, prefix);
    std::string const name = HtmlText(LayerLine(
        grid.LayerLabels(), [&notes](OmCellText const* label) { return notes.Text(label); }));
    out_ << "<div class=\"layer\" data-name=\"" << name << "\"><div class=\"heading\" id=\""
         << prefix << "t\"><span class=\"title\">" << MarkLabel(notes, FindHeadline(table))
         << "</span>";
    if (!name.empty()) {
      out_ << " <span class=\"layer-line\">" << MarkLayerLine(grid, notes) << "</span>";
    }
    out_ << "</div>\n<div class=\"scroll\" tabindex=\"0\" role=\"group\" aria-labelledby=\""
         << prefix << "t\">\n";
    WriteHtmlTable(out_, grid, notes, prefix, ids_, options_.threads);
    out_ << "</div>";
    WriteFoot(table, notes, listed);
    out_ << "</div>\n";
  }

  /// The notes that were marked, and the caption.
  void WriteFoot(OmPivotTable const& table, HtmlNotes& notes, std::vector<bool>& listed) {
    std::string const caption = Caption(table, notes);
    notes.AppendMarked(out_.Text(), listed);
    out_ << caption;
  }

  static std::string Caption(OmPivotTable const& table, HtmlNotes& notes) {
    if (!table.showCaption() || table.Caption() == nullptr) {
      return {};
    }
    return "<p class=\"table-caption\">" + MarkLabel(notes, table.Caption()) + "</p>";
  }

  static std::string MarkLabel(HtmlNotes& notes, OmCellText const* label) {
    std::string html;
    notes.AppendLabel(html, label);
    return html;
  }

  static std::string MarkLayerLine(DisplayGrid const& grid, HtmlNotes& notes) {
    return LayerLine(grid.LayerLabels(),
                     [&notes](OmCellText const* label) { return MarkLabel(notes, label); });
  }

  OutputBuffer& out_;
  HtmlOptions const& options_;
  std::string const& language_;
  LabelTexts& labels_;
  HtmlIds ids_;
  int level_ = 0;
};

}  // namespace

void RenderHtml(OmOutputTree const& tree, std::ostream& out, HtmlOptions const& options) {
  OutputBuffer buffer(out);
  LabelTexts labels;
  HeadVisitor head(labels);
  head.VisitAll(tree);
  std::string const title = HtmlText(options.title.empty() ? head.Title() : options.title);
  std::string const language = head.language.empty() ? "en" : head.language;
  buffer << "<!DOCTYPE html>\n<html" << LanguageAttributes(language)
         << ">\n<head>\n<meta charset=\"utf-8\">\n"
            "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n<title>"
         << title << "</title>\n<style>" << kPageCss << head.css
         << "</style>\n</head>\n<body>\n<nav id=\"outline\" aria-label=\"Outline\"><details open>"
            "<summary>Outline</summary><ul>\n";
  OutlineVisitor outline(buffer, labels);
  outline.VisitAll(tree);
  outline.Finish();
  buffer << "</ul></details></nav>\n<main>\n";
  if (!head.hasHeading) {
    buffer << "<h1>" << title << "</h1>\n";
  }
  MainVisitor(buffer, options, language, labels).VisitAll(tree);
  buffer << "</main>\n<script>" << kPageScript << "</script>\n</body>\n</html>\n";
  buffer.Flush();
}

}  // namespace lakresvos::render
