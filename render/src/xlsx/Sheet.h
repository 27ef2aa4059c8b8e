#ifndef LAKRESVOS_RENDER_XLSX_SHEET_H
#define LAKRESVOS_RENDER_XLSX_SHEET_H

#include <string>
#include <vector>

#include "content/FootnoteMarks.h"
#include "xlsx/Book.h"
#include "xlsx/Print.h"

namespace lakresvos::render {

/// One sheet of a workbook, written row by row: what has left a row cannot go back to it.
///
/// Texts are cleaned and followed by the raised marks of their footnotes.
class XlsxSheet {
 public:
  /// @param content what the sheet shows, for its name and for errors.
  /// @param otherwise the name of a sheet whose content has none.
  XlsxSheet(XlsxBook& book, std::string const& content, std::string const& otherwise);
  XlsxSheet(XlsxSheet const&) = delete;
  XlsxSheet& operator=(XlsxSheet const&) = delete;

  lxw_worksheet* Handle() { return sheet_; }
  std::string const& Name() const { return name_; }

  /// Writes a text. The column will be wide enough for it, up to a limit beyond which it wraps,
  /// unless `wide` is off.
  /// One that is longer than a cell can hold is replaced by a note that says so.
  /// @throws std::length_error, as all that write, when the place is outside a sheet.
  void WriteText(int row, int column, MarkedText const& text, XlsxStyle const& style,
                 bool wide = true);

  /// Writes a text line by line from the first column on, nothing for an empty one. Lines that are
  /// wider than a page wrap across merged columns that are as wide as a page or wider; very long
  /// ones go over several rows. The columns do not get wider.
  /// @return the row after the last.
  int WriteLines(int row, MarkedText const& text, XlsxStyle const& style);

  /// Whether WriteLines() would wrap a line of the text.
  static bool WrapsAcrossPage(std::string const& text, XlsxStyle const& style);

  /// Writes a number; `shown` is the text that it will show.
  void WriteNumber(int row, int column, double value, std::string const& shown,
                   XlsxStyle const& style);

  /// Gives a cell without content a style.
  void FormatEmptyCell(int row, int column, XlsxStyle const& style);

  /// Writes a line, as WriteLines() does, that leads to another sheet.
  void WriteLink(int row, std::string const& sheet, std::string const& text,
                 XlsxStyle const& style);

  /// Merges cells, whose contents are written one by one, from the present row on down. A sheet
  /// cannot hold more than 65,535 merged cells; false, and nothing done, when it does.
  bool Merge(int row, int column, int rows, int columns);

  /// The outline level of a row; before any of its cells. Levels above 7 count as 7.
  void SetRowLevel(int row, int level);

  /// The outline level of a column.
  void SetColumnLevel(int column, int level);

  /// What every printed page repeats.
  void RepeatHeadings(XlsxHeadings const& headings) { headings_ = headings; }

  /// Makes a column so many characters wide, or wider.
  void SetLeastWidth(int column, int width);

  /// Whether numbers can have this format with footnote marks.
  bool HasRoomFor(std::string const& markedNumberFormat) {
    return book_.HasRoomFor(markedNumberFormat);
  }

  /// Counts something that the workbook cannot hold as it is.
  void CountLoss(XlsxLoss kind, int row, int column);

  /// Sets the widths and levels of the columns, and how the sheet is printed.
  void Finish();

  /// @throws std::length_error when the place is outside a sheet.
  void CheckPlace(int row, int column) const;

 private:
  int Widen(int column, std::string const& text);
  void WriteLine(int row, MarkedText const& text, XlsxStyle style);
  void MergeAcrossPage(int row);
  void WriteMarked(int row, int column, std::string const& text, std::string const& marks,
                   XlsxStyle const& style);

  XlsxBook& book_;
  int number_;  // among the workbook's sheets
  std::string name_;
  lxw_worksheet* sheet_;
  std::string content_;
  int merged_ = 0;
  std::vector<int> wrappedRows_;  // lines across the page that are still to be merged
  XlsxHeadings headings_;
  std::vector<int> widths_;  // per column, in characters
  std::vector<int> levels_;  // per column
};

}  // namespace lakresvos::render

#endif
