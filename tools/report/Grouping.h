#ifndef TOOLS_REPORT_GROUPING_H
#define TOOLS_REPORT_GROUPING_H

#include <string>
#include <vector>

#include "DataSet.h"
#include "Scanner.h"

namespace lakresvos::report {

/// Categories of a data column that tables show under a group of their own.
struct Grouping {
  std::string text;
  NamedColumn column;
  NamedColumn group;
  std::vector<NamedColumn> categories;  ///< by the values that make them
};

/// Reads `COLUMN: NAME = CATEGORY, CATEGORY`; names as in a formula.
/// @throws ReportError that names the position.
Grouping ParseGrouping(std::string const& text);

/// @throws ReportError for a grouping of a column that is in no formula, and for a group of a column
///         that comes twice.
void CheckGroupings(std::vector<Grouping> const& groupings,
                    std::vector<ColumnWish> const& formulaColumns);

/// Complains about a place in a grouping.
/// @throws ReportError always.
[[noreturn]] void Fail(Grouping const& grouping, NamedColumn const& place, std::string const& what);

}  // namespace lakresvos::report

#endif
