#include "chart/AxisScale.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace lakresvos::report {

namespace {

constexpr int kMaxSteps = 7;
constexpr int kMaxZeros = 8;  // before an exponent is written instead
constexpr double kMinStep = 1e-300;

}  // namespace

AxisScale::AxisScale(double lowest, double highest, bool whole) {
  lowest = std::min(lowest, 0.0);
  highest = std::max(highest, 0.0);
  // Each is divided by itself: their difference may be more than a double can hold.
  double share = highest / kMaxSteps - lowest / kMaxSteps;
  if (share < kMinStep) {
    highest = 1;
    share = 1.0 / kMaxSteps;
  }
  exponent_ = static_cast<int>(std::floor(std::log10(share)));
  if (whole) {
    exponent_ = std::max(exponent_, 0);
  }
  for (int const factor : {1, 2, 5, 10, 20}) {
    factor_ = factor;
    step_ = factor_ * std::pow(10, exponent_);
    double const steps = std::ceil(highest / step_) - std::floor(lowest / step_);
    if (steps <= kMaxSteps) {
      break;
    }
  }
  first_ = static_cast<int>(std::floor(lowest / step_));
  last_ = static_cast<int>(std::ceil(highest / step_));
}

double AxisScale::TickPosition(int tick) const {
  return static_cast<double>(tick) / (last_ - first_);
}

double AxisScale::Position(double value) const {
  return (value / step_ - first_) / (last_ - first_);
}

std::string AxisScale::TickLabel(int tick) const {
  int count = (first_ + tick) * factor_;
  if (count == 0) {
    return "0";
  }
  int exponent = exponent_;
  bool const scientific = std::abs(exponent) > kMaxZeros;
  for (; scientific && count % 10 == 0; count /= 10) {
    ++exponent;
  }
  std::string digits = std::to_string(std::abs(count));
  if (scientific) {
    digits += "e" + std::to_string(exponent);
  } else if (exponent >= 0) {
    digits.append(static_cast<std::size_t>(exponent), '0');
  } else {
    auto const decimals = static_cast<std::size_t>(-exponent);
    if (digits.size() <= decimals) {
      digits.insert(0, decimals + 1 - digits.size(), '0');
    }
    digits.insert(digits.size() - decimals, 1, '.');
  }
  return (count < 0 ? "\xE2\x88\x92" : "") + digits;  // U+2212, as wide as a digit
}

}  // namespace lakresvos::report
