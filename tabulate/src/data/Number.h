#ifndef LAKRESVOS_TABULATE_DATA_NUMBER_H
#define LAKRESVOS_TABULATE_DATA_NUMBER_H

#include <string_view>

#include <lakresvos/tabulate/ColumnNumbers.h>

namespace lakresvos::tabulate {

/// The number that the whole text is: digits with an optional sign, decimal point and exponent, as
/// in "-12", ".5" or "6.02e23"; "-0" is 0. kNoNumber for any other text and for what is out of a
/// double's range.
double ParseNumber(std::string_view text);

/// How many decimals a number that ParseNumber() reads is written with, at most 15, which is as far
/// as a double goes: 2 for "1.50", 5 for "1.5e-4", 0 for "12".
int CountDecimals(std::string_view number);

/// Compares two numbers that ParseNumber() reads exactly as they are written, however many digits
/// that takes: below 0 when `a` is the smaller one, 0 when they are equal, as "1" and "1.0" are,
/// above 0 otherwise.
int CompareNumbers(std::string_view a, std::string_view b);

/// Whether a number that ParseNumber() reads starts with a zero that it does not need, as codes do
/// and quantities do not: "007" and "-05", but not "0.5".
bool HasNeedlessZero(std::string_view number);

}  // namespace lakresvos::tabulate

#endif
