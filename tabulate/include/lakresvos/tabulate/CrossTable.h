#ifndef LAKRESVOS_TABULATE_CROSSTABLE_H
#define LAKRESVOS_TABULATE_CROSSTABLE_H

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include <lakresvos/OmPivotTable.h>
#include <lakresvos/tabulate/CountedData.h>
#include <lakresvos/tabulate/DataSet.h>
#include <lakresvos/tabulate/Export.h>
#include <lakresvos/tabulate/Formula.h>
#include <lakresvos/tabulate/Grouping.h>
#include <lakresvos/tabulate/RowWeights.h>
#include <lakresvos/tabulate/Statistic.h>

namespace lakresvos::tabulate {

/// A table to make.
///
/// Thread safety: const operations may run in several threads at once; others need exclusive
/// access.
struct TableRequest {
  Formula formula;           ///< what is on its axes
  std::string title = {};    ///< empty: one that says what is tabulated
  std::string caption = {};  ///< empty: none
};

/// Makes a pivot table of what was counted of data.
///
/// Dimensions are in the order of the formula, the first outermost; several statistics, or one in a
/// table without dimensions, make a further dimension innermost on the columns. Categories are in
/// ascending order when all values of their column are numbers, else in the order of the rows.
/// Counts have the decimals of the weights, percentages 1, means and deviations 2, the others those
/// of the data. A statistic that cannot be computed is the system-missing value.
///
/// A row that lacks a value in a column of the formula is left out, as a footnote at the title
/// says; one that lacks a value of which a statistic is taken is left out of that statistic, as
/// a footnote at the cell says.
///
/// Takes time linear in the number of counted cells, and in the number of cells times 2 to the number
/// of row and column dimensions when totals or percentages are wanted.
///
/// @param data       what was counted.
/// @param table      the number of the table in the CountRequest.
/// @param request    the formula, that of the CountRequest, and the texts of the table.
/// @param statistics what each cell shows, those of the CountRequest; at least one.
/// @param totals     whether each dimension of the rows and columns gets a Total. The label of a
///                   Total is marked by OmCellMetaData::setTotal().
/// @param groupings  those of columns that are not in the formula do nothing.
/// @return a table that the caller owns, never null, after OmPivotTable::EndTable().
/// @throws InputError for a grouping with a category that its column does not have, that is in two
///         groups, or that never occurs next to the first one of its group.
LAKRESVOS_TABULATE_EXPORT std::unique_ptr<OmPivotTable> MakeCrossTable(
    CountedData const& data, std::size_t table, TableRequest const& request,
    std::vector<Statistic> const& statistics, bool totals,
    std::vector<Grouping> const& groupings = {});

/// Counts the rows of data in memory and makes a pivot table of that, in time linear in the number of
/// rows; otherwise as above.
///
/// @param data    Requires: it keeps the columns of formula and statistics.
/// @param weights of these data, or the default: every row counts once.
LAKRESVOS_TABULATE_EXPORT std::unique_ptr<OmPivotTable> MakeCrossTable(
    DataSet const& data, RowWeights const& weights, TableRequest const& request,
    std::vector<Statistic> const& statistics, bool totals,
    std::vector<Grouping> const& groupings = {});

}  // namespace lakresvos::tabulate

#endif
