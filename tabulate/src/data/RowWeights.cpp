#include <algorithm>
#include <cmath>

#include <lakresvos/tabulate/InputError.h>
#include <lakresvos/tabulate/Quoting.h>
#include <lakresvos/tabulate/RowWeights.h>
#include <lakresvos/tabulate/WarningLog.h>

namespace lakresvos::tabulate {

RowWeights::RowWeights(DataSet const& data, std::string const& column, WarningLog& warnings)
    : column_(&data.columns[data.FindColumn(column)]), numbers_(&column_->Numbers()) {
  std::vector<double> const& weights = numbers_->byCode;
  for (std::size_t row = 0; row < data.Rows(); ++row) {
    std::uint32_t const code = column_->Codes()[row];
    if (code == kMissingCode) {
      warnings.Add({Skipped::Weights, data.lines[row], column,
                    "the weight is missing; the line was skipped"});
    } else if (!(weights[code] >= 0)) {
      throw InputError(data.file, data.lines[row],
                       "column " + Quote(column) + ": expected a weight of 0 or more, not " +
                           Quote(column_->Values()[code]));
    }
  }
  bool const integers = std::all_of(weights.begin(), weights.end(),
                                    [](double weight) { return weight == std::floor(weight); });
  decimals_ = integers ? 0 : numbers_->decimals;
}

}  // namespace lakresvos::tabulate
