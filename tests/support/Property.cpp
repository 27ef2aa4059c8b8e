#include "support/Property.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <sstream>
#include <stdexcept>
#include <string>

namespace {

std::string Variable(char const* name) {
  char const* const value = std::getenv(name);
  return value != nullptr ? value : "";
}

double Factor() {
  std::string const text = Variable("LAKRESVOS_PROPERTY_RUNS");
  if (text.empty()) {
    return 1;
  }
  double factor = 0;
  auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), factor);
  if (error != std::errc() || end != text.data() + text.size() || !(factor > 0) ||
      std::isinf(factor)) {
    throw std::invalid_argument("LAKRESVOS_PROPERTY_RUNS: expected a number above 0");
  }
  return factor;
}

int Multiplied(int runs) {
  return static_cast<int>(std::clamp(runs * Factor(), 1.0, 1e9));
}

bool runsAreGiven = false;  // by RC_PARAMS

}  // namespace

void MultiplyPropertyRuns() {
  std::string const params = Variable("RC_PARAMS");
  runsAreGiven = params.find("max_success") != std::string::npos;
  int const runs = Multiplied(rc::detail::TestParams().maxSuccess);
  if (!runsAreGiven && runs != rc::detail::TestParams().maxSuccess) {
    setenv("RC_PARAMS", (params + " max_success=" + std::to_string(runs)).c_str(), 1);
  }
}

void CheckRandomProgram(void (*run)()) {
  using namespace rc::detail;
  testing::TestInfo const& test = *testing::UnitTest::GetInstance()->current_test_info();
  TestMetadata metadata;
  metadata.id = std::string(test.test_suite_name()) + "/" + test.name();
  metadata.description = test.name();
  TestParams params = configuration().testParams;
  if (!runsAreGiven) {
    params.maxSuccess = Multiplied(LAKRESVOS_SEQUENCES);
  }
  TestResult const result = checkTestable(run, metadata, params);
  if (!result.is<SuccessResult>()) {
    std::ostringstream message;
    printResultMessage(result, message);
    FAIL() << message.str();
  }
}
