#ifndef FUZZ_HARNESS_MEMORYFILE_H
#define FUZZ_HARNESS_MEMORYFILE_H

#include <cstddef>
#include <string>
#include <string_view>
#include <sys/mman.h>
#include <unistd.h>

#include "harness/Target.h"

/// A file that is nowhere but in memory, for what reads from a path. It goes with the object.
class MemoryFile {
 public:
  explicit MemoryFile(std::string_view bytes) : descriptor_(::memfd_create("input", MFD_CLOEXEC)) {
    if (::write(descriptor_, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size())) {
      Fail("no file can be written");
    }
  }
  MemoryFile(MemoryFile const&) = delete;
  MemoryFile& operator=(MemoryFile const&) = delete;
  ~MemoryFile() { ::close(descriptor_); }

  std::string Path() const { return "/proc/self/fd/" + std::to_string(descriptor_); }

 private:
  int descriptor_;
};

#endif
