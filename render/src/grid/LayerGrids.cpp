#include <lakresvos/render/LayerGrids.h>

namespace lakresvos::render {

LayerGrids::LayerGrids(OmPivotTable& table, GridOptions const& options)
    : options_(options), layers_(table, options.skipEmpty) {}

DisplayGrid const* LayerGrids::Next() {
  grid_.reset();
  if (layers_.NextLayer()) {
    grid_ = std::make_unique<DisplayGrid>(layers_, options_);
  }
  return grid_.get();
}

}  // namespace lakresvos::render
