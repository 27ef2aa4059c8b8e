#ifndef LAKRESVOS_RENDER_IO_LIBRARYCALL_H
#define LAKRESVOS_RENDER_IO_LIBRARYCALL_H

#include <cstdio>
#include <mutex>

#include "io/SignalsHeld.h"

namespace lakresvos::render {

/// To be alive during calls of the library that writes workbooks. That prints to standard error what
/// its callers are told anyway; what handlers of signals print waits until the object goes. Standard
/// error is one for all threads, so only one of them calls at a time, and what others print meanwhile
/// is lost.
class LibraryCall {
 public:
  LibraryCall() {
    if (nowhere_ == nullptr) {
      nowhere_ = ::fopencookie(nullptr, "w", {});
    }
    if (nowhere_ != nullptr) {
      stderr = nowhere_;
    }
  }
  LibraryCall(LibraryCall const&) = delete;
  LibraryCall& operator=(LibraryCall const&) = delete;
  ~LibraryCall() { stderr = former_; }

 private:
  inline static std::mutex mutex_;

  // Never closed, for another thread may still write to what was standard error when it looked.
  inline static std::FILE* nowhere_ = nullptr;

  std::lock_guard<std::mutex> alone_{mutex_};
  SignalsHeld held_;
  std::FILE* former_ = stderr;
};

}  // namespace lakresvos::render

#endif
