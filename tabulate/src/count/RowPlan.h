#ifndef LAKRESVOS_TABULATE_COUNT_ROWPLAN_H
#define LAKRESVOS_TABULATE_COUNT_ROWPLAN_H

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include <lakresvos/tabulate/CountedData.h>
#include <lakresvos/tabulate/RequiredColumns.h>

#include "count/MeasurePlan.h"

namespace lakresvos::tabulate {

/// All columns that a request needs: those of the formulas, of the statistics, and the weight.
RequiredColumns ListColumns(CountRequest const& request);

/// What to take of each row.
struct RowPlan {
  /// @param places the number of each column that ListColumns() gives.
  RowPlan(CountRequest const& request, std::vector<std::size_t> const& places);

  std::vector<std::size_t> categories;           ///< the columns of formulas, each once, by number
  std::vector<std::vector<std::size_t>> tables;  ///< the columns of each formula, in its order
  std::vector<std::size_t> numbers;              ///< the columns of the measures
  std::optional<std::size_t> weight;             ///< the column of weights
  MeasurePlan measures;
};

}  // namespace lakresvos::tabulate

#endif
