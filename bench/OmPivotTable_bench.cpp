#include <benchmark/benchmark.h>
#include <cstdint>
#include <memory>
#include <random>
#include <unordered_map>
#include <vector>

#include <cells/OmNumber.h>
#include <cells/OmStringCell.h>
#include <lakresvos/OmPivotTable.h>

// A table of kSide x kSide numbers, beside what one would write without the library.

namespace {

constexpr int kSide = 1000;
constexpr long kCells = static_cast<long>(kSide) * kSide;

std::unique_ptr<OmPivotTable> EmptyTable() {
  OmStringCell const label("Table");
  auto table = std::make_unique<OmPivotTable>(label, label, false);
  table->AddDimension(label);
  table->AddDimension(label);
  return table;
}

std::unique_ptr<OmPivotTable> FullTable() {
  auto table = EmptyTable();
  std::vector<int> index(2);
  for (index[1] = 0; index[1] < kSide; ++index[1]) {
    for (index[0] = 0; index[0] < kSide; ++index[0]) {
      table->Cell(index, OmNumber(index[0]));
    }
  }
  return table;
}

std::vector<std::vector<int>> RandomIndexes() {
  std::mt19937 random(1);
  std::vector<std::vector<int>> indexes;
  for (int i = 0; i < 100000; ++i) {
    indexes.push_back({static_cast<int>(random() % kSide), static_cast<int>(random() % kSide)});
  }
  return indexes;
}

std::uint64_t Key(std::vector<int> const& index) {
  return static_cast<std::uint64_t>(index[1]) * kSide + static_cast<std::uint64_t>(index[0]);
}

/// Cells in a bump-allocated block, and a dense array of pointers to them.
struct DenseArray {
  DenseArray() : region(false), cells(kCells) {
    for (long i = 0; i < kCells; ++i) {
      cells[static_cast<std::size_t>(i)] = OmNumber(static_cast<double>(i % kSide)).Clone(&region);
    }
    region.WorkingRelease(false);
  }
  ~DenseArray() {
    for (OmCellText* cell : cells) {
      delete cell;
    }
  }
  OmMemoryRegion region;
  std::vector<OmCellText*> cells;
};

void Fill(benchmark::State& state) {
  for (auto _ : state) {
    auto table = FullTable();
    state.PauseTiming();
    table.reset();
    state.ResumeTiming();
  }
  state.SetItemsProcessed(state.iterations() * kCells);
}

void FillDenseArray(benchmark::State& state) {
  for (auto _ : state) {
    auto array = std::make_unique<DenseArray>();
    state.PauseTiming();
    array.reset();
    state.ResumeTiming();
  }
  state.SetItemsProcessed(state.iterations() * kCells);
}

void FillHashMap(benchmark::State& state) {
  for (auto _ : state) {
    auto region = std::make_unique<OmMemoryRegion>(false);
    auto map = std::make_unique<std::unordered_map<std::uint64_t, OmCellText*>>();
    std::vector<int> index(2);
    for (index[1] = 0; index[1] < kSide; ++index[1]) {
      for (index[0] = 0; index[0] < kSide; ++index[0]) {
        (*map)[Key(index)] = OmNumber(index[0]).Clone(region.get());
      }
    }
    state.PauseTiming();
    map.reset();
    region.reset();
    state.ResumeTiming();
  }
  state.SetItemsProcessed(state.iterations() * kCells);
}

void RandomRead(benchmark::State& state) {
  auto const table = FullTable();
  auto const indexes = RandomIndexes();
  for (auto _ : state) {
    for (auto const& index : indexes) {
      benchmark::DoNotOptimize(table->Cell(index));
    }
  }
  state.SetItemsProcessed(state.iterations() * static_cast<long>(indexes.size()));
}

void RandomReadDenseArray(benchmark::State& state) {
  DenseArray const array;
  auto const indexes = RandomIndexes();
  for (auto _ : state) {
    for (auto const& index : indexes) {
      benchmark::DoNotOptimize(array.cells[Key(index)]);
    }
  }
  state.SetItemsProcessed(state.iterations() * static_cast<long>(indexes.size()));
}

void Iterate(benchmark::State& state) {
  auto const table = FullTable();
  for (auto _ : state) {
    double sum = 0;
    for (auto at = table->FirstCell(); at.Cell() != nullptr; ++at) {
      sum += static_cast<OmNumber const*>(at.Cell())->Value();
    }
    benchmark::DoNotOptimize(sum);
  }
  state.SetItemsProcessed(state.iterations() * kCells);
}

void IterateDenseArray(benchmark::State& state) {
  DenseArray const array;
  for (auto _ : state) {
    double sum = 0;
    for (OmCellText const* cell : array.cells) {
      sum += static_cast<OmNumber const*>(cell)->Value();
    }
    benchmark::DoNotOptimize(sum);
  }
  state.SetItemsProcessed(state.iterations() * kCells);
}

void Destroy(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    auto table = FullTable();
    state.ResumeTiming();
    table.reset();
  }
  state.SetItemsProcessed(state.iterations() * kCells);
}

void DestroyDenseArray(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    auto array = std::make_unique<DenseArray>();
    state.ResumeTiming();
    array.reset();
  }
  state.SetItemsProcessed(state.iterations() * kCells);
}

}  // namespace

BENCHMARK(Fill)->Unit(benchmark::kMillisecond);
BENCHMARK(FillDenseArray)->Unit(benchmark::kMillisecond);
BENCHMARK(FillHashMap)->Unit(benchmark::kMillisecond);
BENCHMARK(RandomRead)->Unit(benchmark::kMicrosecond);
BENCHMARK(RandomReadDenseArray)->Unit(benchmark::kMicrosecond);
BENCHMARK(Iterate)->Unit(benchmark::kMillisecond);
BENCHMARK(IterateDenseArray)->Unit(benchmark::kMillisecond);
BENCHMARK(Destroy)->Unit(benchmark::kMillisecond);
BENCHMARK(DestroyDenseArray)->Unit(benchmark::kMillisecond);
