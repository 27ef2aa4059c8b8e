#include "tabulate/ExactCell.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

/// Whether a number is the square root, give or take two units in its last place.
bool IsRoot(double number, Exact const& square) {
  if (!(number >= 0) || std::isinf(number)) {
    return false;
  }
  double const unit = std::nextafter(number, std::numeric_limits<double>::infinity()) - number;
  Exact const low = std::max(Exact(0), Exact(Exact(number) - 2 * Exact(unit)));
  Exact const high = Exact(number) + 2 * Exact(unit);
  return low * low <= square && square <= high * high;
}

}  // namespace

double Rounded(std::optional<Exact> const& number) {
  return number ? number->convert_to<double>() : std::numeric_limits<double>::quiet_NaN();
}

void ExactCell::Add(std::optional<double> number, double weight) {
  result_.reset();
  count_ += Exact(weight);
  if (!number) {
    ++missing_;
    return;
  }
  if (weight == 0) {
    return;
  }
  Exact const term = Exact(*number) * Exact(weight);
  weight_ += Exact(weight);
  sum_ += term;
  squares_ += term * Exact(*number);
  minimum_ = std::min(minimum_.value_or(*number), *number);
  maximum_ = std::max(maximum_.value_or(*number), *number);
}

bool ExactCell::HasDeviation(double number) const {
  Result& result = Results();
  if (!result.variance) {
    return std::isnan(number);
  }
  if (result.deviation != number && IsRoot(number, *result.variance)) {
    result.deviation = number;
  }
  return result.deviation == number;
}

ExactCell::Result& ExactCell::Results() const {
  if (!result_) {
    std::optional<Exact> mean;
    std::optional<Exact> variance;
    if (weight_ > 0) {
      mean = sum_ / weight_;
    }
    // Ten weights of 0.1 are 1 as they were written, but a little more as doubles.
    if (weight_.convert_to<double>() > 1) {
      variance = (squares_ - sum_ * sum_ / weight_) / (weight_ - 1);
    }
    result_ = {Rounded(count_), Rounded(sum_), Rounded(mean), variance, {}};
  }
  return *result_;
}
