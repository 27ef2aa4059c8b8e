#ifndef LAKRESVOS_RENDER_PLACEBUDGET_H
#define LAKRESVOS_RENDER_PLACEBUDGET_H

#include <cstdint>

#include "JsonValue.h"

namespace lakresvos::render {

/// How many places the tables of a document may still ask for: what a large subscript costs has
/// nothing to do with the length of the text that it stands in.
class PlaceBudget {
 public:
  /// @param value who asks.
  /// @throws JsonError when there are not as many left.
  void Take(std::uint64_t places, JsonValue const& value) {
    if (places > left_) {
      value.Fail("the document would take too much memory");
    }
    left_ -= places;
  }

 private:
  std::uint64_t left_ = std::uint64_t{1} << 27U;
};

}  // namespace lakresvos::render

#endif
