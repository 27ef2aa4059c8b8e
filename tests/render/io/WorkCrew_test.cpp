#include "io/WorkCrew.h"

#include <atomic>
#include <condition_variable>
#include <gtest/gtest.h>
#include <mutex>
#include <pthread.h>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

using lakresvos::render::WorkCrew;

namespace {

/// While it exists, no thread can be started: none of that size fits into the address space.
class NoThreads {
 public:
  NoThreads() {
    pthread_getattr_default_np(&before_);
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setstacksize(&attributes, std::size_t{1} << 47);
    pthread_setattr_default_np(&attributes);
    pthread_attr_destroy(&attributes);
  }
  ~NoThreads() {
    pthread_setattr_default_np(&before_);
    pthread_attr_destroy(&before_);
  }
  NoThreads(NoThreads const&) = delete;
  NoThreads& operator=(NoThreads const&) = delete;

 private:
  pthread_attr_t before_{};
};

}  // namespace

TEST(WorkCrew, DoesEachPieceOnce) {
  std::vector<std::atomic<int>> done(100);
  WorkCrew crew(3, done.size(), [&](std::size_t piece) { ++done[piece]; });
  for (std::size_t piece = 0; piece < done.size(); ++piece) {
    crew.Add(piece);
  }
  for (std::size_t piece = 0; piece < done.size(); ++piece) {
    crew.Finish(piece);
    EXPECT_EQ(done[piece], 1);
  }
}

TEST(WorkCrew, DoesAPieceAgain) {
  int done = 0;
  WorkCrew crew(1, 1, [&](std::size_t /*piece*/) { ++done; });
  for (int i = 1; i <= 100; ++i) {
    crew.Add(0);
    crew.Finish(0);
    EXPECT_EQ(done, i);
  }
}

TEST(WorkCrew, DoesPiecesAtTheSameTime) {
  std::mutex mutex;
  std::condition_variable came;
  int here = 0;
  WorkCrew crew(2, 3, [&](std::size_t /*piece*/) {
    std::unique_lock<std::mutex> lock(mutex);
    ++here;
    came.notify_all();
    came.wait(lock, [&] { return here == 3; });
  });
  for (std::size_t piece : {0, 1, 2}) {
    crew.Add(piece);
  }
  for (std::size_t piece : {0, 1, 2}) {
    crew.Finish(piece);
  }
  EXPECT_EQ(here, 3);
}

TEST(WorkCrew, WithoutThreadsTheOwnerDoesAll) {
  for (bool const wanted : {false, true}) {
    NoThreads const none;
    std::vector<std::thread::id> by(10);
    WorkCrew crew(wanted ? 4 : 0, by.size(),
                  [&](std::size_t piece) { by[piece] = std::this_thread::get_id(); });
    for (std::size_t piece = 0; piece < by.size(); ++piece) {
      crew.Add(piece);
    }
    for (std::size_t piece = 0; piece < by.size(); ++piece) {
      crew.Finish(piece);
      EXPECT_EQ(by[piece], std::this_thread::get_id());
    }
  }
}

TEST(WorkCrew, HandsOverWhatAPieceThrows) {
  WorkCrew crew(2, 10, [](std::size_t piece) {
    if (piece % 2 == 1) {
      throw std::runtime_error("piece " + std::to_string(piece));
    }
  });
  for (std::size_t piece = 0; piece < 10; ++piece) {
    crew.Add(piece);
  }
  for (std::size_t piece = 0; piece < 10; piece += 2) {
    crew.Finish(piece);
    try {
      crew.Finish(piece + 1);
      FAIL() << "piece " << piece + 1 << " did not throw";
    } catch (std::runtime_error const& error) {
      EXPECT_EQ(error.what(), "piece " + std::to_string(piece + 1));
    }
  }
}

TEST(WorkCrew, EndsWithoutPiecesThatAreNotBegun) {
  std::atomic<int> done = 0;
  {
    WorkCrew crew(0, 10, [&](std::size_t /*piece*/) { ++done; });
    for (std::size_t piece = 0; piece < 10; ++piece) {
      crew.Add(piece);
    }
    crew.Finish(0);
  }
  EXPECT_EQ(done, 1);
}

TEST(WorkCrew, WaitsInTheEndForPiecesThatAreBegun) {
  std::mutex mutex;
  std::condition_variable begins;
  bool begun = false;
  std::atomic<bool> done = false;
  {
    WorkCrew crew(1, 1, [&](std::size_t /*piece*/) {
      {
        std::lock_guard<std::mutex> const lock(mutex);
        begun = true;
      }
      begins.notify_all();
      std::this_thread::yield();
      done = true;
    });
    crew.Add(0);
    std::unique_lock<std::mutex> lock(mutex);
    begins.wait(lock, [&] { return begun; });
  }
  EXPECT_TRUE(done);
}
