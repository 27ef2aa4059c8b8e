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
  TableSheets(OmPivotTable& table, std::string const& title, XlsxContents& contents,
              XlsxOptions const& options)
      : table_(table),
        title_(title),
        caption_(table.showCaption() ? table.Caption() : nullptr),
        captionText_(GetText(caption_)),
        contents_(contents),
        options_(options),
        notes_(table) {}

  void Write() {
    LayerGrids layers(table_, options_);
    DisplayGrid const* grid = layers.Next();
    do {
      LayerName const name = NameLayer(grid);
      Start(options_.layersAsSheets ? name.plain : "");
      for (bool first = true; grid != nullptr && (first || !options_.layersAsSheets);
           first = false) {
        WriteLayer(*grid, first ? name.marked : NameLayer(grid).marked, first);
        grid = layers.Next();
      }
      End(grid == nullptr);
    } while (grid != nullptr);
  }

 private:
  struct LayerName {
    std::string plain;
    std::string marked;  ///< with the marks of footnotes
  };

  /// Empty for no layer.
  LayerName NameLayer(DisplayGrid const* grid) {
    if (grid == nullptr) {
      return {};
    }
    auto const plain = [&](auto label) { return notes_.FindText(label); };
    auto const marked = [&](auto label) {
      return notes_.FindText(label) + notes_.RaiseMarks(label);
    };
    return {LayerLine(grid->LayerLabels(), plain), LayerLine(grid->LayerLabels(), marked)};
  }

  /// @param layer the one that the sheet is for; empty when it is for all.
  void Start(std::string const& layer) {
    if (layer.empty()) {
      sheet_ = contents_.AddSheet(title_, title_, "Table");
    } else {
      sheet_ = contents_.AddSheet(title_ + " (" + layer + ")", layer + ", " + title_, "Table");
    }
    row_ = 1;
    XlsxStyle bold;
    bold.bold = true;
    WriteLines({title_, notes_.FindMarks(FindHeadline(table_))}, bold, FormatArea::AreaTitle);
  }

  void WriteLayer(DisplayGrid const& grid, std::string const& name, bool first) {
    if (!first) {
      ++row_;
    }
    row_ = sheet_->WriteLines(row_, {name, ""},
                              ApplyArea(XlsxStyle(), table_, FormatArea::AreaLayers));
    if (first) {
      SetUpXlsxGrid(*sheet_, grid, row_);
    }
    row_ = WriteXlsxGrid(*sheet_, grid, notes_, options_, row_);
  }

  void End(bool last) {
    MarkedText const caption{captionText_, notes_.FindMarks(caption_)};
    XlsxStyle const style = ApplyArea(XlsxStyle(), table_, FormatArea::AreaFootnotes);
    for (std::string const& note : notes_.EndSheet(last)) {
      row_ = sheet_->WriteLines(row_, {note, ""}, style);
    }
    WriteLines(caption, XlsxStyle(), FormatArea::AreaCaption);
    sheet_->Finish();
  }

  void WriteLines(MarkedText const& text, XlsxStyle const& style, FormatArea::Area area) {
    row_ = sheet_->WriteLines(row_, text, ApplyArea(style, table_, area));
  }

  OmPivotTable& table_;
  std::string const& title_;
  OmCellText const* caption_;  // null when there is none to show
  std::string captionText_;
  XlsxContents& contents_;
  XlsxOptions const& options_;
  XlsxNotes notes_;
  std::unique_ptr<XlsxSheet> sheet_;
  int row_ = 0;
};

}  // namespace

void WriteXlsxTable(OmPivotTable& table, std::string const& title, XlsxContents& contents,
                    XlsxOptions const& options) {
  TableSheets(table, title, contents, options).Write();
}

}  // namespace lakresvos::render
