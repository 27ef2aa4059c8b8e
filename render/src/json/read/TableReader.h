#ifndef LAKRESVOS_RENDER_JSON_READ_TABLEREADER_H
#define LAKRESVOS_RENDER_JSON_READ_TABLEREADER_H

#include <memory>

#include <cells/OmCellText.h>
#include <lakresvos/OmPivotTable.h>

#include "json/read/Value.h"

namespace lakresvos::render {

/// Makes a table from the fields that WriteTableFields() writes.
/// @throws JsonError.
std::unique_ptr<OmPivotTable> ReadTable(JsonObject& object, OmCellText const& label);

}  // namespace lakresvos::render

#endif
