#ifndef LAKRESVOS_RENDER_HTMLTABLE_H
#define LAKRESVOS_RENDER_HTMLTABLE_H

#include <string>

#include <lakresvos/render/DisplayGrid.h>

#include "HtmlNotes.h"
#include "OutputBuffer.h"

namespace lakresvos::render {

/// Writes a grid as a table element.
///
/// @param prefix  starts the ids of its header cells.
/// @param caption the content of the caption element.
/// @param foot    what follows the notes in the foot.
void WriteHtmlTable(OutputBuffer& out, DisplayGrid const& grid, HtmlNotes& notes,
                    std::string const& prefix, std::string const& caption, std::string const& foot);

}  // namespace lakresvos::render

#endif
