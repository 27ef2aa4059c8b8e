#include "table/Moments.h"

namespace lakresvos::tabulate {

void Moments::Add(double number, double weight) {
  if (weight == 0) {
    return;
  }
  Sums::Add(number, weight);
  WideNumber const times = weight;
  WideNumber const before = weight_;
  weight_ += times;
  WideNumber const distance = number - mean_;
  WideNumber const step = distance * times / weight_;
  mean_ += step;
  squares_ += before * distance * step;
}

void Moments::Merge(Moments const& other) {
  if (weight_ == 0) {
    *this = other;
  } else if (other.weight_ > 0) {
    Sums::Merge(other);
    WideNumber const before = weight_;
    weight_ += other.weight_;
    WideNumber const distance = other.mean_ - mean_;
    WideNumber const step = distance * other.weight_ / weight_;
    mean_ += step;
    squares_ += other.squares_ + before * distance * step;
  }
}

double Moments::Deviation() const {
  // Ten weights of 0.1 are 1 as they were written, but a little more as doubles; rounding undoes it.
  bool const defined = weight_.convert_to<double>() > 1;
  return defined ? RoundToDouble(sqrt(squares_ / (weight_ - 1))) : kNoNumber;
}

}  // namespace lakresvos::tabulate
