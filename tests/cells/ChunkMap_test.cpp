#include "ChunkMap.h"
// This header comes first to show that it is self-contained.
#include <cstdint>
#include <gtest/gtest.h>
#include <new>

namespace {

using chunk_map::kChunkSize;

void const* At(std::uintptr_t address) {
  return reinterpret_cast<void const*>(address);
}

/// The end of what programs get.
constexpr std::uintptr_t kEnd = std::uintptr_t{1} << 47;

TEST(ChunkMap, HoldsTheChunksThatWereAddedAndNoOthers) {
  std::uintptr_t const start = 100 * kChunkSize;
  chunk_map::Add(At(start), kChunkSize + 1);
  EXPECT_FALSE(chunk_map::Has(At(start - 1)));
  EXPECT_TRUE(chunk_map::Has(At(start)));
  EXPECT_TRUE(chunk_map::Has(At(start + 2 * kChunkSize - 1)));
  EXPECT_FALSE(chunk_map::Has(At(start + 2 * kChunkSize)));
  chunk_map::Remove(At(start), kChunkSize + 1);
  EXPECT_FALSE(chunk_map::Has(At(start)));
}

TEST(ChunkMap, TellsEveryChunkFromAllOthersNearIt) {
  constexpr std::uintptr_t kNear = 200;
  for (std::uintptr_t added = 0; added < kNear; ++added) {
    chunk_map::Add(At(added * kChunkSize), kChunkSize);
    for (std::uintptr_t chunk = 0; chunk < kNear; ++chunk) {
      ASSERT_EQ(chunk_map::Has(At(chunk * kChunkSize)), chunk == added) << chunk << ", " << added;
    }
    chunk_map::Remove(At(added * kChunkSize), kChunkSize);
  }
}

TEST(ChunkMap, ReachesToTheLastChunk) {
  chunk_map::Add(At(kEnd - kChunkSize), kChunkSize);
  EXPECT_TRUE(chunk_map::Has(At(kEnd - 1)));
  EXPECT_FALSE(chunk_map::Has(At(kEnd)));
  chunk_map::Remove(At(kEnd - kChunkSize), kChunkSize);
}

TEST(ChunkMap, RefusesChunksBeyondAndKeepsNoneOfThem) {
  EXPECT_THROW(chunk_map::Add(At(kEnd), 1), std::bad_alloc);
  EXPECT_THROW(chunk_map::Add(At(kEnd - kChunkSize), kChunkSize + 1), std::bad_alloc);
  EXPECT_THROW(chunk_map::Add(At(~std::uintptr_t{0} / kChunkSize * kChunkSize), kChunkSize),
               std::bad_alloc);
  EXPECT_FALSE(chunk_map::Has(At(kEnd - 1)));
}

}  // namespace
