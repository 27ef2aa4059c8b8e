#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <memory>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "crosstab/BareCrosstab.h"
#include "crosstab/SqliteCrosstab.h"
#include "support/Programs.h"
#include "support/Workload.h"

// Whole jobs of the report program: a large CSV file to a table of four dimensions in HTML, with counts
// alone and with a sum. Programs are timed from their start to their end; pandas and data.table also time
// themselves, without the start of their interpreters. Further, how long the report program takes to
// start, and how many libraries it loads.

namespace {

using Words = std::vector<std::string>;

/// Four columns of texts and one of numbers with two decimals.
void WriteData(std::string const& file, long rows) {
  std::ofstream out(file, std::ios::binary);
  out << "a,b,c,d,x\n";
  std::mt19937 random(1);
  for (long row = 0; row < rows; ++row) {
    char line[80];
    auto const below = [&](unsigned int count) { return static_cast<int>(random() % count); };
    std::snprintf(line, sizeof line, "Region %d,Product %d,Channel %d,Year %d,%d.%02d\n", below(10),
                  below(8), below(6), below(5), below(1000), below(100));
    out << line;
  }
}

void MeasureMilliseconds(benchmark::State& state, std::function<void()> const& work) {
  try {
    state.counters["ms"] = Seconds(work) * 1000;
  } catch (std::exception const& error) {
    state.SkipWithError(error.what());
  }
}

/// The data and the place for results, for as long as benchmarks need them.
struct Files {
  TemporaryFile data, output;
};

void RegisterJob(std::shared_ptr<Files> const& files, std::string const& what) {
  bool const sums = what == "sums";
  std::string const prefix = what + "/";
  auto const own = [&](std::string const& name, Words const& options) {
    Register(prefix + name, [files, sums, options](benchmark::State& state) {
      Words command{LAKRESVOS_REPORT,  files->data.name, "--table",
                    "a * b ~ c * d",   "--statistics",   sums ? "count,sum:x" : "count",
                    "--format",        "html",           "-o",
                    files->output.name};
      command.insert(command.end(), options.begin(), options.end());
      MeasureMilliseconds(state, [&] { RunProgram(command); });
    });
  };
  own("lakresvos-report", {});
  own("lakresvos-report, 1 thread", {"--threads", "1"});
  Register(prefix + "bare loop", [files, sums](benchmark::State& state) {
    MeasureMilliseconds(state,
                        [&] { WriteBareCrosstab(files->data.name, sums, files->output.name); });
  });
  Register(prefix + "SQLite GROUP BY", [files, sums](benchmark::State& state) {
    MeasureMilliseconds(state, [&] {
      double const query = WriteSqliteCrosstab(files->data.name, sums, files->output.name);
      state.counters["without loading ms"] = query * 1000;
    });
  });
  auto const peer = [&](std::string const& name, Words command) {
    command.insert(command.end(), {what, files->data.name, files->output.name});
    Register(prefix + name, [files, command](benchmark::State& state) {
      state.counters["ms"] = Seconds([&] { MeasurePeer(state, command); }) * 1000;
    });
  };
  Words const python{"/usr/bin/python3", LAKRESVOS_PEERS "/crosstab.py"};
  peer("pandas crosstab", {python[0], python[1], "crosstab"});
  peer("pandas categoricals", {python[0], python[1], "categoricals"});
  peer("data.table dcast", {"Rscript", LAKRESVOS_PEERS "/crosstab.R"});
}

/// How many libraries a program loads, those that it opens late included.
long CountLibraries(Words const& command) {
  setenv("LD_DEBUG", "files", 1);
  std::istringstream lines(ReadProgram(command));
  unsetenv("LD_DEBUG");
  long count = 0;
  for (std::string line; std::getline(lines, line);) {
    count += line.find("generating link map") != std::string::npos ? 1 : 0;
  }
  return count;
}

void RegisterStart() {
  Words const command{LAKRESVOS_REPORT, LAKRESVOS_DATA "/titanic.csv",
                      "--table",        "Class ~ Survived",
                      "--format",       "text"};
  Register("start/lakresvos-report", [command](benchmark::State& state) {
    constexpr int kStarts = 20;
    double const seconds = Seconds([&] {
      for (int i = 0; i < kStarts; ++i) {
        RunProgram(command);
      }
    });
    state.counters["ms"] = seconds * 1000 / kStarts;
    state.counters["libraries"] = static_cast<double>(CountLibraries(command));
  });
}

}  // namespace

void RegisterWorkload(bool quick) {
  auto const files = std::make_shared<Files>();
  WriteData(files->data.name, quick ? 10'000 : 1'000'000);
  RegisterJob(files, "counts");
  RegisterJob(files, "sums");
  RegisterStart();
}
