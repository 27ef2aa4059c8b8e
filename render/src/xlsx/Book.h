#ifndef LAKRESVOS_RENDER_XLSX_BOOK_H
#define LAKRESVOS_RENDER_XLSX_BOOK_H

#include <map>
#include <ostream>
#include <set>
#include <string>
#include <xlsxwriter.h>

#include "io/ScopedCLocale.h"
#include "io/SpillFile.h"
#include "io/TemporaryFile.h"
#include "xlsx/Losses.h"
#include "xlsx/SheetNames.h"
#include "xlsx/Style.h"

namespace lakresvos::render {

/// A workbook that is being written to temporary files.
class XlsxBook {
 public:
  /// @throws std::runtime_error when there can be no temporary file.
  XlsxBook();
  XlsxBook(XlsxBook const&) = delete;
  XlsxBook& operator=(XlsxBook const&) = delete;
  ~XlsxBook();

  /// A name for the next sheet; see SheetNames.
  std::string NewName(std::string const& wish, std::string const& otherwise) {
    return names_.Next(wish, otherwise);
  }

  /// Adds a sheet with a new name.
  /// @throws std::length_error when the workbook has all the sheets that it can have.
  lxw_worksheet* AddSheet(std::string const& name);

  int Sheets() const { return sheets_; }

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
  void Close();

  CLocale locale_;
  ScratchFile rows_;  // of all sheets
  TemporaryFile file_;
  lxw_workbook* book_ = nullptr;
  SheetNames names_;
  int sheets_ = 0;
  std::map<XlsxStyle, lxw_format*> formats_;
  std::set<std::string> markedNumberFormats_;
  XlsxLosses losses_;
};

/// The name of a sheet as references to cells have it.
std::string Quoted(std::string const& sheet);

/// @throws std::runtime_error if `error` is one, std::bad_alloc if it says that memory ran out.
void Check(lxw_error error);

}  // namespace lakresvos::render

#endif
