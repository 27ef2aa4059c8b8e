#ifndef LAKRESVOS_RENDER_JSON_WRITE_LAYOUT_H
#define LAKRESVOS_RENDER_JSON_WRITE_LAYOUT_H

#include <lakresvos/OmPivotTable.h>
#include <lakresvos/render/TableOptions.h>

#include "json/write/Stream.h"

namespace lakresvos::render {

/// Writes an array of what the layers of a table show, each laid out as a DisplayGrid.
void WriteLayout(JsonStream& json, OmPivotTable& table, TableOptions const& options);

}  // namespace lakresvos::render

#endif
