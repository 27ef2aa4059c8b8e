#include "count/CellCounts.h"

namespace lakresvos::tabulate {

CellCounts::CellCounts(std::size_t width, std::vector<Measure> const& measures, bool weighted)
    : cells_(width), places_(width), weighted_(weighted) {
  for (Measure const& measure : measures) {
    measured_.push_back({measure.number, measure.makeSummaries(), {}});
  }
}

std::size_t CellCounts::Intern(TupleIndex::Tuple codes) {
  std::size_t const cell = cells_.Intern(codes);
  if (cell == rows_.size()) {
    rows_.push_back(0);
    if (weighted_) {
      weights_.emplace_back();
    }
    for (Measured& measured : measured_) {
      measured.summaries->AddCell();
      measured.missing.push_back(0);
    }
  }
  return cell;
}

void CellCounts::MergeCell(std::size_t cell, CellCounts const& other, std::size_t otherCell) {
  rows_[cell] += other.rows_[otherCell];
  if (weighted_) {
    weights_[cell].Add(other.weights_[otherCell]);
  }
  for (std::size_t i = 0; i < measured_.size(); ++i) {
    measured_[i].summaries->Merge(cell, *other.measured_[i].summaries, otherCell);
    measured_[i].missing[cell] += other.measured_[i].missing[otherCell];
  }
}

void CellCounts::AddWeightTo(CompensatedSum& sum, std::size_t cell) const {
  if (weighted_) {
    sum.Add(weights_[cell]);
  } else {
    sum.Add(static_cast<double>(rows_[cell]));
  }
}

}  // namespace lakresvos::tabulate
