#include "io/LibraryCall.h"

#include <cstdio>
#include <gtest/gtest.h>
#include <memory>

using lakresvos::render::LibraryCall;

TEST(LibraryCall, RedirectsStandardError) {
  std::FILE* const before = stderr;
  {
    LibraryCall const call;
    EXPECT_NE(stderr, before);
    EXPECT_GE(std::fputs("not seen\n", stderr), 0);
  }
  EXPECT_EQ(stderr, before);
}

TEST(LibraryCall, WhatAnotherThreadTookForStandardErrorStaysOpen) {
  std::FILE* taken = nullptr;
  {
    LibraryCall const call;
    taken = stderr;
  }
  // Gets the memory of a stream like it that was closed.
  std::unique_ptr<std::FILE, int (*)(std::FILE*)> const other(::fopencookie(nullptr, "w", {}),
                                                              &std::fclose);
  EXPECT_NE(other.get(), taken);
  EXPECT_GE(std::fputs("late\n", taken), 0);
}
