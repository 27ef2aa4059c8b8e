#include "xlsx/Table.h"

#include <memory>
#include <string>

#include <lakresvos/render/LayerGrids.h>

#include "content/CellText.h"
#include "grid/LayerLine.h"
#include "xlsx/Grid.h"

namespace lakresvos::render {

namespace {

class TableSheets {
 public:
  TableSheets(OmPivotTable& table, XlsxContents& contents, XlsxOptions const& options)
      : table_(table), contents_(contents), options_(options), notes_(table) {}

  void Write() {
    LayerGrids layers(table_, options_);
    DisplayGrid const* grid = layers.Next();
    do {
      Start(grid);
      for (bool first = true; grid != nullptr && (first || !options_.layersAsSheets);
           first = false) {
        WriteLayer(*grid, first);
        grid = layers.Next();
      }
      End(grid == nullptr);
    } while (grid != nullptr);
  }

 private:
  void Start(DisplayGrid const* grid) {
    std::string const title = GetText(FindHeadline(table_));
    std::string const layer =
        options_.layersAsSheets && grid != nullptr ? LayerLine(grid->LayerLabels(), GetText) : "";
    if (layer.empty()) {
      sheet_ = contents_.AddSheet(title, title, "Table");
    } else {
      sheet_ = contents_.AddSheet(title + " (" + layer + ")", layer + ", " + title, "Table");
    }
    row_ = 1;
    XlsxStyle bold;
    bold.bold = true;
    WriteLines(notes_.Raised(FindHeadline(table_)), bold, FormatArea::AreaTitle);
  }

  void WriteLayer(DisplayGrid const& grid, bool first) {
    if (!first) {
      ++row_;
    }
    std::string const layer = LayerLine(grid.LayerLabels(), [this](OmCellText const* label) {
      MarkedText const shown = notes_.Plain(label);
      return shown.text + shown.marks;
    });
    row_ = sheet_->Lines(row_, {layer, ""}, WithArea(XlsxStyle(), table_, FormatArea::AreaLayers));
    if (first) {
      SetUpXlsxGrid(*sheet_, grid, row_);
    }
    row_ = WriteXlsxGrid(*sheet_, grid, notes_, options_, row_);
  }

  void End(bool last) {
    MarkedText const caption = notes_.Raised(table_.showCaption() ? table_.Caption() : nullptr);
    XlsxStyle const style = WithArea(XlsxStyle(), table_, FormatArea::AreaFootnotes);
    for (std::string const& note : notes_.EndSheet(last)) {
      row_ = sheet_->Lines(row_, {note, ""}, style);
    }
    WriteLines(caption, XlsxStyle(), FormatArea::AreaCaption);
    sheet_->Finish();
  }

  void WriteLines(MarkedText const& text, XlsxStyle const& style, FormatArea::Area area) {
    row_ = sheet_->Lines(row_, text, WithArea(style, table_, area));
  }

  OmPivotTable& table_;
  XlsxContents& contents_;
  XlsxOptions const& options_;
  XlsxNotes notes_;
  std::unique_ptr<XlsxSheet> sheet_;
  int row_ = 0;
};

}  // namespace

void WriteXlsxTable(OmPivotTable& table, XlsxContents& contents, XlsxOptions const& options) {
  TableSheets(table, contents, options).Write();
}

}  // namespace lakresvos::render
