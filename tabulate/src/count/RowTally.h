#ifndef LAKRESVOS_TABULATE_COUNT_ROWTALLY_H
#define LAKRESVOS_TABULATE_COUNT_ROWTALLY_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include <lakresvos/tabulate/DataSet.h>
#include <lakresvos/tabulate/WarningLog.h>

#include "count/RowPlan.h"
#include "count/TableCounts.h"
#include "csv/CsvSink.h"
#include "data/NumberReader.h"

namespace lakresvos::tabulate {

/// Counts rows as they are read, for all tables at once.
class RowTally {
 public:
  /// @param plan     as the others, has to outlive the tally.
  /// @param file     names the source in messages.
  /// @param format   of the values; null: the usual one.
  /// @param columns  get the distinct values of the rows.
  /// @param warnings gets a warning of everything that is skipped.
  RowTally(RowPlan const& plan, std::string const& file, ValueFormat const* format,
           std::vector<DataColumn*> columns, WarningLog& warnings);

  /// Counts a row. Requires: it has a field for each column.
  /// @throws InputError for a weight that is not a number or is below 0.
  void Add(CsvRecord const& row);

  /// Adds all that another tally of this plan has counted.
  /// @param codes for each column the codes here of its codes there.
  void Merge(RowTally const& other, std::vector<std::vector<std::uint32_t> const*> const& codes);

  /// How many rows counted.
  std::size_t Rows() const { return rows_; }

  /// Gives the counts of each table away.
  std::vector<TableCounts> Result();

 private:
  double ReadWeight(CsvRecord const& row);
  void ReadNumbers(CsvRecord const& row);
  void CountMissing(CsvRecord const& row);

  RowPlan const& plan_;
  std::string const& file_;
  std::vector<DataColumn*> columns_;
  WarningLog& warnings_;
  std::size_t rows_ = 0;
  NumberReader weightReader_;
  std::vector<NumberReader> numberReaders_;  // of each column of the measures
  std::vector<CellCounts> cells_;            // of each table

  // Of the row at hand.

  std::vector<std::uint32_t> codes_;  // of each column; kMissingCode where values are not kept
  std::vector<double> numbers_;       // of each column of the measures
  std::vector<std::uint32_t> tuple_;  // the codes that one table needs
};

}  // namespace lakresvos::tabulate

#endif
