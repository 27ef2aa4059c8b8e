#ifndef TESTS_SUPPORT_CANNOTRUN_H
#define TESTS_SUPPORT_CANNOTRUN_H

#include <cstdlib>
#include <gtest/gtest.h>

/// Ends a test that this machine does not let run. Such a test shows nothing, so it fails, unless
/// the environment variable LAKRESVOS_MAY_SKIP is set: then it is skipped.
/// @param why what the machine does not allow.
#define CANNOT_RUN(why)                                          \
  do {                                                           \
    if (std::getenv("LAKRESVOS_MAY_SKIP") != nullptr) {          \
      GTEST_SKIP() << (why);                                     \
    }                                                            \
    FAIL() << (why) << "; set LAKRESVOS_MAY_SKIP to skip these"; \
  } while (false)

#endif
