#ifndef LAKRESVOS_TABULATE_TABLE_MOMENTS_H
#define LAKRESVOS_TABULATE_TABLE_MOMENTS_H

#include "table/WideNumber.h"

namespace lakresvos::tabulate {

/// The sum, mean, standard deviation and range of numbers, in one pass.
///
/// Weights are frequencies: a number with weight 3 counts as three equal numbers, one with weight 0
/// as none. The weighted mean and sum of squared distances are updated number by number (West 1979,
/// "Updating mean and variance estimates: an improved method"), which keeps digits that a difference
/// of two large sums would lose; two objects are merged by their pairwise formula (Chan, Golub,
/// LeVeque 1983, "Algorithms for computing the sample variance").
class Moments {
 public:
  /// Adds a number as often as its weight says, which is 0 or more.
  void Add(double number, double weight);

  /// Adds all numbers of another object.
  void Merge(Moments const& other);

  /// kNoNumber, like the others below, when it is out of a double's range.
  double Sum() const;

  /// kNoNumber, like the others below, when there are no numbers. Between the smallest and
  /// the largest number, so that equal numbers have just that number for their mean.
  double Mean() const;
  double Minimum() const;
  double Maximum() const;

  /// The standard deviation of a sample with frequency weights: the root of the sum of squared
  /// distances from the mean over the sum of weights less 1. kNoNumber when the weights sum up to 1
  /// or less.
  double Deviation() const;

 private:
  WideNumber weight_ = 0;
  WideNumber mean_ = 0;
  WideNumber squares_ = 0;  // weighted sum of squared distances from the mean
  double minimum_ = 0;
  double maximum_ = 0;
  WideNumber sum_ = 0;
};

}  // namespace lakresvos::tabulate

#endif
