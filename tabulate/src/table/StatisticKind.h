#ifndef LAKRESVOS_TABULATE_TABLE_STATISTICKIND_H
#define LAKRESVOS_TABULATE_TABLE_STATISTICKIND_H

#include <cstddef>
#include <memory>
#include <span>
#include <string_view>

#include "table/CellSummaries.h"
#include "table/WideNumber.h"

namespace lakresvos::tabulate {

/// What a statistic of one cell is computed of.
struct StatisticInput {
  WideNumber count;                ///< the sum of the weights of the cell's rows
  WideNumber whole;                ///< that of the kind's whole
  CellSummaries const* summaries;  ///< of the column's numbers; null for a kind without a column
  std::size_t cell;
};

/// The cell whose count is the whole of a percentage: that in which the Total stands in for each
/// category of the rows, of the columns, or of both. For neither it is the cell itself.
struct Whole {
  bool ofRows = false;
  bool ofColumns = false;

  bool NeedsTotals() const { return ofRows || ofColumns; }
};

/// All that there is to say of one kind of statistic.
struct StatisticKind {
  std::string_view keyword;  ///< in a list of statistics
  std::string_view label;    ///< in tables

  /// Makes what the column's numbers are summed up in, which also says how cells merge to totals.
  /// Null for a kind that takes no column and needs counts alone, which merge by addition.
  std::unique_ptr<CellSummaries> (*makeSummaries)();

  Whole whole;

  /// How many decimals it is shown with, given those of the weights and of the column's numbers.
  int (*countDecimals)(int weightDecimals, int columnDecimals);

  /// Computes it; kNoNumber when that cannot be done.
  double (*compute)(StatisticInput const& input);

  bool NeedsColumn() const { return makeSummaries != nullptr; }
};

/// Every kind, in the order of the manual. Adding one takes an entry of this table.
std::span<StatisticKind const> ListStatisticKinds();

}  // namespace lakresvos::tabulate

#endif
