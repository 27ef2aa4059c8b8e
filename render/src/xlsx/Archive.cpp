#include "xlsx/Archive.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <new>
#include <string>
#include <zlib.h>

namespace lakresvos::render {

namespace {

constexpr std::size_t kEndSize = 22;     // of the record at the end of an archive
constexpr std::size_t kEntrySize = 46;   // of an entry of the directory, without its texts
constexpr std::size_t kHeaderSize = 30;  // before a part, without its texts

/// An unsigned number, its lowest byte first; 0 past the end.
std::size_t ReadNumber(std::string_view bytes, std::size_t at, std::size_t size) {
  std::size_t number = 0;
  for (std::size_t i = size; i != 0 && at + size <= bytes.size(); --i) {
    number = number << 8U | static_cast<unsigned char>(bytes[at + i - 1]);
  }
  return number;
}

/// The part of `bytes` that is there.
std::string_view Cut(std::string_view bytes, std::size_t at, std::size_t size) {
  return bytes.substr(std::min(at, bytes.size()), size);
}

/// A deflated text (RFC 1951) while it is unpacked.
struct Inflation {
  explicit Inflation(std::string_view deflated) {
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(deflated.data()));
    stream.avail_in = static_cast<uInt>(deflated.size());
    if (inflateInit2(&stream, -MAX_WBITS) != Z_OK) {
      throw std::bad_alloc();
    }
  }
  Inflation(Inflation const&) = delete;
  Inflation& operator=(Inflation const&) = delete;
  ~Inflation() { inflateEnd(&stream); }

  z_stream stream{};
};

/// Unpacks a text and keeps its checksum and its two ends.
class Unpacked {
 public:
  explicit Unpacked(std::string_view deflated) {
    Inflation inflation(deflated);
    z_stream& stream = inflation.stream;
    int state = Z_OK;
    while (state == Z_OK) {
      stream.next_out = reinterpret_cast<Bytef*>(buffer_.data());
      stream.avail_out = static_cast<uInt>(buffer_.size());
      state = inflate(&stream, Z_NO_FLUSH);
      if (state == Z_MEM_ERROR) {
        throw std::bad_alloc();
      }
      Add(std::string_view(buffer_.data(), buffer_.size() - stream.avail_out));
    }
    whole_ = state == Z_STREAM_END;
  }

  bool IsWhole(std::size_t checksum) const { return whole_ && checksum_ == checksum; }

  /// Whether the text ends with the element that it begins with.
  bool EndsAsItBegins() const {
    std::size_t const declaration = start_.find("?>\n<");
    if (declaration == std::string::npos) {
      return false;
    }
    std::size_t const root = declaration + 4;
    std::string const name = start_.substr(root, start_.find_first_of(" >", root) - root);
    std::string const tag = "</" + name + '>';
    return end_.rfind(tag) + tag.size() == end_.find_last_not_of('\n') + 1;
  }

 private:
  static constexpr std::size_t kSize = 200;

  void Add(std::string_view text) {
    checksum_ = crc32_z(checksum_, reinterpret_cast<Bytef const*>(text.data()), text.size());
    start_ += text.substr(0, kSize - std::min(start_.size(), kSize));
    end_ += text.substr(text.size() - std::min(text.size(), kSize));
    end_.erase(0, end_.size() - std::min(end_.size(), kSize));
  }

  std::array<char, 1U << 16U> buffer_;
  std::string start_;
  std::string end_;
  uLong checksum_ = 0;
  bool whole_ = false;
};

bool IsXml(std::string_view name) {
  auto const ends = [&](std::string_view end) {
    return name.size() >= end.size() && name.substr(name.size() - end.size()) == end;
  };
  return ends(".xml") || ends(".rels");
}

/// @param entry begins with the part's entry in the directory.
bool IsWholePart(std::string_view archive, std::string_view entry, std::string_view name) {
  std::string_view const header =
      archive.substr(std::min(ReadNumber(entry, 42, 4), archive.size()));
  std::size_t const nameSize = ReadNumber(header, 26, 2);
  // The checksum and the sizes stand in both.
  if (Cut(header, 0, 4) != "PK\3\4" || Cut(header, 14, 12) != Cut(entry, 16, 12) ||
      Cut(header, kHeaderSize, nameSize) != name) {
    return false;
  }
  std::size_t const texts = nameSize + ReadNumber(header, 28, 2);
  Unpacked const part(Cut(header, kHeaderSize + texts, ReadNumber(entry, 20, 4)));
  return part.IsWhole(ReadNumber(entry, 16, 4)) && (!IsXml(name) || part.EndsAsItBegins());
}

}  // namespace

bool HasWholeParts(std::string_view archive) {
  std::string_view const end = archive.substr(archive.size() - std::min(archive.size(), kEndSize));
  std::string_view directory = Cut(archive, ReadNumber(end, 16, 4), ReadNumber(end, 12, 4));
  if (end.substr(0, 4) != "PK\5\6" || directory.empty()) {
    return false;
  }
  while (!directory.empty()) {
    std::size_t const nameSize = ReadNumber(directory, 28, 2);
    std::size_t const others = ReadNumber(directory, 30, 2) + ReadNumber(directory, 32, 2);
    if (!IsWholePart(archive, directory, Cut(directory, kEntrySize, nameSize))) {
      return false;
    }
    directory.remove_prefix(std::min(kEntrySize + nameSize + others, directory.size()));
  }
  return true;
}

}  // namespace lakresvos::render
