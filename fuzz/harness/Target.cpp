#include "harness/Target.h"

#include <cstdlib>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <iostream>
#include <optional>
#include <rapidcheck.h>
#include <sstream>

#include "harness/ProcessorTime.h"
#include "support/faults/FailingNew.h"

namespace {

/// How many bytes an input needs: what its text may be turned into, a thousand times its size.
std::size_t Needs(std::size_t size) {
  return 1024 * size;
}

constexpr std::size_t kBeyondNeeds = std::size_t{64} << 20U;

/// Runs the target and returns the most memory that it held at one time.
std::size_t Measure(std::string_view input) {
  MemoryMeter const meter;
  try {
    Exercise(input);
  } catch (rc::detail::CaseResult const& result) {
    if (result.type == rc::detail::CaseResult::Type::Failure) {
      Fail(result.description);
    }
  }
  return meter.Peak();
}

/// Runs the target, and says what memory is held when that is not what was held before.
std::optional<std::string> WhatIsLeftBy(std::string_view input) {
  HeldMemory const before = HeldMemory::Now();
  std::size_t const peak = Measure(input);
  if (peak > Needs(input.size()) + kBeyondNeeds) {
    Fail(std::to_string(peak) + " bytes of memory for an input of " + std::to_string(input.size()));
  }
  HeldMemory const after = HeldMemory::Now();
  if (after == before) {
    return std::nullopt;
  }
  std::ostringstream text;
  text << after << "; before: " << before;
  return text.str();
}

void KeepSlow(std::string_view input) {
  if (char const* const folder = std::getenv(kSlowInputs)) {
    std::string const name = std::to_string(std::hash<std::string_view>()(input));
    std::ofstream(std::string(folder) + "/" + name, std::ios::binary) << input;
  }
}

}  // namespace

void Fail(std::string const& why) {
  std::cerr << "finding: " << why << std::endl;
  std::abort();
}

int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  testing::GTEST_FLAG(break_on_failure) = true;
  std::string_view const input(reinterpret_cast<char const*>(data), size);
  double const start = ProcessorTime();
  if (WhatIsLeftBy(input).has_value()) {  // what is made once and kept is not left again
    if (auto const left = WhatIsLeftBy(input)) {
      Fail("memory is left: " + *left);
    }
  }
  if (ProcessorTime() - start > kMostSeconds) {
    KeepSlow(input);
  }
  return 0;
}
