#ifndef LAKRESVOS_RENDER_JSON_WRITE_CELLWRITER_H
#define LAKRESVOS_RENDER_JSON_WRITE_CELLWRITER_H

#include <string_view>

#include <cells/OmCellText.h>

#include "json/write/Stream.h"

namespace lakresvos::render {

/// Writes the fields of a cell into the object that the stream is in.
void WriteCellFields(JsonStream& json, OmCellText& cell);

/// Writes a cell as an object under a name; nothing for a null one.
void WriteCell(JsonStream& json, std::string_view name, OmCellText const* cell);

}  // namespace lakresvos::render

#endif
