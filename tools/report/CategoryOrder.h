#ifndef TOOLS_REPORT_CATEGORYORDER_H
#define TOOLS_REPORT_CATEGORYORDER_H

#include <cstdint>
#include <vector>

#include "DataSet.h"

namespace lakresvos::report {

/// The categories that the values of a data column make, in the order in which tables show them:
/// ascending when all values are numbers, and then equal numbers are one category however they are
/// written; else in the order in which the values first appear.
struct CategoryOrder {
  std::vector<std::uint32_t> categoryOf;  ///< by code
  std::vector<std::uint32_t> codeOf;      ///< by category, the first code that belongs to it
  bool numeric;                           ///< whether all values are numbers
};

/// Orders the values of a column. Requires: the column is kept.
CategoryOrder OrderCategories(DataColumn const& column);

}  // namespace lakresvos::report

#endif
