#include "support/faults/FailingNew.h"

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <malloc.h>

#include <cells/OmMemoryRegion.h>

namespace {

thread_local FailAfter* failingHere = nullptr;
constinit std::atomic<FailAfter*> failingEverywhere = nullptr;

struct Meter {
  std::atomic<bool> running = false;
  std::atomic<long long> held = 0;
  std::atomic<long long> peak = 0;

  void Add(long long size) {
    if (!running) {
      return;
    }
    long long const now = held.fetch_add(size) + size;
    long long most = peak;
    while (now > most && !peak.compare_exchange_weak(most, now)) {
    }
  }
};

constinit Meter meter;

/// What lives, of one sort of memory, in all threads together.
struct Tally {
  std::atomic<long long> blocks = 0;
  std::atomic<long long> bytes = 0;

  void Add(long long block, long long size) {
    blocks.fetch_add(block, std::memory_order_relaxed);
    bytes.fetch_add(size, std::memory_order_relaxed);
  }
};

// Regions alone ask for so much alignment: whole chunks of it for their blocks, and pages for the
// map of all chunks, which is never given back.
constexpr std::size_t kMapAlignment = 4096;
constexpr std::size_t kChunkAlignment = std::size_t{64} << 10U;

constinit Tally heap;
constinit Tally map;
constinit Tally regions;

Tally& TallyOf(std::size_t alignment) {
  if (alignment >= kChunkAlignment) {
    return regions;
  }
  return alignment == kMapAlignment ? map : heap;
}

/// Where a block for a region says how long it is: at its end, which is longer than was asked for.
std::size_t& SizeAtTheEnd(void* block) {
  std::size_t const words = malloc_usable_size(block) / sizeof(std::size_t);
  return static_cast<std::size_t*>(block)[words - 1];
}

long long SizeOf(void* block, std::size_t alignment) {
  return static_cast<long long>(alignment >= kChunkAlignment ? SizeAtTheEnd(block)
                                                             : malloc_usable_size(block));
}

void* Acquire(std::size_t size, std::size_t alignment) {
  void* block = nullptr;
  std::size_t const extra = alignment >= kChunkAlignment ? sizeof(std::size_t) : 0;
  if (posix_memalign(&block, alignment, std::max<std::size_t>(size, 1) + extra) != 0) {
    return nullptr;
  }
  if (extra != 0) {
    SizeAtTheEnd(block) = size;
  }
  return block;
}

bool Refused(std::size_t size) {
  FailAfter* const failing = failingHere != nullptr ? failingHere : failingEverywhere.load();
  return failing != nullptr && failing->Refuses(size);
}

void Count(unsigned long size) {
  if (Refused(size)) {
    throw std::bad_alloc();
  }
}

void* Supply(std::size_t size, std::size_t alignment) noexcept {
  if (Refused(size)) {
    return nullptr;
  }
  void* const block = Acquire(size, alignment);
  if (block == nullptr) {
    return nullptr;
  }
  TallyOf(alignment).Add(1, SizeOf(block, alignment));
  meter.Add(static_cast<long long>(malloc_usable_size(block)));
  return block;
}

void TakeBack(void* block, std::size_t alignment) noexcept {
  if (block == nullptr) {
    return;
  }
  TallyOf(alignment).Add(-1, -SizeOf(block, alignment));
  meter.Add(-static_cast<long long>(malloc_usable_size(block)));
  std::free(block);
}

void* SupplyOrThrow(std::size_t size, std::size_t alignment) {
  if (void* block = Supply(size, alignment)) {
    return block;
  }
  throw std::bad_alloc();
}

constexpr std::size_t kDefault = __STDCPP_DEFAULT_NEW_ALIGNMENT__;

}  // namespace

FailAfter::FailAfter(std::size_t n, Mode mode, Threads threads) : n_(n), mode_(mode) {
  OmMemoryRegion::setAllocationProbe(Count);
  if (threads == Threads::This) {
    failingHere = this;
  } else {
    failingEverywhere = this;
  }
}

FailAfter::~FailAfter() {
  failingHere = nullptr;
  failingEverywhere = nullptr;
  OmMemoryRegion::setAllocationProbe(nullptr);
}

bool FailAfter::Refuses(std::size_t size) {
  std::size_t const request = asked_.fetch_add(1) + 1;
  if (request == n_) {
    firstRefused_ = size;
  }
  return mode_ == Mode::Once ? request == n_ : request >= n_;
}

MemoryMeter::MemoryMeter() {
  meter.held = 0;
  meter.peak = 0;
  meter.running = true;
}

MemoryMeter::~MemoryMeter() {
  meter.running = false;
}

std::size_t MemoryMeter::Peak() const {
  return static_cast<std::size_t>(meter.peak.load());
}

HeldMemory HeldMemory::Now() {
  OmMemoryRegion const& common = *OmMemoryRegion::DefaultHeap();
  return {heap.blocks, heap.bytes, static_cast<long long>(common.BytesInUse()),
          regions.bytes - static_cast<long long>(common.BytesReserved())};
}

std::ostream& operator<<(std::ostream& out, HeldMemory const& held) {
  return out << held.blocks << " blocks with " << held.bytes << " bytes on the general heap, "
             << held.defaultHeapBytes << " bytes on the default heap, " << held.regionBytes
             << " bytes in other regions";
}

void* operator new(std::size_t n) {
  return SupplyOrThrow(n, kDefault);
}
void* operator new[](std::size_t n) {
  return SupplyOrThrow(n, kDefault);
}
void* operator new(std::size_t n, std::align_val_t a) {
  return SupplyOrThrow(n, static_cast<std::size_t>(a));
}
void* operator new[](std::size_t n, std::align_val_t a) {
  return SupplyOrThrow(n, static_cast<std::size_t>(a));
}
void* operator new(std::size_t n, std::nothrow_t const&) noexcept {
  return Supply(n, kDefault);
}
void* operator new[](std::size_t n, std::nothrow_t const&) noexcept {
  return Supply(n, kDefault);
}
void* operator new(std::size_t n, std::align_val_t a, std::nothrow_t const&) noexcept {
  return Supply(n, static_cast<std::size_t>(a));
}
void* operator new[](std::size_t n, std::align_val_t a, std::nothrow_t const&) noexcept {
  return Supply(n, static_cast<std::size_t>(a));
}
void operator delete(void* block) noexcept {
  TakeBack(block, kDefault);
}
void operator delete[](void* block) noexcept {
  TakeBack(block, kDefault);
}
void operator delete(void* block, std::size_t) noexcept {
  TakeBack(block, kDefault);
}
void operator delete[](void* block, std::size_t) noexcept {
  TakeBack(block, kDefault);
}
void operator delete(void* block, std::align_val_t a) noexcept {
  TakeBack(block, static_cast<std::size_t>(a));
}
void operator delete[](void* block, std::align_val_t a) noexcept {
  TakeBack(block, static_cast<std::size_t>(a));
}
void operator delete(void* block, std::size_t, std::align_val_t a) noexcept {
  TakeBack(block, static_cast<std::size_t>(a));
}
void operator delete[](void* block, std::size_t, std::align_val_t a) noexcept {
  TakeBack(block, static_cast<std::size_t>(a));
}
void operator delete(void* block, std::nothrow_t const&) noexcept {
  TakeBack(block, kDefault);
}
void operator delete[](void* block, std::nothrow_t const&) noexcept {
  TakeBack(block, kDefault);
}
void operator delete(void* block, std::align_val_t a, std::nothrow_t const&) noexcept {
  TakeBack(block, static_cast<std::size_t>(a));
}
void operator delete[](void* block, std::align_val_t a, std::nothrow_t const&) noexcept {
  TakeBack(block, static_cast<std::size_t>(a));
}
