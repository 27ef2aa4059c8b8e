#ifndef LAKRESVOS_REPORT_CLI_SHELLWORD_H
#define LAKRESVOS_REPORT_CLI_SHELLWORD_H

#include <string>
#include <string_view>

namespace lakresvos::report {

/// The text as a shell would have to be given it: as it stands where that is safe, else quoted.
std::string ShellWord(std::string_view text);

}  // namespace lakresvos::report

#endif
