#include <algorithm>
#include <map>
#include <numeric>
#include <utility>

#include <cells/OmCellMetaData.h>
#include <cells/OmNumber.h>
#include <cells/OmStringCell.h>
#include <lakresvos/tabulate/CrossTable.h>

#include "count/CountRows.h"
#include "table/CategoryGroups.h"
#include "table/DimensionTree.h"
#include "table/Tabulation.h"
#include "text/Plural.h"

namespace lakresvos::tabulate {

namespace {

std::string JoinTerms(std::vector<FormulaTerm> const& terms) {
  std::string list;
  for (FormulaTerm const& term : terms) {
    for (std::size_t level = 0; level < term.size(); ++level) {
      list += (level > 0 ? " / " : list.empty() ? "" : ", ") + term[level].name;
    }
  }
  return list;
}

/// "Count, Row %: Class, Sex by Survived for each Age".
std::string MakeTitle(Formula const& formula, std::vector<Statistic> const& statistics) {
  std::string title;
  for (Statistic const& statistic : statistics) {
    title += (title.empty() ? "" : ", ") + MakeStatisticLabel(statistic)->GetText();
  }
  title += ": " + JoinTerms(formula.rows);
  if (!formula.columns.empty()) {
    title += (formula.rows.empty() ? "" : " by ") + JoinTerms(formula.columns);
  } else if (formula.rows.empty()) {
    title += "All rows";
  }
  return formula.layers.empty() ? title : title + " for each " + JoinTerms(formula.layers);
}

class CrossTableBuilder {
 public:
  CrossTableBuilder(std::vector<DataColumn> const& data, TableCounts const& counts,
                    TableRequest const& request, std::vector<Statistic> const& statistics,
                    bool totals, std::vector<Grouping> const& groupings)
      : data_(data),
        statistics_(statistics),
        totals_(totals),
        groupings_(groupings),
        tabulation_(data, counts, request.formula, statistics, totals),
        hasStatisticsDimension_(statistics.size() > 1 || tabulation_.Dimensions().empty()) {
    std::string const title =
        request.title.empty() ? MakeTitle(request.formula, statistics) : request.title;
    table_ = std::make_unique<OmPivotTable>(OmStringCell(title), OmStringCell("Tabulation", true),
                                            false);
    AddDimensions();
    SetTitle(title);
    AddCells();
    if (!request.caption.empty()) {
      OmStringCell const caption(request.caption);
      table_->Caption(&caption);
    }
    table_->EndTable();
  }

  std::unique_ptr<OmPivotTable> Result() { return std::move(table_); }

 private:
  // The headings take an axis from its last entry to its first.
  void AddDimensions() {
    std::vector<TableDimension> const& dimensions = tabulation_.Dimensions();
    for (TableDimension const& source : dimensions) {
      bool const withTotal = totals_ && source.axis != TableAxis::Layers;
      OmDimension& dimension = table_->AddDimension(*MakeDimensionLabel(source, data_));
      FillDimension(dimension, source, CategoryGroups(source, data_, groupings_), data_, withTotal);
    }
    if (hasStatisticsDimension_) {
      AddStatisticsDimension();
      table_->Columns().push_back(static_cast<short>(dimensions.size()));
    }
    for (std::size_t d = dimensions.size(); d-- > 0;) {
      FindAxis(dimensions[d]).push_back(static_cast<short>(d));
    }
  }

  void AddStatisticsDimension() {
    OmDimension& dimension = table_->AddDimension(OmStringCell("Statistics", true));
    dimension.Root().Value().hide = true;
    for (std::size_t i = 0; i < statistics_.size(); ++i) {
      dimension.AddNewChild(dimension.Root(), *MakeStatisticLabel(statistics_[i]), i, false);
    }
  }

  PuppetVector<short>& FindAxis(TableDimension const& dimension) {
    if (dimension.axis == TableAxis::Rows) {
      return table_->Rows();
    }
    return dimension.axis == TableAxis::Columns ? table_->Columns() : table_->Layers();
  }

  void AddCells() {
    std::vector<int> index;
    for (std::size_t const cell : SortCells()) {
      TupleIndex::Tuple const subscripts = tabulation_.Subscripts(cell);
      index.assign(subscripts.begin(), subscripts.end());
      for (std::size_t i = 0; i < statistics_.size(); ++i) {
        if (hasStatisticsDimension_) {
          index.resize(subscripts.size());
          index.push_back(static_cast<int>(i));
        }
        AddCell(index, cell, i);
      }
    }
  }

  /// The cells to show, by layer, then by row, then by column; so footnotes come in this order too.
  std::vector<std::size_t> SortCells() const {
    std::vector<TableDimension> const& dimensions = tabulation_.Dimensions();
    std::vector<std::size_t> significance(dimensions.size());
    std::iota(significance.begin(), significance.end(), 0);
    std::stable_partition(significance.begin(), significance.end(),
                          [&](std::size_t d) { return dimensions[d].axis == TableAxis::Layers; });
    std::vector<std::size_t> cells;
    for (std::size_t cell = 0; cell < tabulation_.Cells(); ++cell) {
      if (totals_ || !tabulation_.IsTotal(cell)) {
        cells.push_back(cell);
      }
    }
    std::sort(cells.begin(), cells.end(), [&](std::size_t a, std::size_t b) {
      TupleIndex::Tuple const left = tabulation_.Subscripts(a);
      TupleIndex::Tuple const right = tabulation_.Subscripts(b);
      return std::ranges::lexicographical_compare(
          significance, significance, {}, [&](std::size_t d) { return left[d]; },
          [&](std::size_t d) { return right[d]; });
    });
    return cells;
  }

  void AddCell(std::vector<int> const& index, std::size_t cell, std::size_t statistic) {
    OmNumber number(tabulation_.Value(cell, statistic), tabulation_.Decimals(statistic));
    std::size_t const missing = tabulation_.Missing(cell, statistic);
    if (missing != 0) {
      OmCellMetaData meta;
      meta.addFootnote(InternFootnote(statistics_[statistic].column.name + " missing in " +
                                      Plural(missing, "row")));
      number.setMeta(&meta);
    }
    table_->Cell(index, number);
  }

  /// The number of a footnote; each text is one footnote.
  unsigned int InternFootnote(std::string const& text) {
    auto const [known, added] = footnotes_.emplace(text, 0);
    if (added) {
      OmFootnote footnote;
      footnote.text = new OmStringCell(text);
      known->second = static_cast<unsigned int>(table_->Footnote(footnote, true));
    }
    return known->second;
  }

  void SetTitle(std::string const& text) {
    OmStringCell title(text);
    if (tabulation_.ExcludedRows() != 0) {
      OmCellMetaData meta;
      meta.addFootnote(InternFootnote(MakeExclusionNote()));
      title.setMeta(&meta);
    }
    table_->SetTableTitle(title);
  }

  std::string MakeExclusionNote() const {
    std::size_t const rows = tabulation_.ExcludedRows();
    std::string columns;
    for (MissingRows const& missing : tabulation_.MissingByColumn()) {
      if (missing.rows != 0) {
        columns += (columns.empty() ? "" : ", ") + data_[missing.column].Name() + ": " +
                   std::to_string(missing.rows);
      }
    }
    return Plural(rows, "row") + " with missing values " + (rows == 1 ? "is" : "are") +
           " left out (" + columns + ")";
  }

  std::vector<DataColumn> const& data_;
  std::vector<Statistic> const& statistics_;
  bool totals_;
  std::vector<Grouping> const& groupings_;
  Tabulation tabulation_;
  bool hasStatisticsDimension_;
  std::unique_ptr<OmPivotTable> table_;
  std::map<std::string, unsigned int> footnotes_;
};

}  // namespace

std::unique_ptr<OmPivotTable> MakeCrossTable(CountedData const& data, std::size_t table,
                                             TableRequest const& request,
                                             std::vector<Statistic> const& statistics, bool totals,
                                             std::vector<Grouping> const& groupings) {
  return CrossTableBuilder(data.columns, data.tables[table], request, statistics, totals, groupings)
      .Result();
}

std::unique_ptr<OmPivotTable> MakeCrossTable(DataSet const& data, RowWeights const& weights,
                                             TableRequest const& request,
                                             std::vector<Statistic> const& statistics, bool totals,
                                             std::vector<Grouping> const& groupings) {
  TableCounts const counts = CountRows(data, weights, request.formula, statistics);
  return CrossTableBuilder(data.columns, counts, request, statistics, totals, groupings).Result();
}

}  // namespace lakresvos::tabulate
