#include "ChunkMap.h"

#include <array>
#include <atomic>
#include <cstdint>
#include <memory>
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

void MakeLeaf(std::atomic<Leaf*>& slot) {
  Leaf* leaf = slot.load(std::memory_order_acquire);
  if (leaf == nullptr) {
    auto made = std::make_unique<Leaf>();
    if (slot.compare_exchange_strong(leaf, made.get(), std::memory_order_acq_rel)) {
      static_cast<void>(made.release());
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
  for (unsigned long chunk = first; chunk < end; ++chunk) {
    MakeLeaf(FindSlot(chunk));
  }
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
