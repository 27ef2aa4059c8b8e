#ifndef LAKRESVOS_RENDER_GRID_HEADINGSPANS_H
#define LAKRESVOS_RENDER_GRID_HEADINGSPANS_H

#include <deque>
#include <functional>
#include <vector>

#include <lakresvos/OmDisplayRowHeading.h>

namespace lakresvos::render {

using PathNode = OmDisplayRowHeading::PathNode;

/// One merged cell of a heading, whichever way the heading runs.
struct HeadingSpan {
  PathNode const* node;  ///< null in an empty cell
  int level;             ///< the outermost level that it takes
  int levels;            ///< how many it takes
  int first;             ///< the first display row (or column)
  int count;             ///< how many display rows (or columns)
};

/// Merges the nodes of a heading into cells, see DisplayGrid.
///
/// @param places          the number of display rows (or columns).
/// @param startsDimension one entry per level: whether it is the outermost one of its dimension.
/// @param levelNodes      called once per level, outermost first, for the level's nodes at all
/// places.
/// @return the cells by level and then by place. Linear in levels times places.
std::vector<HeadingSpan> MergeHeading(int places, std::vector<bool> const& startsDimension,
                                      std::function<std::deque<PathNode*>(int)> const& levelNodes);

}  // namespace lakresvos::render

#endif
