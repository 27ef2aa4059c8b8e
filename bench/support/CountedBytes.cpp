#include "CountedBytes.h"

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <malloc.h>
#include <map>
#include <mutex>
#include <new>

namespace {

std::atomic<long> held{0};
std::atomic<long> peak{0};

void Count(long bytes) {
  long const now = held.fetch_add(bytes, std::memory_order_relaxed) + bytes;
  if (now > peak.load(std::memory_order_relaxed)) {
    peak.store(now, std::memory_order_relaxed);
  }
}

/// The sizes of aligned blocks. `malloc_usable_size` would add what lies between the end of such a
/// block and that of the pages that it was cut from, which nobody ever touches.
struct AlignedBlocks {
  std::mutex mutex;
  std::map<void*, long> sizes;
};

AlignedBlocks& Aligned() {
  static auto* const blocks = new AlignedBlocks;
  return *blocks;
}

}  // namespace

namespace counted_bytes {

long Held() {
  return held.load(std::memory_order_relaxed);
}

long Peak() {
  return peak.load(std::memory_order_relaxed);
}

void Restart() {
  peak.store(Held(), std::memory_order_relaxed);
}

}  // namespace counted_bytes

void* operator new(std::size_t size) {
  void* const block = std::malloc(std::max<std::size_t>(size, 1));
  if (block == nullptr) {
    throw std::bad_alloc();
  }
  Count(static_cast<long>(malloc_usable_size(block)));
  return block;
}

void* operator new(std::size_t size, std::align_val_t alignment) {
  auto const step = static_cast<std::size_t>(alignment);
  void* const block = std::aligned_alloc(step, (size + step - 1) / step * step);
  if (block == nullptr) {
    throw std::bad_alloc();
  }
  auto const bytes = static_cast<long>(size);
  AlignedBlocks& blocks = Aligned();
  std::lock_guard const lock(blocks.mutex);
  blocks.sizes.emplace(block, bytes);
  Count(bytes);
  return block;
}

void operator delete(void* block) noexcept {
  if (block != nullptr) {
    Count(-static_cast<long>(malloc_usable_size(block)));
    std::free(block);
  }
}

void operator delete(void* block, std::size_t /*size*/) noexcept {
  operator delete(block);
}

void operator delete(void* block, std::align_val_t /*alignment*/) noexcept {
  if (block == nullptr) {
    return;
  }
  AlignedBlocks& blocks = Aligned();
  {
    std::lock_guard const lock(blocks.mutex);
    auto const found = blocks.sizes.find(block);
    Count(-found->second);
    blocks.sizes.erase(found);
  }
  std::free(block);
}

void operator delete(void* block, std::size_t /*size*/, std::align_val_t alignment) noexcept {
  operator delete(block, alignment);
}
