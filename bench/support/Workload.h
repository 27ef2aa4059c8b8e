#ifndef BENCH_SUPPORT_WORKLOAD_H
#define BENCH_SUPPORT_WORKLOAD_H

#include <benchmark/benchmark.h>
#include <chrono>
#include <functional>
#include <string>

// Each program measures one workload. It runs all its benchmarks once a round, in a new random order
// each time, so that what disturbs the machine for a while disturbs all of them alike. What a benchmark
// measured are its counters; report.py takes medians over the rounds.

/// What each program defines: registers its benchmarks, small ones if only to try them out.
void RegisterWorkload(bool quick);

/// Registers a benchmark under a name of the form "case/competitor", which runs once a round.
void Register(std::string const& name, std::function<void(benchmark::State&)> const& run);

/// Registers a competitor that is missing on this machine, for the report to say so.
void RegisterMissing(std::string const& name, std::string const& what);

/// The seconds that `work` takes.
template <class Work>
double Seconds(Work const& work) {
  auto const start = std::chrono::steady_clock::now();
  work();
  std::chrono::duration<double> const seconds = std::chrono::steady_clock::now() - start;
  return seconds.count();
}

/// The nanoseconds that each of `count` operations takes.
template <class Work>
double NanosecondsEach(std::size_t count, Work const& work) {
  return Seconds(work) * 1e9 / static_cast<double>(count);
}

#endif
