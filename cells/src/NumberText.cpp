#include "NumberText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace {

constexpr int kMostDecimals = 1074;       // the smallest double is 2^-1074
constexpr int kSignDigitsAndPoint = 311;  // -, 309 digits, and the point

}  // namespace

std::string NumberText(double value, int decimals) {
  if (std::isnan(value)) {
    return ".";
  }
  std::array<char, kSignDigitsAndPoint + kMostDecimals> text;
  char* const first = text.data();
  char* const last = first + text.size();
  char const* const end = decimals < 0 ? std::to_chars(first, last, value).ptr
                                       : std::to_chars(first, last, value, std::chars_format::fixed,
                                                       std::min(decimals, kMostDecimals))
                                             .ptr;
  return std::string(static_cast<char const*>(first), end);
}
