#include <algorithm>
#include <functional>

#include <lakresvos/OmHeading.h>
#include <lakresvos/OmOutputTree.h>
#include <lakresvos/OmPivotTable.h>
#include <lakresvos/OmTextBlock.h>
#include <lakresvos/render/HtmlRenderer.h>
#include <lakresvos/render/LayerGrids.h>

#include "CellText.h"
#include "HtmlChart.h"
#include "HtmlLanguage.h"
#include "HtmlNotes.h"
#include "HtmlOutline.h"
#include "HtmlPage.h"
#include "HtmlStyle.h"
#include "HtmlTable.h"
#include "HtmlText.h"
#include "ItemAnnouncement.h"
#include "LayerLine.h"
#include "OutputBuffer.h"

namespace lakresvos::render {

namespace {

std::string PartId(std::size_t part) {
  return "part-" + std::to_string(part);
}

/// Goes through a document for one purpose, counting its items.
class PartVisitor : public OmOutputPart::Visitor {
 public:
  void VisitAll(OmOutputTree& tree) {
    part_ = 0;
    for (auto node = tree.begin(); !node.AtEnd(); ++node, ++part_) {
      if (OmOutputPart* part = *node) {
        depth_ = node.depth;
        part->Accept(*this);
      }
    }
  }

  void Visit(OmPivotTable& /*table*/) override {}
  void Visit(OmHeading& /*heading*/) override {}
  void Visit(OmTextBlock& /*block*/) override {}
  void Visit(OmPageTitle& /*title*/) override {}
  void Visit(OmChart& /*chart*/) override {}
  void Visit(OmAnswerTree& /*tree*/) override {}
  void Visit(OmModel& /*model*/) override {}
  void Visit(OmInteractive& /*item*/) override {}

 protected:
  std::size_t part_ = 0;
  int depth_ = 0;
};

/// Finds out what the page has to say before the first item.
class HeadVisitor : public PartVisitor {
 public:
  using PartVisitor::Visit;

  void Visit(OmPivotTable& table) override {
    if (table.Show()) {
      css += HtmlStyle(table, "#" + PartId(part_));
      language = language.empty() ? LanguageOf(table.TableLocale()) : language;
    }
  }
  void Visit(OmProcedure& /*procedure*/) override { hasHeading = true; }
  void Visit(OmHeading& /*heading*/) override { hasHeading = true; }

  std::string css;
  std::string language;
  bool hasHeading = false;
};

class OutlineVisitor : public PartVisitor {
 public:
  using PartVisitor::Visit;

  explicit OutlineVisitor(OutputBuffer& out) : outline_(out) {}

  void Visit(OmPivotTable& table) override {
    if (table.Show()) {
      Add(TextOf(HeadlineOf(table)));
    }
  }
  void Visit(OmProcedure& procedure) override { Add(procedure.OutlineText()); }
  void Visit(OmHeading& heading) override { Add(TextOf(heading.Label())); }
  void Visit(OmChart& chart) override { Add(TextOf(chart.Label())); }
  void Visit(OmAnswerTree& tree) override { Add(TextOf(tree.Label())); }
  void Visit(OmModel& model) override { Add(TextOf(model.Label())); }
  void Visit(OmInteractive& item) override { Add(TextOf(item.Label())); }

  void Finish() { outline_.Finish(); }

 private:
  void Add(std::string const& text) { outline_.Add(text, part_, depth_); }

  HtmlOutline outline_;
};

class MainVisitor : public PartVisitor {
 public:
  MainVisitor(OutputBuffer& out, HtmlOptions const& options, std::string const& language)
      : out_(out), options_(options), language_(language) {}

  void Visit(OmHeading& heading) override { WriteHeading(TextOf(heading.Label())); }
  void Visit(OmProcedure& procedure) override { WriteHeading(procedure.OutlineText()); }

  void Visit(OmTextBlock& block) override {
    out_ << "<div class=\"text\" id=\"" << PartId(part_) << "\">";
    std::string const label = HtmlText(TextOf(block.Label()));
    if (!label.empty()) {
      out_ << "<p class=\"label\">" << label << "</p>";
    }
    out_ << "<pre>\n" << HtmlText(block.Text()) << "</pre></div>\n";
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
    std::string const language = LanguageOf(table.TableLocale());
    out_ << "<div class=\"pivot" << (HasColours(table) ? " paper" : "") << "\" id=\""
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
  void Visit(OmAnswerTree& tree) override { Announce(Announcement(tree)); }
  void Visit(OmModel& model) override { Announce(Announcement(model)); }
  void Visit(OmInteractive& item) override { Announce(Announcement(item)); }

 private:
  void WriteHeading(std::string const& text) {
    level_ = std::clamp(depth_ + 1, 1, std::min(level_ + 1, 6));
    out_ << "<h" << level_ << " id=\"" << PartId(part_) << "\">"
         << (IsBlank(text) ? "\u2014" : HtmlText(text)) << "</h" << level_ << ">\n";
    out_.Drain();
  }

  void Announce(std::string const& announcement) {
    out_ << "<p class=\"announcement\" id=\"" << PartId(part_) << "\">" << HtmlText(announcement)
         << "</p>\n";
  }

  void WriteLayers(OmPivotTable& table) {
    TableFootnotes const footnotes(table);
    LayerGrids layers(table, {options_.skipEmpty, true});
    DisplayGrid const* grid = layers.Next();
    if (grid == nullptr) {
      HtmlNotes notes(footnotes, PartId(part_));
      out_ << "<p class=\"title\">" << Shown(notes, HeadlineOf(table)) << "</p>";
      std::string const caption = Caption(table, notes);
      notes.AppendNotes(out_.Text());
      out_ << caption;
    }
    for (int layer = 0; grid != nullptr; ++layer) {
      WriteLayer(table, *grid, footnotes, layer);
      grid = options_.allLayers ? layers.Next() : nullptr;
    }
  }

  void WriteLayer(OmPivotTable const& table, DisplayGrid const& grid,
                  TableFootnotes const& footnotes, int layer) {
    std::string const prefix = "t" + std::to_string(part_) + "l" + std::to_string(layer);
    HtmlNotes notes(footnotes, prefix);
    std::string const name = HtmlText(LayerLine(grid.LayerLabels(), TextOf));
    std::string const title = HtmlText(TextOf(HeadlineOf(table)));
    out_ << "<div class=\"layer\" data-name=\"" << name << "\"><div class=\"scroll\" tabindex=\"0\""
         << " role=\"group\" aria-label=\"" << title << (name.empty() ? "" : ", ") << name
         << "\">\n";
    std::string caption = "<span class=\"title\">" + Shown(notes, HeadlineOf(table)) + "</span>";
    if (!name.empty()) {
      caption += " <span class=\"layer-line\">" + MarkedLayerLine(grid, notes) + "</span>";
    }
    WriteHtmlTable(out_, grid, notes, prefix, caption, Caption(table, notes));
    out_ << "</div></div>\n";
  }

  static std::string Caption(OmPivotTable const& table, HtmlNotes& notes) {
    if (!table.showCaption() || table.Caption() == nullptr) {
      return {};
    }
    return "<p class=\"table-caption\">" + Shown(notes, table.Caption()) + "</p>";
  }

  static std::string Shown(HtmlNotes& notes, OmCellText const* label) {
    std::string html;
    notes.Append(html, label);
    return html;
  }

  static std::string MarkedLayerLine(DisplayGrid const& grid, HtmlNotes& notes) {
    return LayerLine(grid.LayerLabels(),
                     [&notes](OmCellText const* label) { return Shown(notes, label); });
  }

  OutputBuffer& out_;
  HtmlOptions const& options_;
  std::string const& language_;
  int level_ = 0;
};

}  // namespace

void RenderHtml(OmOutputTree& tree, std::ostream& out, HtmlOptions const& options) {
  std::string const title = options.title.empty() ? "Output" : HtmlText(options.title);
  OutputBuffer buffer(out);
  HeadVisitor head;
  head.VisitAll(tree);
  std::string const language = head.language.empty() ? "en" : head.language;
  buffer << "<!DOCTYPE html>\n<html" << LanguageAttributes(language)
         << ">\n<head>\n<meta charset=\"utf-8\">\n"
            "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n<title>"
         << title << "</title>\n<style>" << kPageCss << head.css
         << "</style>\n</head>\n<body>\n<nav id=\"outline\" aria-label=\"Outline\"><details open>"
            "<summary>Outline</summary><ul>\n";
  OutlineVisitor outline(buffer);
  outline.VisitAll(tree);
  outline.Finish();
  buffer << "</ul></details></nav>\n<main>\n";
  if (!head.hasHeading) {
    buffer << "<h1>" << title << "</h1>\n";
  }
  MainVisitor(buffer, options, language).VisitAll(tree);
  buffer << "</main>\n<script>" << kPageScript << "</script>\n</body>\n</html>\n";
  buffer.Flush();
}

}  // namespace lakresvos::render
