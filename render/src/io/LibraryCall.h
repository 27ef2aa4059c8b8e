#ifndef LAKRESVOS_RENDER_IO_LIBRARYCALL_H
#define LAKRESVOS_RENDER_IO_LIBRARYCALL_H

#include <cstdio>
#include <mutex>
#include <utility>

#include "io/SignalsHeld.h"

namespace lakresvos::render {

/// To be alive during calls of the library that writes workbooks. That prints to standard error what
/// its callers are told anyway; what handlers of signals print waits until the object goes. Standard
/// error is one for all threads, so only one of them calls at a time.
class LibraryCall {
 public:
  LibraryCall() : nowhere_(::fopencookie(nullptr, "w", {})) {
    if (nowhere_ != nullptr) {
      former_ = std::exchange(stderr, nowhere_);
    }
  }
  LibraryCall(LibraryCall const&) = delete;
  LibraryCall& operator=(LibraryCall const&) = delete;
  ~LibraryCall() {
    if (nowhere_ != nullptr) {
      stderr = former_;
      std::fclose(nowhere_);
    }
  }

 private:
  inline static std::mutex mutex_;

  std::lock_guard<std::mutex> alone_{mutex_};
  SignalsHeld held_;
  std::FILE* nowhere_;
  std::FILE* former_ = nullptr;
};

}  // namespace lakresvos::render

#endif
