#ifndef TESTS_SUPPORT_ZIPPARTS_H
#define TESTS_SUPPORT_ZIPPARTS_H

#include <string>
#include <string_view>

/// The part of a workbook that says when it was made.
constexpr char kTimePart[] = "docProps/core.xml";

/// The names, sizes, checksums and packed bytes of what a ZIP archive holds, one part after the
/// other, but for the part `without`.
/// @return the archive as it is when it is none or is cut off.
inline std::string ZipParts(std::string const& archive, std::string_view without) {
  auto const number = [&](std::size_t at, std::size_t size) {
    std::size_t value = 0;
    for (std::size_t i = size; i != 0 && at + size <= archive.size(); --i) {
      value = value << 8U | static_cast<unsigned char>(archive[at + i - 1]);
    }
    return value;
  };
  constexpr std::size_t kEnd = 22;
  constexpr std::size_t kEntry = 46;
  constexpr std::size_t kHeader = 30;
  if (archive.size() < kEnd || archive.compare(archive.size() - kEnd, 4, "PK\5\6") != 0) {
    return archive;
  }
  std::string parts;
  std::size_t at = number(archive.size() - 6, 4);
  for (std::size_t left = number(archive.size() - 12, 2); left != 0; --left) {
    std::string const name = archive.substr(at + kEntry, number(at + 28, 2));
    std::size_t const start = number(at + 42, 4);
    std::size_t const bytes = start + kHeader + number(start + 26, 2) + number(start + 28, 2);
    if (name != without) {
      parts += name + '\n' + archive.substr(at + 16, 12);
      parts += archive.substr(bytes, number(at + 20, 4)) + '\n';
    }
    at += kEntry + number(at + 28, 2) + number(at + 30, 2) + number(at + 32, 2);
  }
  return parts;
}

#endif
