#ifndef BENCH_SUPPORT_PROGRAMS_H
#define BENCH_SUPPORT_PROGRAMS_H

#include <benchmark/benchmark.h>
#include <cstdio>
#include <string>
#include <unistd.h>
#include <vector>

/// Runs a program whose output goes nowhere.
/// @throws std::runtime_error when it fails.
void RunProgram(std::vector<std::string> const& command);

/// What a program writes, to standard output and to standard error.
/// @throws std::runtime_error when it fails.
std::string ReadProgram(std::vector<std::string> const& command);

/// Runs a program that measures something itself and writes a line "NAME=VALUE" for each figure, and
/// makes these the benchmark's counters.
void MeasurePeer(benchmark::State& state, std::vector<std::string> const& command);

/// A file that goes with the object.
struct TemporaryFile {
  TemporaryFile() { close(mkstemp(name.data())); }
  TemporaryFile(TemporaryFile const&) = delete;
  TemporaryFile& operator=(TemporaryFile const&) = delete;
  ~TemporaryFile() { std::remove(name.c_str()); }

  std::string name = "/tmp/lakresvosXXXXXX";
};

#endif
