#ifndef BENCH_CHILDRUN_H
#define BENCH_CHILDRUN_H

#include <functional>
#include <string>

/// What a process of its own needed for some work.
struct ChildRun {
  bool done = false;      ///< whether it told its numbers and ended well
  double seconds = 0;     ///< for the work alone, as it says itself
  double peakBefore = 0;  ///< its peak memory in megabytes before the work
  double peak = 0;        ///< and at its end
};

/// Does the work in a child process, so that peaks of memory do not add up.
ChildRun RunInChild(std::function<void()> const& prepare, std::function<void()> const& work);

/// Runs a program that writes its seconds and its peak memory before them, in kilobytes.
ChildRun RunProgram(std::string const& command);

#endif
