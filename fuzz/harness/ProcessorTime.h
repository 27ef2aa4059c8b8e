#ifndef FUZZ_HARNESS_PROCESSORTIME_H
#define FUZZ_HARNESS_PROCESSORTIME_H

#include <time.h>

/// The seconds that all threads of the program have taken so far.
inline double ProcessorTime() {
  timespec time{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

/// What an input may take.
constexpr double kMostSeconds = 1;

#endif
