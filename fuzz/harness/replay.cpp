// Runs a target over inputs and those in folders. The tests do so with those that are kept.

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

#include "harness/ProcessorTime.h"
#include "harness/Target.h"

namespace {

/// How many times longer an input may take where the code is slowed down.
#if defined(__OPTIMIZE__) && !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
constexpr double kSlowness = 1;
#else
constexpr double kSlowness = 10;
#endif

}  // namespace

int main(int argc, char** argv) {
  std::vector<std::filesystem::path> files;
  for (int i = 1; i < argc; ++i) {
    if (!std::filesystem::is_directory(argv[i])) {
      files.emplace_back(argv[i]);
      continue;
    }
    for (auto const& entry : std::filesystem::directory_iterator(argv[i])) {
      files.push_back(entry.path());
    }
  }
  std::sort(files.begin(), files.end());
  for (std::filesystem::path const& file : files) {
    std::cout << file.string() << std::endl;  // the last one is the one that failed
    std::ifstream in(file, std::ios::binary);
    std::vector<char> const bytes{std::istreambuf_iterator<char>(in), {}};
    double const start = ProcessorTime();
    LLVMFuzzerTestOneInput(reinterpret_cast<std::uint8_t const*>(bytes.data()), bytes.size());
    if (double const taken = ProcessorTime() - start; taken > kMostSeconds * kSlowness) {
      Fail(std::to_string(taken) + " seconds for an input");
    }
  }
  std::cout << files.size() << " inputs\n";
  return files.empty() ? 1 : 0;
}
