#include "document/Document.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>
#include <vector>

#include <cells/OmStringCell.h>
#include <lakresvos/OmChart.h>
#include <lakresvos/OmHeading.h>
#include <lakresvos/OmTextBlock.h>
#include <lakresvos/tabulate/ColumnNumbers.h>
#include <lakresvos/tabulate/Grouping.h>
#include <lakresvos/tabulate/InputError.h>
#include <lakresvos/tabulate/Quoting.h>
#include <lakresvos/tabulate/RowWeights.h>
#include <lakresvos/tabulate/StatisticLabel.h>
#include <lakresvos/tabulate/WarningLog.h>

#include "chart/BarChart.h"
#include "chart/TableChart.h"
#include "document/NotesTable.h"
#include "document/WarningsTable.h"
#include "style/StyleSheet.h"

namespace lakresvos::report {

namespace {

std::vector<tabulate::ColumnWish> CollectFormulaColumns(
    std::vector<tabulate::TableRequest> const& tables) {
  std::vector<tabulate::ColumnWish> columns;
  for (tabulate::TableRequest const& table : tables) {
    for (auto const* axis : {&table.formula.rows, &table.formula.columns, &table.formula.layers}) {
      for (tabulate::FormulaTerm const& term : *axis) {
        for (tabulate::NamedColumn const& column : term) {
          columns.push_back({column.name, "--table", table.formula.text, column.position});
        }
      }
    }
  }
  return columns;
}

/// Lists the columns that the options name, with who names them.
std::vector<tabulate::ColumnWish> CollectColumns(Options const& options) {
  std::vector<tabulate::ColumnWish> columns = CollectFormulaColumns(options.tables);
  for (tabulate::Statistic const& statistic : options.statistics) {
    if (tabulate::NeedsColumn(statistic.measure)) {
      columns.push_back({statistic.column.name, "--statistics", "", statistic.column.position});
    }
  }
  if (!options.weight.empty()) {
    columns.push_back({options.weight, "--weight"});
  }
  return columns;
}

/// @throws InputError for a column that is in no formula.
void CheckTextColumns(std::vector<std::string> const& columns,
                      std::vector<tabulate::ColumnWish> const& formulaColumns) {
  for (std::string const& column : columns) {
    if (std::none_of(formulaColumns.begin(), formulaColumns.end(),
                     [&](tabulate::ColumnWish const& wish) { return wish.name == column; })) {
      throw tabulate::InputError("--text: column " + tabulate::Quoted(column) + " is in no table");
    }
  }
}

void WarnOfTexts(tabulate::DataSet const& data, std::vector<tabulate::Statistic> const& statistics,
                 tabulate::WarningLog& warnings) {
  std::vector<bool> seen(data.columns.size());
  for (tabulate::Statistic const& statistic : statistics) {
    if (!tabulate::NeedsColumn(statistic.measure)) {
      continue;
    }
    std::size_t const column = data.Find(statistic.column.name);
    if (!seen[column]) {
      tabulate::WarnOfTexts(data, data.columns[column], warnings);
    }
    seen[column] = true;
  }
}

/// Counts the rows with a weight but without a value in one of these columns.
void CountMissing(tabulate::DataSet const& data, tabulate::RowWeights const& weights,
                  std::vector<std::string> const& columns, tabulate::Skipped kind,
                  tabulate::WarningLog& warnings) {
  std::vector<tabulate::DataColumn const*> kept;
  kept.reserve(columns.size());
  for (std::string const& name : columns) {
    kept.push_back(&data.columns[data.Find(name)]);
  }
  for (std::size_t row = 0; row < data.Rows(); ++row) {
    auto const missing =
        std::find_if(kept.begin(), kept.end(), [row](tabulate::DataColumn const* column) {
          return column->codes[row] == tabulate::DataColumn::kMissing;
        });
    if (missing != kept.end() && !std::isnan(weights.Of(row))) {
      warnings.Count(kind, data.lines[row], (*missing)->name);
    }
  }
}

/// Counts the rows that tables and their statistics leave out.
void CountMissing(tabulate::DataSet const& data, tabulate::RowWeights const& weights,
                  Options const& options, tabulate::WarningLog& warnings) {
  if (options.tables.empty()) {
    return;
  }
  std::vector<std::string> columns;
  for (tabulate::ColumnWish const& wish : CollectFormulaColumns(options.tables)) {
    columns.push_back(wish.name);
  }
  CountMissing(data, weights, columns, tabulate::Skipped::Rows, warnings);
  columns.clear();
  for (tabulate::Statistic const& statistic : options.statistics) {
    if (tabulate::NeedsColumn(statistic.measure)) {
      columns.push_back(statistic.column.name);
    }
  }
  CountMissing(data, weights, columns, tabulate::Skipped::Values, warnings);
}

using Item = std::unique_ptr<OmOutputPart>;
using Node = ListTree<OmOutputPart*>::Node;

std::unique_ptr<OmChart> MakeChart(OmPivotTable const& table, tabulate::Formula const& formula,
                                   Options const& options, long long id) {
  auto chart = std::make_unique<OmChart>(*table.Label(), "", id);
  render::ChartData const data =
      MakeChartData(table, formula.rows.size() + formula.columns.size(),
                    tabulate::StatisticLabel(options.statistics.front())->GetText());
  std::string const json = render::WriteChartData(data);
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

tabulate::WarningLog AppendReport(OmOutputTree& document, Options const& options) {
  StyleSheet const style =
      options.styleFile.empty() ? StyleSheet() : ReadStyleSheet(options.styleFile);
  tabulate::CheckGroupings(options.groupings, CollectFormulaColumns(options.tables));
  CheckTextColumns(options.textColumns, CollectFormulaColumns(options.tables));
  tabulate::WarningLog warnings;
  tabulate::DataSet data =
      tabulate::ReadDataSet(options.dataFile, CollectColumns(options), warnings);
  for (std::string const& column : options.textColumns) {
    data.columns[data.Find(column)].text = true;
  }
  tabulate::RowWeights const weights = options.weight.empty()
                                           ? tabulate::RowWeights()
                                           : tabulate::RowWeights(data, options.weight, warnings);
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
  for (tabulate::TableRequest const& request : options.tables) {
    auto table = tabulate::MakeCrossTable(data, weights, request, options.statistics,
                                          options.totals, options.groupings);
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
