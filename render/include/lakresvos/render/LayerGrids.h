#ifndef LAKRESVOS_RENDER_LAYERGRIDS_H
#define LAKRESVOS_RENDER_LAYERGRIDS_H

#include <memory>

#include <lakresvos/OmPivotTable.h>
#include <lakresvos/render/DisplayGrid.h>
#include <lakresvos/render/TableOptions.h>

namespace lakresvos::render {

/// Lays out a table layer by layer:
///
///     LayerGrids layers(table, options);
///     while (DisplayGrid const* grid = layers.Next()) {
///       ...
///     }
///
/// A table without layer dimensions has one layer; a table without cells has none when empty layers
/// are left out. Without TableOptions::allLayers, the first layer is the only one.
///
/// Thread safety: none; one thread at a time uses a table and what lays it out.
class LAKRESVOS_RENDER_EXPORT LayerGrids {
 public:
  /// Starts before the first layer. With TableOptions::skipEmpty it takes the time in which the
  /// table's layers with cells are found, see OmDisplayLayerHeading.
  /// @param table   stays the caller's; it must outlive the object and not change while that lives.
  /// @param options which layers, rows and columns are laid out; copied.
  explicit LayerGrids(OmPivotTable& table, TableOptions const& options = {});

  /// Lays out the next layer, first the first one; see DisplayGrid for the time it takes.
  /// @return the grid, which belongs to this object and is valid until the next call; null when no
  ///         layer is left.
  /// @throws std::length_error as DisplayGrid.
  DisplayGrid const* Next();

 private:
  TableOptions options_;
  bool ended_ = false;
  OmDisplayLayerHeading layers_;
  std::unique_ptr<DisplayGrid> grid_;
};

}  // namespace lakresvos::render

#endif
