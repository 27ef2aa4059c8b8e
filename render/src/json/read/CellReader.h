#ifndef LAKRESVOS_RENDER_JSON_READ_CELLREADER_H
#define LAKRESVOS_RENDER_JSON_READ_CELLREADER_H

#include <memory>
#include <string_view>

#include <cells/OmCellText.h>

#include "json/read/Value.h"

namespace lakresvos::render {

/// Makes a cell from the fields that WriteCellFields() writes.
/// @throws JsonError.
std::unique_ptr<OmCellText> ReadCellFields(JsonObject& object);

/// The cell in a field; null when there is no such field.
/// @throws JsonError.
std::unique_ptr<OmCellText> ReadCell(JsonObject& object, std::string_view name);

/// The same for a field that must be there.
std::unique_ptr<OmCellText> NeedCell(JsonObject& object, std::string_view name);

}  // namespace lakresvos::render

#endif
