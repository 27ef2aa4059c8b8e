#ifndef LAKRESVOS_RENDER_GRID_TABLECOST_H
#define LAKRESVOS_RENDER_GRID_TABLECOST_H

#include <cstddef>

#include <lakresvos/OmPivotTable.h>

namespace lakresvos::render {

/// About how many bytes it takes to show a table without its empty rows, columns and layers, beyond
/// what its cells hold: an upper bound that is found without laying the table out.
///
/// Counted are the levels of all headings, the labels of the groups that each category repeats, and
/// the body, the latter only where cells are shown more than once: because categories share a
/// subscript, or because an axis names a dimension that is placed already.
///
/// @param cells how many cells the table has.
double EstimateShownCost(OmPivotTable const& table, std::size_t cells);

}  // namespace lakresvos::render

#endif
