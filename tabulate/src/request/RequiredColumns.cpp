#include <algorithm>
#include <iterator>

#include <lakresvos/tabulate/RequiredColumns.h>

namespace lakresvos::tabulate {

std::string RequiredColumn::DescribeSource() const {
  std::string description = source;
  if (value != nullptr) {
    description += " '" + *value + "'";
  }
  return position == 0 ? description : description + " at position " + std::to_string(position);
}

RequiredColumns ListColumns(Formula const& formula) {
  auto const text = std::make_shared<std::string const>(formula.text);  // the columns share it
  RequiredColumns columns;
  for (auto const* axis : {&formula.rows, &formula.columns, &formula.layers}) {
    for (FormulaTerm const& term : *axis) {
      for (NameToken const& column : term) {
        columns.push_back({column.name, formula.source, text, column.position});
      }
    }
  }
  return columns;
}

RequiredColumns ListColumns(std::vector<Statistic> const& statistics) {
  RequiredColumns columns;
  for (Statistic const& statistic : statistics) {
    if (NeedsColumn(statistic)) {
      columns.push_back(
          {statistic.column.name, statistic.source, nullptr, statistic.column.position});
    }
  }
  return columns;
}

RequiredColumns ListColumns(Formula const& formula, std::vector<Statistic> const& statistics) {
  RequiredColumns columns = ListColumns(formula);
  RequiredColumns ofStatistics = ListColumns(statistics);
  std::move(ofStatistics.begin(), ofStatistics.end(), std::back_inserter(columns));
  return columns;
}

}  // namespace lakresvos::tabulate
