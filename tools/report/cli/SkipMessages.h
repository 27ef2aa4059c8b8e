#ifndef LAKRESVOS_REPORT_CLI_SKIPMESSAGES_H
#define LAKRESVOS_REPORT_CLI_SKIPMESSAGES_H

#include <string>
#include <vector>

#include <lakresvos/tabulate/WarningLog.h>

namespace lakresvos::report {

/// A line for each kind of what was passed over in a data file: how much of it, and where the first
/// stands.
std::vector<std::string> SkipMessages(tabulate::WarningLog const& log, std::string const& file);

}  // namespace lakresvos::report

#endif
