#ifndef LAKRESVOS_TABULATE_QUOTING_H
#define LAKRESVOS_TABULATE_QUOTING_H

#include <string>
#include <string_view>

#include <lakresvos/tabulate/Export.h>

namespace lakresvos::tabulate {

/// The text with control characters written as escapes (`\n`, `\r`, `\t`, `\x1B`), so that it stays
/// on one line. Other bytes stay as they are, whether or not they are UTF-8.
LAKRESVOS_TABULATE_EXPORT std::string EscapeControls(std::string_view text);

/// The line, or its first 300 and its last 200 code points with "..." between them when it has more
/// than 500: a message starts with what is at fault and ends with the reason.
LAKRESVOS_TABULATE_EXPORT std::string Shorten(std::string const& line);

/// The text as messages show it: in single quotes, on one line as EscapeControls() makes it, and
/// with "..." in place of what comes after 40 code points.
LAKRESVOS_TABULATE_EXPORT std::string Quote(std::string_view text);

}  // namespace lakresvos::tabulate

#endif
