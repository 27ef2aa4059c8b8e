#include "Tabulation.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace lakresvos::tabulate {

Tabulation::Tabulation(DataSet const& data, RowWeights const& weights, Formula const& formula,
                       std::vector<Statistic> const& statistics, bool totals)
    : cells_(formula.rows.size() + formula.columns.size() + formula.layers.size()) {
  AddDimensions(data, formula.rows, TableAxis::Rows);
  AddDimensions(data, formula.columns, TableAxis::Columns);
  AddDimensions(data, formula.layers, TableAxis::Layers);
  for (Statistic const& statistic : statistics) {
    measures_.push_back(statistic.measure);
    totals = totals || IsPercent(statistic.measure);
    if (!NeedsColumn(statistic.measure)) {
      slotOf_.push_back(kNoColumn);
      continue;
    }
    std::size_t const column = data.Find(statistic.column.name);
    auto const known = std::find(measured_.begin(), measured_.end(), column);
    slotOf_.push_back(static_cast<std::size_t>(known - measured_.begin()));
    if (known == measured_.end()) {
      measured_.push_back(column);
    }
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
    for (NamedColumn const& named : term) {
      columns.push_back(data.Find(named.name));
      leftOutFor_.push_back({columns.back(), 0});
    }
    dimensions_.push_back(MakeDimension(data, axis, std::move(columns)));
  }
}

void Tabulation::CountRows(DataSet const& data, RowWeights const& weights) {
  std::vector<ColumnNumbers> numbers;
  for (std::size_t const column : measured_) {
    numbers.push_back(NumbersOf(data.columns[column]));
    decimals_.push_back(numbers.back().decimals);
  }
  std::vector<std::uint32_t> subscripts(dimensions_.size());
  for (std::size_t row = 0; row < data.Rows(); ++row) {
    double const weight = weights.Of(row);
    if (std::isnan(weight)) {
      continue;
    }
    bool missing = false;
    for (std::size_t d = 0; d < dimensions_.size(); ++d) {
      subscripts[d] = dimensions_[d].categoryOf[row];
      missing = missing || subscripts[d] == TableDimension::kMissing;
    }
    if (missing) {
      LeaveOut(data, row);
      continue;
    }
    std::uint32_t const cell = CellOf(subscripts);
    counts_[cell] += weight;
    for (std::size_t slot = 0; slot < measured_.size(); ++slot) {
      double const number = numbers[slot].Of(data.columns[measured_[slot]].codes[row]);
      Moments& moments = moments_[cell * measured_.size() + slot];
      if (std::isnan(number)) {
        moments.AddMissing();
      } else {
        moments.Add(number, weight);
      }
    }
  }
}

void Tabulation::LeaveOut(DataSet const& data, std::size_t row) {
  ++rowsLeftOut_;
  for (MissingRows& missing : leftOutFor_) {
    missing.rows += data.columns[missing.column].codes[row] == DataColumn::kMissing ? 1 : 0;
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
      std::uint32_t const total = CellOf(subscripts);
      counts_[total] += counts_[cell];
      for (std::size_t slot = 0; slot < measured_.size(); ++slot) {
        moments_[total * measured_.size() + slot].Merge(moments_[cell * measured_.size() + slot]);
      }
    }
  }
}

std::uint32_t Tabulation::CellOf(TupleIndex::Tuple subscripts) {
  std::uint32_t const cell = cells_.Intern(subscripts);
  if (cells_.size() > counts_.size()) {
    counts_.emplace_back();
    moments_.resize(moments_.size() + measured_.size());
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
  switch (measures_[statistic]) {
    case Measure::Count:
      return Rounded(counts_[cell]);
    case Measure::RowPercent:
      return Percent(cell, false, true);
    case Measure::ColumnPercent:
      return Percent(cell, true, false);
    case Measure::TotalPercent:
      return Percent(cell, true, true);
    case Measure::Mean:
      return MomentsOf(cell, statistic).Mean();
    case Measure::Deviation:
      return MomentsOf(cell, statistic).Deviation();
    case Measure::Sum:
      return MomentsOf(cell, statistic).Sum();
    case Measure::Minimum:
      return MomentsOf(cell, statistic).Minimum();
    case Measure::Maximum:
      return MomentsOf(cell, statistic).Maximum();
  }
  return kNoNumber;
}

std::size_t Tabulation::Missing(std::size_t cell, std::size_t statistic) const {
  return slotOf_[statistic] == kNoColumn ? 0 : MomentsOf(cell, statistic).Missing();
}

int Tabulation::Decimals(std::size_t statistic) const {
  return slotOf_[statistic] == kNoColumn ? 0 : decimals_[slotOf_[statistic]];
}

Moments const& Tabulation::MomentsOf(std::size_t cell, std::size_t statistic) const {
  return moments_[cell * measured_.size() + slotOf_[statistic]];
}

double Tabulation::Percent(std::size_t cell, bool overRows, bool overColumns) const {
  TupleIndex::Tuple const part = cells_[cell];
  std::vector<std::uint32_t> whole(part.begin(), part.end());
  for (std::size_t d = 0; d < dimensions_.size(); ++d) {
    TableAxis const axis = dimensions_[d].axis;
    if ((overRows && axis == TableAxis::Rows) || (overColumns && axis == TableAxis::Columns)) {
      whole[d] = dimensions_[d].Total();
    }
  }
  WideNumber const& base = counts_[cells_.Find(whole)];
  return base > 0 ? Rounded(100 * counts_[cell] / base) : kNoNumber;
}

}  // namespace lakresvos::tabulate
