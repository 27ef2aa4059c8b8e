#include "CellOrder.h"

#include <cmath>
#include <utility>

#include "CaseFolding.h"

namespace cell_order {

namespace {

thread_local int comparisons = 0;

short Sign(int order) {
  return static_cast<short>((order > 0) - (order < 0));
}

bool IsString(long kind) {
  return kind == OmCellText::StringCellKind || kind == OmCellText::StringCellUTF8Kind;
}

std::pair<bool, long> GetRank(OmCellText const& cell) {
  long const kind = cell.GetKind();
  return IsString(kind) ? std::pair(false, 0L) : std::pair(true, kind);
}

}  // namespace

short CompareRanks(OmCellText const& a, OmCellText const& b) {
  auto const rankA = GetRank(a);
  auto const rankB = GetRank(b);
  return Sign(static_cast<int>(rankA > rankB) - static_cast<int>(rankA < rankB));
}

short CompareTexts(std::string_view a, std::string_view b, bool ignoreCase) {
  return Sign(ignoreCase ? FoldCase(a).compare(FoldCase(b)) : a.compare(b));
}

short CompareValues(double a, double b) {
  if (std::isnan(a) || std::isnan(b)) {
    return Sign(static_cast<int>(std::isnan(b)) - static_cast<int>(std::isnan(a)));
  }
  return Sign(static_cast<int>(a > b) - static_cast<int>(a < b));
}

ScopedDefaultDisplay::ScopedDefaultDisplay() {
  ++comparisons;
}

ScopedDefaultDisplay::~ScopedDefaultDisplay() {
  --comparisons;
}

bool ScopedDefaultDisplay::Active() {
  return comparisons != 0;
}

}  // namespace cell_order
