#ifndef LAKRESVOS_TABULATE_GROUPING_H
#define LAKRESVOS_TABULATE_GROUPING_H

#include <string>
#include <vector>

#include <lakresvos/tabulate/DataSet.h>
#include <lakresvos/tabulate/Export.h>
#include <lakresvos/tabulate/Scanner.h>

namespace lakresvos::tabulate {

/// Categories of a data column that tables show under a group of their own.
struct Grouping {
  std::string text;
  NamedColumn column;
  NamedColumn group;
  std::vector<NamedColumn> categories;  ///< by the values that make them
};

/// Reads `COLUMN: NAME = CATEGORY, CATEGORY`; names as in a formula.
/// @throws InputError that names the position.
LAKRESVOS_TABULATE_EXPORT Grouping ParseGrouping(std::string const& text);

/// @throws InputError for a grouping of a column that is in no formula, and for a group of a column
///         that comes twice.
LAKRESVOS_TABULATE_EXPORT void CheckGroupings(std::vector<Grouping> const& groupings,
                                              std::vector<ColumnWish> const& formulaColumns);

/// Complains about a place in a grouping.
/// @throws InputError always.
[[noreturn]] void Fail(Grouping const& grouping, NamedColumn const& place, std::string const& what);

}  // namespace lakresvos::tabulate

#endif
