#ifndef LAKRESVOS_RENDER_GRID_TABLECOST_H
#define LAKRESVOS_RENDER_GRID_TABLECOST_H

#include <cstddef>

#include <lakresvos/OmPivotTable.h>

namespace lakresvos::render {

/// About how many bytes it takes to show a table without its empty rows, columns and layers, in the
/// format that takes most, beyond what its cells hold: found without laying the table out.
///
/// Counted are the cells of the headings, as often as the dimensions further out repeat them, their
/// labels where a format holds them for all columns at once, and the labels of the groups that each
/// category repeats. The body counts only where cells are shown more than once: because categories
/// share a subscript, or because an axis names a dimension that is placed already. So do all layers
/// but one.
///
/// @param cells how many cells the table has.
double EstimateShownCost(OmPivotTable const& table, std::size_t cells);

}  // namespace lakresvos::render

#endif
