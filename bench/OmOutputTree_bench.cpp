#include <list>
#include <memory>
#include <string>

#include <cells/OmStringCell.h>
#include <lakresvos/OmHeading.h>
#include <lakresvos/OmOutputTree.h>
#include <lakresvos/OmTextBlock.h>

#include "support/Workload.h"

// Items appended below one procedure at the document's end, and beside it the same items in a list, which
// knows no levels.

namespace {

template <class Document, class Append>
void Measure(benchmark::State& state, long count, std::unique_ptr<Document> document,
             Append const& append) {
  auto const items = static_cast<std::size_t>(count);
  OmStringCell const label("Item");
  double const adding = NanosecondsEach(items, [&] {
    for (long i = 0; i < count; ++i) {
      append(new OmTextBlock(label, ""));
    }
  });
  double const destroy = NanosecondsEach(items, [&] { document.reset(); });
  state.counters["append ns"] = adding;
  state.counters["both ns"] = adding + destroy;
}

void MeasureTree(benchmark::State& state, long count) {
  auto document = std::make_unique<OmOutputTree>();
  auto const procedure =
      document->begin().AppendChild(new OmProcedure(OmStringCell("Procedure"), "", "", ""));
  Measure(state, count, std::move(document),
          [&](OmOutputPart* part) { procedure.AppendChild(part); });
}

void MeasureList(benchmark::State& state, long count) {
  using List = std::list<std::unique_ptr<OmOutputPart>>;
  auto document = std::make_unique<List>();
  List& list = *document;
  Measure(state, count, std::move(document), [&](OmOutputPart* part) { list.emplace_back(part); });
}

}  // namespace

void RegisterWorkload(bool quick) {
  for (long const count : {1'000L, 10'000L, 100'000L, 1'000'000L}) {
    if (!quick || count <= 10'000) {
      std::string const prefix = std::to_string(count) + " items/";
      Register(prefix + "lakresvos",
               [count](benchmark::State& state) { MeasureTree(state, count); });
      Register(prefix + "std::list",
               [count](benchmark::State& state) { MeasureList(state, count); });
    }
  }
}
