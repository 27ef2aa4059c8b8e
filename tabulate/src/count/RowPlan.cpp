#include "count/RowPlan.h"

#include <algorithm>

namespace lakresvos::tabulate {

namespace {

void AddOnce(std::size_t column, std::vector<std::size_t>& columns) {
  if (std::ranges::find(columns, column) == columns.end()) {
    columns.push_back(column);
  }
}

}  // namespace

RequiredColumns ListColumns(CountRequest const& request) {
  RequiredColumns columns;
  auto const append = [&](RequiredColumns const& more) {
    columns.insert(columns.end(), more.begin(), more.end());
  };
  for (Formula const& formula : request.formulas) {
    append(ListColumns(formula));
  }
  append(ListColumns(request.statistics));
  if (request.weight.has_value()) {
    columns.push_back(*request.weight);
  }
  return columns;
}

RowPlan::RowPlan(CountRequest const& request, std::vector<std::size_t> const& places)
    : measures(PlanMeasures(request.statistics)) {
  auto place = places.begin();
  for (Formula const& formula : request.formulas) {
    std::vector<std::size_t>& table = tables.emplace_back();
    for (std::size_t left = ListColumns(formula).size(); left > 0; --left) {
      table.push_back(*place++);
      AddOnce(table.back(), categories);
    }
  }
  for (std::size_t const measure : measures.measureByStatistic) {
    if (measure != MeasurePlan::kNone) {
      AddOnce(*place++, numbers);
    }
  }
  if (request.weight.has_value()) {
    weight = *place;
  }
}

}  // namespace lakresvos::tabulate
