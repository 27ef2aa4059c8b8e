#ifndef LAKRESVOS_RENDER_JSON_READ_DIMENSIONREADER_H
#define LAKRESVOS_RENDER_JSON_READ_DIMENSIONREADER_H

#include <lakresvos/OmPivotTable.h>

#include "json/read/Value.h"

namespace lakresvos::render {

/// Adds the dimension that `value` describes.
/// @throws JsonError; the dimension may then be there in part.
void ReadDimension(JsonValue const& value, OmPivotTable& table);

}  // namespace lakresvos::render

#endif
