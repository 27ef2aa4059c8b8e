#ifndef LAKRESVOS_TABULATE_TABLE_SUMS_H
#define LAKRESVOS_TABULATE_TABLE_SUMS_H

#include <algorithm>

#include "table/CompensatedSum.h"

namespace lakresvos::tabulate {

/// The sum, mean and range of numbers.
///
/// Weights are frequencies: a number with weight 3 counts as three equal numbers, one with weight 0
/// as none.
class Sums {
 public:
  /// Adds a number as often as its weight says, which is 0 or more.
  void Add(double number, double weight) {
    if (weight == 0) {
      return;
    }
    Extend(number, number);
    weight_.Add(weight);
    if (weight == 1) {
      sum_.Add(number);
    } else {
      sum_.AddProduct(number, weight);
    }
  }

  /// Adds all numbers of another object.
  void Merge(Sums const& other);

  /// kNoNumber, like the others below, when it is out of a double's range.
  double Sum() const;

  /// kNoNumber, like the others below, when there are no numbers. Between the smallest and
  /// the largest number, so that equal numbers have just that number for their mean.
  double Mean() const;
  double Minimum() const;
  double Maximum() const;

 private:
  void Extend(double minimum, double maximum) {
    minimum_ = empty_ ? minimum : std::min(minimum_, minimum);
    maximum_ = empty_ ? maximum : std::max(maximum_, maximum);
    empty_ = false;
  }

  CompensatedSum weight_;
  CompensatedSum sum_;
  double minimum_ = 0;
  double maximum_ = 0;
  bool empty_ = true;
};

}  // namespace lakresvos::tabulate

#endif
