#ifndef LAKRESVOS_TABULATE_DATA_COLUMNPART_H
#define LAKRESVOS_TABULATE_DATA_COLUMNPART_H

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include <lakresvos/tabulate/DataSet.h>

#include "data/ColumnWriter.h"

namespace lakresvos::tabulate {

/// Rows that are to be appended to a column, which another thread may fill at the same time.
///
/// It remembers the values that it has handed over, so that handing over looks up each distinct
/// value once, however often that is done.
class ColumnPart {
 public:
  /// @param whole the column, which outlives its part at this address.
  explicit ColumnPart(DataColumn& whole);

  /// Adds a row.
  void Append(std::string_view field) { writer_.Append(field); }

  /// The rows that were added since the last time. Its codes are not those of the whole column.
  DataColumn& Rows() { return *part_; }

  /// Moves the rows to the end of the column. New values get their codes there in the order in
  /// which they appeared here.
  void HandOver();

  /// For each value that was handed over its code in the whole column.
  std::vector<std::uint32_t> const& CodesInWhole() const { return codeInWhole_; }

 private:
  DataColumn* whole_;
  std::unique_ptr<DataColumn> part_;
  ColumnWriter writer_;
  std::vector<std::uint32_t> codeInWhole_;  // for each value that was handed over
};

}  // namespace lakresvos::tabulate

#endif
