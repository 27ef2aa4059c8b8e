#include "harness/Target.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <iostream>
#include <rapidcheck.h>

#include <cells/OmMemoryRegion.h>

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

}  // namespace

void Fail(std::string const& why) {
  std::cerr << "finding: " << why << std::endl;
  std::abort();
}

int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  testing::GTEST_FLAG(break_on_failure) = true;
  unsigned long const before = OmMemoryRegion::DefaultHeap()->BytesInUse();
  std::size_t const peak = Measure({reinterpret_cast<char const*>(data), size});
  if (peak > Needs(size) + kBeyondNeeds) {
    Fail(std::to_string(peak) + " bytes of memory for an input of " + std::to_string(size));
  }
  unsigned long const after = OmMemoryRegion::DefaultHeap()->BytesInUse();
  if (after != before) {
    Fail(std::to_string(after - before) + " bytes are left on the default heap");
  }
  return 0;
}
