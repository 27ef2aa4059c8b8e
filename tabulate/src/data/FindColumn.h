#ifndef LAKRESVOS_TABULATE_DATA_FINDCOLUMN_H
#define LAKRESVOS_TABULATE_DATA_FINDCOLUMN_H

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include <lakresvos/tabulate/DataSet.h>

namespace lakresvos::tabulate {

/// The place of the column with this name, or the number of columns when there is none.
inline std::size_t FindColumn(std::vector<DataColumn> const& columns, std::string const& name) {
  auto const found = std::ranges::find(columns, name, &DataColumn::Name);
  return static_cast<std::size_t>(found - columns.begin());
}

}  // namespace lakresvos::tabulate

#endif
