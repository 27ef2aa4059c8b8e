#ifndef LAKRESVOS_TABULATE_COLUMNNUMBERS_H
#define LAKRESVOS_TABULATE_COLUMNNUMBERS_H

#include <cstdint>
#include <limits>
#include <vector>

namespace lakresvos::tabulate {

/// A number that is missing or cannot be computed: a NaN. Test for it with std::isnan().
constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

/// The code of a missing value in a data column.
constexpr std::uint32_t kMissingCode = 0xFFFFFFFF;

/// The distinct values of a data column as numbers; DataColumn::Numbers() makes them.
///
/// A value is a number when all of it is one: digits with an optional sign, decimal point and
/// exponent, as in "-12", ".5" or "6.02e23", within a double's range.
///
/// Thread safety: const operations may run in several threads at once; others need exclusive
/// access.
struct ColumnNumbers {
  std::vector<double> byCode;  ///< for each value the number that it is, or kNoNumber
  int decimals = 0;            ///< the largest number of decimals written, at most 15
  bool complete = true;        ///< whether all values are numbers; missing ones do not count

  /// The number of a row with this code; kNoNumber for a missing value and for a text.
  /// Requires: the code is kMissingCode or an index of byCode.
  double At(std::uint32_t code) const { return code == kMissingCode ? kNoNumber : byCode[code]; }
};

}  // namespace lakresvos::tabulate

#endif
