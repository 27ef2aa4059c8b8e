#ifndef LAKRESVOS_RENDER_GRID_LAYERLINE_H
#define LAKRESVOS_RENDER_GRID_LAYERLINE_H

#include <functional>
#include <string>
#include <vector>

#include <lakresvos/render/DisplayGrid.h>

namespace lakresvos::render {

/// What names a layer: "Dimension: group / category, dimension: category"; empty when the layer
/// shows no text.
///
/// @param shown how a label is shown; nothing for a null one.
std::string LayerLine(std::vector<LayerLabel> const& labels,
                      std::function<std::string(OmCellText const*)> const& shown);

}  // namespace lakresvos::render

#endif
