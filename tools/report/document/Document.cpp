#include "document/Document.h"

#include <algorithm>
#include <cstddef>
#include <iostream>
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
#include <lakresvos/tabulate/TextFile.h>
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

std::unique_ptr<tabulate::DataSource> OpenData(Options const& options) {
  tabulate::ReadOptions const reading{.threads = options.threads};
  if (options.ReadsStandardInput()) {
    return std::make_unique<tabulate::TextFile>(std::cin, options.DataName(), options.dataFormat,
                                                reading);
  }
  return std::make_unique<tabulate::TextFile>(options.dataFile, options.dataFormat, reading);
}

tabulate::CountRequest MakeCountRequest(Options const& options) {
  tabulate::CountRequest request;
  for (tabulate::TableRequest const& table : options.tables) {
    request.formulas.push_back(table.formula);
  }
  request.statistics = options.statistics;
  if (!options.weight.empty()) {
    request.weight = {options.weight, "--weight"};
  }
  return request;
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
  tabulate::CountedData data = OpenData(options)->Count(MakeCountRequest(options), warnings);
  for (std::string const& column : options.textColumns) {
    data.columns[data.FindColumn(column)].TreatAsText();
  }

  std::vector<Item> items;
  items.push_back(std::make_unique<OmTextBlock>(OmStringCell("Log", true), options.command));
  auto const addTable = [&](std::unique_ptr<OmPivotTable> table) {
    Attach(style, *table);
    items.push_back(std::move(table));
  };
  long long charts = 0;
  addTable(MakeNotesTable(data, options.weight));
  for (std::size_t i = 0; i < options.tables.size(); ++i) {
    tabulate::TableRequest const& request = options.tables[i];
    auto table = tabulate::MakeCrossTable(data, i, request, options.statistics, options.totals,
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
  Node procedure = Append(document.begin(),
                          std::make_unique<OmProcedure>(OmStringCell("lakresvos-report"),
                                                        options.DataName(), options.weight, ""));
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
