#include "cli/TerminalWidth.h"

#include <sys/ioctl.h>

namespace lakresvos::report {

int GetTerminalWidth(int descriptor) {
  winsize size{};
  // Only a terminal answers this.
  return ioctl(descriptor, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : kUsualWidth;
}

}  // namespace lakresvos::report
