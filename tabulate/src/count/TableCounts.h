#ifndef LAKRESVOS_TABULATE_COUNT_TABLECOUNTS_H
#define LAKRESVOS_TABULATE_COUNT_TABLECOUNTS_H

#include <vector>

#include "count/CellCounts.h"

namespace lakresvos::tabulate {

/// All that a table needs to know of the rows.
struct TableCounts {
  CellCounts cells;           ///< by the codes of the formula's columns, in its order
  std::vector<int> decimals;  ///< of the numbers in each column of the measure plan
  int weightDecimals;         ///< 0 when all weights are integers
};

}  // namespace lakresvos::tabulate

#endif
