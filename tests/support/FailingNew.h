#ifndef TESTS_SUPPORT_FAILINGNEW_H
#define TESTS_SUPPORT_FAILINGNEW_H

#include <cstddef>
#include <initializer_list>
#include <new>

/// Makes allocations fail while it exists: the global operator new and every request to a region
/// count alike, from 1. Allocations of other threads are neither counted nor refused.
///
/// One exists at a time. Test assertions allocate, so keep them outside.
class FailAfter {
 public:
  enum class Mode { Once, FromThenOn };

  /// Refuses the `n`-th allocation with std::bad_alloc, and with Mode::FromThenOn all later ones.
  explicit FailAfter(std::size_t n, Mode mode = Mode::FromThenOn);
  ~FailAfter();

  FailAfter(FailAfter const&) = delete;
  FailAfter& operator=(FailAfter const&) = delete;
};

/// Measures what the global operator new gives out while it exists, which regions are filled by too.
/// Memory of other threads is left out.
///
/// One exists at a time.
class MemoryMeter {
 public:
  MemoryMeter();
  ~MemoryMeter();

  MemoryMeter(MemoryMeter const&) = delete;
  MemoryMeter& operator=(MemoryMeter const&) = delete;

  /// The most bytes that were held at one time, beyond those held at the beginning.
  std::size_t Peak() const;
};

/// Runs `attempt` with its first allocation failing, then with its second, ... until it succeeds,
/// in both modes, and calls `check` after every failure. Returns the number of failures.
/// @param attempt makes all of its changes or throws std::bad_alloc; is run once in the end.
template <class Attempt, class Check>
std::size_t FailEveryAllocation(Attempt attempt, Check check) {
  std::size_t failures = 0;
  for (std::size_t n = 1;; ++n) {
    for (FailAfter::Mode mode : {FailAfter::Mode::FromThenOn, FailAfter::Mode::Once}) {
      try {
        FailAfter const failing(n, mode);
        attempt();
        return failures;
      } catch (std::bad_alloc const&) {
        ++failures;
      }
      check();
    }
  }
}

#endif
