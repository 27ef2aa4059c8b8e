#ifndef LAKRESVOS_RENDER_XLSXSHEET_H
#define LAKRESVOS_RENDER_XLSXSHEET_H

#include <string>
#include <vector>

#include "XlsxBook.h"

namespace lakresvos::render {

/// One sheet of a workbook, written row by row: what has left a row cannot go back to it.
class XlsxSheet {
 public:
  /// @param name what errors call the sheet's content.
  XlsxSheet(XlsxBook& book, std::string const& wish, std::string const& name);
  XlsxSheet(XlsxSheet const&) = delete;
  XlsxSheet& operator=(XlsxSheet const&) = delete;

  lxw_worksheet* Handle() { return sheet_; }
  char const* Name() const { return sheet_->name; }

  /// Writes any text, cleaned. The column will be wide enough for it unless `wide` is off.
  void Text(int row, int column, std::string const& text, XlsxStyle const& style, bool wide = true);

  /// Writes a number; `shown` is the text that it will show.
  void Number(int row, int column, double value, std::string const& shown, XlsxStyle const& style);

  /// Gives a cell without content a style.
  void Blank(int row, int column, XlsxStyle const& style);

  /// Writes a text that leads to another sheet.
  void Link(int row, int column, std::string const& sheet, std::string const& text,
            XlsxStyle const& style);

  /// Merges cells, whose contents are written one by one. A sheet cannot hold more than 65,535
  /// merged cells; false, and nothing done, when it does.
  bool Merge(int row, int column, int rows, int columns);

  /// The outline level of a row, from 0 to 7; before any of its cells.
  void RowLevel(int row, int level);

  /// The outline level of a column.
  void ColumnLevel(int column, int level);

  /// Sets the widths of the columns.
  void Finish();

 private:
  void CheckPlace(int row, int column) const;
  void Widen(int column, std::string const& text);

  XlsxBook& book_;
  lxw_worksheet* sheet_;
  std::string name_;
  std::vector<int> widths_;  // per column, in characters
  std::vector<int> levels_;  // per column
};

}  // namespace lakresvos::render

#endif
