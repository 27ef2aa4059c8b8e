#ifndef LAKRESVOS_TABULATE_TABULATION_H
#define LAKRESVOS_TABULATE_TABULATION_H

#include <cstddef>
#include <cstdint>
#include <vector>

#include <lakresvos/tabulate/DataSet.h>
#include <lakresvos/tabulate/Formula.h>
#include <lakresvos/tabulate/RowWeights.h>
#include <lakresvos/tabulate/Statistic.h>

#include "Moments.h"
#include "TableDimension.h"
#include "TupleIndex.h"

namespace lakresvos::tabulate {

/// How many rows miss a value in one data column.
struct MissingRows {
  std::size_t column;
  std::size_t rows;
};

/// The numbers of one table: for every combination of categories that occurs, the statistics of its
/// rows.
///
/// A row that misses a value in a column of the formula is left out; one that misses a value which
/// a statistic is taken of counts in all others. With totals, and where percentages need them,
/// there is also a cell for every combination in which the Total of row and column dimensions
/// stands in for a category; it is made from the same rows, not from the numbers of other cells.
///
/// Thread safety: reading from several threads is safe.
class Tabulation {
 public:
  /// Goes through the rows once. Time and memory are linear in the rows, and in the cells times 2
  /// to the number of row and column dimensions when totals are needed.
  Tabulation(DataSet const& data, RowWeights const& weights, Formula const& formula,
             std::vector<Statistic> const& statistics, bool totals);

  /// The dimensions: those of the rows, then of the columns, then of the layers, outermost first.
  std::vector<TableDimension> const& Dimensions() const { return dimensions_; }

  /// How many combinations there are, in no particular order.
  std::size_t Cells() const { return cells_.size(); }

  /// Per dimension, the subscript of the cell's category, or TableDimension::Total().
  TupleIndex::Tuple Subscripts(std::size_t cell) const { return cells_[cell]; }

  /// Whether a Total stands in for any of the cell's categories.
  bool IsTotal(std::size_t cell) const;

  /// The statistic with this number, of the cell's rows. kNoNumber when there is nothing to take it
  /// of: a share of 0, or the mean of no value.
  double Value(std::size_t cell, std::size_t statistic) const;

  /// In how many of the cell's rows the value is missing that the statistic is taken of.
  std::size_t Missing(std::size_t cell, std::size_t statistic) const;

  /// The most decimals that the values are written with which the statistic is taken of; 0 when it
  /// is taken of no column.
  int Decimals(std::size_t statistic) const;

  /// How many rows were left out, and in which columns of the formula they miss a value.
  std::size_t RowsLeftOut() const { return rowsLeftOut_; }
  std::vector<MissingRows> const& LeftOutFor() const { return leftOutFor_; }

 private:
  static constexpr std::size_t kNoColumn = static_cast<std::size_t>(-1);

  void AddDimensions(DataSet const& data, std::vector<FormulaTerm> const& terms, TableAxis axis);
  void CountRows(DataSet const& data, RowWeights const& weights);
  void LeaveOut(DataSet const& data, std::size_t row);
  void AddTotals();
  std::uint32_t CellOf(TupleIndex::Tuple subscripts);
  Moments const& MomentsOf(std::size_t cell, std::size_t statistic) const;
  double Percent(std::size_t cell, bool overRows, bool overColumns) const;

  std::vector<TableDimension> dimensions_;
  std::vector<Measure> measures_;      // per statistic
  std::vector<std::size_t> slotOf_;    // per statistic, its place in measured_, or kNoColumn
  std::vector<std::size_t> measured_;  // the distinct data columns that statistics are taken of
  std::vector<int> decimals_;          // per measured column
  TupleIndex cells_;
  std::vector<WideNumber> counts_;  // per cell
  std::vector<Moments> moments_;    // per cell, one for each of measured_
  std::size_t rowsLeftOut_ = 0;
  std::vector<MissingRows> leftOutFor_;
};

}  // namespace lakresvos::tabulate

#endif
