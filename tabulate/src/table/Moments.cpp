#include "table/Moments.h"

#include <algorithm>

namespace lakresvos::tabulate {

void Moments::Add(double number, double weight) {
  if (weight == 0) {
    return;
  }
  minimum_ = weight_ == 0 ? number : std::min(minimum_, number);
  maximum_ = weight_ == 0 ? number : std::max(maximum_, number);
  WideNumber const exact = number;
  WideNumber const times = weight;
  WideNumber const before = weight_;
  weight_ += times;
  WideNumber const distance = exact - mean_;
  WideNumber const step = distance * times / weight_;
  mean_ += step;
  squares_ += before * distance * step;
  sum_ += exact * times;
}

void Moments::Merge(Moments const& other) {
  if (weight_ == 0) {
    *this = other;
  } else if (other.weight_ > 0) {
    minimum_ = std::min(minimum_, other.minimum_);
    maximum_ = std::max(maximum_, other.maximum_);
    WideNumber const before = weight_;
    weight_ += other.weight_;
    WideNumber const distance = other.mean_ - mean_;
    WideNumber const step = distance * other.weight_ / weight_;
    mean_ += step;
    squares_ += other.squares_ + before * distance * step;
    sum_ += other.sum_;
  }
}

double Moments::Sum() const {
  return RoundToDouble(sum_);
}

double Moments::Mean() const {
  return weight_ > 0 ? RoundToDouble(sum_ / weight_) : kNoNumber;
}

double Moments::Minimum() const {
  return weight_ > 0 ? minimum_ : kNoNumber;
}

double Moments::Maximum() const {
  return weight_ > 0 ? maximum_ : kNoNumber;
}

double Moments::Deviation() const {
  // Ten weights of 0.1 are 1 as they were written, but a little more as doubles; rounding undoes it.
  bool const defined = weight_.convert_to<double>() > 1;
  return defined ? RoundToDouble(sqrt(squares_ / (weight_ - 1))) : kNoNumber;
}

}  // namespace lakresvos::tabulate
