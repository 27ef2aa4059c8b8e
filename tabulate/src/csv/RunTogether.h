#ifndef LAKRESVOS_TABULATE_CSV_RUNTOGETHER_H
#define LAKRESVOS_TABULATE_CSV_RUNTOGETHER_H

#include <cstddef>
#include <exception>
#include <system_error>
#include <thread>
#include <vector>

namespace lakresvos::tabulate {

/// Runs action(0), action(1), ... action(count - 1) at the same time: the first one in the calling
/// thread, each other one in a thread of its own, or in the calling thread too when there is none
/// to be had. Returns when all have ended.
/// @tparam Thread starts when it is made and is waited for when it is destroyed.
/// @throws what the first action by number threw.
template <class Thread = std::jthread, class Action>
void RunTogether(std::size_t count, Action const& action) {
  std::vector<std::exception_ptr> thrown(count);
  auto const run = [&](std::size_t number) noexcept {
    try {
      action(number);
    } catch (...) {
      thrown[number] = std::current_exception();
    }
  };
  {
    std::vector<Thread> threads;
    threads.reserve(count);
    std::size_t next = 1;
    try {
      for (; next < count; ++next) {
        threads.emplace_back(run, next);
      }
    } catch (std::system_error const&) {
      // The machine has no more threads; what is left is done below.
    }
    run(0);
    for (; next < count; ++next) {
      run(next);
    }
  }
  for (std::exception_ptr const& one : thrown) {
    if (one != nullptr) {
      std::rethrow_exception(one);
    }
  }
}

}  // namespace lakresvos::tabulate

#endif
