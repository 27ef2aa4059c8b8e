#ifndef LAKRESVOS_CORE_LAYOUT_OMPLACESET_H
#define LAKRESVOS_CORE_LAYOUT_OMPLACESET_H

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

/// Collects places, duplicates allowed, and gives them back in ascending order without
/// repeats. Few possible places are marked in a bit vector; of many, those seen are kept and sorted
/// out now and then, so that the memory stays proportional to the different ones.
class OmPlaceSet {
 public:
  /// @param bound no place is at or above this; a larger one is fine but costs more.
  explicit OmPlaceSet(unsigned long long bound) {
    if (bound <= kMarkable) {
      marks_.resize(static_cast<std::size_t>(bound / kBits + 1));
    }
  }

  void Insert(unsigned long long place) {
    if (place / kBits < marks_.size()) {
      marks_[static_cast<std::size_t>(place / kBits)] |= std::uint64_t{1} << place % kBits;
      return;
    }
    places_.push_back(place);
    if (places_.size() >= limit_) {
      SortOut();
      limit_ = std::max(limit_, 2 * places_.size());
    }
  }

  /// Appends the places to `result`, ascending.
  void AppendTo(std::vector<unsigned long long>& result) {
    for (std::size_t word = 0; word < marks_.size(); ++word) {
      for (std::uint64_t marks = marks_[word]; marks != 0; marks &= marks - 1) {
        result.push_back(word * kBits + static_cast<unsigned long long>(std::countr_zero(marks)));
      }
    }
    SortOut();
    result.insert(result.end(), places_.begin(), places_.end());
  }

 private:
  static constexpr unsigned long long kMarkable = 1ULL << 20;
  static constexpr unsigned long long kBits = 64;

  void SortOut() {
    std::sort(places_.begin(), places_.end());
    places_.erase(std::unique(places_.begin(), places_.end()), places_.end());
  }

  std::vector<std::uint64_t> marks_;  ///< a bit per place
  std::vector<unsigned long long> places_;
  std::size_t limit_ = std::size_t{1} << 16;
};

#endif
