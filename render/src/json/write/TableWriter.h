#ifndef LAKRESVOS_RENDER_JSON_WRITE_TABLEWRITER_H
#define LAKRESVOS_RENDER_JSON_WRITE_TABLEWRITER_H

#include <lakresvos/OmPivotTable.h>

#include "json/write/Stream.h"

namespace lakresvos::render {

/// Writes the fields of a table into the object that the stream is in, all but those of any item.
void WriteTableFields(JsonStream& json, OmPivotTable const& table);

}  // namespace lakresvos::render

#endif
