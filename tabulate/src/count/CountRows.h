#ifndef LAKRESVOS_TABULATE_COUNT_COUNTROWS_H
#define LAKRESVOS_TABULATE_COUNT_COUNTROWS_H

#include <vector>

#include <lakresvos/tabulate/DataSet.h>
#include <lakresvos/tabulate/Formula.h>
#include <lakresvos/tabulate/RowWeights.h>
#include <lakresvos/tabulate/Statistic.h>

#include "count/TableCounts.h"

namespace lakresvos::tabulate {

/// Counts the rows of data in memory. Requires: the columns of formula and statistics are kept.
TableCounts CountRows(DataSet const& data, RowWeights const& weights, Formula const& formula,
                      std::vector<Statistic> const& statistics);

}  // namespace lakresvos::tabulate

#endif
