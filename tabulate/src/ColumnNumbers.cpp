#include <algorithm>
#include <cmath>
#include <string>

#include <lakresvos/tabulate/ColumnNumbers.h>
#include <lakresvos/tabulate/Quoting.h>
#include <lakresvos/tabulate/WarningLog.h>

namespace lakresvos::tabulate {

ColumnNumbers NumbersOf(DataColumn const& column) {
  ColumnNumbers numbers;
  numbers.byCode.reserve(column.values.size());
  for (std::uint32_t code = 0; code < column.values.size(); ++code) {
    double const number = ParseNumber(column.values[code]);
    numbers.byCode.push_back(number);
    if (std::isnan(number)) {
      numbers.complete = false;
    } else {
      numbers.decimals = std::max(numbers.decimals, DecimalsOf(column.values[code]));
    }
  }
  return numbers;
}

void WarnOfTexts(DataSet const& data, DataColumn const& column, WarningLog& warnings) {
  ColumnNumbers const numbers = NumbersOf(column);
  if (numbers.complete) {
    return;
  }
  for (std::size_t row = 0; row < data.Rows(); ++row) {
    std::uint32_t const code = column.codes[row];
    if (code != DataColumn::kMissing && std::isnan(numbers.byCode[code])) {
      warnings.Add({Skipped::Texts, data.lines[row], column.name,
                    Quoted(column.values[code]) + " is not a number; it counts as missing"});
    }
  }
}

}  // namespace lakresvos::tabulate
