#ifndef LAKRESVOS_REPORT_CLI_TERMINALWIDTH_H
#define LAKRESVOS_REPORT_CLI_TERMINALWIDTH_H

namespace lakresvos::report {

/// How many columns the terminal has that a file descriptor leads to; 100 when it leads elsewhere or
/// the terminal does not tell.
int TerminalWidth(int descriptor);

}  // namespace lakresvos::report

#endif
