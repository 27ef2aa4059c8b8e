#ifndef LAKRESVOS_CORE_DIMENSION_OMMAKEROOM_H
#define LAKRESVOS_CORE_DIMENSION_OMMAKEROOM_H

#include <algorithm>
#include <cstddef>
#include <vector>

/// Lets `count` more elements be appended without a failure in between, growing geometrically.
template <class Element>
void MakeRoom(std::vector<Element>& vector, std::size_t count) {
  if (vector.capacity() - vector.size() < count) {
    vector.reserve(vector.size() + std::max(vector.size(), count));
  }
}

#endif
