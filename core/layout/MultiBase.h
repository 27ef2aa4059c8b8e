#ifndef LAKRESVOS_CORE_LAYOUT_MULTIBASE_H
#define LAKRESVOS_CORE_LAYOUT_MULTIBASE_H

#include <cstddef>
#include <utility>
#include <vector>

#include <lakresvos/OmAssertion.h>

/// A mixed-radix number system; the first base belongs to the most significant digit.
///
/// The first base is never consulted: the most significant digit takes whatever is left, so a
/// number past the end of the system gives a first digit that is too large. Arithmetic is unsigned
/// 64-bit and wraps.
class MultiBase {
 public:
  explicit MultiBase(std::vector<unsigned int> bases) : bases_(std::move(bases)) {}

  std::vector<unsigned int> const& Bases() const { return bases_; }

  /// The digits of `number`, one per base.
  std::vector<unsigned int> Digits(unsigned long long number) const {
    std::vector<unsigned int> digits;
    Digits(number, digits);
    return digits;
  }

  /// The same into a vector that the caller uses again.
  void Digits(unsigned long long number, std::vector<unsigned int>& digits) const {
    std::size_t const count = bases_.size();
    digits.assign(count, 0);
    if (count == 0) {
      return;
    }
    if (count == 1 || number == 0) {
      digits[count - 1] = static_cast<unsigned int>(number);
      return;
    }
    for (std::size_t i = count - 1;; --i) {
      unsigned int const b = bases_[i];
      if (!(b > 0)) {
        OmAssertionFailed("b>0", "backend/tables/MultiBase", __LINE__,
                          "std::vector<unsigned int> MultiBase::Digits(unsigned long long) const");
      }
      digits[i] = static_cast<unsigned int>(number % b);
      number /= b;
      if (i == 1) {
        digits[0] = static_cast<unsigned int>(number);
        return;
      }
      if (number == 0) {
        return;
      }
    }
  }

  /// The number with these digits.
  unsigned long long Value(std::vector<unsigned int> const& digits) const {
    unsigned long long value = digits.empty() ? 0 : digits[0];
    if (digits.size() != bases_.size()) {
      OmAssertionFailed(
          "digit == end && i == size", "backend/tables/MultiBase", __LINE__,
          "unsigned long long MultiBase::Value(const std::vector<unsigned int>&) const");
    }
    for (std::size_t i = 1; i < digits.size(); ++i) {
      value = value * bases_[i] + digits[i];
    }
    return value;
  }

 private:
  std::vector<unsigned int> bases_;
};

#endif
