#include "ChunkMap.h"

#include <array>
#include <atomic>
#include <cstdint>
#include <mutex>
#include <new>

namespace chunk_map {

namespace {

constexpr unsigned long kAddressBits = 47;  // of what Linux hands out on x86-64 unasked
constexpr unsigned long kChunks = (1UL << kAddressBits) / kChunkSize;
constexpr unsigned long kChunksPerWord = 64;
constexpr unsigned long kWordsPerLeaf = 512;
constexpr unsigned long kChunksPerLeaf = kChunksPerWord * kWordsPerLeaf;

/// One bit for each chunk of 2 GiB: a page of memory.
struct alignas(4096) Leaf : std::array<std::atomic<std::uint64_t>, kWordsPerLeaf> {};

// Leaves are never deleted: cells may be made and deleted until the process ends.
constinit std::array<std::atomic<Leaf*>, kChunks / kChunksPerLeaf> leaves{};
constinit std::mutex makingLeaves;

unsigned long FindChunk(void const* address) {
  return reinterpret_cast<std::uintptr_t>(address) / kChunkSize;
}

std::atomic<Leaf*>& FindSlot(unsigned long chunk) {
  return leaves[chunk / kChunksPerLeaf];
}

/// Bits need no order of their own: whoever knows an address in a chunk knows that it was entered.
std::atomic<std::uint64_t>& FindWord(Leaf& leaf, unsigned long chunk) {
  return leaf[chunk % kChunksPerLeaf / kChunksPerWord];
}

std::uint64_t GetBit(unsigned long chunk) {
  return std::uint64_t{1} << chunk % kChunksPerWord;
}

/// Makes the leaves of chunks that come into use, one thread at a time.
void MakeLeaves(unsigned long first, unsigned long end) {
  std::lock_guard const alone(makingLeaves);
  for (unsigned long chunk = first; chunk < end; ++chunk) {
    std::atomic<Leaf*>& slot = FindSlot(chunk);
    if (slot.load(std::memory_order_relaxed) == nullptr) {
      slot.store(new Leaf, std::memory_order_release);
    }
  }
}

}  // namespace

void Add(void const* start, unsigned long size) {
  unsigned long const first = FindChunk(start);
  unsigned long const end = first + (size + kChunkSize - 1) / kChunkSize;
  if (end > kChunks) {
    throw std::bad_alloc();
  }
  MakeLeaves(first, end);
  for (unsigned long chunk = first; chunk < end; ++chunk) {
    FindWord(*FindSlot(chunk).load(std::memory_order_acquire), chunk)
        .fetch_or(GetBit(chunk), std::memory_order_relaxed);
  }
}

void Remove(void const* start, unsigned long size) {
  unsigned long const first = FindChunk(start);
  unsigned long const end = first + (size + kChunkSize - 1) / kChunkSize;
  for (unsigned long chunk = first; chunk < end; ++chunk) {
    FindWord(*FindSlot(chunk).load(std::memory_order_acquire), chunk)
        .fetch_and(~GetBit(chunk), std::memory_order_relaxed);
  }
}

bool Has(void const* address) {
  unsigned long const chunk = FindChunk(address);
  if (chunk >= kChunks) {
    return false;
  }
  Leaf* const leaf = FindSlot(chunk).load(std::memory_order_acquire);
  return leaf != nullptr &&
         (FindWord(*leaf, chunk).load(std::memory_order_relaxed) & GetBit(chunk)) != 0;
}

}  // namespace chunk_map
