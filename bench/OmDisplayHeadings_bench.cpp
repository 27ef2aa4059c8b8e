#include <benchmark/benchmark.h>
#include <memory>
#include <string>
#include <vector>

#include <cells/OmNumber.h>
#include <cells/OmStringCell.h>
#include <lakresvos/OmDisplayColumnHeading.h>
#include <lakresvos/OmDisplayLayerHeading.h>
#include <lakresvos/OmDisplayRowHeading.h>
#include <lakresvos/OmPivotTable.h>

// A table of kSide x kSide numbers of which every `stride`-th is stored.

namespace {

constexpr int kSide = 1000;

std::unique_ptr<OmPivotTable> Table(long stride) {
  OmStringCell const label("Table");
  auto table = std::make_unique<OmPivotTable>(label, label, false);
  for (int d = 0; d < 2; ++d) {
    OmDimension& dimension = table->AddDimension(label);
    for (int i = 0; i < kSide; ++i) {
      dimension.AddNewChild(dimension.Root(), OmStringCell(std::to_string(i)),
                            static_cast<unsigned long>(i), false);
    }
  }
  table->Rows().push_back(0);
  table->Columns().push_back(1);
  long count = 0;
  std::vector<int> index(2);
  for (index[1] = 0; index[1] < kSide; ++index[1]) {
    for (index[0] = 0; index[0] < kSide; ++index[0]) {
      if (count++ % stride == 0) {
        table->Cell(index, OmNumber(index[0]));
      }
    }
  }
  return table;
}

void FindNonEmpty(benchmark::State& state) {
  auto const table = Table(state.range(0));
  for (auto _ : state) {
    OmDisplayLayerHeading layers(*table, true);
    layers.NextLayer();
    OmDisplayRowHeading const rows(layers, true, true);
    OmDisplayColumnHeading const columns(layers, true);
    benchmark::DoNotOptimize(rows.NRows() + columns.NColumns());
  }
}

/// One plain walk over the stored cells, noting rows and columns.
void WalkCells(benchmark::State& state) {
  auto const table = Table(state.range(0));
  for (auto _ : state) {
    std::vector<bool> rows(kSide);
    std::vector<bool> columns(kSide);
    for (auto at = table->FirstCell(); at.Cell() != nullptr; ++at) {
      auto const index = at.Index();
      rows[static_cast<std::size_t>(index[0])] = true;
      columns[static_cast<std::size_t>(index[1])] = true;
    }
    benchmark::DoNotOptimize(rows);
    benchmark::DoNotOptimize(columns);
  }
}

void ReadHeadingInBulk(benchmark::State& state) {
  auto const table = Table(1);
  OmDisplayLayerHeading layers(*table, false);
  layers.NextLayer();
  OmDisplayRowHeading const rows(layers, false, false);
  for (auto _ : state) {
    for (int k = 0; k < rows.NColumns(); ++k) {
      benchmark::DoNotOptimize(rows.Column(k));
    }
  }
  state.SetItemsProcessed(state.iterations() * rows.NRows() * rows.NColumns());
}

void ReadHeadingByRow(benchmark::State& state) {
  auto const table = Table(1);
  OmDisplayLayerHeading layers(*table, false);
  layers.NextLayer();
  OmDisplayRowHeading const rows(layers, false, false);
  for (auto _ : state) {
    for (int r = 0; r < rows.NRows(); ++r) {
      benchmark::DoNotOptimize(rows.Row(r));
    }
  }
  state.SetItemsProcessed(state.iterations() * rows.NRows() * rows.NColumns());
}

}  // namespace

BENCHMARK(FindNonEmpty)->Arg(1)->Arg(10)->Arg(1000)->Unit(benchmark::kMicrosecond);
BENCHMARK(WalkCells)->Arg(1)->Arg(10)->Arg(1000)->Unit(benchmark::kMicrosecond);
BENCHMARK(ReadHeadingInBulk)->Unit(benchmark::kMicrosecond);
BENCHMARK(ReadHeadingByRow)->Unit(benchmark::kMicrosecond);
