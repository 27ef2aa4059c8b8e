#ifndef LAKRESVOS_RENDER_JSON_READ_DIMENSIONREADER_H
#define LAKRESVOS_RENDER_JSON_READ_DIMENSIONREADER_H

#include <cstddef>

#include <lakresvos/OmPivotTable.h>

#include "json/read/Value.h"

namespace lakresvos::render {

/// What a subscript costs that is past the nodes of its dimension: in tables by subscript there is
/// an entry for each that is left out. Subscripts below the number of nodes cost no more than the
/// text of the nodes.
constexpr double kSkippedSubscript = 8;

/// Adds the dimension that `value` describes.
/// @return the number of its nodes.
/// @throws JsonError; the dimension may then be there in part.
std::size_t ReadDimension(JsonValue const& value, OmPivotTable& table);

}  // namespace lakresvos::render

#endif
