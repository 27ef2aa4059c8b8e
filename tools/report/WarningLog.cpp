#include "WarningLog.h"

#include <algorithm>
#include <utility>

namespace lakresvos::report {

namespace {

void CutToFirst(std::vector<Warning>& warnings) {
  std::stable_sort(warnings.begin(), warnings.end(),
                   [](Warning const& a, Warning const& b) { return a.line < b.line; });
  if (warnings.size() > WarningLog::kKept) {
    warnings.erase(warnings.begin() + WarningLog::kKept, warnings.end());
  }
}

}  // namespace

void WarningLog::Add(Warning warning) {
  kept_.push_back(std::move(warning));
  ++total_;
  if (kept_.size() == 2 * kKept) {
    CutToFirst(kept_);
  }
}

std::vector<Warning> WarningLog::First() const {
  std::vector<Warning> first = kept_;
  CutToFirst(first);
  return first;
}

}  // namespace lakresvos::report
