#ifndef LAKRESVOS_TABULATE_TABLE_TABULATION_H
#define LAKRESVOS_TABULATE_TABLE_TABULATION_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include <lakresvos/tabulate/DataSet.h>
#include <lakresvos/tabulate/Formula.h>
#include <lakresvos/tabulate/RowWeights.h>
#include <lakresvos/tabulate/Statistic.h>

#include "count/TableCounts.h"
#include "table/CompensatedSum.h"
#include "table/StatisticKind.h"
#include "table/TableDimension.h"
#include "table/TupleIndex.h"

namespace lakresvos::tabulate {

/// How many rows lack a value in one data column.
struct MissingRows {
  std::size_t column;
  std::size_t rows;
};

/// The numbers of one table: for every combination of categories that occurs, the statistics of its
/// rows, made of what was counted for every combination of values.
///
/// A row that lacks a value in a column of the formula is excluded; one that lacks a value of which
/// a statistic is taken counts in all others. With totals, and where percentages need them, there is
/// also a cell for every combination in which the Total of row and column dimensions stands in for a
/// category.
///
/// Thread safety: const operations may run in several threads at once; others need exclusive access.
class Tabulation {
 public:
  /// Takes time and memory linear in the counted cells, and in the cells times 2 to the number of row
  /// and column dimensions when totals are needed.
  /// @param columns of the data.
  /// @param counts  made for this formula and these statistics.
  Tabulation(std::vector<DataColumn> const& columns, TableCounts const& counts,
             Formula const& formula, std::vector<Statistic> const& statistics, bool totals);

  /// Counts the rows of data in memory first.
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

  /// The statistic with this number, of the cell's rows. kNoNumber when it cannot be computed: a
  /// share of 0, or the mean of no value.
  double Value(std::size_t cell, std::size_t statistic) const;

  /// In how many of the cell's rows the value is missing of which the statistic is taken.
  std::size_t Missing(std::size_t cell, std::size_t statistic) const;

  /// How many decimals the statistic is shown with.
  int Decimals(std::size_t statistic) const;

  /// How many rows are excluded.
  std::size_t ExcludedRows() const { return excludedRows_; }

  /// How many of the excluded rows lack a value in each column of the formula.
  std::vector<MissingRows> const& MissingByColumn() const { return missingByColumn_; }

 private:
  struct Measured {
    std::unique_ptr<CellSummaries> summaries;
    std::vector<std::size_t> missing;  // per cell, how many of its rows lack a value
    int decimals;                      // of the column's numbers
  };

  struct Computed {
    StatisticKind const* kind;
    std::size_t measured;  // its place in measured_, or MeasurePlan::kNone
  };

  void AddDimensions(std::vector<DataColumn> const& columns, CellCounts const& cells,
                     std::vector<FormulaTerm> const& terms, TableAxis axis);
  void AddCells(CellCounts const& cells);
  void ExcludeCell(CellCounts const& cells, std::size_t cell);
  void AddTotals();
  std::uint32_t InternCell(TupleIndex::Tuple subscripts);
  WideNumber CountWhole(std::size_t cell, Whole const& whole) const;

  std::vector<TableDimension> dimensions_;
  std::vector<Computed> statistics_;
  std::vector<Measured> measured_;
  TupleIndex cells_;
  std::vector<CompensatedSum> counts_;  // per cell, the sum of the weights of its rows
  int weightDecimals_;
  std::size_t excludedRows_ = 0;
  std::vector<MissingRows> missingByColumn_;
};

}  // namespace lakresvos::tabulate

#endif
