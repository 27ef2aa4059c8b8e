#include "Document.h"

#include <memory>
#include <utility>
#include <vector>

#include <cells/OmStringCell.h>
#include <lakresvos/OmHeading.h>
#include <lakresvos/OmTextBlock.h>

#include "ColumnNumbers.h"
#include "NotesTable.h"
#include "RowWeights.h"
#include "WarningLog.h"
#include "WarningsTable.h"

namespace lakresvos::report {

namespace {

std::vector<ColumnWish> WishesOf(Options const& options) {
  std::vector<ColumnWish> wishes;
  auto const add = [&wishes](NamedColumn const& column, std::string const& option) {
    wishes.push_back({column.name, option + " at position " + std::to_string(column.position)});
  };
  for (TableRequest const& table : options.tables) {
    for (auto const* axis : {&table.formula.rows, &table.formula.columns, &table.formula.layers}) {
      for (FormulaTerm const& term : *axis) {
        for (NamedColumn const& column : term) {
          add(column, "--table '" + table.formula.text + "'");
        }
      }
    }
  }
  for (Statistic const& statistic : options.statistics) {
    if (NeedsColumn(statistic.measure)) {
      add(statistic.column, "--statistics");
    }
  }
  if (!options.weight.empty()) {
    wishes.push_back({options.weight, "--weight"});
  }
  return wishes;
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

using Item = std::unique_ptr<OmOutputPart>;
using Node = ListTree<OmOutputPart*>::Node;

Node Append(Node const& parent, Item item) {
  Node const node = parent.AppendChild(nullptr);
  node.Value() = item.release();
  return node;
}

}  // namespace

void AppendReport(OmOutputTree& document, Options const& options) {
  WarningLog warnings;
  DataSet const data = ReadDataSet(options.dataFile, WishesOf(options), warnings);
  RowWeights const weights =
      options.weight.empty() ? RowWeights() : RowWeights(data, options.weight, warnings);
  WarnOfTexts(data, options.statistics, warnings);

  std::vector<Item> items;
  items.push_back(std::make_unique<OmTextBlock>(OmStringCell("Log", true), options.command));
  items.push_back(MakeNotesTable(data, options.weight));
  for (TableRequest const& table : options.tables) {
    items.push_back(MakeCrossTable(data, weights, table, options.statistics, options.totals));
  }
  if (warnings.Total() != 0) {
    items.push_back(MakeWarningsTable(warnings));
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
}

}  // namespace lakresvos::report
