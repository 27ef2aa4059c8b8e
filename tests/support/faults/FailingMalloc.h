#ifndef TESTS_SUPPORT_FAILINGMALLOC_H
#define TESTS_SUPPORT_FAILINGMALLOC_H

#include <cstddef>

#include "support/faults/FailingNew.h"

/// As FailAfter, for what libraries in C ask for by malloc(), calloc() and realloc() in the thread
/// that makes the object. Programs that link FailingMalloc.cpp have these functions in place of
/// those of the C library.
class FailMallocAfter {
 public:
  /// Whether it can refuse anything. The sanitizers want these functions for themselves.
  static bool Works();

  FailMallocAfter(std::size_t n, FailAfter::Mode mode);
  ~FailMallocAfter();

  FailMallocAfter(FailMallocAfter const&) = delete;
  FailMallocAfter& operator=(FailMallocAfter const&) = delete;

  /// Whether anything was refused.
  bool HasRefused() const;

  /// The bytes of the first request that was refused.
  std::size_t FirstRefused() const;
};

#endif
