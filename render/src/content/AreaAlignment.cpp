#include "content/AreaAlignment.h"

namespace lakresvos::render {

HorizontalAlignment FindAlignment(OmPivotTable const& table, FormatArea::Area area) {
  FormatArea const* const format = table.getAreaFormat(area);
  int const stored = format != nullptr ? format->getHorizontalAlignment() : -1;
  bool const known = stored >= static_cast<int>(HorizontalAlignment::Left) &&
                     stored <= static_cast<int>(HorizontalAlignment::Right);
  return known ? static_cast<HorizontalAlignment>(stored) : HorizontalAlignment::Any;
}

int CountSpacesBefore(HorizontalAlignment alignment, int spaces) {
  switch (alignment) {
    case HorizontalAlignment::Center:
      return spaces / 2;
    case HorizontalAlignment::Right:
      return spaces;
    case HorizontalAlignment::Any:
    case HorizontalAlignment::Left:
      break;
  }
  return 0;
}

}  // namespace lakresvos::render
