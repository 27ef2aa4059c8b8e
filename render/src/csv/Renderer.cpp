#include <lakresvos/OmOutputTree.h>
#include <lakresvos/OmPivotTable.h>
#include <lakresvos/render/CsvRenderer.h>
#include <lakresvos/render/LayerGrids.h>

#include "content/CellText.h"
#include "content/NumberCell.h"
#include "csv/Label.h"
#include "csv/LongHeader.h"
#include "csv/LongTable.h"
#include "csv/Record.h"
#include "csv/UniqueNames.h"
#include "grid/DocumentWalk.h"
#include "grid/IdleVisitor.h"
#include "grid/LayerLine.h"
#include "grid/RepeatedHeadings.h"
#include "io/OutputBuffer.h"

namespace lakresvos::render {

namespace {

void WriteCell(CsvRecord& record, OmCellText* cell) {
  if (cell == nullptr) {
    record.AddEmpty();
  } else if (FindNumber(*cell).has_value()) {
    record.AddNumber(cell->GetText());
  } else {
    record.Add(EncodeLabel(record, cell, cell->GetText()));
  }
}

void WriteGrid(CsvRecord& record, DisplayGrid const& grid, LabelTexts& labels) {
  std::string const layer =
      LayerLine(grid.LayerLabels(), [&](OmCellText const* label) { return labels.Text(label); });
  if (!layer.empty()) {
    record.AddText(layer);
    record.End();
  }
  RepeatedHeadings cells(grid);
  while (grid.Columns() > 0 && cells.Next()) {
    int const headings = cells.InHeading() ? grid.Columns() : grid.HeadingColumns();
    for (int column = 0; column < headings; ++column) {
      OmCellText const* const label = cells.Label(column);
      record.Add(EncodeLabel(record, label, labels.Text(label)));
    }
    if (!cells.InHeading()) {
      DisplayGrid::BodyRow row = grid.Body(cells.Row());
      for (int column = headings; column < grid.Columns(); ++column) {
        WriteCell(record, row.Cell(column));
      }
    }
    record.End();
  }
}

/// What shows of a table without any cell: which categories it could have.
void WriteDimensionNames(CsvRecord& record, OmPivotTable const& table, LabelTexts& labels) {
  bool written = false;
  for (CategoryColumns const& dimension : FindCategories(table, labels)) {
    for (std::string const& name : dimension.Names()) {
      record.AddText(name);
      written = true;
    }
  }
  if (written) {
    record.End();
  }
}

void WriteDisplay(CsvRecord& record, OmPivotTable& table, CsvOptions const& options,
                  LabelTexts& labels) {
  LayerGrids layers(table, options);
  DisplayGrid const* grid = layers.Next();
  if (grid == nullptr || grid->Columns() == 0) {
    WriteDimensionNames(record, table, labels);
  }
  while (grid != nullptr) {
    WriteGrid(record, *grid, labels);
    grid = layers.Next();
  }
}

bool IsWritten(OmPivotTable const& table) {
  return table.Show() && !table.IsNotes() && !table.IsWarnings();
}

class TableVisitor : public IdleVisitor {
 public:
  using IdleVisitor::Visit;

  void Visit(OmPivotTable& table) override {
    if (IsWritten(table)) {
      tables.push_back(&table);
    }
  }

  std::vector<OmPivotTable*> tables;
};

std::vector<OmPivotTable*> FindTables(OmOutputTree const& tree) {
  TableVisitor visitor;
  int depth = 0;
  VisitAll(tree, visitor, depth);
  return visitor.tables;
}

std::vector<std::string> MakeNames(std::vector<OmPivotTable*> const& tables,
                                   CsvRecord const& record, LabelTexts& labels) {
  UniqueNames unique;
  std::vector<std::string> names;
  names.reserve(tables.size());
  for (OmPivotTable const* const table : tables) {
    names.push_back(unique.Next(record.CleanField(labels.Text(FindHeadline(*table)))));
  }
  return names;
}

}  // namespace

void RenderCsv(OmOutputTree const& tree, std::ostream& out, CsvOptions const& options) {
  std::vector<OmPivotTable*> const tables = FindTables(tree);
  if (tables.empty()) {
    return;
  }
  OutputBuffer buffer(out);
  CsvRecord record(buffer, options.safe);
  LabelTexts labels;
  std::vector<std::string> const names = MakeNames(tables, record, labels);
  if (options.shape == CsvOptions::Shape::Long) {
    WriteLongTables(record, tables, names, labels, !options.skipEmpty);
  } else {
    for (std::size_t i = 0; i < tables.size(); ++i) {
      buffer << (i > 0 ? "\r\n" : "");
      if (tables.size() > 1) {
        record.SetLead(names[i]);
      }
      WriteDisplay(record, *tables[i], options, labels);
    }
  }
  buffer.Flush();
}

}  // namespace lakresvos::render
