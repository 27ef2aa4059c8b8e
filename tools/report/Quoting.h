#ifndef TOOLS_REPORT_QUOTING_H
#define TOOLS_REPORT_QUOTING_H

#include <string>
#include <string_view>

namespace lakresvos::report {

/// The text with control characters written as escapes, so that it stays on one line.
std::string OneLine(std::string_view text);

/// The line without its middle when it has more than 500 characters, with "..." in that place: a
/// message starts with what is at fault and ends with the reason.
std::string Shortened(std::string const& line);

/// The text in single quotes on one line, cut after 40 characters; for messages.
std::string Quoted(std::string_view text);

}  // namespace lakresvos::report

#endif
