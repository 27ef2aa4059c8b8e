#include <algorithm>

#include <lakresvos/tabulate/InputError.h>
#include <lakresvos/tabulate/Quoting.h>
#include <lakresvos/tabulate/RowWeights.h>
#include <lakresvos/tabulate/WarningLog.h>

namespace lakresvos::tabulate {

RowWeights::RowWeights(DataSet const& data, std::string const& column, WarningLog& warnings)
    : column_(&data.columns[data.Find(column)]), numbers_(NumbersOf(*column_)) {
  for (std::size_t row = 0; row < data.Rows(); ++row) {
    std::uint32_t const code = column_->codes[row];
    if (code == DataColumn::kMissing) {
      warnings.Add({Skipped::Weights, data.lines[row], column,
                    "the weight is missing; the line was skipped"});
    } else if (!(numbers_.byCode[code] >= 0)) {
      throw InputError(data.file, data.lines[row],
                       "column " + Quoted(column) + ": the weight " +
                           Quoted(column_->values[code]) + " is not a number that is 0 or more");
    }
  }
  bool const integers = std::all_of(numbers_.byCode.begin(), numbers_.byCode.end(),
                                    [](double weight) { return weight == std::floor(weight); });
  decimals_ = integers ? 0 : numbers_.decimals;
}

}  // namespace lakresvos::tabulate
