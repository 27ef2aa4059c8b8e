#include <benchmark/benchmark.h>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <unistd.h>
#include <vector>

#include <cells/OmNumber.h>
#include <cells/OmStringCell.h>
#include <lakresvos/OmOutputTree.h>
#include <lakresvos/OmPivotTable.h>
#include <lakresvos/render/CsvRenderer.h>
#include <lakresvos/render/HtmlRenderer.h>

#include "ChildRun.h"

// A table of kSide x kSide numbers with two decimals written to a file, beside a pandas frame of the
// same numbers and labels, which shows them as it does by itself or with two decimals. Each run has
// a process of its own; its time is that of writing alone, and peak_MB the peak memory of the whole
// process, of which before_MB were needed before writing.

namespace {

using namespace lakresvos::render;

constexpr int kSide = 1000;

void AddDimension(OmPivotTable& table, std::string const& label) {
  OmDimension& dimension = table.AddDimension(OmStringCell(label));
  for (unsigned long i = 0; i < kSide; ++i) {
    dimension.AddNewChild(dimension.Root(), OmStringCell(label + std::to_string(i)), i, false);
  }
}

std::unique_ptr<OmOutputTree> FullDocument() {
  OmStringCell const label("Table");
  auto table = std::make_unique<OmPivotTable>(label, label, false);
  AddDimension(*table, "r");
  AddDimension(*table, "c");
  table->Rows().elements = {0};
  table->Columns().elements = {1};
  std::vector<int> index(2);
  for (index[0] = 0; index[0] < kSide; ++index[0]) {
    for (index[1] = 0; index[1] < kSide; ++index[1]) {
      table->Cell(index, OmNumber((index[0] * kSide + index[1]) * 0.37, 2));
    }
  }
  auto document = std::make_unique<OmOutputTree>();
  document->begin().AppendChild(table.release());
  return document;
}

/// A file that goes with the object.
struct TemporaryFile {
  TemporaryFile() { close(mkstemp(name.data())); }
  TemporaryFile(TemporaryFile const&) = delete;
  TemporaryFile& operator=(TemporaryFile const&) = delete;
  ~TemporaryFile() { std::remove(name.c_str()); }

  std::string name = "/tmp/rendererXXXXXX";
};

void Report(benchmark::State& state, std::function<ChildRun(std::string const& file)> const& run) {
  TemporaryFile const file;
  ChildRun last;
  for ([[maybe_unused]] auto _ : state) {
    last = run(file.name);
    if (!last.done) {
      state.SkipWithError("the process that was to be measured failed");
      return;
    }
    state.SetIterationTime(last.seconds);
  }
  state.counters["before_MB"] = last.peakBefore;
  state.counters["peak_MB"] = last.peak;
}

void MeasureRenderer(benchmark::State& state,
                     std::function<void(OmOutputTree& document, std::ostream& out)> const& render) {
  Report(state, [&](std::string const& file) {
    std::unique_ptr<OmOutputTree> document;
    return RunInChild([&] { document = FullDocument(); },
                      [&] {
                        std::ofstream out(file, std::ios::binary);
                        render(*document, out);
                        if (!out.flush()) {
                          throw std::runtime_error("cannot write " + file);
                        }
                      });
  });
}

void Pandas(benchmark::State& state, std::string const& form) {
  Report(state, [&](std::string const& file) {
    return RunProgram(LAKRESVOS_PANDAS_PEER " " + form + " " + std::to_string(kSide) + " " + file);
  });
}

void Csv(benchmark::State& state) {
  MeasureRenderer(state, [](OmOutputTree& document, std::ostream& out) {
    CsvOptions options;
    options.shape = CsvOptions::Shape::Display;
    RenderCsv(document, out, options);
  });
}

void Html(benchmark::State& state) {
  MeasureRenderer(state,
                  [](OmOutputTree& document, std::ostream& out) { RenderHtml(document, out); });
}

void Manual(benchmark::internal::Benchmark* run) {
  run->UseManualTime()->Iterations(3)->Unit(benchmark::kMillisecond);
}

BENCHMARK(Csv)->Apply(Manual);
BENCHMARK_CAPTURE(Pandas, csv, "csv plain")->Apply(Manual);
BENCHMARK_CAPTURE(Pandas, csv_decimals, "csv decimals")->Apply(Manual);
BENCHMARK(Html)->Apply(Manual);
BENCHMARK_CAPTURE(Pandas, html, "html plain")->Apply(Manual);
BENCHMARK_CAPTURE(Pandas, html_decimals, "html decimals")->Apply(Manual);

}  // namespace
