#ifndef LAKRESVOS_RENDER_JSON_READ_ITEMREADER_H
#define LAKRESVOS_RENDER_JSON_READ_ITEMREADER_H

#include <memory>

#include <lakresvos/OmOutputPart.h>

#include "json/read/Value.h"

namespace lakresvos::render {

/// Makes an item from the fields that an ItemWriter writes, all but its depth.
/// @throws JsonError.
std::unique_ptr<OmOutputPart> ReadItem(JsonObject& object);

}  // namespace lakresvos::render

#endif
