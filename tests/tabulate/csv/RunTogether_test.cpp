#include "csv/RunTogether.h"

#include <atomic>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>

using namespace lakresvos::tabulate;

namespace {

/// Threads of a machine that has no more than one.
class LastThread {
 public:
  template <class Action>
  LastThread(Action const& action, std::size_t number) {
    if (started++ > 0) {
      throw std::system_error(std::make_error_code(std::errc::resource_unavailable_try_again));
    }
    thread_ = std::jthread(action, number);
  }

  static inline std::size_t started = 0;

 private:
  std::jthread thread_;
};

}  // namespace

TEST(RunTogether, RunsEveryActionOnce) {
  for (std::size_t const count : {1, 2, 7}) {
    std::vector<std::atomic<int>> runs(count);
    RunTogether(count, [&](std::size_t number) { ++runs[number]; });
    for (std::atomic<int> const& each : runs) {
      EXPECT_EQ(each, 1);
    }
  }
}

TEST(RunTogether, RunsTheFirstActionAloneInTheCallingThread) {
  std::vector<std::thread::id> ids(3);
  RunTogether(3, [&](std::size_t number) { ids[number] = std::this_thread::get_id(); });
  EXPECT_EQ(ids[0], std::this_thread::get_id());
  EXPECT_NE(ids[1], ids[0]);
  EXPECT_NE(ids[2], ids[0]);
}

TEST(RunTogether, ThrowsWhatTheFirstActionByNumberThrewWhenAllHaveEnded) {
  std::atomic<int> ended = 0;
  std::string message;
  try {
    RunTogether(4, [&](std::size_t number) {
      ++ended;
      if (number > 0) {
        throw std::runtime_error(std::to_string(number));
      }
    });
  } catch (std::runtime_error const& error) {
    message = error.what();
  }
  EXPECT_EQ(message, "1");
  EXPECT_EQ(ended, 4);
}

TEST(RunTogether, DoesWithoutThreadsThatCannotBeStarted) {
  LastThread::started = 0;
  std::vector<std::atomic<int>> runs(4);
  std::vector<std::thread::id> ids(4);
  RunTogether<LastThread>(4, [&](std::size_t number) {
    ++runs[number];
    ids[number] = std::this_thread::get_id();
  });
  EXPECT_EQ(LastThread::started, 2u);
  for (std::atomic<int> const& each : runs) {
    EXPECT_EQ(each, 1);
  }
  EXPECT_NE(ids[1], ids[0]);
  EXPECT_EQ(ids[2], ids[0]);
  EXPECT_EQ(ids[3], ids[0]);
}
