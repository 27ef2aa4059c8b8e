#ifndef LAKRESVOS_RENDER_XLSX_GRID_H
#define LAKRESVOS_RENDER_XLSX_GRID_H

#include <lakresvos/render/DisplayGrid.h>
#include <lakresvos/render/XlsxRenderer.h>

#include "xlsx/Notes.h"
#include "xlsx/Sheet.h"

namespace lakresvos::render {

/// Writes a grid into a sheet, with a rule above each outermost group of rows and above each total,
/// whose cells are bold. Rows below the first one of a group are outlined.
/// @param top the sheet's row of the grid's first one.
/// @return the row after the last.
int WriteXlsxGrid(XlsxSheet& sheet, DisplayGrid const& grid, XlsxNotes& notes,
                  XlsxOptions const& options, int top);

/// Freezes panes, repeats headings in print and outlines columns as the grid at row `top` needs it:
/// columns after the first one of a group are outlined.
void SetUpXlsxGrid(XlsxSheet& sheet, DisplayGrid const& grid, int top);

}  // namespace lakresvos::render

#endif
