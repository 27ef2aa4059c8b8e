#ifndef LAKRESVOS_TABULATE_CSV_SEPARATOR_H
#define LAKRESVOS_TABULATE_CSV_SEPARATOR_H

#include <string>
#include <string_view>

namespace lakresvos::tabulate {

/// Guesses what separates the fields of CSV: a comma, a semicolon, a tab or a bar.
///
/// That is the one which makes the most fields of the first record, if it makes as many of each of
/// the next ones; if none does, the one which makes the most of the first. Without any of them in
/// the first record it is a comma.
///
/// @param bytes the first ones; what comes after their last line end is left out unless there is no
///              other line.
char GuessSeparator(std::string_view bytes);

/// "Comma", "Tab", or for a byte without a name the byte itself.
std::string NameSeparator(char separator);

}  // namespace lakresvos::tabulate

#endif
