#include "table/Tabulation.h"

#include <algorithm>
#include <utility>

#include "count/CountRows.h"
#include "count/MeasurePlan.h"
#include "data/FindColumn.h"

namespace lakresvos::tabulate {

Tabulation::Tabulation(std::vector<DataColumn> const& columns, TableCounts const& counts,
                       Formula const& formula, std::vector<Statistic> const& statistics,
                       bool totals)
    : cells_(formula.rows.size() + formula.columns.size() + formula.layers.size()),
      weightDecimals_(counts.weightDecimals) {
  AddDimensions(columns, counts.cells, formula.rows, TableAxis::Rows);
  AddDimensions(columns, counts.cells, formula.columns, TableAxis::Columns);
  AddDimensions(columns, counts.cells, formula.layers, TableAxis::Layers);
  MeasurePlan const plan = PlanMeasures(statistics);
  for (std::size_t i = 0; i < statistics.size(); ++i) {
    StatisticKind const* const kind = statistics[i].kind;
    statistics_.push_back({kind, plan.measureByStatistic[i]});
    totals = totals || kind->whole.NeedsTotals();
  }
  for (Measure const& measure : plan.measures) {
    measured_.push_back({measure.makeSummaries(), {}, counts.decimals[measure.number]});
  }
  AddCells(counts.cells);
  if (totals) {
    AddTotals();
  }
}

Tabulation::Tabulation(DataSet const& data, RowWeights const& weights, Formula const& formula,
                       std::vector<Statistic> const& statistics, bool totals)
    : Tabulation(data.columns, CountRows(data, weights, formula, statistics), formula, statistics,
                 totals) {}

void Tabulation::AddDimensions(std::vector<DataColumn> const& columns, CellCounts const& cells,
                               std::vector<FormulaTerm> const& terms, TableAxis axis) {
  for (FormulaTerm const& term : terms) {
    std::size_t const first = missingByColumn_.size();
    std::vector<std::size_t> ofTerm;
    for (NameToken const& named : term) {
      ofTerm.push_back(FindColumn(columns, named.name));
      missingByColumn_.push_back({ofTerm.back(), 0});
    }
    dimensions_.push_back(MakeDimension(columns, cells, first, axis, std::move(ofTerm)));
  }
}

void Tabulation::AddCells(CellCounts const& cells) {
  std::vector<std::uint32_t> subscripts(dimensions_.size());
  for (std::size_t cell = 0; cell < cells.size(); ++cell) {
    if (cells.Rows(cell) == 0) {
      continue;
    }
    bool missing = false;
    for (std::size_t d = 0; d < dimensions_.size(); ++d) {
      subscripts[d] = dimensions_[d].categoryByCell[cell];
      missing = missing || subscripts[d] == TableDimension::kMissing;
    }
    if (missing) {
      ExcludeCell(cells, cell);
      continue;
    }
    std::uint32_t const merged = InternCell(subscripts);
    cells.AddWeightTo(counts_[merged], cell);
    for (std::size_t i = 0; i < measured_.size(); ++i) {
      measured_[i].summaries->Merge(merged, cells.Summaries(i), cell);
      measured_[i].missing[merged] += cells.Missing(cell, i);
    }
  }
}

void Tabulation::ExcludeCell(CellCounts const& cells, std::size_t cell) {
  TupleIndex::Tuple const codes = cells.Codes(cell);
  excludedRows_ += cells.Rows(cell);
  for (std::size_t i = 0; i < codes.size(); ++i) {
    missingByColumn_[i].rows += codes[i] == kMissingCode ? cells.Rows(cell) : 0;
  }
}

// Each dimension in turn adds its totals over the cells made so far, totals of earlier dimensions
// among them, so that in the end every combination of totals is there.
void Tabulation::AddTotals() {
  std::vector<std::uint32_t> subscripts(dimensions_.size());
  for (std::size_t d = 0; d < dimensions_.size(); ++d) {
    if (dimensions_[d].axis == TableAxis::Layers) {
      continue;
    }
    std::size_t const before = cells_.size();
    for (std::size_t cell = 0; cell < before; ++cell) {
      TupleIndex::Tuple const part = cells_[cell];
      std::copy(part.begin(), part.end(), subscripts.begin());
      subscripts[d] = dimensions_[d].Total();
      std::uint32_t const total = InternCell(subscripts);
      counts_[total].Add(counts_[cell]);
      for (Measured& measured : measured_) {
        measured.summaries->Merge(total, *measured.summaries, cell);
        measured.missing[total] += measured.missing[cell];
      }
    }
  }
}

std::uint32_t Tabulation::InternCell(TupleIndex::Tuple subscripts) {
  std::uint32_t const cell = cells_.Intern(subscripts);
  if (cells_.size() > counts_.size()) {
    counts_.emplace_back();
    for (Measured& measured : measured_) {
      measured.summaries->AddCell();
      measured.missing.push_back(0);
    }
  }
  return cell;
}

bool Tabulation::IsTotal(std::size_t cell) const {
  TupleIndex::Tuple const subscripts = cells_[cell];
  for (std::size_t d = 0; d < dimensions_.size(); ++d) {
    if (subscripts[d] == dimensions_[d].Total()) {
      return true;
    }
  }
  return false;
}

double Tabulation::Value(std::size_t cell, std::size_t statistic) const {
  auto const& [kind, measured] = statistics_[statistic];
  return kind->compute(
      {counts_[cell].Value(), CountWhole(cell, kind->whole),
       measured == MeasurePlan::kNone ? nullptr : measured_[measured].summaries.get(), cell});
}

std::size_t Tabulation::Missing(std::size_t cell, std::size_t statistic) const {
  std::size_t const measured = statistics_[statistic].measured;
  return measured == MeasurePlan::kNone ? 0 : measured_[measured].missing[cell];
}

int Tabulation::Decimals(std::size_t statistic) const {
  auto const& [kind, measured] = statistics_[statistic];
  return kind->countDecimals(weightDecimals_,
                             measured == MeasurePlan::kNone ? 0 : measured_[measured].decimals);
}

WideNumber Tabulation::CountWhole(std::size_t cell, Whole const& whole) const {
  if (!whole.NeedsTotals()) {
    return counts_[cell].Value();
  }
  TupleIndex::Tuple const part = cells_[cell];
  std::vector<std::uint32_t> subscripts(part.begin(), part.end());
  for (std::size_t d = 0; d < dimensions_.size(); ++d) {
    TableAxis const axis = dimensions_[d].axis;
    if ((whole.ofRows && axis == TableAxis::Rows) ||
        (whole.ofColumns && axis == TableAxis::Columns)) {
      subscripts[d] = dimensions_[d].Total();
    }
  }
  return counts_[cells_.Find(subscripts)].Value();
}

}  // namespace lakresvos::tabulate
