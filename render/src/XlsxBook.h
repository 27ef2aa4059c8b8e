#ifndef LAKRESVOS_RENDER_XLSXBOOK_H
#define LAKRESVOS_RENDER_XLSXBOOK_H

#include <map>
#include <ostream>
#include <string>
#include <xlsxwriter.h>

#include "SheetNames.h"
#include "XlsxStyle.h"

namespace lakresvos::render {

/// A workbook that is being written to a temporary file.
class XlsxBook {
 public:
  /// @throws std::runtime_error when there can be no temporary file.
  XlsxBook();
  XlsxBook(XlsxBook const&) = delete;
  XlsxBook& operator=(XlsxBook const&) = delete;
  ~XlsxBook();

  /// Adds a sheet named as near to `wish` as a sheet can be.
  lxw_worksheet* AddSheet(std::string const& wish);

  /// The one format for a style; null for that of a new workbook.
  lxw_format* Format(XlsxStyle const& style);

  /// Completes the workbook and copies it to `out`.
  /// @throws std::runtime_error when the file cannot be written.
  void Write(std::ostream& out);

 private:
  std::string file_;
  lxw_workbook* book_ = nullptr;
  SheetNames names_;
  std::map<XlsxStyle, lxw_format*> formats_;
};

/// @throws std::runtime_error with what the library says of `error`, if it is one.
void Check(lxw_error error);

}  // namespace lakresvos::render

#endif
