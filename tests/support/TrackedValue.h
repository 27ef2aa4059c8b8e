#ifndef TESTS_SUPPORT_TRACKEDVALUE_H
#define TESTS_SUPPORT_TRACKEDVALUE_H

#include <cstddef>
#include <stdexcept>
#include <vector>

/// A number as an element of the containers: it counts the objects that exist and the copies made,
/// lists the numbers destroyed, and throws from its copy constructor when told to. It tolerates
/// being moved bitwise, and being zeroed when it is gone.
///
/// One thread at a time uses tracked values.
struct TrackedValue {
  struct Exception : std::runtime_error {
    using std::runtime_error::runtime_error;
  };

  int number;

  TrackedValue() : TrackedValue(0) {}
  TrackedValue(int value) : number(value) { ++live; }
  TrackedValue(TrackedValue const& other) : number(other.number) {
    if (copiesUntilFailure != 0 && --copiesUntilFailure == 0) {
      throw Exception("a tracked value was told to fail");
    }
    ++live;
    ++copies;
  }
  TrackedValue& operator=(TrackedValue const&) = delete;
  ~TrackedValue() {
    --live;
    if (destroyed != nullptr) {
      destroyed->push_back(number);
    }
  }

  bool operator==(TrackedValue const& other) const { return number == other.number; }

  inline static long live = 0;
  inline static long copies = 0;
  inline static std::size_t copiesUntilFailure = 0;     ///< 0: no copy fails
  inline static std::vector<int>* destroyed = nullptr;  ///< where to list them; null: nowhere
};

/// Runs `attempt` with the first copy of a tracked value failing, then with the second, ... until
/// it succeeds, and calls `check` after every failure. Returns the number of failures.
template <class Attempt, class Check>
std::size_t FailEveryCopy(Attempt attempt, Check check) {
  for (std::size_t n = 1;; ++n) {
    try {
      TrackedValue::copiesUntilFailure = n;
      attempt();
      TrackedValue::copiesUntilFailure = 0;
      return n - 1;
    } catch (TrackedValue::Exception const&) {
      check();
    }
  }
}

#endif
