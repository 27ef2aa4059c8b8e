#include <lakresvos/render/LayerGrids.h>

namespace lakresvos::render {

LayerGrids::LayerGrids(OmPivotTable& table, TableOptions const& options)
    : options_(options), layers_(table, options.skipEmpty) {}

DisplayGrid const* LayerGrids::Next() {
  grid_.reset();
  ended_ = ended_ || !layers_.NextLayer();
  if (!ended_) {
    grid_ = std::make_unique<DisplayGrid>(layers_, options_.skipEmpty);
    ended_ = !options_.allLayers;
  }
  return grid_.get();
}

}  // namespace lakresvos::render
