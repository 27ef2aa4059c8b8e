#ifndef LAKRESVOS_REPORT_CLI_SKIPMESSAGES_H
#define LAKRESVOS_REPORT_CLI_SKIPMESSAGES_H

#include <string>
#include <vector>

#include <lakresvos/tabulate/WarningLog.h>

namespace lakresvos::report {

/// Describes what was skipped in a data file: a line for each kind, with the count and the place of
/// the first one.
std::vector<std::string> MakeSkipMessages(tabulate::WarningLog const& log, std::string const& file);

}  // namespace lakresvos::report

#endif
