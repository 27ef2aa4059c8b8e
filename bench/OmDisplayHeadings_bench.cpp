#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include <cells/OmStringCell.h>
#include <lakresvos/OmDisplayColumnHeading.h>
#include <lakresvos/OmDisplayLayerHeading.h>
#include <lakresvos/OmDisplayRowHeading.h>

#include "structures/LakresvosTable.h"
#include "support/CellSet.h"
#include "support/Workload.h"

// Which rows, columns and layers have cells: as the headings find out, and beside it one plain walk over
// the stored cells that notes the subscripts on each axis. Further, the labels of a heading column by
// column and row by row.

namespace {

/// Dimension 0 on the rows, dimension 1 on the columns, all others on the layers.
std::shared_ptr<LakresvosTable> MakeTable(Shape const& shape) {
  auto result = std::make_shared<LakresvosTable>(shape);
  OmPivotTable& table = result->Table();
  for (int d = 0; d < table.NDimensions(); ++d) {
    OmDimension& dimension = table.Dimension(d);
    for (int i = 0; i < shape.sizes[static_cast<std::size_t>(d)]; ++i) {
      dimension.AddNewChild(dimension.Root(), OmStringCell(std::to_string(i)),
                            static_cast<unsigned long>(i), false);
    }
    auto& axis = d == 0 ? table.Rows() : d == 1 ? table.Columns() : table.Layers();
    axis.push_back(static_cast<short>(d));
  }
  CellSet const cells = CellSet::Of(shape);
  auto index = cells.Index();
  for (std::size_t i = 0; i < cells.Size(); ++i) {
    cells.Get(i, index);
    result->Write(index, index[0]);
  }
  return result;
}

void FindNonEmpty(OmPivotTable& table) {
  OmDisplayLayerHeading layers(table, true);
  layers.NextLayer();
  OmDisplayRowHeading const rows(layers, true, true);
  OmDisplayColumnHeading const columns(layers, true);
  benchmark::DoNotOptimize(rows.NRows() + columns.NColumns());
}

void WalkOnce(LakresvosTable const& table, Shape const& shape) {
  std::vector<std::vector<bool>> seen;
  for (int const size : shape.sizes) {
    seen.emplace_back(static_cast<std::size_t>(size));
  }
  std::vector<int> index;
  table.Walk(index, [&](double /*value*/) {
    for (std::size_t d = 0; d < seen.size(); ++d) {
      seen[d][static_cast<std::size_t>(index[d])] = true;
    }
  });
  benchmark::DoNotOptimize(seen);
}

/// Registers something that is done with a table, timed in microseconds.
void RegisterTimed(std::string const& name, std::function<void()> const& work) {
  Register(name, [work](benchmark::State& state) { state.counters["us"] = Seconds(work) * 1e6; });
}

void RegisterShape(Shape const& shape) {
  auto const table = MakeTable(shape);
  RegisterTimed(shape.name + "/headings", [table] { FindNonEmpty(table->Table()); });
  RegisterTimed(shape.name + "/one walk", [table, shape] { WalkOnce(*table, shape); });
}

void RegisterLabels(Shape const& shape) {
  auto const table = MakeTable(shape);
  auto const layers = std::make_shared<OmDisplayLayerHeading>(table->Table(), false);
  layers->NextLayer();
  auto const rows = std::make_shared<OmDisplayRowHeading>(*layers, false, false);
  // The headings look at the table as long as they live.
  RegisterTimed("labels/in bulk", [table, layers, rows] {
    for (int k = 0; k < rows->NColumns(); ++k) {
      benchmark::DoNotOptimize(rows->Column(k));
    }
  });
  RegisterTimed("labels/by row", [table, layers, rows] {
    for (int r = 0; r < rows->NRows(); ++r) {
      benchmark::DoNotOptimize(rows->Row(r));
    }
  });
}

}  // namespace

void RegisterWorkload(bool quick) {
  int const part = quick ? 10 : 1;
  RegisterShape({"1000x1000 full", {1000 / part, 1000}});
  RegisterShape({"100x100x100 full", {100 / part, 100, 100}});
  RegisterShape({"1000x1000 at 1 %", {1000 / part, 1000}, 100});
  RegisterShape({"200x200x50x20 at 1 %", {200 / part, 200, 50, 20}, 100});
  RegisterShape({"100000x100 at 1 %", {100000 / part, 100}, 100});
  RegisterLabels({"labels", {100000 / part, 100}, 100});
}
