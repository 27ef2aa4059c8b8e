#ifndef TOOLS_REPORT_NUMBER_H
#define TOOLS_REPORT_NUMBER_H

#include <limits>
#include <string_view>

namespace lakresvos::report {

/// What stands for a number that is not there.
constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

/// The number that the whole text is: digits with an optional sign, decimal point and exponent, as
/// in
/// "-12", ".5" or "6.02e23". kNoNumber for any other text and for what is out of a double's range.
double ParseNumber(std::string_view text);

/// How many decimals a number that ParseNumber() reads is written with, at most 15, which is as far
/// as a double goes: 2 for "1.50", 5 for "1.5e-4", 0 for "12".
int DecimalsOf(std::string_view number);

}  // namespace lakresvos::report

#endif
