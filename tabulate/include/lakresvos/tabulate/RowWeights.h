#ifndef LAKRESVOS_TABULATE_ROWWEIGHTS_H
#define LAKRESVOS_TABULATE_ROWWEIGHTS_H

#include <cstddef>
#include <string>

#include <lakresvos/tabulate/ColumnNumbers.h>
#include <lakresvos/tabulate/DataSet.h>
#include <lakresvos/tabulate/Export.h>

namespace lakresvos::tabulate {

class WarningLog;

/// How often each row of a data set counts. Weights are frequencies: a row of weight 3 counts as
/// three equal rows, one of weight 0 as none.
///
/// Thread safety: const operations may run in several threads at once; others need exclusive
/// access.
class LAKRESVOS_TABULATE_EXPORT RowWeights {
 public:
  /// Makes the weights of data in which every row counts once.
  RowWeights() = default;

  /// Every row counts as often as the column says. A row without a weight does not count.
  /// @param data     has to outlive the object. Requires: it keeps the column.
  /// @param column   the name of the column.
  /// @param warnings gets a warning of each row without a weight.
  /// @throws InputError with file, line and column for a weight that is not a number or is below 0.
  RowWeights(DataSet const& data, std::string const& column, WarningLog& warnings);

  /// The row's weight, 0 or more; kNoNumber when the row does not count.
  /// Requires: without a column anything; with one, `row` is below the data set's Rows().
  double At(std::size_t row) const {
    return column_ == nullptr ? 1 : numbers_->At(column_->Codes()[row]);
  }

  /// Whether a column says how often rows count.
  bool HasColumn() const { return column_ != nullptr; }

  /// The largest number of decimals that a weight is written with; 0 when all weights are integers.
  int Decimals() const { return decimals_; }

 private:
  DataColumn const* column_ = nullptr;  // null: every row counts once
  ColumnNumbers const* numbers_ = nullptr;
  int decimals_ = 0;
};

}  // namespace lakresvos::tabulate

#endif
