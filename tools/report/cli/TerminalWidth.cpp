#include "cli/TerminalWidth.h"

#include <sys/ioctl.h>

namespace lakresvos::report {

int TerminalWidth(int descriptor) {
  constexpr int kUsual = 100;
  winsize size{};
  // Only a terminal answers this.
  return ioctl(descriptor, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : kUsual;
}

}  // namespace lakresvos::report
