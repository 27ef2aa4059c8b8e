#include <algorithm>
#include <utility>

#include <lakresvos/tabulate/WarningLog.h>

namespace lakresvos::tabulate {

namespace {

void CutToFirst(std::vector<Warning>& warnings) {
  std::stable_sort(warnings.begin(), warnings.end(),
                   [](Warning const& a, Warning const& b) { return a.line < b.line; });
  if (warnings.size() > WarningLog::kMaxKept) {
    warnings.erase(warnings.begin() + WarningLog::kMaxKept, warnings.end());
  }
}

}  // namespace

void WarningLog::Add(Warning warning) {
  kept_.reserve(2 * kMaxKept);  // so that nothing is counted that is not kept
  Count(warning.kind, warning.line, warning.column);
  kept_.push_back(std::move(warning));
  ++total_;
  if (kept_.size() == 2 * kMaxKept) {
    CutToFirst(kept_);
  }
}

void WarningLog::Count(Skipped kind, std::size_t line, std::string const& column) {
  SkipCount& count = counts_[static_cast<std::size_t>(kind)];
  if (count.count == 0 || line < count.line) {
    count.column = column;
    count.line = line;
  }
  ++count.count;
}

void WarningLog::Append(WarningLog const& other, std::size_t linesBefore) {
  if (!other.HasAny()) {
    return;
  }
  WarningLog both = *this;
  for (std::size_t kind = 0; kind < counts_.size(); ++kind) {
    SkipCount const& from = other.counts_[kind];
    SkipCount& to = both.counts_[kind];
    if (from.count != 0 && (to.count == 0 || linesBefore + from.line < to.line)) {
      to.column = from.column;
      to.line = linesBefore + from.line;
    }
    to.count += from.count;
  }
  both.kept_.reserve(2 * kMaxKept);
  std::vector<Warning> first = other.First();
  for (Warning& warning : first) {
    warning.line += linesBefore;
    both.kept_.push_back(std::move(warning));
    if (both.kept_.size() == 2 * kMaxKept) {
      CutToFirst(both.kept_);
    }
  }
  both.total_ += other.total_;
  *this = std::move(both);
}

bool WarningLog::HasAny() const {
  return std::any_of(counts_.begin(), counts_.end(),
                     [](SkipCount const& count) { return count.count != 0; });
}

std::vector<Warning> WarningLog::First() const {
  std::vector<Warning> first = kept_;
  CutToFirst(first);
  return first;
}

}  // namespace lakresvos::tabulate
