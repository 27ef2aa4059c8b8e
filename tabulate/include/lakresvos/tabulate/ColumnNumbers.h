#ifndef LAKRESVOS_TABULATE_COLUMN_NUMBERS_H
#define LAKRESVOS_TABULATE_COLUMN_NUMBERS_H

#include <cstdint>
#include <vector>

#include <lakresvos/tabulate/DataSet.h>
#include <lakresvos/tabulate/Export.h>
#include <lakresvos/tabulate/Number.h>

namespace lakresvos::tabulate {

class WarningLog;

/// The values of a data column as numbers.
struct ColumnNumbers {
  std::vector<double> byCode;  ///< per value, the number that it is or kNoNumber
  int decimals = 0;            ///< the most decimals that any of them is written with
  bool complete = true;        ///< whether all of them are numbers

  /// The number of a row with this code; kNoNumber for a missing value.
  double Of(std::uint32_t code) const {
    return code == DataColumn::kMissing ? kNoNumber : byCode[code];
  }
};

/// Reads the numbers of a column. Requires: the column is kept.
LAKRESVOS_TABULATE_EXPORT ColumnNumbers NumbersOf(DataColumn const& column);

/// Warns of every row in which the column has a text where statistics need a number.
LAKRESVOS_TABULATE_EXPORT void WarnOfTexts(DataSet const& data, DataColumn const& column,
                                           WarningLog& warnings);

}  // namespace lakresvos::tabulate

#endif
