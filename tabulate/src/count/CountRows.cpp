#include "count/CountRows.h"

#include <cstdint>
#include <string>

#include "count/MeasurePlan.h"

namespace lakresvos::tabulate {

namespace {

/// A column of which numbers are taken.
struct NumberColumn {
  std::vector<std::uint32_t> const& codes;
  ColumnNumbers const& numbers;
};

}  // namespace

TableCounts CountRows(DataSet const& data, RowWeights const& weights, Formula const& formula,
                      std::vector<Statistic> const& statistics) {
  std::vector<std::vector<std::uint32_t> const*> categories;
  for (RequiredColumn const& column : ListColumns(formula)) {
    categories.push_back(&data.columns[data.FindColumn(column.name)].Codes());
  }
  MeasurePlan const plan = PlanMeasures(statistics);
  TableCounts counts{
      CellCounts(categories.size(), plan.measures, weights.HasColumn()), {}, weights.Decimals()};
  std::vector<NumberColumn> measured;
  for (std::string const& name : plan.columns) {
    DataColumn const& column = data.columns[data.FindColumn(name)];
    measured.push_back({column.Codes(), column.Numbers()});
    counts.decimals.push_back(column.Numbers().decimals);
  }
  std::vector<std::uint32_t> codes(categories.size());
  std::vector<double> numbers(measured.size());
  for (std::size_t row = 0; row < data.Rows(); ++row) {
    for (std::size_t i = 0; i < codes.size(); ++i) {
      codes[i] = (*categories[i])[row];
    }
    for (std::size_t i = 0; i < numbers.size(); ++i) {
      numbers[i] = measured[i].numbers.At(measured[i].codes[row]);
    }
    counts.cells.Add(codes, weights.At(row), numbers);
  }
  return counts;
}

}  // namespace lakresvos::tabulate
