#ifndef LAKRESVOS_CORE_LAYOUT_OMSUBSCRIPTRANKS_H
#define LAKRESVOS_CORE_LAYOUT_OMSUBSCRIPTRANKS_H

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

/// Distinct subscripts, ascending, and the rank of each among them. Takes memory for the subscripts
/// that there are, however far apart they lie.
class OmSubscriptRanks {
 public:
  static constexpr unsigned int kNone = 0xFFFFFFFF;

  OmSubscriptRanks() = default;

  /// @param subscripts in any order, each any number of times.
  explicit OmSubscriptRanks(std::vector<unsigned int> subscripts)
      : subscripts_(std::move(subscripts)) {
    if (!std::is_sorted(subscripts_.begin(), subscripts_.end())) {
      std::sort(subscripts_.begin(), subscripts_.end());
    }
    subscripts_.erase(std::unique(subscripts_.begin(), subscripts_.end()), subscripts_.end());
    if (!subscripts_.empty() && subscripts_.back() / kSpread < subscripts_.size()) {
      ranks_.resize(std::size_t{subscripts_.back()} + 1, kNone);
      for (std::size_t rank = 0; rank < subscripts_.size(); ++rank) {
        ranks_[subscripts_[rank]] = static_cast<unsigned int>(rank);
      }
    }
  }

  /// The number of distinct subscripts.
  std::size_t size() const { return subscripts_.size(); }

  unsigned int operator[](std::size_t rank) const { return subscripts_[rank]; }

  /// The rank of `subscript`; kNone when it is none of them. Constant time unless they lie far
  /// apart.
  unsigned int Find(unsigned long subscript) const {
    if (!ranks_.empty()) {
      return subscript < ranks_.size() ? ranks_[subscript] : kNone;
    }
    std::size_t const rank = FindFrom(subscript, 0);
    return rank < size() && subscripts_[rank] == subscript ? static_cast<unsigned int>(rank)
                                                           : kNone;
  }

  /// The rank of the first one from `subscript` on; size() when there is none.
  /// @param from a rank that is known to be no later.
  std::size_t FindFrom(unsigned long subscript, std::size_t from) const {
    auto const start = subscripts_.begin() + static_cast<std::ptrdiff_t>(from);
    if (start == subscripts_.end() || *start >= subscript) {
      return from;
    }
    return static_cast<std::size_t>(std::lower_bound(start, subscripts_.end(), subscript) -
                                    subscripts_.begin());
  }

 private:
  /// How many times longer than the list a table of all subscripts may be.
  static constexpr unsigned int kSpread = 8;

  std::vector<unsigned int> subscripts_;
  std::vector<unsigned int> ranks_;  ///< per subscript its rank or kNone; empty when too long
};

#endif
