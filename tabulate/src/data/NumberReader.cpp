#include "data/NumberReader.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "data/Number.h"

namespace lakresvos::tabulate {

namespace {

// A number of so many digits, and ten to that power, are doubles, and so their quotient is the double
// next to the number (W. D. Clinger, "How to read floating point numbers accurately", 1990).
constexpr std::size_t kMaxExactDigits = 15;
constexpr double kPowers[] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                              1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

}  // namespace

double NumberReader::ReadPlain(std::string_view text) {
  std::size_t const point = text.find('.');
  std::int64_t digits = 0;
  bool plain =
      text.size() <= kMaxExactDigits && !text.empty() && point != 0 && point != text.size() - 1;
  for (std::size_t i = 0; i < text.size() && plain; ++i) {
    bool const isDigit = text[i] >= '0' && text[i] <= '9';
    plain = isDigit || i == point;
    digits = isDigit ? 10 * digits + (text[i] - '0') : digits;
  }
  if (plain) {
    std::size_t const decimals = point == std::string_view::npos ? 0 : text.size() - point - 1;
    double const number = static_cast<double>(digits) / kPowers[decimals];
    Note(number, static_cast<int>(decimals));
    return number;
  }
  double const number = ParseNumber(text);
  if (!std::isnan(number)) {
    Note(number, CountDecimals(text));
  }
  return number;
}

void NumberReader::Note(double number, int decimals) {
  decimals_ = std::max(decimals_, decimals);
  integers_ = integers_ && (decimals == 0 || number == std::floor(number));
}

void NumberReader::Merge(NumberReader const& other) {
  decimals_ = std::max(decimals_, other.decimals_);
  integers_ = integers_ && other.integers_;
}

}  // namespace lakresvos::tabulate
