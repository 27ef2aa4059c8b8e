#ifndef LAKRESVOS_TABULATE_GROUPING_H
#define LAKRESVOS_TABULATE_GROUPING_H

#include <string>
#include <vector>

#include <lakresvos/tabulate/Export.h>
#include <lakresvos/tabulate/NameToken.h>
#include <lakresvos/tabulate/RequiredColumns.h>

namespace lakresvos::tabulate {

/// Categories of a data column that tables show under a group of their own.
///
/// Thread safety: const operations may run in several threads at once; others need exclusive
/// access.
struct Grouping {
  std::string text;                   ///< what was parsed, for messages
  NameToken column;                   ///< the data column
  NameToken group;                    ///< what the group is called
  std::vector<NameToken> categories;  ///< values of the column, at least one
  std::string source = "group";       ///< what messages call it
};

/// Parses `COLUMN: GROUP = CATEGORY, CATEGORY`; names in backquotes may hold anything, as in a
/// formula.
/// @param source what messages call the text: the option that has it, say.
/// @throws InputError that names the position.
LAKRESVOS_TABULATE_EXPORT Grouping ParseGrouping(std::string const& text,
                                                 std::string const& source = "group");

/// Checks groupings before any data are read.
/// @param tableColumns the columns of the formulas of all tables.
/// @throws InputError for a grouping of a column that is in no table, and for a column with two
///         groups of one name.
LAKRESVOS_TABULATE_EXPORT void CheckGroupings(std::vector<Grouping> const& groupings,
                                              RequiredColumns const& tableColumns);

}  // namespace lakresvos::tabulate

#endif
