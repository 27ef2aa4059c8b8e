#include <cstdio>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include <cells/OmStringCell.h>
#include <lakresvos/OmDimension.h>

#include "support/Workload.h"

// Categories added to a dimension in the order of their labels, with and without a look for the label
// among those there, and beside it a map from text to subscript.

namespace {

using Labels = std::vector<std::string>;

Labels MakeLabels(long count) {
  Labels labels;
  for (long i = 0; i < count; ++i) {
    char text[32];
    std::snprintf(text, sizeof text, "Category %08ld", i);
    labels.emplace_back(text);
  }
  return labels;
}

template <class Tree, class Add>
void Measure(benchmark::State& state, Labels const& labels, std::unique_ptr<Tree> tree,
             Add const& add) {
  unsigned long subscript = 0;
  double const adding = NanosecondsEach(labels.size(), [&] {
    for (std::string const& label : labels) {
      add(*tree, label, subscript++);
    }
  });
  double const destroy = NanosecondsEach(labels.size(), [&] { tree.reset(); });
  state.counters["add ns"] = adding;
  state.counters["both ns"] = adding + destroy;
}

/// A dimension in a region of its own, as in a table.
struct Dimension {
  ~Dimension() { region.WorkingRelease(false); }

  OmMemoryRegion region{false};
  OmDimension dimension{OmDimensionNode(OmStringCell("Dimension"), 0, true, nullptr), &region};
};

template <class Add>
void MeasureDimension(benchmark::State& state, Labels const& labels, Add const& add) {
  Measure(state, labels, std::make_unique<Dimension>(),
          [&](Dimension& tree, std::string const& label, unsigned long subscript) {
            add(tree.dimension, OmStringCell(label), subscript);
          });
}

void RegisterCount(long count) {
  auto const labels = std::make_shared<Labels const>(MakeLabels(count));
  std::string const prefix = std::to_string(count) + " categories/";
  Register(prefix + "Child", [labels](benchmark::State& state) {
    MeasureDimension(
        state, *labels,
        [](OmDimension& dimension, OmStringCell const& label, unsigned long subscript) {
          dimension.Child(dimension.Root(), label, subscript, false);
        });
  });
  Register(prefix + "AddNewChild", [labels](benchmark::State& state) {
    MeasureDimension(
        state, *labels,
        [](OmDimension& dimension, OmStringCell const& label, unsigned long subscript) {
          dimension.AddNewChild(dimension.Root(), label, subscript, false);
        });
  });
  Register(prefix + "std::map", [labels](benchmark::State& state) {
    using Map = std::map<std::string, unsigned long>;
    Measure(state, *labels, std::make_unique<Map>(),
            [](Map& map, std::string const& label, unsigned long subscript) {
              map.emplace(label, subscript);
            });
  });
}

}  // namespace

void RegisterWorkload(bool quick) {
  for (long const count : {1'000L, 10'000L, 100'000L, 1'000'000L}) {
    if (!quick || count <= 10'000) {
      RegisterCount(count);
    }
  }
}
