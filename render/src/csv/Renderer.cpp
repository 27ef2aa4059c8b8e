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
#include "grid/BodyBlocks.h"
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

/// Writes tables in the display shape.
class DisplayWriter {
 public:
  /// All arguments must outlive the object.
  DisplayWriter(OutputBuffer& out, CsvRecord& record, LabelTexts& labels, CsvOptions const& options)
      : out_(out), record_(record), labels_(labels), options_(options) {}

  void Write(OmPivotTable& table) {
    LayerGrids layers(table, options_);
    DisplayGrid const* grid = layers.Next();
    if (grid == nullptr || grid->Columns() == 0) {
      WriteDimensionNames(table);
    }
    while (grid != nullptr) {
      WriteGrid(*grid);
      grid = layers.Next();
    }
  }

 private:
  void EndRecord() {
    record_.End();
    out_.Drain();
  }

  /// What shows of a table without any cell: which categories it could have.
  void WriteDimensionNames(OmPivotTable const& table) {
    bool written = false;
    for (CategoryColumns const& dimension : FindCategories(table, labels_)) {
      for (std::string const& name : dimension.Names()) {
        record_.AddText(name);
        written = true;
      }
    }
    if (written) {
      EndRecord();
    }
  }

  void WriteGrid(DisplayGrid const& grid) {
    std::string const layer = LayerLine(
        grid.LayerLabels(), [this](OmCellText const* label) { return labels_.Text(label); });
    if (!layer.empty()) {
      record_.AddText(layer);
      EndRecord();
    }
    if (grid.Columns() > 0) {
      RepeatedHeadings cells(grid);
      WriteHeadingRows(grid, cells);
      WriteBody(grid, cells);
    }
  }

  std::string EncodeHeading(RepeatedHeadings const& cells, int column) {
    OmCellText const* const label = cells.Label(column);
    return EncodeLabel(record_, label, labels_.Text(label));
  }

  void WriteHeadingRows(DisplayGrid const& grid, RepeatedHeadings& cells) {
    for (int row = 0; row < grid.HeadingRows(); ++row) {
      cells.Next();
      for (int column = 0; column < grid.Columns(); ++column) {
        record_.Add(EncodeHeading(cells, column));
      }
      EndRecord();
    }
  }

  void WriteBody(DisplayGrid const& grid, RepeatedHeadings& cells) {
    WriteBodyRows<std::string>(
        out_, BodyBlocks(grid), options_.threads,
        [&](int /*row*/, std::string& headings) {
          cells.Next();
          headings.clear();
          for (int column = 0; column < grid.HeadingColumns(); ++column) {
            headings += (column > 0 ? "," : "") + EncodeHeading(cells, column);
          }
        },
        [&](std::string const& headings, DisplayGrid::BodyRow& row, std::string& text) {
          CsvRecord record(text, record_);
          if (grid.HeadingColumns() > 0) {
            record.Add(headings);
          }
          for (int column = grid.HeadingColumns(); column < grid.Columns(); ++column) {
            WriteCell(record, row.Cell(column));
          }
          record.End();
        });
  }

  OutputBuffer& out_;
  CsvRecord& record_;
  LabelTexts& labels_;
  CsvOptions const& options_;
};

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
  CsvRecord record(buffer.Text(), options.safe);
  LabelTexts labels;
  std::vector<std::string> const names = MakeNames(tables, record, labels);
  if (options.shape == CsvOptions::Shape::Long) {
    WriteLongTables(buffer, record, tables, names, labels, options);
  } else {
    DisplayWriter writer(buffer, record, labels, options);
    for (std::size_t i = 0; i < tables.size(); ++i) {
      buffer << (i > 0 ? "\r\n" : "");
      if (tables.size() > 1) {
        record.SetLead(names[i]);
      }
      writer.Write(*tables[i]);
    }
  }
  buffer.Flush();
}

}  // namespace lakresvos::render
