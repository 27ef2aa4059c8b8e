#include "data/Number.h"

#include <algorithm>
#include <charconv>
#include <string>
#include <system_error>

namespace lakresvos::tabulate {

namespace {

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

std::string_view RemoveSign(std::string_view number) {
  bool const isSigned = number.starts_with('-') || number.starts_with('+');
  return number.substr(isSigned ? 1 : 0);
}

/// The power of ten that a number is written with.
long long ReadExponent(std::string_view number) {
  std::size_t const mark = number.find_first_of("eE");
  if (mark == std::string_view::npos) {
    return 0;
  }
  std::string_view text = number.substr(mark + 1);
  text.remove_prefix(text.starts_with('+') ? 1 : 0);
  long long exponent = 0;
  std::from_chars(text.data(), text.data() + text.size(), exponent);
  return exponent;
}

/// A number as it is written, in the one form that all equal ones have: 0.DIGITS times ten to the
/// power. Zero has no digits.
struct Decimal {
  explicit Decimal(std::string_view number) {
    std::string_view const mantissa = RemoveSign(number.substr(0, number.find_first_of("eE")));
    std::size_t const point = std::min(mantissa.find('.'), mantissa.size());
    digits = mantissa.substr(0, point);
    digits += mantissa.substr(std::min(point + 1, mantissa.size()));
    std::size_t const first = std::min(digits.find_first_not_of('0'), digits.size());
    digits.erase(0, first);
    digits.erase(digits.find_last_not_of('0') + 1);
    if (!digits.empty()) {
      negative = number.starts_with('-');
      power = ReadExponent(number) + static_cast<long long>(point) - static_cast<long long>(first);
    }
  }

  int CompareSize(Decimal const& other) const {
    if (digits.empty() || other.digits.empty() || power == other.power) {
      return digits.compare(other.digits);
    }
    return power < other.power ? -1 : 1;
  }

  std::string digits;  // neither the first nor the last is 0
  long long power = 0;
  bool negative = false;
};

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
  if (error != std::errc() || end != text.data() + text.size()) {
    return kNoNumber;
  }
  return value == 0 ? 0 : value;
}

int CountDecimals(std::string_view number) {
  constexpr long kMaxDecimals = 15;
  std::size_t const exponentMark = number.find_first_of("eE");
  std::string_view const mantissa = number.substr(0, exponentMark);
  std::size_t const point = mantissa.find('.');
  long decimals = point == std::string_view::npos
                      ? 0
                      : static_cast<long>(std::min<std::size_t>(mantissa.size() - point - 1, 1000));
  decimals -= static_cast<long>(std::clamp(ReadExponent(number), -1000LL, 1000LL));
  return static_cast<int>(std::clamp(decimals, 0L, kMaxDecimals));
}

int CompareNumbers(std::string_view a, std::string_view b) {
  Decimal const left(a);
  Decimal const right(b);
  if (left.negative != right.negative) {
    return left.negative ? -1 : 1;
  }
  return left.negative ? right.CompareSize(left) : left.CompareSize(right);
}

bool HasNeedlessZero(std::string_view number) {
  std::string_view const digits = RemoveSign(number);
  return digits.size() > 1 && digits[0] == '0' && IsDigit(digits[1]);
}

}  // namespace lakresvos::tabulate
