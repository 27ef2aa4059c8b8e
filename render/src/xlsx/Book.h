#ifndef LAKRESVOS_RENDER_XLSX_BOOK_H
#define LAKRESVOS_RENDER_XLSX_BOOK_H

#include <map>
#include <ostream>
#include <set>
#include <string>
#include <xlsxwriter.h>

#include "io/ScopedCLocale.h"
#include "io/TemporaryFile.h"
#include "xlsx/Losses.h"
#include "xlsx/PartFile.h"
#include "xlsx/SheetNames.h"
#include "xlsx/Style.h"

namespace lakresvos::render {

/// Where the rows of a workbook are until it is complete.
///
/// A table can have millions of cells, and in memory each takes some two hundred bytes beside the
/// document, so rows go to files as they are written. The XLSX library has a file for each sheet
/// and keeps it open to the end, and a process can have a few hundred open files only. It cannot go
/// back to a row either: cells can be merged down from the row that is being written, not in one
/// above it. So documents of many sheets are held in memory, and so are those with a title that
/// goes across merged columns, whose widths are known only after the table.
enum class XlsxRows { InFiles, InMemory };

/// A workbook that is being written to a temporary file.
class XlsxBook {
 public:
  /// @throws std::runtime_error when there can be no temporary file.
  explicit XlsxBook(XlsxRows rows) : rows_(rows) {}
  XlsxBook(XlsxBook const&) = delete;
  XlsxBook& operator=(XlsxBook const&) = delete;
  ~XlsxBook();

  /// A name for the next sheet; see SheetNames.
  std::string NewName(std::string const& text, std::string const& otherwise) {
    return names_.Next(text, otherwise);
  }

  /// Adds a sheet with a new name.
  /// @throws std::length_error when the workbook has all the sheets that it can have.
  lxw_worksheet* AddSheet(std::string const& name);

  /// To be called after each call of the library that writes, with what it gave.
  /// @throws std::system_error when a row could not be written to its file, std::runtime_error if
  ///         `error` is one, std::bad_alloc if it says that memory ran out.
  void Check(lxw_error error) const;

  int Sheets() const { return sheets_; }

  XlsxRows Rows() const { return rows_; }

  /// Gives a reference a name, which may start with the name of a sheet without an apostrophe.
  void DefineName(std::string const& name, std::string const& reference);

  /// The one format for a style; null, the look of a new workbook, when that cannot have any more.
  lxw_format* Format(XlsxStyle const& style);

  /// Whether there is room for a number format of its own for numbers with footnote marks.
  bool HasRoomFor(std::string const& markedNumberFormat);

  XlsxLosses& Losses() { return losses_; }

  /// Completes the workbook and copies it to `out`.
  /// @throws std::runtime_error when a temporary file could not be written or read.
  void Write(std::ostream& out);

 private:
  void Open();
  void Close();
  void CheckParts() const;

  ScopedCLocale locale_;
  XlsxRows rows_;
  TemporaryFile file_;
  PartFiles parts_;
  lxw_workbook* book_ = nullptr;  // null before the first sheet and after Close()
  SheetNames names_;
  int sheets_ = 0;
  std::map<XlsxStyle, lxw_format*> formats_;
  std::set<std::string> markedNumberFormats_;
  XlsxLosses losses_;
};

/// The name of a sheet as references to cells have it.
std::string QuoteName(std::string const& sheet);

}  // namespace lakresvos::render

#endif
