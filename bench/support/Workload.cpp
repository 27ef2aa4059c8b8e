#include "Workload.h"

#include <fstream>
#include <iostream>
#include <malloc.h>
#include <stdexcept>
#include <vector>

namespace {

/// Lets large blocks come from the system and go back to it, as in a program that just started:
/// otherwise who runs later would find the memory of others, paid for.
void StartOnFreshMemory() {
  constexpr int kLarge = 1 << 17;
  mallopt(M_MMAP_THRESHOLD, kLarge);
}

/// Writes the runs of all rounds into one JSON document.
class RoundReporter : public benchmark::BenchmarkReporter {
 public:
  explicit RoundReporter(std::ostream& out) { json_.SetOutputStream(&out); }

  bool ReportContext(Context const& context) override {
    if (!started_) {
      started_ = true;
      json_.ReportContext(context);
    }
    return true;
  }

  void ReportRuns(std::vector<Run> const& runs) override { json_.ReportRuns(runs); }

  void End() { json_.Finalize(); }

 private:
  benchmark::JSONReporter json_;
  bool started_ = false;
};

struct Arguments {
  bool quick = false;
  int rounds = 9;
  std::string results = "/dev/stdout";
};

Arguments Parse(std::vector<std::string> const& words) {
  Arguments arguments;
  for (std::size_t i = 1; i < words.size(); ++i) {
    if (words[i] == "--quick") {
      arguments.quick = true;
      arguments.rounds = 1;
    } else if (words[i] == "--rounds" && i + 1 < words.size()) {
      arguments.rounds = std::stoi(words[++i]);
    } else if (words[i] == "--results" && i + 1 < words.size()) {
      arguments.results = words[++i];
    } else {
      throw std::invalid_argument("unknown argument '" + words[i] + "'");
    }
  }
  return arguments;
}

void Run(Arguments const& arguments) {
  StartOnFreshMemory();
  std::ofstream out(arguments.results);
  RoundReporter reporter(out);
  benchmark::AddCustomContext("compiler", LAKRESVOS_COMPILER);
  benchmark::AddCustomContext("quick", arguments.quick ? "yes" : "no");
  RegisterWorkload(arguments.quick);
  for (int round = 1; round <= arguments.rounds; ++round) {
    std::cerr << "round " << round << " of " << arguments.rounds << std::endl;
    benchmark::RunSpecifiedBenchmarks(&reporter);
  }
  reporter.End();
  if (!out.flush()) {
    throw std::runtime_error("cannot write '" + arguments.results + "'");
  }
}

}  // namespace

void Register(std::string const& name, std::function<void(benchmark::State&)> const& run) {
  benchmark::RegisterBenchmark(name.c_str(), [run](benchmark::State& state) {
    for ([[maybe_unused]] auto _ : state) {
      run(state);
    }
  })->Iterations(1);
}

void RegisterMissing(std::string const& name, std::string const& what) {
  benchmark::RegisterBenchmark(name.c_str(), [what](benchmark::State& state) {
    state.SkipWithError((what + " is missing").c_str());
  })->Iterations(1);
}

int main(int argc, char** argv) {
  // The library's way to shuffle: all benchmarks of one call, which makes a round.
  std::string interleave = "--benchmark_enable_random_interleaving=true";
  std::vector<char*> words(argv, argv + argc);
  words.insert(words.begin() + 1, interleave.data());
  words.push_back(nullptr);
  int count = argc + 1;
  benchmark::Initialize(&count, words.data());
  try {
    Run(Parse({words.begin(), words.begin() + count}));
  } catch (std::exception const& error) {
    std::cerr << argv[0] << ": " << error.what() << '\n';
    return 2;
  }
  return 0;
}
