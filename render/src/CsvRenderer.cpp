#include <lakresvos/OmPivotTable.h>
#include <lakresvos/render/CsvRenderer.h>
#include <lakresvos/render/LayerGrids.h>

#include "CellText.h"
#include "CsvRecord.h"
#include "DocumentWalk.h"
#include "LayerLine.h"
#include "LongTable.h"
#include "NumberCell.h"
#include "OutputBuffer.h"
#include "RepeatedFrame.h"

namespace lakresvos::render {

namespace {

void WriteCell(CsvRecord& record, OmCellText* cell) {
  if (cell == nullptr) {
    record.Empty();
  } else if (NumberOf(*cell).has_value()) {
    record.Number(cell->GetText());
  } else {
    record.Text(cell->GetText());
  }
}

void WriteGrid(CsvRecord& record, DisplayGrid const& grid) {
  std::string const layer = LayerLine(grid.LayerLabels(), TextOf);
  if (!layer.empty()) {
    record.Text(layer);
    record.End();
  }
  RepeatedFrame frame(grid);
  while (grid.Columns() > 0 && frame.Next()) {
    int const labels = frame.InHeading() ? grid.Columns() : grid.HeadingColumns();
    for (int column = 0; column < labels; ++column) {
      record.Text(TextOf(frame.Label(column)));
    }
    if (!frame.InHeading()) {
      DisplayGrid::BodyRow row = grid.Body(frame.Row());
      for (int column = labels; column < grid.Columns(); ++column) {
        WriteCell(record, row.Cell(column));
      }
    }
    record.End();
  }
}

}  // namespace

CsvRenderer::CsvRenderer(std::ostream& out, CsvOptions const& options)
    : out_(out), options_(options) {}

void CsvRenderer::Render(OmOutputTree& tree) {
  int depth = 0;
  VisitAll(tree, *this, depth);
}

void CsvRenderer::Visit(OmPivotTable& table) {
  if (!table.Show() || table.IsNotes() || table.IsWarnings()) {
    return;
  }
  OutputBuffer buffer(out_);
  if (started_) {
    buffer << "\r\n";
  }
  started_ = true;
  CsvRecord record(buffer, options_.safe);
  if (options_.shape == CsvOptions::Shape::Long) {
    WriteLongTable(record, table, !options_.skipEmpty);
  } else {
    LayerGrids layers(table, {options_.skipEmpty, true});
    DisplayGrid const* grid = layers.Next();
    while (grid != nullptr) {
      WriteGrid(record, *grid);
      grid = options_.allLayers ? layers.Next() : nullptr;
    }
  }
  buffer.Flush();
}

}  // namespace lakresvos::render
