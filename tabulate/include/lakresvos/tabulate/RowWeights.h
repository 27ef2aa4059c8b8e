#ifndef LAKRESVOS_TABULATE_ROW_WEIGHTS_H
#define LAKRESVOS_TABULATE_ROW_WEIGHTS_H

#include <cmath>
#include <cstddef>
#include <string>

#include <lakresvos/tabulate/ColumnNumbers.h>
#include <lakresvos/tabulate/DataSet.h>
#include <lakresvos/tabulate/Export.h>

namespace lakresvos::tabulate {

class WarningLog;

/// How often each row of a data set counts.
///
/// Thread safety: reading from several threads is safe.
class LAKRESVOS_TABULATE_EXPORT RowWeights {
 public:
  /// Every row counts once.
  RowWeights() = default;

  /// Every row counts as often as the column says. A row without a weight does not count, which is
  /// warned of.
  /// @param data has to outlive the object.
  /// @throws InputError for a weight that is not a number or is below 0.
  RowWeights(DataSet const& data, std::string const& column, WarningLog& warnings);

  /// The row's weight, 0 or more; kNoNumber when the row does not count.
  double Of(std::size_t row) const {
    return column_ == nullptr ? 1 : numbers_.Of(column_->codes[row]);
  }

  /// The most decimals that a weight is written with; 0 when all weights are integers.
  int Decimals() const { return decimals_; }

 private:
  DataColumn const* column_ = nullptr;
  ColumnNumbers numbers_;
  int decimals_ = 0;
};

}  // namespace lakresvos::tabulate

#endif
