#include <benchmark/benchmark.h>
#include <list>
#include <memory>

#include <cells/OmStringCell.h>
#include <lakresvos/OmHeading.h>
#include <lakresvos/OmOutputTree.h>
#include <lakresvos/OmTextBlock.h>

namespace {

/// Items below one procedure at the document's end.
void AppendItems(benchmark::State& state) {
  OmStringCell const label("Item");
  for (auto _ : state) {
    OmOutputTree document;
    auto const procedure = document.begin().AppendChild(new OmProcedure(label, "", "", ""));
    for (long i = 0; i < state.range(0); ++i) {
      procedure.AppendChild(new OmTextBlock(label, ""));
    }
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

/// The same items in a plain list, which knows no levels.
void AppendItemsToList(benchmark::State& state) {
  OmStringCell const label("Item");
  for (auto _ : state) {
    std::list<std::unique_ptr<OmOutputPart>> document;
    document.push_back(std::make_unique<OmProcedure>(label, "", "", ""));
    for (long i = 0; i < state.range(0); ++i) {
      document.push_back(std::make_unique<OmTextBlock>(label, ""));
    }
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

}  // namespace

BENCHMARK(AppendItems)->Arg(1000)->Arg(10000)->Arg(100000)->Arg(1000000);
BENCHMARK(AppendItemsToList)->Arg(1000)->Arg(10000)->Arg(100000)->Arg(1000000);
