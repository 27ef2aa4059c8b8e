#ifndef TESTS_CORE_DOCUMENT_PLAINMAPINFO_H
#define TESTS_CORE_DOCUMENT_PLAINMAPINFO_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

/// A chart's block of map information, read byte by byte.
namespace plain_map_info {

using Texts = std::array<std::string, 4>;

/// How many bytes the length before each text has.
constexpr std::array<std::size_t, 4> kWidths{4, 2, 4, 2};

/// The slow way to read any block that is not empty.
inline Texts Expected(std::string const& block) {
  Texts texts;
  std::size_t at = 2;
  bool const low_first = block.size() >= 2 && block[0] == 1 && block[1] == 0;
  for (std::size_t i = 0; i < 4; ++i) {
    if (block.size() < at + kWidths[i]) {
      break;
    }
    std::uint64_t length = 0;
    for (std::size_t digit = 0; digit < kWidths[i]; ++digit) {
      std::size_t const place = low_first ? kWidths[i] - 1 - digit : digit;
      length = length * 256 + static_cast<unsigned char>(block[at + place]);
    }
    at += kWidths[i];
    while (length != 0 && at < block.size()) {
      texts[i].push_back(block[at]);
      ++at;
      --length;
    }
    if (length != 0) {
      break;
    }
  }
  return texts;
}

}  // namespace plain_map_info

#endif
