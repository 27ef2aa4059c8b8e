#include "xlsx/Picture.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <zlib.h>

namespace lakresvos::render {

namespace {

/// Takes a picture apart from its start; nothing once its bytes do not suffice.
class Bytes {
 public:
  explicit Bytes(std::string_view left) : left_(left) {}

  bool Good() const { return good_; }

  std::string_view ReadBytes(std::size_t count) {
    good_ = good_ && count <= left_.size();
    std::string_view const taken = good_ ? left_.substr(0, count) : "";
    left_.remove_prefix(taken.size());
    return taken;
  }

  /// An unsigned number, its highest byte first.
  std::uint32_t Number(std::size_t bytes) {
    std::uint32_t number = 0;
    for (char const c : ReadBytes(bytes)) {
      number = number << 8 | static_cast<unsigned char>(c);
    }
    return number;
  }

  /// Goes to the next byte `first` that none of `skipped` follows.
  void SkipTo(char first, std::string_view skipped) {
    std::size_t at = left_.find(first);
    while (at < left_.size() - 1 && skipped.find(left_[at + 1]) != std::string_view::npos) {
      at = left_.find(first, at + 1);
    }
    ReadBytes(std::min(at, left_.size()));
  }

 private:
  std::string_view left_;
  bool good_ = true;
};

bool HasSize(Bytes size, std::size_t bytes) {
  return size.Number(bytes) != 0 && size.Number(bytes) != 0;
}

std::uint32_t Checksum(std::string_view bytes) {
  return static_cast<std::uint32_t>(
      crc32_z(0, reinterpret_cast<Bytef const*>(bytes.data()), bytes.size()));
}

}  // namespace

bool IsWholePng(std::string_view bytes) {
  Bytes picture(bytes);
  if (picture.ReadBytes(8) != "\x89PNG\r\n\x1A\n") {
    return false;
  }
  bool sized = false;
  bool filled = false;
  while (picture.Good()) {
    std::size_t const length = picture.Number(4);
    std::string_view const chunk = picture.ReadBytes(4 + length);
    if (picture.Number(4) != Checksum(chunk) || !picture.Good()) {
      return false;
    }
    std::string_view const type = chunk.substr(0, 4);
    if (!sized && (type != "IHDR" || length != 13 || !HasSize(Bytes(chunk.substr(4)), 4))) {
      return false;
    }
    sized = true;
    filled = filled || type == "IDAT";
    if (type == "IEND") {
      return filled;
    }
  }
  return false;
}

bool IsWholeJpeg(std::string_view bytes) {
  constexpr std::uint32_t kEnd = 0xD9;
  constexpr std::uint32_t kScan = 0xDA;
  Bytes picture(bytes);
  if (picture.ReadBytes(2) != "\xFF\xD8") {
    return false;
  }
  bool sized = false;
  bool filled = false;
  while (picture.ReadBytes(1) == "\xFF") {
    std::uint32_t mark = picture.Number(1);
    while (mark == 0xFF) {  // fill bytes
      mark = picture.Number(1);
    }
    if (mark == kEnd) {
      return picture.Good() && sized && filled;
    }
    std::uint32_t const length = picture.Number(2);
    if (length < 2) {
      return false;
    }
    std::string_view const segment = picture.ReadBytes(length - 2);
    bool const frame = mark >= 0xC0 && mark <= 0xCF && mark != 0xC4 && mark != 0xC8 && mark != 0xCC;
    if (frame) {
      sized = segment.size() > 5 && HasSize(Bytes(segment.substr(1)), 2);
    }
    if (mark == kScan) {
      filled = true;
      picture.SkipTo('\xFF', std::string_view("\0\xD0\xD1\xD2\xD3\xD4\xD5\xD6\xD7", 9));
    }
  }
  return false;
}

}  // namespace lakresvos::render
