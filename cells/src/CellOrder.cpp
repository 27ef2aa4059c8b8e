#include "CellOrder.h"

#include <cmath>
#include <utility>

#include "CaseFolding.h"

namespace cell_order {

namespace {

thread_local int comparisons = 0;

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

short CompareFolded(std::string_view a, std::string_view b) {
  FoldedBytes left(a);
  FoldedBytes right(b);
  for (;;) {
    int const byte = left.Next();
    int const other = right.Next();
    if (byte != other || byte == FoldedBytes::kEnd) {
      return Sign(byte - other);
    }
  }
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
