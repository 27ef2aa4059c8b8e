#include "count/MeasurePlan.h"

#include <algorithm>

#include "table/StatisticKind.h"

namespace lakresvos::tabulate {

MeasurePlan PlanMeasures(std::vector<Statistic> const& statistics) {
  MeasurePlan plan;
  for (Statistic const& statistic : statistics) {
    if (!NeedsColumn(statistic)) {
      plan.measureByStatistic.push_back(MeasurePlan::kNone);
      continue;
    }
    auto const column = std::ranges::find(plan.columns, statistic.column.name);
    auto const number = static_cast<std::size_t>(column - plan.columns.begin());
    if (column == plan.columns.end()) {
      plan.columns.push_back(statistic.column.name);
    }
    auto const make = statistic.kind->makeSummaries;
    auto const measure = std::ranges::find_if(plan.measures, [&](Measure const& one) {
      return one.number == number && one.makeSummaries == make;
    });
    plan.measureByStatistic.push_back(static_cast<std::size_t>(measure - plan.measures.begin()));
    if (measure == plan.measures.end()) {
      plan.measures.push_back({number, make});
    }
  }
  return plan;
}

}  // namespace lakresvos::tabulate
