#ifndef LAKRESVOS_RENDER_XLSXTABLE_H
#define LAKRESVOS_RENDER_XLSXTABLE_H

#include <lakresvos/render/DisplayGrid.h>
#include <lakresvos/render/XlsxRenderer.h>

#include "FootnoteMarks.h"
#include "XlsxSheet.h"

namespace lakresvos::render {

/// Writes a grid into a sheet.
/// @param top the sheet's row of the grid's first one.
/// @return the row behind the last.
int WriteXlsxGrid(XlsxSheet& sheet, DisplayGrid const& grid, FootnoteMarks const& marks,
                  XlsxOptions const& options, int top);

/// Freezes panes, repeats headings in print and outlines columns as the grid at row `top` needs it.
void SetUpXlsxSheet(XlsxSheet& sheet, DisplayGrid const& grid, int top);

}  // namespace lakresvos::render

#endif
