#include <algorithm>
#include <memory>

#include <lakresvos/OmChart.h>
#include <lakresvos/OmHeading.h>
#include <lakresvos/OmOutputTree.h>
#include <lakresvos/OmTextBlock.h>
#include <lakresvos/render/LayerGrids.h>
#include <lakresvos/render/XlsxRenderer.h>

#include "CellText.h"
#include "DocumentWalk.h"
#include "FootnoteMarks.h"
#include "ImageType.h"
#include "ItemAnnouncement.h"
#include "LayerLine.h"
#include "TextWidth.h"
#include "XlsxSheet.h"
#include "XlsxTable.h"

namespace lakresvos::render {

namespace {

constexpr int kDeepestIndent = 15;

class XlsxVisitor : public OmOutputPart::Visitor {
 public:
  XlsxVisitor(XlsxBook& book, XlsxOptions const& options)
      : book_(book), options_(options), contents_(book, "Contents", "Contents") {}

  void Run(OmOutputTree& tree) {
    VisitAll(tree, *this, depth_);
    contents_.Finish();
  }

  void Visit(OmHeading& heading) override { List(TextOf(heading.Label()), Bold()); }
  void Visit(OmProcedure& procedure) override { List(procedure.OutlineText(), Bold()); }

  void Visit(OmTextBlock& block) override {
    std::string const label = TextOf(block.Label());
    if (!label.empty()) {
      List(label, XlsxStyle());
    }
    ++depth_;
    for (std::string const& line : PrintableLines(block.Text())) {
      List(line, XlsxStyle());
    }
    --depth_;
  }

  void Visit(OmPageTitle& title) override { List(title.Text(), Bold()); }

  void Visit(OmPivotTable& table) override {
    if (!table.Show()) {
      return;
    }
    std::string const title = TextOf(HeadlineOf(table));
    FootnoteMarks const marks(table, false);
    LayerGrids layers(table, {options_.skipEmpty, true});
    DisplayGrid const* grid = layers.Next();
    if (grid == nullptr) {
      List(title, XlsxStyle());
      return;
    }
    std::unique_ptr<XlsxSheet> sheet;
    int row = 0;
    while (grid != nullptr) {
      std::string const layer = LayerNameOf(*grid, marks);
      if (sheet == nullptr || options_.layersAsSheets) {
        End(sheet.get(), table, marks, row);
        bool const named = options_.layersAsSheets && !layer.empty();
        sheet = Start(named ? title + " " + layer : title, title, table, marks);
        row = 2;
        sheet->Text(row, 0, layer, WithArea(XlsxStyle(), table, FormatArea::AreaLayers), false);
        row += layer.empty() ? 0 : 1;
        SetUpXlsxSheet(*sheet, *grid, row);
      } else {
        ++row;
        sheet->Text(row++, 0, layer, WithArea(XlsxStyle(), table, FormatArea::AreaLayers), false);
      }
      row = WriteXlsxGrid(*sheet, *grid, marks, options_, row);
      grid = options_.allLayers ? layers.Next() : nullptr;
    }
    End(sheet.get(), table, marks, row);
  }

  void Visit(OmChart& chart) override {
    std::string const type = ImageType(chart.GetImageData());
    if (type != "image/png" && type != "image/jpeg") {
      List(Announcement(chart), XlsxStyle());
      return;
    }
    std::string const label = TextOf(chart.Label());
    XlsxSheet sheet(book_, label, label);
    ListSheet(label, sheet);
    sheet.Link(0, 0, contents_.Name(), "Contents", LinkStyle());
    sheet.Text(1, 0, label, Bold(), false);
    std::string const& image = chart.GetImageData();
    auto const* const bytes = reinterpret_cast<unsigned char const*>(image.data());
    if (worksheet_insert_image_buffer(sheet.Handle(), 3, 0, bytes, image.size()) != LXW_NO_ERROR) {
      sheet.Text(3, 0, Announcement(chart), XlsxStyle(), false);  // no picture after all
    }
    sheet.Finish();
  }

  void Visit(OmAnswerTree& tree) override { List(Announcement(tree), XlsxStyle()); }
  void Visit(OmModel& model) override { List(Announcement(model), XlsxStyle()); }
  void Visit(OmInteractive& item) override { List(Announcement(item), XlsxStyle()); }

 private:
  static XlsxStyle Bold() {
    XlsxStyle style;
    style.bold = true;
    return style;
  }

  static XlsxStyle LinkStyle() {
    XlsxStyle style;
    style.underline = true;
    style.colour = "#0563c1";
    return style;
  }

  XlsxStyle Indented(XlsxStyle style) const {
    style.indent = std::clamp(depth_, 0, kDeepestIndent);
    return style;
  }

  void List(std::string const& text, XlsxStyle const& style) {
    contents_.Text(entries_++, 0, text, Indented(style));
  }

  void ListSheet(std::string const& text, XlsxSheet const& sheet) {
    contents_.Link(entries_++, 0, sheet.Name(), text.empty() ? sheet.Name() : text,
                   Indented(LinkStyle()));
  }

  static std::string LayerNameOf(DisplayGrid const& grid, FootnoteMarks const& marks) {
    return LayerLine(grid.LayerLabels(), [&](OmCellText const* label) {
      MarkedText const shown = ShownText(label, marks);
      return shown.text + shown.marks;
    });
  }

  std::unique_ptr<XlsxSheet> Start(std::string const& wish, std::string const& title,
                                   OmPivotTable const& table, FootnoteMarks const& marks) {
    auto sheet = std::make_unique<XlsxSheet>(book_, wish, title);
    ListSheet(wish, *sheet);
    sheet->Link(0, 0, contents_.Name(), "Contents", LinkStyle());
    MarkedText const shown = ShownText(HeadlineOf(table), marks);
    sheet->Text(1, 0, shown.text + shown.marks, WithArea(Bold(), table, FormatArea::AreaTitle),
                false);
    return sheet;
  }

  static void End(XlsxSheet* sheet, OmPivotTable const& table, FootnoteMarks const& marks,
                  int row) {
    if (sheet == nullptr) {
      return;
    }
    XlsxStyle const notes = WithArea(XlsxStyle(), table, FormatArea::AreaFootnotes);
    for (std::string const& note : marks.Notes()) {
      sheet->Text(row++, 0, note, notes, false);
    }
    if (table.showCaption() && table.Caption() != nullptr) {
      MarkedText const shown = ShownText(table.Caption(), marks);
      sheet->Text(row, 0, shown.text + shown.marks,
                  WithArea(XlsxStyle(), table, FormatArea::AreaCaption), false);
    }
    sheet->Finish();
  }

  XlsxBook& book_;
  XlsxOptions const& options_;
  XlsxSheet contents_;
  int entries_ = 0;
  int depth_ = 0;
};

}  // namespace

void RenderXlsx(OmOutputTree& tree, std::ostream& out, XlsxOptions const& options) {
  XlsxBook book;
  XlsxVisitor(book, options).Run(tree);
  book.Write(out);
}

}  // namespace lakresvos::render
