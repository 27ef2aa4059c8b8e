#ifndef TESTS_SUPPORT_FAILINGNEW_H
#define TESTS_SUPPORT_FAILINGNEW_H

#include <atomic>
#include <cstddef>
#include <gtest/gtest.h>
#include <initializer_list>
#include <new>
#include <ostream>

/// Makes allocations fail while it exists: the global operator new and every request to a region
/// count alike, from 1.
///
/// One exists at a time. Test assertions allocate, so keep them outside.
class FailAfter {
 public:
  enum class Mode { Once, FromThenOn };

  /// Whose allocations are counted and refused: those of the thread that makes the object, or those
  /// of the threads that it starts meanwhile too.
  enum class Threads { This, All };

  /// Refuses the `n`-th allocation with std::bad_alloc, and with Mode::FromThenOn all later ones.
  explicit FailAfter(std::size_t n, Mode mode = Mode::FromThenOn, Threads threads = Threads::This);
  ~FailAfter();

  FailAfter(FailAfter const&) = delete;
  FailAfter& operator=(FailAfter const&) = delete;

  /// Whether any allocation was refused.
  bool HasRefused() const { return asked_ >= n_; }

  /// The bytes of the first allocation that was refused.
  std::size_t FirstRefused() const { return firstRefused_; }

  /// Counts an allocation of so many bytes, and tells whether it is refused.
  bool Refuses(std::size_t size);

 private:
  std::size_t const n_;
  Mode const mode_;
  std::atomic<std::size_t> asked_ = 0;
  std::atomic<std::size_t> firstRefused_ = 0;
};

/// Measures what the global operator new gives out in all threads while it exists, which regions are
/// filled by too.
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

/// The memory that all threads together hold.
struct HeldMemory {
  long long blocks = 0;            ///< from the global operator new, but not for regions
  long long bytes = 0;             ///< in these
  long long defaultHeapBytes = 0;  ///< in use on the default heap
  long long regionBytes = 0;       ///< that all other regions have from the system

  static HeldMemory Now();

  bool operator==(HeldMemory const& other) const = default;
};

/// For the messages of tests.
std::ostream& operator<<(std::ostream& out, HeldMemory const& held);

/// Runs `attempt` with its first request for memory refused, then with its second, ... until none is
/// any more, in both modes, and calls `check` after every failure. Returns the number of failures.
///
/// What an attempt has made room for may be there for the next one, whose n-th request is a later one
/// then. So the n-th is refused until it asks for as much twice in a row, once in each mode.
/// @tparam Failing refuses what is counted, and is made with `how` in the end.
/// @param attempt makes all of its changes or throws std::bad_alloc. It may also do without what it
///                was refused; then it is run again, as often as there are requests, so it has to
///                bear that.
template <class Failing, class Attempt, class Check, class... How>
std::size_t FailEvery(Attempt attempt, Check check, How... how) {
  std::size_t failures = 0;
  constexpr int kMostAttempts = 10;
  for (std::size_t n = 1;; ++n) {
    std::size_t before = 0;
    for (int number = 0; number < kMostAttempts; ++number) {
      bool failed = false;
      bool refused = false;
      std::size_t size = 0;
      {
        Failing const failing(
            n, number % 2 == 0 ? FailAfter::Mode::FromThenOn : FailAfter::Mode::Once, how...);
        try {
          attempt();
        } catch (std::bad_alloc const&) {
          failed = true;
        }
        refused = failing.HasRefused();
        size = failing.FirstRefused();
      }
      if (failed) {
        ++failures;
        check();
      } else if (!refused) {
        return failures;
      }
      if (number > 0 && size == before) {
        break;
      }
      before = size;
    }
  }
}

/// FailEvery() for the allocations that FailAfter counts.
template <class Attempt, class Check>
std::size_t FailEveryAllocation(Attempt attempt, Check check,
                                FailAfter::Threads threads = FailAfter::Threads::This) {
  return FailEvery<FailAfter>(attempt, check, threads);
}

/// The same for an operation that gives a value and changes nothing: after each failure as much memory
/// is held as before, and whenever there is a value it is the one that there is without failures.
template <class Make>
std::size_t FailEveryAllocationOf(Make make,
                                  FailAfter::Threads threads = FailAfter::Threads::This) {
  auto const expected = make();
  bool same = true;
  HeldMemory const before = HeldMemory::Now();
  HeldMemory after = before;
  std::size_t const failures = FailEveryAllocation([&] { same = make() == expected && same; },
                                                   [&] {
                                                     if (after == before) {
                                                       after = HeldMemory::Now();
                                                     }
                                                   },
                                                   threads);
  EXPECT_EQ(after, before);
  EXPECT_TRUE(same);
  return failures;
}

#endif
