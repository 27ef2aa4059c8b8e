#ifndef LAKRESVOS_RENDER_XLSX_CONTENTS_H
#define LAKRESVOS_RENDER_XLSX_CONTENTS_H

#include <memory>
#include <string>

#include "xlsx/Sheet.h"

namespace lakresvos::render {

/// The first sheet of a workbook: an item of the document in each row, indented by its depth, with
/// links to the other sheets. Long texts wrap.
class XlsxContents {
 public:
  explicit XlsxContents(XlsxBook& book) : book_(book), sheet_(book, "Contents", "Contents") {
    sheet_.SetLeastWidth(0, kWidth);
  }

  /// The depth of the items to come.
  int& Depth() { return depth_; }

  /// Adds a text, its first line bold if wanted.
  void Add(std::string const& text, bool bold = false);

  /// Adds a sheet for an item and a link to it, as `entry` or, when that is empty, by its name; the
  /// sheet starts with a link back in its first row.
  /// @param content and `otherwise`: see XlsxSheet.
  std::unique_ptr<XlsxSheet> AddSheet(std::string const& entry, std::string const& content,
                                      std::string const& otherwise);

  void Finish() { sheet_.Finish(); }

 private:
  static constexpr int kWidth = 90;  // that of a page

  XlsxStyle Indented(XlsxStyle style) const;

  XlsxBook& book_;
  XlsxSheet sheet_;
  int rows_ = 0;
  int depth_ = 0;
};

}  // namespace lakresvos::render

#endif
