#ifndef LAKRESVOS_REPORT_CLI_PROGRAM_H
#define LAKRESVOS_REPORT_CLI_PROGRAM_H

namespace lakresvos::report {

/// Runs the whole program: carries out the command line and writes to standard output and standard
/// error.
/// @return the exit status: 0 for success; 1 when something was skipped and --strict forbids it; 2
///         for an error, after one line on standard error.
int RunProgram(int argc, char const* const* argv);

}  // namespace lakresvos::report

#endif
