#include "json/write/Layout.h"

#include <string_view>

#include <lakresvos/render/LayerGrids.h>

#include "content/LabelTexts.h"
#include "json/Fields.h"

namespace lakresvos::render {

namespace {

constexpr std::string_view RoleName(GridRole role) {
  switch (role) {
    case GridRole::Corner:
      return "corner";
    case GridRole::ColumnHeading:
      return "column";
    case GridRole::RowHeading:
      break;
  }
  return "row";
}

void WriteLayers(JsonStream& json, DisplayGrid const& grid, LabelTexts& labels) {
  if (grid.LayerLabels().empty()) {
    return;
  }
  json.Name("layer").BeginArray();
  for (LayerLabel const& label : grid.LayerLabels()) {
    json.BeginObject();
    WriteText(json, "dimension", labels.Text(label.dimension));
    json.Name("categories").BeginArray();
    for (OmCellText const* const category : label.categories) {
      json.Text(labels.Text(category));
    }
    json.End();
    json.End();
  }
  json.End();
}

void WriteHeadings(JsonStream& json, DisplayGrid const& grid, LabelTexts& labels) {
  json.Name("frame").BeginLines();
  for (GridCell const& cell : grid.Headings()) {
    json.BeginObject();
    json.Name("role").Text(RoleName(cell.role));
    json.Name("row").Number(cell.row);
    json.Name("column").Number(cell.column);
    WriteNumber(json, "rowSpan", cell.rowSpan, 1);
    WriteNumber(json, "columnSpan", cell.columnSpan, 1);
    WriteText(json, "text", labels.Text(cell.label));
    json.End();
  }
  json.End();
}

void WriteBody(JsonStream& json, DisplayGrid const& grid) {
  json.Name("body").BeginLines();
  for (int row = grid.HeadingRows(); row < grid.Rows(); ++row) {
    DisplayGrid::BodyRow cells = grid.Body(row);
    json.BeginArray();
    for (int column = grid.HeadingColumns(); column < grid.Columns(); ++column) {
      if (OmCellText const* const cell = cells.Cell(column)) {
        json.Text(cell->GetText());
      } else {
        json.Null();
      }
    }
    json.End();
  }
  json.End();
}

}  // namespace

void WriteLayout(JsonStream& json, OmPivotTable& table, TableOptions const& options) {
  json.BeginLines();
  LayerGrids layers(table, options);
  LabelTexts labels;
  while (DisplayGrid const* const grid = layers.Next()) {
    json.BeginObject();
    WriteLayers(json, *grid, labels);
    json.Name("rows").Number(grid->Rows());
    json.Name("columns").Number(grid->Columns());
    json.Name("headingRows").Number(grid->HeadingRows());
    json.Name("headingColumns").Number(grid->HeadingColumns());
    WriteHeadings(json, *grid, labels);
    WriteBody(json, *grid);
    json.End();
  }
  json.End();
}

}  // namespace lakresvos::render
