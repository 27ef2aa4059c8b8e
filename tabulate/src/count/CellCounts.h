#ifndef LAKRESVOS_TABULATE_COUNT_CELLCOUNTS_H
#define LAKRESVOS_TABULATE_COUNT_CELLCOUNTS_H

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "count/CodePlaces.h"
#include "table/CellSummaries.h"
#include "table/CompensatedSum.h"
#include "table/TupleIndex.h"

namespace lakresvos::tabulate {

/// How the numbers of one column are summed up.
struct Measure {
  std::size_t number;  ///< which of a row's numbers it takes
  std::unique_ptr<CellSummaries> (*makeSummaries)();
};

/// The rows of each combination of codes, counted and summed up: the finest cells of a table, those
/// with missing values among them.
class CellCounts {
 public:
  /// @param width    how many codes a row has.
  /// @param weighted whether rows have weights; without, each counts once.
  CellCounts(std::size_t width, std::vector<Measure> const& measures, bool weighted);

  /// Adds a row.
  /// @param codes   of its values, kMissingCode among them.
  /// @param weight  NaN: it does not count, and its cell is known only.
  /// @param numbers kNoNumber for what is missing.
  void Add(TupleIndex::Tuple codes, double weight, std::span<double const> numbers) {
    std::size_t const cell =
        places_.Find(codes, cells_, [&] { return static_cast<std::uint32_t>(Intern(codes)); });
    if (std::isnan(weight)) {
      return;
    }
    ++rows_[cell];
    if (weighted_) {
      weights_[cell].Add(weight);
    }
    for (Measured& measured : measured_) {
      double const number = numbers[measured.number];
      if (std::isnan(number)) {
        ++measured.missing[cell];
      } else {
        measured.summaries->Add(cell, number, weight);
      }
    }
  }

  /// Adds all rows of another object with the same measures.
  /// @param translate gives the codes here that stand for codes there.
  template <class Translate>
  void Merge(CellCounts const& other, Translate translate) {
    for (std::size_t cell = 0; cell < other.size(); ++cell) {
      MergeCell(Intern(translate(other.Codes(cell))), other, cell);
    }
  }

  /// How many cells there are, in the order in which they first appeared.
  std::size_t size() const { return cells_.size(); }

  TupleIndex::Tuple Codes(std::size_t cell) const { return cells_[cell]; }

  /// How many of the cell's rows count.
  std::size_t Rows(std::size_t cell) const { return rows_[cell]; }

  /// Adds the sum of the weights of the cell's rows.
  void AddWeightTo(CompensatedSum& sum, std::size_t cell) const;

  /// In how many of the cell's rows that count the number is missing.
  std::size_t Missing(std::size_t cell, std::size_t measure) const {
    return measured_[measure].missing[cell];
  }

  CellSummaries const& Summaries(std::size_t measure) const {
    return *measured_[measure].summaries;
  }

 private:
  struct Measured {
    std::size_t number;
    std::unique_ptr<CellSummaries> summaries;
    std::vector<std::size_t> missing;  // by cell
  };

  std::size_t Intern(TupleIndex::Tuple codes);
  void MergeCell(std::size_t cell, CellCounts const& other, std::size_t otherCell);

  TupleIndex cells_;
  CodePlaces places_;
  bool weighted_;
  std::vector<std::size_t> rows_;
  std::vector<CompensatedSum> weights_;  // by cell; none without weights
  std::vector<Measured> measured_;
};

}  // namespace lakresvos::tabulate

#endif
