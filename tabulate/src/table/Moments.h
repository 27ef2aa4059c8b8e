#ifndef LAKRESVOS_TABULATE_TABLE_MOMENTS_H
#define LAKRESVOS_TABULATE_TABLE_MOMENTS_H

#include "table/Sums.h"

namespace lakresvos::tabulate {

/// The standard deviation of numbers beside their sums, in one pass.
///
/// The weighted mean and sum of squared distances are updated number by number (West 1979,
/// "Updating mean and variance estimates: an improved method"), which keeps digits that a difference
/// of two large sums would lose; two objects are merged by their pairwise formula (Chan, Golub,
/// LeVeque 1983, "Algorithms for computing the sample variance").
class Moments : public Sums {
 public:
  void Add(double number, double weight);
  void Merge(Moments const& other);

  /// The standard deviation of a sample with frequency weights: the root of the sum of squared
  /// distances from the mean over the sum of weights less 1. kNoNumber when the weights sum up to 1
  /// or less, and when it is out of a double's range.
  double Deviation() const;

 private:
  WideNumber weight_ = 0;
  WideNumber mean_ = 0;
  WideNumber squares_ = 0;  // weighted sum of squared distances from the mean
};

}  // namespace lakresvos::tabulate

#endif
