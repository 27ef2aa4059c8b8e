#ifndef LAKRESVOS_TABULATE_COUNT_MEASUREPLAN_H
#define LAKRESVOS_TABULATE_COUNT_MEASUREPLAN_H

#include <cstddef>
#include <string>
#include <vector>

#include <lakresvos/tabulate/Statistic.h>

#include "count/CellCounts.h"

namespace lakresvos::tabulate {

/// What statistics need to know of each row.
struct MeasurePlan {
  /// Of a statistic that needs no numbers.
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

  std::vector<std::string> columns;  ///< of which numbers are taken, each once
  std::vector<Measure> measures;     ///< of these numbers; what several statistics need is one
  std::vector<std::size_t> measureByStatistic;  ///< or kNone
};

MeasurePlan PlanMeasures(std::vector<Statistic> const& statistics);

}  // namespace lakresvos::tabulate

#endif
