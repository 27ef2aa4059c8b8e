#include <cmath>
#include <set>

#include <lakresvos/tabulate/DataSet.h>
#include <lakresvos/tabulate/Quoting.h>
#include <lakresvos/tabulate/Statistic.h>
#include <lakresvos/tabulate/WarningLog.h>

namespace lakresvos::tabulate {

namespace {

void WarnAboutTextsIn(DataColumn const& column, DataSet const& data, WarningLog& warnings) {
  ColumnNumbers const& numbers = column.Numbers();
  if (numbers.complete) {
    return;
  }
  for (std::size_t row = 0; row < data.Rows(); ++row) {
    std::uint32_t const code = column.Codes()[row];
    if (code != kMissingCode && std::isnan(numbers.byCode[code])) {
      warnings.Add({Skipped::Texts, data.lines[row], column.Name(),
                    Quote(column.Values()[code]) + " is not a number; treated as missing"});
    }
  }
}

}  // namespace

void WarnAboutTexts(DataSet const& data, std::vector<Statistic> const& statistics,
                    WarningLog& warnings) {
  std::set<std::string> seen;
  for (Statistic const& statistic : statistics) {
    std::string const& column = statistic.column.name;
    if (NeedsColumn(statistic) && seen.insert(column).second) {
      WarnAboutTextsIn(data.columns[data.FindColumn(column)], data, warnings);
    }
  }
}

}  // namespace lakresvos::tabulate
