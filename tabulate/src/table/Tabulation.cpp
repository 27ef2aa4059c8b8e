#include "table/Tabulation.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace lakresvos::tabulate {

namespace {

/// Keeps the cell of each combination of categories at the combination's place among all of them,
/// where it is found faster than by its subscripts.
class PlacedCells {
 public:
  /// @param limit how many combinations there may be; if there are more, nothing is kept.
  PlacedCells(std::vector<TableDimension> const& dimensions, std::size_t limit) {
    std::size_t places = 1;
    for (TableDimension const& dimension : dimensions) {
      std::size_t const count = dimension.categories.size();
      places = count == 0 || places <= limit / count ? places * count : limit + 1;
      counts_.push_back(count);
    }
    if (places <= limit) {
      cells_.assign(places, IdTable::kNone);
    }
  }

  /// The cell with these subscripts, which `intern()` finds or makes.
  template <class Intern>
  std::uint32_t Find(TupleIndex::Tuple subscripts, Intern intern) {
    if (cells_.empty()) {
      return intern();
    }
    std::size_t place = 0;
    for (std::size_t d = 0; d < counts_.size(); ++d) {
      place = place * counts_[d] + subscripts[d];
    }
    if (cells_[place] == IdTable::kNone) {
      cells_[place] = intern();
    }
    return cells_[place];
  }

 private:
  std::vector<std::size_t> counts_;  // of the categories of each dimension
  std::vector<std::uint32_t> cells_;
};

}  // namespace

Tabulation::Tabulation(DataSet const& data, RowWeights const& weights, Formula const& formula,
                       std::vector<Statistic> const& statistics, bool totals)
    : cells_(formula.rows.size() + formula.columns.size() + formula.layers.size()),
      weightDecimals_(weights.Decimals()) {
  AddDimensions(data, formula.rows, TableAxis::Rows);
  AddDimensions(data, formula.columns, TableAxis::Columns);
  AddDimensions(data, formula.layers, TableAxis::Layers);
  for (Statistic const& statistic : statistics) {
    AddStatistic(data, statistic);
    totals = totals || statistic.kind->whole.NeedsTotals();
  }
  CountRows(data, weights);
  if (totals) {
    AddTotals();
  }
}

void Tabulation::AddDimensions(DataSet const& data, std::vector<FormulaTerm> const& terms,
                               TableAxis axis) {
  for (FormulaTerm const& term : terms) {
    std::vector<std::size_t> columns;
    for (NameToken const& named : term) {
      columns.push_back(data.FindColumn(named.name));
      missingByColumn_.push_back({columns.back(), 0});
    }
    dimensions_.push_back(MakeDimension(data, axis, std::move(columns)));
  }
}

void Tabulation::AddStatistic(DataSet const& data, Statistic const& statistic) {
  if (!NeedsColumn(statistic)) {
    statistics_.push_back({statistic.kind, kNone});
    return;
  }
  std::size_t const column = data.FindColumn(statistic.column.name);
  auto const make = statistic.kind->makeSummaries;
  auto const known = std::find_if(measured_.begin(), measured_.end(), [&](Measured const& one) {
    return one.column == column && one.makeSummaries == make;
  });
  statistics_.push_back({statistic.kind, static_cast<std::size_t>(known - measured_.begin())});
  if (known == measured_.end()) {
    measured_.push_back({column, make, make(), {}, data.columns[column].Numbers().decimals});
  }
}

void Tabulation::CountRows(DataSet const& data, RowWeights const& weights) {
  std::vector<ColumnNumbers const*> numbers;
  for (Measured const& measured : measured_) {
    numbers.push_back(&data.columns[measured.column].Numbers());
  }
  std::vector<std::uint32_t> subscripts(dimensions_.size());
  PlacedCells cells(dimensions_, data.Rows());
  for (std::size_t row = 0; row < data.Rows(); ++row) {
    double const weight = weights.At(row);
    if (std::isnan(weight)) {
      continue;
    }
    bool missing = false;
    for (std::size_t d = 0; d < dimensions_.size(); ++d) {
      subscripts[d] = dimensions_[d].categoryByRow[row];
      missing = missing || subscripts[d] == TableDimension::kMissing;
    }
    if (missing) {
      ExcludeRow(data, row);
      continue;
    }
    std::uint32_t const cell = cells.Find(subscripts, [&] { return InternCell(subscripts); });
    counts_[cell].Add(weight);
    for (std::size_t i = 0; i < measured_.size(); ++i) {
      Measured& measured = measured_[i];
      double const number = numbers[i]->At(data.columns[measured.column].Codes()[row]);
      if (std::isnan(number)) {
        ++measured.missing[cell];
      } else {
        measured.summaries->Add(cell, number, weight);
      }
    }
  }
}

void Tabulation::ExcludeRow(DataSet const& data, std::size_t row) {
  ++excludedRows_;
  for (MissingRows& missing : missingByColumn_) {
    missing.rows += data.columns[missing.column].Codes()[row] == kMissingCode ? 1 : 0;
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
        measured.summaries->Merge(total, cell);
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
  return kind->compute({counts_[cell].Value(), CountWhole(cell, kind->whole),
                        measured == kNone ? nullptr : measured_[measured].summaries.get(), cell});
}

std::size_t Tabulation::Missing(std::size_t cell, std::size_t statistic) const {
  std::size_t const measured = statistics_[statistic].measured;
  return measured == kNone ? 0 : measured_[measured].missing[cell];
}

int Tabulation::Decimals(std::size_t statistic) const {
  auto const& [kind, measured] = statistics_[statistic];
  return kind->countDecimals(weightDecimals_, measured == kNone ? 0 : measured_[measured].decimals);
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
