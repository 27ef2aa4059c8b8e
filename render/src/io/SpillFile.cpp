#include "io/SpillFile.h"

#include <algorithm>
#include <cerrno>
#include <new>
#include <unistd.h>

namespace lakresvos::render {

/// What stands behind a stream: the pieces of the file that it was given, in their order.
class ScratchFile::Stream {
 public:
  explicit Stream(ScratchFile& owner) : owner_(owner) {}
  Stream(Stream const&) = delete;
  Stream& operator=(Stream const&) = delete;

  ~Stream() {
    if (stream_ != nullptr) {
      std::fclose(stream_);
    }
  }

  std::FILE* Open() {
    stream_ = fopencookie(this, "w+", {Read, Write, Seek, Close});
    if (stream_ == nullptr) {
      throw std::bad_alloc();
    }
    return stream_;
  }

 private:
  static Stream& Of(void* cookie) { return *static_cast<Stream*>(cookie); }

  static ssize_t Read(void* cookie, char* bytes, std::size_t count) {
    Stream& self = Of(cookie);
    if (self.extent_ < self.extents_.size() && self.offset_ == self.extents_[self.extent_].length) {
      ++self.extent_;
      self.offset_ = 0;
    }
    if (self.extent_ == self.extents_.size()) {
      return 0;
    }
    Extent const& extent = self.extents_[self.extent_];
    auto const there = static_cast<std::size_t>(extent.length - self.offset_);
    ssize_t const read = pread(self.owner_.file_.Descriptor(), bytes, std::min(count, there),
                               extent.start + self.offset_);
    self.offset_ += std::max<ssize_t>(read, 0);
    return read;
  }

  static ssize_t Write(void* cookie, char const* bytes, std::size_t count) {
    Stream& self = Of(cookie);
    off_t& end = self.owner_.end_;
    for (std::size_t done = 0; done < count;) {
      ssize_t const written =
          pwrite(self.owner_.file_.Descriptor(), bytes + done, count - done, end);
      if (written <= 0 || !self.Append({end, written})) {
        int& error = self.owner_.error_;
        error = error != 0 ? error : errno;
        return 0;
      }
      end += written;
      done += static_cast<std::size_t>(written);
    }
    return static_cast<ssize_t>(count);
  }

  static int Seek(void* cookie, off64_t* position, int whence) {
    if (whence != SEEK_SET || *position != 0) {
      errno = EINVAL;
      return -1;
    }
    Of(cookie).extent_ = 0;
    Of(cookie).offset_ = 0;
    return 0;
  }

  static int Close(void* cookie) {
    Of(cookie).stream_ = nullptr;
    return 0;
  }

  /// Whether there was memory for it, else errno says so.
  bool Append(Extent const& piece) {
    if (!extents_.empty() && extents_.back().start + extents_.back().length == piece.start) {
      extents_.back().length += piece.length;
      return true;
    }
    try {
      extents_.push_back(piece);
      return true;
    } catch (std::bad_alloc const&) {
      errno = ENOMEM;
      return false;
    }
  }

  ScratchFile& owner_;
  std::FILE* stream_ = nullptr;
  std::vector<Extent> extents_;
  std::size_t extent_ = 0;  // where reading is: the piece
  off_t offset_ = 0;        // and the place in it
};

ScratchFile::ScratchFile() = default;
ScratchFile::~ScratchFile() = default;

std::FILE* ScratchFile::Open() {
  streams_.push_back(std::make_unique<Stream>(*this));
  return streams_.back()->Open();
}

}  // namespace lakresvos::render
