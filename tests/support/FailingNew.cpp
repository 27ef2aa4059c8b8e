#include "FailingNew.h"

#include <algorithm>
#include <cstdlib>
#include <malloc.h>

#include <cells/OmMemoryRegion.h>

namespace {

struct Countdown {
  bool running = false;
  FailAfter::Mode mode = FailAfter::Mode::Once;
  std::size_t left = 0;
};

thread_local Countdown countdown;

struct Meter {
  bool running = false;
  long long held = 0;
  long long peak = 0;
};

thread_local Meter meter;

bool Refused() {
  if (!countdown.running) {
    return false;
  }
  if (countdown.left > 1) {
    --countdown.left;
    return false;
  }
  countdown.running = countdown.mode == FailAfter::Mode::FromThenOn;
  return true;
}

void Count(unsigned long /*size*/) {
  if (Refused()) {
    throw std::bad_alloc();
  }
}

void* Supply(std::size_t size, std::size_t alignment) noexcept {
  if (Refused()) {
    return nullptr;
  }
  std::size_t const rounded =
      (std::max<std::size_t>(size, 1) + alignment - 1) / alignment * alignment;
  void* const block = std::aligned_alloc(alignment, rounded);
  if (meter.running) {
    meter.held += static_cast<long long>(malloc_usable_size(block));
    meter.peak = std::max(meter.peak, meter.held);
  }
  return block;
}

void TakeBack(void* block) noexcept {
  if (meter.running) {
    meter.held -= static_cast<long long>(malloc_usable_size(block));
  }
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

FailAfter::FailAfter(std::size_t n, Mode mode) {
  OmMemoryRegion::setAllocationProbe(Count);
  countdown = {true, mode, n};
}

FailAfter::~FailAfter() {
  countdown.running = false;
  OmMemoryRegion::setAllocationProbe(nullptr);
}

MemoryMeter::MemoryMeter() {
  meter = {true, 0, 0};
}

MemoryMeter::~MemoryMeter() {
  meter.running = false;
}

std::size_t MemoryMeter::Peak() const {
  return static_cast<std::size_t>(meter.peak);
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
  TakeBack(block);
}
void operator delete[](void* block) noexcept {
  TakeBack(block);
}
void operator delete(void* block, std::size_t) noexcept {
  TakeBack(block);
}
void operator delete[](void* block, std::size_t) noexcept {
  TakeBack(block);
}
void operator delete(void* block, std::align_val_t) noexcept {
  TakeBack(block);
}
void operator delete[](void* block, std::align_val_t) noexcept {
  TakeBack(block);
}
void operator delete(void* block, std::size_t, std::align_val_t) noexcept {
  TakeBack(block);
}
void operator delete[](void* block, std::size_t, std::align_val_t) noexcept {
  TakeBack(block);
}
void operator delete(void* block, std::nothrow_t const&) noexcept {
  TakeBack(block);
}
void operator delete[](void* block, std::nothrow_t const&) noexcept {
  TakeBack(block);
}
void operator delete(void* block, std::align_val_t, std::nothrow_t const&) noexcept {
  TakeBack(block);
}
void operator delete[](void* block, std::align_val_t, std::nothrow_t const&) noexcept {
  TakeBack(block);
}
