#ifndef LAKRESVOS_RENDER_IO_WRITEALL_H
#define LAKRESVOS_RENDER_IO_WRITEALL_H

#include <cerrno>
#include <string_view>
#include <unistd.h>

namespace lakresvos::render {

/// Writes all of the bytes to a file descriptor.
/// @return false when that failed; errno says why.
inline bool WriteAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    ssize_t const written = ::write(descriptor, bytes.data(), bytes.size());
    if (written >= 0) {
      bytes.remove_prefix(static_cast<std::size_t>(written));
    } else if (errno != EINTR) {
      return false;
    }
  }
  return true;
}

}  // namespace lakresvos::render

#endif
