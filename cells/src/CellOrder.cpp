#include "CellOrder.h"

#include <cmath>

#include "CaseFolding.h"

namespace cell_order {

namespace {

short Sign(int order) {
  return static_cast<short>((order > 0) - (order < 0));
}

}  // namespace

short CompareTexts(std::string_view a, std::string_view b, bool ignoreCase) {
  return Sign(ignoreCase ? FoldCase(a).compare(FoldCase(b)) : a.compare(b));
}

short CompareValues(double a, double b) {
  if (std::isnan(a) || std::isnan(b)) {
    return Sign(static_cast<int>(std::isnan(b)) - static_cast<int>(std::isnan(a)));
  }
  return Sign(static_cast<int>(a > b) - static_cast<int>(a < b));
}

}  // namespace cell_order
