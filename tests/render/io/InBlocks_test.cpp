#include "io/InBlocks.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <limits>
#include <sstream>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "render/support/SmallBlocks.h"

using namespace lakresvos::render;

namespace {

/// A number and its square.
struct Block {
  int number = 0;
  long square = 0;
};

/// Squares the numbers below `count` and returns the squares.
std::vector<long> Square(int count, unsigned int threads) {
  std::vector<long> squares;
  int next = 0;
  DoInBlocks<Block>(
      threads,
      [&](Block& block) {
        block.number = next;
        return next++ < count;
      },
      [](Block& block) { block.square = static_cast<long>(block.number) * block.number; },
      [&](Block& block) { squares.push_back(block.square); });
  return squares;
}

/// Where a run of ten blocks fails.
enum class Place { Next, Work, Take };

/// How many blocks are taken when the fifth fails.
int CountTaken(Place place, unsigned int threads) {
  auto const failAt = [&](Place here, int number) {
    if (here == place && number == 4) {
      throw std::runtime_error("fifth");
    }
  };
  int taken = 0;
  int next = 0;
  try {
    DoInBlocks<Block>(
        threads,
        [&](Block& block) {
          failAt(Place::Next, next);
          block.number = next;
          return next++ < 10;
        },
        [&](Block& block) { failAt(Place::Work, block.number); },
        [&](Block& block) {
          failAt(Place::Take, block.number);
          EXPECT_EQ(block.number, taken);
          ++taken;
        });
  } catch (std::runtime_error const& error) {
    EXPECT_STREQ(error.what(), "fifth");
    return taken;
  }
  ADD_FAILURE() << "nothing failed";
  return taken;
}

}  // namespace

TEST(InBlocks, ResultsComeInOrderWithAnyNumberOfThreads) {
  SmallBlocks const small(1);
  for (unsigned int threads : {0U, 1U, 2U, 3U, 7U, std::numeric_limits<unsigned int>::max()}) {
    for (int count : {0, 1, 2, 1000}) {
      std::vector<long> const squares = Square(count, threads);
      ASSERT_EQ(squares.size(), static_cast<std::size_t>(count)) << threads;
      for (long i = 0; i < count; ++i) {
        ASSERT_EQ(squares[static_cast<std::size_t>(i)], i * i);
      }
    }
  }
}

TEST(InBlocks, ResultsThatComeBeforeAFailureAreTaken) {
  SmallBlocks const small(1);
  for (unsigned int threads : {1U, 2U, 7U}) {
    EXPECT_EQ(CountTaken(Place::Work, threads), 4) << threads;
    EXPECT_EQ(CountTaken(Place::Take, threads), 4) << threads;
    EXPECT_LE(CountTaken(Place::Next, threads), 4) << threads;
  }
}

// Starting a thread would take longer than the work.
TEST(InBlocks, AFewBlocksAreDoneByTheCallingThread) {
  std::size_t next = 0;
  DoInBlocks<Block>(
      8, [&](Block& /*block*/) { return next++ < blockSizes.alone; },
      [caller = std::this_thread::get_id()](Block& /*block*/) {
        EXPECT_EQ(std::this_thread::get_id(), caller);
      },
      [](Block& /*block*/) {});
}

TEST(InBlocks, NoMoreThanTwoBlocksPerThreadAreUnderWay) {
  SmallBlocks const small(1);
  constexpr unsigned int kThreads = 3;
  int begun = 0;
  int taken = 0;
  int most = 0;
  DoInBlocks<Block>(
      kThreads,
      [&](Block& /*block*/) {
        most = std::max(most, ++begun - taken);
        return begun < 1000;
      },
      [](Block& /*block*/) {}, [&](Block& /*block*/) { ++taken; });
  EXPECT_EQ(most, 2 * static_cast<int>(kThreads));
}

TEST(InBlocks, OutputIsThatOfAllBlocksInOrder) {
  SmallBlocks const small(1);
  std::string expected;
  for (int i = 0; i < 30'000; ++i) {
    expected += std::to_string(i) + '\n';
  }
  for (unsigned int threads : {1U, 2U, 7U}) {
    std::ostringstream out;
    OutputBuffer buffer(out);
    int next = 0;
    WriteInBlocks<int>(
        buffer, threads, [&](int& number) { return (number = next++) < 30'000; },
        [](int number, std::string& text) { text += std::to_string(number) + '\n'; });
    buffer.Flush();
    EXPECT_EQ(out.str(), expected) << threads;
  }
}
