#include <utility>

#include <lakresvos/OmPivotTable.h>

#include "table/OmPivotTableData.h"

void OmPivotTable::setAreaFormat(FormatArea* format) {
  if (format == nullptr) {
    return;
  }
  FormatArea*& stored = _my->areaFormats[format->getArea()];
  // An assignment to the format may have given it another area since the table got it.
  for (auto& [area, held] : _my->areaFormats) {
    if (held == format) {
      held = nullptr;
    }
  }
  delete std::exchange(stored, format);
}

FormatArea* OmPivotTable::getAreaFormat(FormatArea::Area area) const {
  return area > FormatArea::AreaFrame ? nullptr : _my->areaFormats[area];
}
