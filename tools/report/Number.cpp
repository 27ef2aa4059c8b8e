#include "Number.h"

#include <algorithm>
#include <charconv>
#include <system_error>

namespace lakresvos::report {

namespace {

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

}  // namespace

double ParseNumber(std::string_view text) {
  if (text.size() > 1 && text[0] == '+' && text[1] != '-') {
    text.remove_prefix(1);
  }
  std::size_t const first = text.starts_with('-') ? 1 : 0;
  if (text.size() == first || !(IsDigit(text[first]) || text[first] == '.')) {
    return kNoNumber;  // leaves out "inf" and "nan", which are numbers to the standard library
  }
  double value = 0;
  auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  return error == std::errc() && end == text.data() + text.size() ? value : kNoNumber;
}

int DecimalsOf(std::string_view number) {
  constexpr long kMost = 15;
  std::size_t const exponentMark = number.find_first_of("eE");
  std::string_view const mantissa = number.substr(0, exponentMark);
  std::size_t const point = mantissa.find('.');
  long decimals = point == std::string_view::npos
                      ? 0
                      : static_cast<long>(std::min<std::size_t>(mantissa.size() - point - 1, 1000));
  if (exponentMark != std::string_view::npos) {
    std::string_view exponent = number.substr(exponentMark + 1);
    exponent.remove_prefix(exponent.starts_with('+') ? 1 : 0);
    long power = 0;
    std::from_chars(exponent.data(), exponent.data() + exponent.size(), power);
    decimals -= std::clamp(power, -1000L, 1000L);
  }
  return static_cast<int>(std::clamp(decimals, 0L, kMost));
}

}  // namespace lakresvos::report
