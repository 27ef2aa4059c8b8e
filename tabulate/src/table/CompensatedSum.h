#ifndef LAKRESVOS_TABULATE_TABLE_COMPENSATEDSUM_H
#define LAKRESVOS_TABULATE_TABLE_COMPENSATEDSUM_H

#include <cmath>

#include "table/WideNumber.h"

namespace lakresvos::tabulate {

/// A sum of doubles and of products of two, at little more than the cost of a plain one.
///
/// What an addition loses is added up beside the sum, and what that loses once more (Ogita, Rump,
/// Oishi 2005, "Accurate sum and dot product": SumK and DotK for K = 3). What even that loses, which
/// is seldom anything, is added to a number that is wider than a double, as are terms so large or so
/// small that a step might leave the range of a double. So nothing is lost of terms that are less
/// than 2^200 apart.
class CompensatedSum {
 public:
  /// Adds a finite number.
  void Add(double number) {
    if (std::abs(number) <= kLargest) {
      AddLoss(AddTo(sum_, number));
    } else {
      rest_ += number;
    }
  }

  /// Adds the product of two finite numbers.
  void AddProduct(double a, double b) {
    double const product = a * b;
    if (std::abs(product) <= kLargest && std::abs(product) >= kSmallest) {
      AddLoss(AddTo(sum_, product));
      AddLoss(std::fma(a, b, -product));
    } else if (a != 0 && b != 0) {
      rest_ += WideNumber(a) * WideNumber(b);
    }
  }

  /// Adds all that was added to another sum.
  void Add(CompensatedSum const& other) {
    Add(other.sum_);
    AddLoss(other.loss_);
    AddLossOfLoss(other.lossOfLoss_);
    rest_ += other.rest_;
  }

  WideNumber Value() const {
    // The parts may cancel one another. Twice is enough for three numbers to have only what the ones
    // before them cannot hold.
    double sum = sum_;
    double loss = loss_;
    double lossOfLoss = lossOfLoss_;
    for (int round = 0; round < 2; ++round) {
      loss = AddTo(sum, loss);
      lossOfLoss = AddTo(loss, lossOfLoss);
    }
    return rest_ + lossOfLoss + loss + sum;
  }

 private:
  // Far enough from the ends of the range for 2^64 terms, and for the last digit of a product.
  static constexpr double kLargest = 0x1p900;
  static constexpr double kSmallest = 0x1p-800;

  /// Adds a number to a sum.
  /// @return what the rounded sum lacks, exactly (D. E. Knuth, The Art of Computer Programming 2,
  ///         4.2.2).
  static double AddTo(double& sum, double number) {
    double const before = sum;
    sum += number;
    double const added = sum - before;
    return (before - (sum - added)) + (number - added);
  }

  void AddLoss(double loss) {
    if (loss != 0) {
      AddLossOfLoss(AddTo(loss_, loss));
    }
  }

  void AddLossOfLoss(double loss) {
    if (loss != 0) {
      double const left = AddTo(lossOfLoss_, loss);
      if (left != 0) {
        rest_ += left;
      }
    }
  }

  double sum_ = 0;
  double loss_ = 0;
  double lossOfLoss_ = 0;
  WideNumber rest_ = 0;
};

}  // namespace lakresvos::tabulate

#endif
