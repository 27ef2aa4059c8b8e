#include "ScratchFile.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <new>
#include <stdexcept>
#include <string>
#include <system_error>
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
    ssize_t const read =
        pread(self.owner_.file_, bytes, std::min(count, there), extent.start + self.offset_);
    self.offset_ += std::max<ssize_t>(read, 0);
    return read;
  }

  static ssize_t Write(void* cookie, char const* bytes, std::size_t count) {
    Stream& self = Of(cookie);
    off_t& end = self.owner_.end_;
    ssize_t const written = pwrite(self.owner_.file_, bytes, count, end);
    if (written <= 0 || !self.Append({end, written})) {
      self.owner_.good_ = false;
      return 0;
    }
    end += written;
    return written;
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

  bool Append(Extent const& piece) {
    if (!extents_.empty() && extents_.back().start + extents_.back().length == piece.start) {
      extents_.back().length += piece.length;
      return true;
    }
    try {
      extents_.push_back(piece);
      return true;
    } catch (std::bad_alloc const&) {
      return false;
    }
  }

  ScratchFile& owner_;
  std::FILE* stream_ = nullptr;
  std::vector<Extent> extents_;
  std::size_t extent_ = 0;  // where reading is: the piece
  off_t offset_ = 0;        // and the place in it
};

ScratchFile::ScratchFile() {
  std::string name = (std::filesystem::temp_directory_path() / "lakresvos-XXXXXX").string();
  file_ = mkostemp(name.data(), O_CLOEXEC);
  if (file_ < 0) {
    throw std::runtime_error("there can be no temporary file: " +
                             std::generic_category().message(errno));
  }
  unlink(name.c_str());
}

ScratchFile::~ScratchFile() {
  streams_.clear();
  close(file_);
}

std::FILE* ScratchFile::Open() {
  streams_.push_back(std::make_unique<Stream>(*this));
  return streams_.back()->Open();
}

}  // namespace lakresvos::render
