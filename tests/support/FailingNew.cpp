#include "FailingNew.h"

#include <algorithm>
#include <cstdlib>

#include <cells/OmMemoryRegion.h>

namespace {

struct Countdown {
  bool running = false;
  FailAfter::Mode mode = FailAfter::Mode::Once;
  std::size_t left = 0;
};

thread_local Countdown countdown;

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
  return std::aligned_alloc(alignment, rounded);
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
  std::free(block);
}
void operator delete[](void* block) noexcept {
  std::free(block);
}
void operator delete(void* block, std::size_t) noexcept {
  std::free(block);
}
void operator delete[](void* block, std::size_t) noexcept {
  std::free(block);
}
void operator delete(void* block, std::align_val_t) noexcept {
  std::free(block);
}
void operator delete[](void* block, std::align_val_t) noexcept {
  std::free(block);
}
void operator delete(void* block, std::size_t, std::align_val_t) noexcept {
  std::free(block);
}
void operator delete[](void* block, std::size_t, std::align_val_t) noexcept {
  std::free(block);
}
void operator delete(void* block, std::nothrow_t const&) noexcept {
  std::free(block);
}
void operator delete[](void* block, std::nothrow_t const&) noexcept {
  std::free(block);
}
void operator delete(void* block, std::align_val_t, std::nothrow_t const&) noexcept {
  std::free(block);
}
void operator delete[](void* block, std::align_val_t, std::nothrow_t const&) noexcept {
  std::free(block);
}
