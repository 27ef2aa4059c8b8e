#include <functional>
#include <iostream>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>
#include <valgrind/callgrind.h>
#include <vector>

#include <cells/OmStringCell.h>
#include <lakresvos/OmDisplayColumnHeading.h>
#include <lakresvos/OmDisplayLayerHeading.h>
#include <lakresvos/OmDisplayRowHeading.h>
#include <lakresvos/OmHeading.h>
#include <lakresvos/OmOutputTree.h>
#include <lakresvos/OmTextBlock.h>
#include <lakresvos/render/CsvRenderer.h>
#include <lakresvos/render/HtmlRenderer.h>
#include <lakresvos/render/TextRenderer.h>
#include <lakresvos/tabulate/tabulate.h>

#include "structures/LakresvosTable.h"
#include "support/CellSet.h"

// Small fixed jobs for callgrind to count the instructions of. What a job works on is made before the
// counting starts; each job leaves a profile that names it.

namespace {

Shape const kFull{"full", {30, 20, 20}};
Shape const kSparse{"sparse", {100, 100, 10, 10}, 100};

void Count(std::string const& job, std::function<void()> const& work) {
  CALLGRIND_TOGGLE_COLLECT;
  work();
  CALLGRIND_TOGGLE_COLLECT;
  CALLGRIND_DUMP_STATS_AT(job.c_str());
}

void WriteAll(LakresvosTable& table, CellSet const& cells) {
  auto index = cells.Index();
  for (std::size_t i = 0; i < cells.Size(); ++i) {
    cells.Get(i, index);
    table.Write(index, index[0]);
  }
}

void ReadAll(LakresvosTable const& table, CellSet const& cells) {
  auto index = cells.Index();
  double sum = 0;
  for (std::size_t i = 0; i < cells.Size(); ++i) {
    cells.Get(i, index);
    sum += table.Read(index);
  }
  if (sum == 0) {
    throw std::logic_error("no cell was read");
  }
}

void WalkAll(LakresvosTable const& table) {
  std::vector<int> index;
  double sum = 0;
  table.Walk(index, [&](double value) { sum += value + index[1]; });
  if (sum == 0) {
    throw std::logic_error("no cell was visited");
  }
}

void CountStoreJobs(std::string const& suffix, Shape const& shape) {
  CellSet const cells = CellSet::Of(shape);
  CellSet const shuffled = cells.Shuffled(1);
  auto table = std::make_unique<LakresvosTable>(shape);
  Count("write-in-order-" + suffix, [&] { WriteAll(*table, cells); });
  Count("read-" + suffix, [&] { ReadAll(*table, shuffled); });
  Count("iterate-" + suffix, [&] { WalkAll(*table); });
  Count("destroy-" + suffix, [&] { table.reset(); });
  table = std::make_unique<LakresvosTable>(shape);
  Count("write-shuffled-" + suffix, [&] { WriteAll(*table, shuffled); });
}

void AddCategories(OmDimension& dimension, std::vector<OmStringCell const*> const& labels) {
  unsigned long subscript = 0;
  for (OmStringCell const* const label : labels) {
    dimension.Child(dimension.Root(), *label, subscript++, false);
  }
}

void CountCategories() {
  std::vector<std::unique_ptr<OmStringCell>> cells;
  std::vector<OmStringCell const*> labels;
  for (int i = 0; i < 10'000; ++i) {
    cells.push_back(std::make_unique<OmStringCell>("Category " + std::to_string(10'000 + i)));
    labels.push_back(cells.back().get());
  }
  OmPivotTable table(OmStringCell("Table"), OmStringCell("Table"), false);
  OmDimension& dimension = table.AddDimension(OmStringCell("Dimension"));
  Count("categories", [&] { AddCategories(dimension, labels); });
}

void CountItems() {
  OmStringCell const label("Item");
  OmOutputTree document;
  auto const procedure = document.begin().AppendChild(new OmProcedure(label, "", "", ""));
  Count("items", [&] {
    for (int i = 0; i < 10'000; ++i) {
      procedure.AppendChild(new OmTextBlock(label, ""));
    }
  });
}

void FindNonEmpty(OmPivotTable& table) {
  OmDisplayLayerHeading layers(table, true);
  layers.NextLayer();
  OmDisplayRowHeading const rows(layers, true, true);
  OmDisplayColumnHeading const columns(layers, true);
  if (rows.NRows() == 0 || columns.NColumns() == 0) {
    throw std::logic_error("no row or column has cells");
  }
}

/// Rows, columns and layers, and labels for all of them.
void LayOut(OmPivotTable& table, Shape const& shape) {
  for (int d = 0; d < table.NDimensions(); ++d) {
    OmDimension& dimension = table.Dimension(d);
    for (int i = 0; i < shape.sizes[static_cast<std::size_t>(d)]; ++i) {
      dimension.AddNewChild(dimension.Root(), OmStringCell("Label " + std::to_string(i)),
                            static_cast<unsigned long>(i), false);
    }
    auto& axis = d == 0 ? table.Rows() : d == 1 ? table.Columns() : table.Layers();
    axis.push_back(static_cast<short>(d));
  }
}

void CountHeadings() {
  LakresvosTable table(kSparse);
  LayOut(table.Table(), kSparse);
  WriteAll(table, CellSet::Of(kSparse));
  Count("headings", [&] { FindNonEmpty(table.Table()); });
}

void CountRenderers() {
  using namespace lakresvos::render;
  auto* const table = new OmPivotTable(OmStringCell("Table"), OmStringCell("Table"), false);
  OmOutputTree document;
  document.begin().AppendChild(table);
  Shape const shape{"page", {40, 20, 2}};
  for (std::size_t d = 0; d < shape.sizes.size(); ++d) {
    table->AddDimension(OmStringCell("Dimension"));
  }
  LayOut(*table, shape);
  CellSet const cells = CellSet::Of(shape);
  auto index = cells.Index();
  for (std::size_t i = 0; i < cells.Size(); ++i) {
    cells.Get(i, index);
    table->Cell(index, OmNumber(static_cast<double>(i) * 0.37, 2));
  }
  Count("render-html", [&] {
    std::ostringstream out;
    RenderHtml(document, out);
  });
  Count("render-csv", [&] {
    std::ostringstream out;
    RenderCsv(document, out);
  });
  Count("render-text", [&] {
    std::ostringstream out;
    RenderText(document, out);
  });
}

void CountTabulation() {
  using namespace lakresvos::tabulate;
  std::ostringstream csv;
  csv << "a,b,c,x\n";
  for (int row = 0; row < 2'000; ++row) {
    csv << "a" << row * 7 % 5 << ",b" << row * 11 % 3 << ",c" << row * 13 % 4 << "," << row % 17
        << "." << row % 10 << "\n";
  }
  Count("tabulate", [&] {
    Formula const formula = ParseFormula("a * b ~ c");
    std::vector<Statistic> const statistics = ParseStatistics("count,sum:x");
    std::istringstream in(csv.str());
    WarningLog warnings;
    DataSet const data = ReadDataSet(in, "data.csv", ListColumns(formula, statistics), warnings);
    auto const table = MakeCrossTable(data, RowWeights(), {formula, "Table"}, statistics, true);
  });
}

}  // namespace

int main() {
  try {
    CountStoreJobs("full", kFull);
    CountStoreJobs("1%", kSparse);
    CountHeadings();
    CountCategories();
    CountItems();
    CountRenderers();
    CountTabulation();
  } catch (std::exception const& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
}
