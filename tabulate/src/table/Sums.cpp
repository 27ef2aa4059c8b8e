#include "table/Sums.h"

namespace lakresvos::tabulate {

void Sums::Merge(Sums const& other) {
  if (!other.empty_) {
    Extend(other.minimum_, other.maximum_);
    weight_.Add(other.weight_);
    sum_.Add(other.sum_);
  }
}

double Sums::Sum() const {
  return RoundToDouble(sum_.Value());
}

double Sums::Mean() const {
  return empty_ ? kNoNumber : RoundToDouble(sum_.Value() / weight_.Value());
}

double Sums::Minimum() const {
  return empty_ ? kNoNumber : minimum_;
}

double Sums::Maximum() const {
  return empty_ ? kNoNumber : maximum_;
}

}  // namespace lakresvos::tabulate
