#ifndef LAKRESVOS_REPORT_CLI_SHELLWORD_H
#define LAKRESVOS_REPORT_CLI_SHELLWORD_H

#include <string>
#include <string_view>

namespace lakresvos::report {

/// The text as a word of a shell command: unchanged when no character in it is special, else in
/// single quotes.
std::string QuoteShellWord(std::string_view text);

}  // namespace lakresvos::report

#endif
