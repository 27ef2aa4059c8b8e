#ifndef LAKRESVOS_TABULATE_TABLE_WIDENUMBER_H
#define LAKRESVOS_TABULATE_TABLE_WIDENUMBER_H

#include <boost/multiprecision/cpp_bin_float.hpp>
#include <cmath>

#include <lakresvos/tabulate/ColumnNumbers.h>

namespace lakresvos::tabulate {

/// What sums are kept in: 113 bits of mantissa, so that the product of two doubles is exact, and
/// exponents up to 16,383, so that no product or sum of a few billion doubles overflows.
using WideNumber = boost::multiprecision::cpp_bin_float_quad;

/// The double next to the number; kNoNumber for one that is out of a double's range.
inline double RoundToDouble(WideNumber const& number) {
  auto const rounded = number.convert_to<double>();
  return std::isfinite(rounded) ? rounded : kNoNumber;
}

}  // namespace lakresvos::tabulate

#endif
