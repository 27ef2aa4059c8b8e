#include "SpyCell.h"

#include <algorithm>
#include <atomic>
#include <iterator>

namespace {

std::atomic<long> live = 0;
SpyLog* listener = nullptr;

// The call that is to fail, 0 for none. Several threads may make it.
SpyCell::Operation failing = SpyCell::Operation::Clone;
FailAfter::Mode failingMode = FailAfter::Mode::Once;
std::size_t failingCall = 0;
std::atomic<std::size_t> called = 0;

void ThrowWhenDue(SpyCell::Operation operation) {
  if (failing != operation || failingCall == 0) {
    return;
  }
  std::size_t const call = ++called;
  if (call == failingCall || (call > failingCall && failingMode == FailAfter::Mode::FromThenOn)) {
    throw SpyFailure::Exception("a spy cell was told to fail");
  }
}

/// The arguments and the result of a call, where it has any.
struct Details {
  OmCellText const* other = nullptr;
  OmMemoryRegion* region = nullptr;
  icuTracker* tracker = nullptr;
  OmCellText const* result = nullptr;
  int number = 0;
};

/// Allocates nothing while nobody listens.
void Record(SpyCell::Operation operation, SpyCell const* cell, std::string const& text,
            Details const& details = {}) {
  if (listener != nullptr) {
    listener->calls.push_back({operation, cell, text, details.other, details.region,
                               details.tracker, details.result, details.number});
  }
}

char const* NameOf(SpyCell::Operation operation) {
  switch (operation) {
    case SpyCell::Operation::Clone:
      return "Clone";
    case SpyCell::Operation::GetText:
      return "GetText";
    case SpyCell::Operation::GetKind:
      return "GetKind";
    case SpyCell::Operation::Compare:
      return "Compare";
    case SpyCell::Operation::ShareContext:
      return "ShareContext";
    case SpyCell::Operation::UseTracker:
      return "UseTracker";
    case SpyCell::Operation::Dump:
      return "Dump";
    case SpyCell::Operation::Accept:
      return "Accept";
    case SpyCell::Operation::Destroy:
      return "Destroy";
  }
  return "?";
}

}  // namespace

SpyCell::SpyCell(std::string const& text, long kind) : text_(text), kind_(kind) {
  ++live;
}

SpyCell::SpyCell(SpyCell const& other) : OmCellText(other), text_(other.text_), kind_(other.kind_) {
  ++live;
}

SpyCell::~SpyCell() {
  Record(Operation::Destroy, this, text_);
  --live;
}

OmCellText* SpyCell::Clone(OmMemoryRegion* region) const {
  ThrowWhenDue(Operation::Clone);
  auto* const clone = new (region) SpyCell(*this);
  Record(Operation::Clone, this, text_, {.region = region, .result = clone});
  return clone;
}

std::string SpyCell::GetText() const {
  ThrowWhenDue(Operation::GetText);
  Record(Operation::GetText, this, text_);
  return text_;
}

long SpyCell::GetKind() const {
  ThrowWhenDue(Operation::GetKind);
  Record(Operation::GetKind, this, text_);
  return kind_;
}

short SpyCell::Compare(OmCellText const& other, bool ignoreCase) const {
  ThrowWhenDue(Operation::Compare);
  Record(Operation::Compare, this, text_, {.other = &other, .number = ignoreCase ? 1 : 0});
  auto const* const spy = dynamic_cast<SpyCell const*>(&other);
  if (spy == nullptr || ignoreCase) {
    return CompareTexts(other, ignoreCase);
  }
  int const order = text_.compare(spy->text_);
  return static_cast<short>((order > 0) - (order < 0));
}

void SpyCell::ShareContext(OmCellText const& other) {
  ThrowWhenDue(Operation::ShareContext);
  Record(Operation::ShareContext, this, text_, {.other = &other});
  OmCellText::ShareContext(other);
}

void SpyCell::UseTracker(icuTracker* tracker) {
  ThrowWhenDue(Operation::UseTracker);
  Record(Operation::UseTracker, this, text_, {.tracker = tracker});
  tracker_ = tracker;
}

void SpyCell::Dump(int indent) const {
  ThrowWhenDue(Operation::Dump);
  Record(Operation::Dump, this, text_, {.number = indent});
  OmCellText::Dump(indent);
}

void SpyCell::Accept(OmCellText::Visitor& /*visitor*/) {
  ThrowWhenDue(Operation::Accept);
  Record(Operation::Accept, this, text_);
}

long SpyCell::Live() {
  return live;
}

SpyLog::SpyLog() {
  listener = this;
}

SpyLog::~SpyLog() {
  listener = nullptr;
}

std::vector<SpyLog::Call> SpyLog::Of(SpyCell::Operation operation) const {
  std::vector<Call> found;
  std::copy_if(calls.begin(), calls.end(), std::back_inserter(found),
               [&](Call const& call) { return call.operation == operation; });
  return found;
}

std::vector<std::string> SpyLog::Lines() const {
  std::vector<std::string> lines;
  for (Call const& call : calls) {
    lines.push_back(std::string(NameOf(call.operation)) + " " + call.text);
  }
  return lines;
}

SpyFailure::SpyFailure(SpyCell::Operation operation, std::size_t n, FailAfter::Mode mode) {
  failing = operation;
  failingMode = mode;
  failingCall = n;
  called = 0;
}

SpyFailure::~SpyFailure() {
  failingCall = 0;
}

bool SpyFailure::HasThrown() const {
  return called >= failingCall;
}
