#ifndef LAKRESVOS_TABULATE_MOMENTS_H
#define LAKRESVOS_TABULATE_MOMENTS_H

#include <cstddef>

#include "WideNumber.h"

namespace lakresvos::tabulate {

/// What the statistics of one data column need to know of the rows of one cell, gathered in one
/// pass.
///
/// Weights are frequencies: a number with weight 3 counts as three equal numbers, one with weight 0
/// as none. The sum of squares is updated number by number, by the algorithm of West (1979), which
/// keeps it exact where a difference of two large sums would not be; two of them are merged as Chan,
/// Golub and LeVeque (1979) do.
class Moments {
 public:
  /// Takes in a number as often as `times` says, its weight, which is 0 or more.
  void Add(double number, double times);

  /// Takes in a row without a number.
  void AddMissing() { ++missing_; }

  /// Takes in all that another object has.
  void Merge(Moments const& other);

  /// How many rows had no number, whatever their weight.
  std::size_t Missing() const { return missing_; }

  /// kNoNumber, like the others below, when it is out of a double's range.
  double Sum() const;

  /// kNoNumber, like the others below, when there is nothing to take it of. Between the smallest and
  /// the largest number, so that equal numbers have just that number for their mean.
  double Mean() const;
  double Minimum() const;
  double Maximum() const;

  /// The standard deviation: the root of the sum of squares over the sum of weights less 1, and
  /// kNoNumber when the weights sum up to 1 or less.
  double Deviation() const;

 private:
  WideNumber weight_ = 0;
  WideNumber mean_ = 0;
  WideNumber squares_ = 0;  // weighted sum of squared distances from the mean
  double minimum_ = 0;
  double maximum_ = 0;
  WideNumber sum_ = 0;
  std::size_t missing_ = 0;
};

}  // namespace lakresvos::tabulate

#endif
