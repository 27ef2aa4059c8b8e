#ifndef TESTS_CELLS_PLAINTEXTS_H
#define TESTS_CELLS_PLAINTEXTS_H

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <optional>
#include <string>
#include <vector>

// What cells show, in the plainest way.

/// The shortest text of a number that reads back to it, as the standard library writes it.
inline std::string PlainNumberText(double value) {
  if (std::isnan(value)) {
    return ".";
  }
  double const size = std::abs(value);
  bool const plain = size == 0 || (size >= 1e-5 && size <= 1e15);
  std::array<char, 64> text;
  auto const form = plain ? std::chars_format::fixed : std::chars_format::scientific;
  return {text.data(), std::to_chars(text.begin(), text.end(), value, form).ptr};
}

/// The text of a number with so many decimals, as printf() writes it; below 0 the shortest.
inline std::string PlainNumberText(double value, int decimals) {
  if (decimals < 0 || std::isnan(value)) {
    return PlainNumberText(value);
  }
  std::array<char, 1400> text;
  int const shown = std::min(decimals, 1074);  // the smallest double is 2^-1074
  std::snprintf(text.data(), text.size(), "%.*f", shown, value);
  return text.data();
}

/// A pattern with its marks replaced one by one; those of parts without a text stay.
inline std::string PlainCompositeText(std::string const& pattern,
                                      std::vector<std::optional<std::string>> const& parts) {
  std::string text;
  for (std::size_t i = 0; i < pattern.size();) {
    std::size_t digits = i + 1;
    while (digits < pattern.size() && pattern[digits] >= '0' && pattern[digits] <= '9') {
      ++digits;
    }
    bool const mark =
        pattern[i] == '{' && digits > i + 1 && digits < pattern.size() && pattern[digits] == '}';
    std::size_t const part = mark ? std::stoul(pattern.substr(i + 1, digits - i - 1)) : 0;
    if (mark && part < parts.size() && parts[part]) {
      text += *parts[part];
      i = digits + 1;
    } else {
      text += pattern[i++];
    }
  }
  return text;
}

#endif
