#ifndef LAKRESVOS_TABULATE_TABLE_TABLEDIMENSION_H
#define LAKRESVOS_TABULATE_TABLE_TABLEDIMENSION_H

#include <cstddef>
#include <cstdint>
#include <vector>

#include <lakresvos/tabulate/DataSet.h>

#include "count/CellCounts.h"
#include "data/CategoryOrder.h"
#include "table/TupleIndex.h"

namespace lakresvos::tabulate {

enum class TableAxis { Rows, Columns, Layers };

/// One dimension of a table: which categories it has, and into which of them the cells of counted
/// data fall.
///
/// A dimension of nested columns has one category for each combination of their values that occurs.
struct TableDimension {
  /// Where a cell falls in which one of the columns is missing.
  static constexpr std::uint32_t kMissing = 0xFFFFFFFF;

  TableAxis axis;
  std::vector<std::size_t> columns;           ///< numbers of data columns, outermost first
  std::vector<CategoryOrder> orders;          ///< per column, its own categories
  TupleIndex categories;                      ///< per category, that of each column; in order
  std::vector<std::uint32_t> categoryByCell;  ///< per counted cell; kMissing when there is none

  /// The subscript of the Total, which stands in for all categories.
  std::uint32_t Total() const { return static_cast<std::uint32_t>(categories.size()); }
};

/// Makes the dimension of some columns.
/// @param data  all columns.
/// @param cells the counted cells.
/// @param first the place of the code of the first of the dimension's columns in a cell.
TableDimension MakeDimension(std::vector<DataColumn> const& data, CellCounts const& cells,
                             std::size_t first, TableAxis axis, std::vector<std::size_t> columns);

/// Where the categories end that have the first `width` values in common with the one at `start`.
/// @param categories of a dimension.
/// @param end        how far to look, above `start`.
std::size_t FindRunEnd(TupleIndex const& categories, std::size_t start, std::size_t end,
                       std::size_t width);

}  // namespace lakresvos::tabulate

#endif
