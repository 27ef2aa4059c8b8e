#ifndef LAKRESVOS_TABULATE_QUOTING_H
#define LAKRESVOS_TABULATE_QUOTING_H

#include <string>
#include <string_view>

#include <lakresvos/tabulate/Export.h>

namespace lakresvos::tabulate {

/// The text with control characters written as escapes, so that it stays on one line.
LAKRESVOS_TABULATE_EXPORT std::string OneLine(std::string_view text);

/// The line without its middle when it has more than 500 characters, with "..." in that place: a
/// message starts with what is at fault and ends with the reason.
LAKRESVOS_TABULATE_EXPORT std::string Shortened(std::string const& line);

/// The text in single quotes on one line, cut after 40 characters; for messages.
LAKRESVOS_TABULATE_EXPORT std::string Quoted(std::string_view text);

}  // namespace lakresvos::tabulate

#endif
