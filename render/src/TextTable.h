#ifndef LAKRESVOS_RENDER_TEXTTABLE_H
#define LAKRESVOS_RENDER_TEXTTABLE_H

#include <ostream>

#include <lakresvos/render/DisplayGrid.h>
#include <lakresvos/render/TextRenderer.h>

#include "FootnoteMarks.h"

namespace lakresvos::render {

/// Draws a grid in a frame, row by row; nothing for a grid without rows or without columns.
void WriteTextTable(std::ostream& out, DisplayGrid const& grid, FootnoteMarks const& marks,
                    TextOptions const& options);

}  // namespace lakresvos::render

#endif
