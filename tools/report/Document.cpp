#include "Document.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>
#include <vector>

#include <cells/OmStringCell.h>
#include <lakresvos/OmChart.h>
#include <lakresvos/OmHeading.h>
#include <lakresvos/OmTextBlock.h>

#include "BarChart.h"
#include "CategoryGroups.h"
#include "ChartData.h"
#include "ColumnNumbers.h"
#include "NotesTable.h"
#include "Quoting.h"
#include "ReportError.h"
#include "RowWeights.h"
#include "StatisticLabel.h"
#include "StyleSheet.h"
#include "WarningLog.h"
#include "WarningsTable.h"

namespace lakresvos::report {

namespace {

/// The columns that stand in formulas.
std::vector<ColumnWish> FormulaColumns(std::vector<TableRequest> const& tables) {
  std::vector<ColumnWish> columns;
  for (TableRequest const& table : tables) {
    for (auto const* axis : {&table.formula.rows, &table.formula.columns, &table.formula.layers}) {
      for (FormulaTerm const& term : *axis) {
        for (NamedColumn const& column : term) {
          columns.push_back({column.name, "--table", table.formula.text, column.position});
        }
      }
    }
  }
  return columns;
}

std::vector<ColumnWish> WishesOf(Options const& options) {
  std::vector<ColumnWish> wishes = FormulaColumns(options.tables);
  for (Statistic const& statistic : options.statistics) {
    if (NeedsColumn(statistic.measure)) {
      wishes.push_back({statistic.column.name, "--statistics", "", statistic.column.position});
    }
  }
  if (!options.weight.empty()) {
    wishes.push_back({options.weight, "--weight"});
  }
  return wishes;
}

/// @throws ReportError for a column that is in no formula.
void CheckTextColumns(std::vector<std::string> const& columns,
                      std::vector<ColumnWish> const& formulaColumns) {
  for (std::string const& column : columns) {
    if (std::none_of(formulaColumns.begin(), formulaColumns.end(),
                     [&](ColumnWish const& wish) { return wish.name == column; })) {
      throw ReportError("--text: the column " + Quoted(column) + " is in no table");
    }
  }
}

void WarnOfTexts(DataSet const& data, std::vector<Statistic> const& statistics,
                 WarningLog& warnings) {
  std::vector<bool> seen(data.columns.size());
  for (Statistic const& statistic : statistics) {
    if (!NeedsColumn(statistic.measure)) {
      continue;
    }
    std::size_t const column = data.Find(statistic.column.name);
    if (!seen[column]) {
      WarnOfTexts(data, data.columns[column], warnings);
    }
    seen[column] = true;
  }
}

/// Counts the rows that miss a value in any of these columns and have a weight all the same.
void CountMissing(DataSet const& data, RowWeights const& weights,
                  std::vector<std::string> const& columns, Skipped kind, WarningLog& warnings) {
  std::vector<DataColumn const*> kept;
  kept.reserve(columns.size());
  for (std::string const& name : columns) {
    kept.push_back(&data.columns[data.Find(name)]);
  }
  for (std::size_t row = 0; row < data.Rows(); ++row) {
    auto const missing = std::find_if(kept.begin(), kept.end(), [row](DataColumn const* column) {
      return column->codes[row] == DataColumn::kMissing;
    });
    if (missing != kept.end() && !std::isnan(weights.Of(row))) {
      warnings.Count(kind, data.lines[row], (*missing)->name);
    }
  }
}

/// Counts what tables and their statistics leave out.
void CountMissing(DataSet const& data, RowWeights const& weights, Options const& options,
                  WarningLog& warnings) {
  if (options.tables.empty()) {
    return;
  }
  std::vector<std::string> columns;
  for (ColumnWish const& wish : FormulaColumns(options.tables)) {
    columns.push_back(wish.name);
  }
  CountMissing(data, weights, columns, Skipped::Rows, warnings);
  columns.clear();
  for (Statistic const& statistic : options.statistics) {
    if (NeedsColumn(statistic.measure)) {
      columns.push_back(statistic.column.name);
    }
  }
  CountMissing(data, weights, columns, Skipped::Values, warnings);
}

using Item = std::unique_ptr<OmOutputPart>;
using Node = ListTree<OmOutputPart*>::Node;

std::unique_ptr<OmChart> MakeChart(OmPivotTable const& table, Formula const& formula,
                                   Options const& options, long long id) {
  auto chart = std::make_unique<OmChart>(*table.Label(), "", id);
  ChartData const data =
      ChartDataOf(table, formula.rows.size() + formula.columns.size(), options.totals,
                  StatisticLabel(options.statistics.front())->GetText());
  std::string const json = JsonOf(data);
  std::string const picture = BarChartSvg(data);
  chart->SetViZJSON(json.data(), static_cast<unsigned int>(json.size()));
  chart->SetImageStream(picture.data(), static_cast<unsigned int>(picture.size()));
  chart->SetImageSubType(ChartXMLBar);
  return chart;
}

Node Append(Node const& parent, Item item) {
  Node const node = parent.AppendChild(nullptr);
  node.Value() = item.release();
  return node;
}

}  // namespace

WarningLog AppendReport(OmOutputTree& document, Options const& options) {
  StyleSheet const style =
      options.styleFile.empty() ? StyleSheet() : ReadStyleSheet(options.styleFile);
  CheckGroupings(options.groupings, FormulaColumns(options.tables));
  CheckTextColumns(options.textColumns, FormulaColumns(options.tables));
  WarningLog warnings;
  DataSet data = ReadDataSet(options.dataFile, WishesOf(options), warnings);
  for (std::string const& column : options.textColumns) {
    data.columns[data.Find(column)].text = true;
  }
  RowWeights const weights =
      options.weight.empty() ? RowWeights() : RowWeights(data, options.weight, warnings);
  WarnOfTexts(data, options.statistics, warnings);
  CountMissing(data, weights, options, warnings);

  std::vector<Item> items;
  items.push_back(std::make_unique<OmTextBlock>(OmStringCell("Log", true), options.command));
  auto const addTable = [&](std::unique_ptr<OmPivotTable> table) {
    Attach(style, *table);
    items.push_back(std::move(table));
  };
  long long charts = 0;
  addTable(MakeNotesTable(data, options.weight));
  for (TableRequest const& request : options.tables) {
    auto table = MakeCrossTable(data, weights, request, options.statistics, options.totals,
                                options.groupings);
    std::unique_ptr<OmChart> chart;
    if (options.charts && CanChart(request.formula)) {
      chart = MakeChart(*table, request.formula, options, ++charts);
    }
    addTable(std::move(table));
    if (chart != nullptr) {
      items.push_back(std::move(chart));
    }
  }
  if (warnings.Total() != 0) {
    addTable(MakeWarningsTable(warnings));
  }
  Node procedure =
      Append(document.begin(), std::make_unique<OmProcedure>(OmStringCell("lakresvos-report"),
                                                             options.dataFile, options.weight, ""));
  try {
    for (Item& item : items) {
      Append(procedure, std::move(item));
    }
  } catch (...) {
    document.Prune(procedure);
    throw;
  }
  return warnings;
}

}  // namespace lakresvos::report
