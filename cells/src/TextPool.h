#ifndef CELLS_TEXTPOOL_H
#define CELLS_TEXTPOOL_H

#include <cstddef>
#include <string_view>
#include <unordered_map>

class icuTracker;

/// Keeps one copy of each distinct text for as long as somebody shares it.
///
/// The pool lives until its tracker is gone and its last text is gone.
class OmTextPool {
 public:
  /// One distinct text; its bytes follow it in memory.
  class Entry {
   public:
    std::string_view View() const { return {reinterpret_cast<char const*>(this + 1), length_}; }

    /// The tracker of the pool; null when it is gone.
    icuTracker* Tracker() const { return pool_.tracker_; }

    /// Gives back one share; with the last one the entry goes, and the pool if nobody else needs
    /// it.
    void Release() noexcept;

   private:
    friend class OmTextPool;

    Entry(OmTextPool& pool, std::size_t length) : pool_(pool), length_(length) {}

    OmTextPool& pool_;
    std::size_t length_;
    std::size_t shares_ = 0;
  };

  explicit OmTextPool(icuTracker* tracker) : tracker_(tracker) {}

  /// One more share in the entry of `text`, which the caller releases. Allocates nothing when the
  /// text is known.
  Entry* Share(std::string_view text);

  std::size_t Size() const { return entries_.size(); }

  /// Says that the tracker is gone.
  void LeaveTracker() noexcept;

 private:
  ~OmTextPool() = default;

  void DeleteIfUnused() noexcept;

  icuTracker* tracker_;
  std::unordered_map<std::string_view, Entry*> entries_;  // each key is the text of its entry
};

#endif
