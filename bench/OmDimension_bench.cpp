#include <benchmark/benchmark.h>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include <cells/OmStringCell.h>
#include <lakresvos/OmDimension.h>

namespace {

/// Labels in ascending order.
std::vector<std::string> Labels(long count) {
  std::vector<std::string> labels;
  for (long i = 0; i < count; ++i) {
    char text[32];
    std::snprintf(text, sizeof text, "Category %08ld", i);
    labels.emplace_back(text);
  }
  return labels;
}

template <class Add>
void AddCategories(benchmark::State& state, Add add) {
  auto const labels = Labels(state.range(0));
  OmDimensionNode const root(OmStringCell("Dimension"), 0, true, nullptr);
  for (auto _ : state) {
    OmMemoryRegion region(false);
    OmDimension dimension(root, &region);
    auto const parent = dimension.Root();
    unsigned long subscript = 0;
    for (std::string const& label : labels) {
      add(dimension, parent, OmStringCell(label), subscript++);
    }
    region.WorkingRelease(false);
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void AddInLabelOrder(benchmark::State& state) {
  AddCategories(
      state, [](OmDimension& dimension, OmDimension::Node const& parent, OmStringCell const& label,
                unsigned long subscript) { dimension.Child(parent, label, subscript, false); });
}

void AddUnchecked(benchmark::State& state) {
  AddCategories(state, [](OmDimension& dimension, OmDimension::Node const& parent,
                          OmStringCell const& label, unsigned long subscript) {
    dimension.AddNewChild(parent, label, subscript, false);
  });
}

/// The same labels in a map from text to subscript.
void AddToMap(benchmark::State& state) {
  auto const labels = Labels(state.range(0));
  for (auto _ : state) {
    std::map<std::string, unsigned long> categories;
    unsigned long subscript = 0;
    for (std::string const& label : labels) {
      categories.emplace(label, subscript++);
    }
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

}  // namespace

BENCHMARK(AddInLabelOrder)->Arg(1000)->Arg(10000)->Arg(100000)->Arg(1000000);
BENCHMARK(AddUnchecked)->Arg(1000)->Arg(10000)->Arg(100000)->Arg(1000000);
BENCHMARK(AddToMap)->Arg(1000)->Arg(10000)->Arg(100000)->Arg(1000000);
