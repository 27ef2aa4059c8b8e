#ifndef LAKRESVOS_REPORT_CLI_HELP_H
#define LAKRESVOS_REPORT_CLI_HELP_H

#include <CLI/CLI.hpp>
#include <string>

namespace lakresvos::report {

/// What --help prints: the options by group, one line each, formulas and statistics in short,
/// examples, and the exit status.
std::string FormatHelp(CLI::App const& app);

}  // namespace lakresvos::report

#endif
