#ifndef LAKRESVOS_TABULATE_CROSS_TABLE_H
#define LAKRESVOS_TABULATE_CROSS_TABLE_H

#include <memory>
#include <string>
#include <vector>

#include <lakresvos/OmPivotTable.h>
#include <lakresvos/tabulate/DataSet.h>
#include <lakresvos/tabulate/Export.h>
#include <lakresvos/tabulate/Formula.h>
#include <lakresvos/tabulate/Grouping.h>
#include <lakresvos/tabulate/RowWeights.h>
#include <lakresvos/tabulate/Statistic.h>

namespace lakresvos::tabulate {

/// A table that is asked for.
struct TableRequest {
  Formula formula;
  std::string title;    ///< empty: one that says what is tabulated
  std::string caption;  ///< empty: none
};

/// Tabulates the data and makes a pivot table of the result.
///
/// Dimensions stand in the order of the formula, the first outermost; several statistics, or one in
/// a table without dimensions, make a further dimension innermost on the columns. Counts have the
/// decimals of the weights, percentages 1, means and deviations 2, the others those of the data. A
/// statistic that cannot be computed is the system-missing value. Footnotes tell what was left out.
///
/// @throws InputError for a grouping with a category that its column does not have.
LAKRESVOS_TABULATE_EXPORT std::unique_ptr<OmPivotTable> MakeCrossTable(
    DataSet const& data, RowWeights const& weights, TableRequest const& request,
    std::vector<Statistic> const& statistics, bool totals,
    std::vector<Grouping> const& groupings = {});

}  // namespace lakresvos::tabulate

#endif
