#ifndef LAKRESVOS_REPORT_CLI_TERMINALWIDTH_H
#define LAKRESVOS_REPORT_CLI_TERMINALWIDTH_H

namespace lakresvos::report {

/// Where lines of text end when no terminal says otherwise, in columns.
constexpr int kUsualWidth = 100;

/// The width of the terminal that a file descriptor is open on, in columns; kUsualWidth when it is
/// open on something else or the terminal does not tell.
int GetTerminalWidth(int descriptor);

}  // namespace lakresvos::report

#endif
