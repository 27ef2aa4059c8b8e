#ifndef LAKRESVOS_RENDER_IO_SPILLFILE_H
#define LAKRESVOS_RENDER_IO_SPILLFILE_H

#include <cstdio>
#include <memory>
#include <sys/types.h>
#include <vector>

#include "io/TemporaryFile.h"

namespace lakresvos::render {

/// One temporary file that holds any number of streams, which would each need a file of their own
/// otherwise, and of open files a process can have a few only.
class ScratchFile {
 public:
  /// @throws as TemporaryFile.
  ScratchFile();
  ScratchFile(ScratchFile const&) = delete;
  ScratchFile& operator=(ScratchFile const&) = delete;

  /// Closes the streams that nobody has closed.
  ~ScratchFile();

  /// Opens an empty stream to write to, then to rewind and read. Whoever closes it first may, the
  /// caller or this object. Streams may be written to in turns.
  /// @throws std::bad_alloc.
  std::FILE* Open();

  /// Why something that streams passed on could not be written first; 0 when all of it was.
  int Error() const { return error_; }

 private:
  class Stream;

  struct Extent {
    off_t start;
    off_t length;
  };

  TemporaryFile file_;
  off_t end_ = 0;
  int error_ = 0;
  std::vector<std::unique_ptr<Stream>> streams_;
};

}  // namespace lakresvos::render

#endif
