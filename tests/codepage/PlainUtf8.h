#ifndef TESTS_CODEPAGE_PLAINUTF8_H
#define TESTS_CODEPAGE_PLAINUTF8_H

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

inline bool IsWithin(unsigned char byte, unsigned char lowest, unsigned char highest) {
  return byte >= lowest && byte <= highest;
}

/// How many bytes the first character of a text has, 0 when they are none: the well-formed byte
/// sequences of Unicode 14.0, table 3-7, row by row.
inline std::size_t LengthByTable(std::string_view text) {
  struct Row {
    unsigned char first[2];
    unsigned char second[2];
    std::size_t length;
  };
  constexpr Row kRows[] = {
      {{0x00, 0x7F}, {0x00, 0x00}, 1}, {{0xC2, 0xDF}, {0x80, 0xBF}, 2},
      {{0xE0, 0xE0}, {0xA0, 0xBF}, 3}, {{0xE1, 0xEC}, {0x80, 0xBF}, 3},
      {{0xED, 0xED}, {0x80, 0x9F}, 3}, {{0xEE, 0xEF}, {0x80, 0xBF}, 3},
      {{0xF0, 0xF0}, {0x90, 0xBF}, 4}, {{0xF1, 0xF3}, {0x80, 0xBF}, 4},
      {{0xF4, 0xF4}, {0x80, 0x8F}, 4},
  };
  auto const byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  for (Row const& row : kRows) {
    if (IsWithin(byte(0), row.first[0], row.first[1]) && row.length <= text.size()) {
      bool whole = row.length == 1 || IsWithin(byte(1), row.second[0], row.second[1]);
      for (std::size_t i = 2; i < row.length; ++i) {
        whole = whole && IsWithin(byte(i), 0x80, 0xBF);
      }
      return whole ? row.length : 0;
    }
  }
  return 0;
}

/// The characters of a text; nothing when it is not UTF-8 throughout.
inline std::optional<std::vector<char32_t>> PlainCharacters(std::string_view text) {
  std::vector<char32_t> characters;
  while (!text.empty()) {
    std::size_t const length = LengthByTable(text);
    if (length == 0) {
      return std::nullopt;
    }
    char32_t character = 0;
    for (std::size_t i = 0; i < length; ++i) {
      unsigned int const byte = static_cast<unsigned char>(text[i]);
      unsigned int const bits = i != 0 ? 0x3F : length == 1 ? 0x7F : 0x7FU >> length;
      character = character * 64 + (byte & bits);
    }
    characters.push_back(character);
    text.remove_prefix(length);
  }
  return characters;
}

#endif
