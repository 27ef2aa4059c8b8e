#ifndef TOOLS_REPORT_PROGRAM_H
#define TOOLS_REPORT_PROGRAM_H

#include <iosfwd>

namespace lakresvos::report {

/// The whole program: carries out the command line and gives the exit code, which is 0, or 2 after
/// one line on `err`.
/// @param out what stands for standard output.
int RunProgram(int argc, char const* const* argv, std::ostream& out, std::ostream& err);

}  // namespace lakresvos::report

#endif
