#include "support/faults/FailingMalloc.h"

#include <cerrno>

#if defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define SANITIZED 1
#endif
#endif
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define SANITIZED 1
#endif

namespace {

struct Countdown {
  bool running = false;
  FailAfter::Mode mode = FailAfter::Mode::Once;
  std::size_t n = 0;
  std::size_t asked = 0;
  std::size_t firstRefused = 0;
};

constinit thread_local Countdown countdown;

#ifndef SANITIZED

bool Refused(std::size_t size) {
  if (!countdown.running) {
    return false;
  }
  ++countdown.asked;
  if (countdown.asked == countdown.n) {
    countdown.firstRefused = size;
  }
  bool const refused = countdown.mode == FailAfter::Mode::Once ? countdown.asked == countdown.n
                                                               : countdown.asked >= countdown.n;
  if (refused) {
    errno = ENOMEM;
  }
  return refused;
}

#endif

}  // namespace

#ifndef SANITIZED

#define EXPORTED extern "C" __attribute__((visibility("default")))

// What these are called in the C library itself.
extern "C" void* __libc_malloc(std::size_t size);
extern "C" void* __libc_calloc(std::size_t count, std::size_t size);
extern "C" void* __libc_realloc(void* block, std::size_t size);

EXPORTED void* malloc(std::size_t size) {
  return Refused(size) ? nullptr : __libc_malloc(size);
}

EXPORTED void* calloc(std::size_t count, std::size_t size) {
  return Refused(count * size) ? nullptr : __libc_calloc(count, size);
}

EXPORTED void* realloc(void* block, std::size_t size) {
  return Refused(size) ? nullptr : __libc_realloc(block, size);
}

bool FailMallocAfter::Works() {
  return true;
}

#else

bool FailMallocAfter::Works() {
  return false;
}

#endif

FailMallocAfter::FailMallocAfter(std::size_t n, FailAfter::Mode mode) {
  countdown = {true, mode, n, 0, 0};
}

FailMallocAfter::~FailMallocAfter() {
  countdown.running = false;
}

bool FailMallocAfter::HasRefused() const {
  return countdown.asked >= countdown.n;
}

std::size_t FailMallocAfter::FirstRefused() const {
  return countdown.firstRefused;
}
