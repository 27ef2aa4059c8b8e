#ifndef LAKRESVOS_RENDER_JSONITEMREADER_H
#define LAKRESVOS_RENDER_JSONITEMREADER_H

#include <memory>

#include <lakresvos/OmOutputPart.h>

#include "JsonValue.h"
#include "PlaceBudget.h"

namespace lakresvos::render {

/// Makes an item from the fields that an ItemWriter writes, all but its depth.
/// @throws JsonError.
std::unique_ptr<OmOutputPart> ReadItem(JsonObject& object, PlaceBudget& budget);

}  // namespace lakresvos::render

#endif
