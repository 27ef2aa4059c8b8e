#ifndef LAKRESVOS_RENDER_JSONDIMENSIONREADER_H
#define LAKRESVOS_RENDER_JSONDIMENSIONREADER_H

#include <lakresvos/OmPivotTable.h>

#include "JsonValue.h"
#include "PlaceBudget.h"

namespace lakresvos::render {

/// Adds the dimension that `value` describes.
/// @throws JsonError; the dimension may then be there in part.
void ReadDimension(JsonValue const& value, OmPivotTable& table, PlaceBudget& budget);

}  // namespace lakresvos::render

#endif
