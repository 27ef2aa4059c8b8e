#ifndef LAKRESVOS_CORE_LAYOUT_OMSATURATE_H
#define LAKRESVOS_CORE_LAYOUT_OMSATURATE_H

#include <algorithm>
#include <limits>

/// A count as an int, INT_MAX where it does not fit.
inline int SaturateToInt(unsigned long long count) {
  constexpr unsigned long long kMax = std::numeric_limits<int>::max();
  return static_cast<int>(std::min(count, kMax));
}

#endif
