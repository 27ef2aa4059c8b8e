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
#include <lakresvos/tabulate/Grouping.h>
#include <lakresvos/tabulate/InputError.h>
#include <lakresvos/tabulate/Quoting.h>
#include <lakresvos/tabulate/RowWeights.h>
#include <lakresvos/tabulate/WarningLog.h>

#include "chart/ChartModule.h"
#include "chart/TableChart.h"
#include "document/NotesTable.h"
#include "document/WarningsTable.h"
#include "style/StyleSheet.h"

namespace lakresvos::report {

namespace {

/// The columns of all tables.
tabulate::RequiredColumns ListTableColumns(std::vector<tabulate::TableRequest> const& tables) {
  tabulate::RequiredColumns columns;
  for (tabulate::TableRequest const& table : tables) {
    for (tabulate::RequiredColumn const& column : tabulate::ListColumns(table.formula)) {
      columns.push_back(column);
    }
  }
  return columns;
}

tabulate::RequiredColumns ListRequiredColumns(Options const& options) {
  tabulate::RequiredColumns columns = ListTableColumns(options.tables);
  for (tabulate::RequiredColumn const& column : tabulate::ListColumns(options.statistics)) {
    columns.push_back(column);
  }
  if (!options.weight.empty()) {
    columns.push_back({options.weight, "--weight"});
  }
  return columns;
}

/// @throws InputError for a column that is in no table.
void CheckTextColumns(std::vector<std::string> const& columns,
                      tabulate::RequiredColumns const& tableColumns) {
  for (std::string const& column : columns) {
    if (std::none_of(tableColumns.begin(), tableColumns.end(),
                     [&](tabulate::RequiredColumn const& one) { return one.name == column; })) {
      throw tabulate::InputError("--text: column " + tabulate::Quote(column) + " is in no table");
    }
  }
}

/// Counts the rows that lack a value in any of these columns and have a weight all the same.
void CountMissing(tabulate::DataSet const& data, tabulate::RowWeights const& weights,
                  tabulate::RequiredColumns const& columns, tabulate::Skipped kind,
                  tabulate::WarningLog& warnings) {
  std::vector<tabulate::DataColumn const*> kept;
  kept.reserve(columns.size());
  for (tabulate::RequiredColumn const& column : columns) {
    tabulate::DataColumn const& found = data.columns[data.FindColumn(column.name)];
    if (found.MissingCount() != 0) {
      kept.push_back(&found);
    }
  }
  for (std::size_t row = 0; !kept.empty() && row < data.Rows(); ++row) {
    auto const missing =
        std::find_if(kept.begin(), kept.end(), [row](tabulate::DataColumn const* column) {
          return column->Codes()[row] == tabulate::kMissingCode;
        });
    if (missing != kept.end() && !std::isnan(weights.At(row))) {
      warnings.Count(kind, data.lines[row], (*missing)->Name());
    }
  }
}

/// Counts the rows that tables and their statistics leave out.
void CountMissing(tabulate::DataSet const& data, tabulate::RowWeights const& weights,
                  Options const& options, tabulate::WarningLog& warnings) {
  if (options.tables.empty()) {
    return;
  }
  CountMissing(data, weights, ListTableColumns(options.tables), tabulate::Skipped::Rows, warnings);
  CountMissing(data, weights, tabulate::ListColumns(options.statistics), tabulate::Skipped::Values,
               warnings);
}

using Item = std::unique_ptr<OmOutputPart>;
using Node = ListTree<OmOutputPart*>::Node;

std::unique_ptr<OmChart> MakeChart(OmPivotTable const& table, tabulate::Formula const& formula,
                                   Options const& options, long long id) {
  auto chart = std::make_unique<OmChart>(*table.Label(), "", id);
  render::ChartData const data =
      MakeChartData(table, formula.rows.size() + formula.columns.size(),
                    tabulate::MakeStatisticLabel(options.statistics.front())->GetText());
  std::string const json = render::WriteChartData(data);
  std::string const picture = LoadAndDrawBarChart(data);
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
  tabulate::CheckGroupings(options.groupings, ListTableColumns(options.tables));
  CheckTextColumns(options.textColumns, ListTableColumns(options.tables));
  tabulate::WarningLog warnings;
  tabulate::DataSet data = tabulate::ReadDataSet(options.dataFile, ListRequiredColumns(options),
                                                 warnings, {.threads = options.threads});
  for (std::string const& column : options.textColumns) {
    data.columns[data.FindColumn(column)].TreatAsText();
  }
  tabulate::RowWeights const weights = options.weight.empty()
                                           ? tabulate::RowWeights()
                                           : tabulate::RowWeights(data, options.weight, warnings);
  tabulate::WarnAboutTexts(data, options.statistics, warnings);
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
