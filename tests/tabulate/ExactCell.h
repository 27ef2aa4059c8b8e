#ifndef TESTS_TABULATE_EXACTCELL_H
#define TESTS_TABULATE_EXACTCELL_H

#include <boost/multiprecision/cpp_int.hpp>
#include <cstddef>
#include <optional>

/// A number of any size and without rounding.
using Exact = boost::multiprecision::cpp_rational;

/// The double next to an exact number; NaN for none.
double Rounded(std::optional<Exact> const& number);

/// What one cell of a table sums up, without rounding. Not to be shared between threads: what costs
/// time is kept until the next row is added.
class ExactCell {
 public:
  /// @param number none for a row that misses it.
  void Add(std::optional<double> number, double weight);

  std::size_t Missing() const { return missing_; }
  Exact const& Count() const { return count_; }
  std::optional<double> Minimum() const { return minimum_; }
  std::optional<double> Maximum() const { return maximum_; }

  /// The doubles next to the exact numbers; NaN for none.
  double RoundedCount() const { return Results().count; }
  double RoundedSum() const { return Results().sum; }
  double RoundedMean() const { return Results().mean; }

  /// Whether a number is the standard deviation, give or take two units in its last place.
  bool HasDeviation(double number) const;

 private:
  struct Result {
    double count;
    double sum;
    double mean;
    std::optional<Exact> variance;
    std::optional<double> deviation;  // the number that was found to be right last
  };
  Result& Results() const;

  Exact count_ = 0;   // of the rows
  Exact weight_ = 0;  // of the rows that have a number
  Exact sum_ = 0;
  Exact squares_ = 0;
  std::optional<double> minimum_;
  std::optional<double> maximum_;
  std::size_t missing_ = 0;
  mutable std::optional<Result> result_;
};

#endif
