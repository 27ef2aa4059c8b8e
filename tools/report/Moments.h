#ifndef TOOLS_REPORT_MOMENTS_H
#define TOOLS_REPORT_MOMENTS_H

#include <cstddef>

namespace lakresvos::report {

/// A sum of many numbers that keeps what rounding would lose of each addition.
class CompensatedSum {
 public:
  void Add(double number);
  void Merge(CompensatedSum const& other);
  double Value() const { return sum_ + lost_; }

 private:
  double sum_ = 0;
  double lost_ = 0;
};

/// What the statistics of one data column need to know of the rows of one cell, gathered in one
/// pass.
///
/// Weights are frequencies: a number with weight 3 counts as three equal numbers, one with weight 0
/// as none. Mean and deviation are updated number by number, which keeps them exact where a
/// difference of two large sums would not be.
class Moments {
 public:
  /// Takes in a number with its weight, which is 0 or more.
  void Add(double number, double weight);

  /// Takes in a row without a number.
  void AddMissing() { ++missing_; }

  /// Takes in all that another object has.
  void Merge(Moments const& other);

  /// How many rows had no number, whatever their weight.
  std::size_t Missing() const { return missing_; }

  double Sum() const { return sum_.Value(); }

  /// kNoNumber, like the others below, when there is nothing to take it of.
  double Mean() const;
  double Minimum() const;
  double Maximum() const;

  /// The standard deviation: the root of the sum of squares over the sum of weights less 1, and
  /// kNoNumber when the weights sum up to 1 or less.
  double Deviation() const;

 private:
  double weight_ = 0;
  double mean_ = 0;
  double squares_ = 0;  // weighted sum of squared distances from the mean
  double minimum_ = 0;
  double maximum_ = 0;
  CompensatedSum sum_;
  std::size_t missing_ = 0;
};

}  // namespace lakresvos::report

#endif
