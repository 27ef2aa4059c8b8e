#include <filesystem>
#include <fstream>
#include <iostream>
#include <nlohmann/json.hpp>
#include <string>

#include <lakresvos/OmPivotTable.h>
#include <lakresvos/render/CsvRenderer.h>
#include <lakresvos/render/HtmlRenderer.h>
#include <lakresvos/render/JsonRenderer.h>
#include <lakresvos/render/LayerGrids.h>
#include <lakresvos/render/MarkdownRenderer.h>
#include <lakresvos/render/XlsxRenderer.h>

#include "content/CellText.h"
#include "grid/LayerLine.h"
#include "grid/RepeatedHeadings.h"
#include "render/support/HardCases.h"
#include "unicode/CleanText.h"

// Writes the document of hard cases in every format, and its grids themselves as "grids.json":
// what the formats have to show.

namespace {

using namespace lakresvos::render;
using nlohmann::json;

std::string Clean(OmCellText const* label) {
  return CleanText(GetText(label));
}

json ListRows(DisplayGrid const& grid) {
  json rows = json::array();
  RepeatedHeadings frame(grid);
  while (frame.Next()) {
    json row = json::array();
    int const labels = frame.InHeading() ? grid.Columns() : grid.HeadingColumns();
    for (int column = 0; column < labels; ++column) {
      row.push_back(Clean(frame.At(column).label));
    }
    if (!frame.InHeading()) {
      DisplayGrid::BodyRow body = grid.Body(frame.Row());
      for (int column = labels; column < grid.Columns(); ++column) {
        row.push_back(Clean(body.Cell(column)));
      }
    }
    rows.push_back(std::move(row));
  }
  return rows;
}

/// The cells of the frame that reach over others: row, column, and how many of each.
json FindSpans(DisplayGrid const& grid) {
  json spans = json::array();
  for (GridCell const& cell : grid.Headings()) {
    if (cell.rowSpan > 1 || cell.columnSpan > 1) {
      spans.push_back({cell.row, cell.column, cell.rowSpan, cell.columnSpan});
    }
  }
  return spans;
}

json ListLayers(OmPivotTable& table) {
  json layers = json::array();
  LayerGrids grids(table);
  while (DisplayGrid const* grid = grids.Next()) {
    layers.push_back({{"name", LayerLine(grid->LayerLabels(), Clean)},
                      {"headingRows", grid->HeadingRows()},
                      {"headingColumns", grid->HeadingColumns()},
                      {"spans", FindSpans(*grid)},
                      {"rows", ListRows(*grid)}});
  }
  return layers;
}

json ListDimensions(OmPivotTable const& table) {
  json labels = json::array();
  for (int d = 0; d < table.NDimensions(); ++d) {
    labels.push_back(Clean(table.Dimension(d).value.label));
  }
  return labels;
}

json ListGrids(OmOutputTree& document) {
  json tables = json::array();
  for (auto node = document.begin(); !node.AtEnd(); ++node) {
    auto* const table = dynamic_cast<OmPivotTable*>(*node);
    if (table != nullptr && table->Show()) {
      tables.push_back({{"title", Clean(FindHeadline(*table))},
                        {"dimensions", ListDimensions(*table)},
                        {"layers", ListLayers(*table)}});
    }
  }
  return tables;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: write_formats DIRECTORY\n";
    return 2;
  }
  std::filesystem::path const directory = argv[1];
  std::filesystem::create_directories(directory);
  auto const file = [&](char const* name) {
    std::ofstream out;
    out.exceptions(std::ios::failbit | std::ios::badbit);
    out.open(directory / name, std::ios::binary);
    return out;
  };
  OmOutputTree document;
  AppendHardCases(document);
  file("grids.json") << ListGrids(document).dump();
  {
    std::ofstream out = file("tables.csv");
    CsvOptions options;
    options.shape = CsvOptions::Shape::Display;
    RenderCsv(document, out, options);
  }
  {
    std::ofstream out = file("document.html");
    RenderHtml(document, out);
  }
  {
    std::ofstream out = file("document.json");
    JsonOptions options;
    options.layout = true;
    RenderJson(document, out, options);
  }
  {
    std::ofstream out = file("document.md");
    RenderMarkdown(document, out);
  }
  {
    std::ofstream out = file("document.xlsx");
    RenderXlsx(document, out);
  }
}
