#ifndef LAKRESVOS_RENDER_XLSX_PLAN_H
#define LAKRESVOS_RENDER_XLSX_PLAN_H

#include <map>
#include <string>

#include <lakresvos/OmOutputTree.h>
#include <lakresvos/OmPivotTable.h>
#include <lakresvos/render/XlsxRenderer.h>

#include "xlsx/Book.h"

namespace lakresvos::render {

/// What has to be known of a document before its workbook is begun: where the rows can be kept. The
/// titles of the tables, which decide that, are read here once and for all.
class XlsxPlan {
 public:
  XlsxPlan(OmOutputTree const& tree, XlsxOptions const& options);

  XlsxRows Rows() const { return rows_; }

  /// The text that heads a table. Requires: the table is shown and is one of the document.
  std::string const& Title(OmPivotTable const& table) const { return titles_.at(&table); }

 private:
  class Visitor;

  std::map<OmPivotTable const*, std::string> titles_;
  XlsxRows rows_ = XlsxRows::InFiles;
};

}  // namespace lakresvos::render

#endif
