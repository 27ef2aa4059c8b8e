#ifndef LAKRESVOS_REPORT_CLI_PROGRAM_H
#define LAKRESVOS_REPORT_CLI_PROGRAM_H

namespace lakresvos::report {

/// The whole program: carries out the command line, writes to standard output and standard error,
/// and gives the exit code: 0; 1 when data were skipped that must not be; or 2 after one line on
/// standard error.
int RunProgram(int argc, char const* const* argv);

}  // namespace lakresvos::report

#endif
