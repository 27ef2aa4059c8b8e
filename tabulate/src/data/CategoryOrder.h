#ifndef LAKRESVOS_TABULATE_DATA_CATEGORYORDER_H
#define LAKRESVOS_TABULATE_DATA_CATEGORYORDER_H

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include <lakresvos/tabulate/DataSet.h>

namespace lakresvos::tabulate {

/// The categories that the values of a data column make, in the order in which tables show them:
/// ascending when all values are numbers, and then numbers that are exactly equal are one category
/// however they are written; else in the order in which the values first appear. A number with a
/// needless leading zero is a code, and makes texts of all values of its column.
struct CategoryOrder {
  std::vector<std::uint32_t> categoryByCode;  ///< by code
  std::vector<std::uint32_t> codeByCategory;  ///< by category, the first code that belongs to it
  bool numeric;                               ///< whether the values are numbers
};

/// Orders the values of a column. Requires: the column is kept.
CategoryOrder OrderCategories(DataColumn const& column);

/// The category that a value makes, whether or not the column has it in just these characters; none
/// when there is no such category.
/// @param order of this column.
std::optional<std::uint32_t> FindCategory(DataColumn const& column, CategoryOrder const& order,
                                          std::string_view value);

}  // namespace lakresvos::tabulate

#endif
