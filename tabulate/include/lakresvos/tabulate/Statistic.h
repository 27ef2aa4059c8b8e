#ifndef LAKRESVOS_TABULATE_STATISTIC_H
#define LAKRESVOS_TABULATE_STATISTIC_H

#include <string>
#include <vector>

#include <lakresvos/tabulate/Export.h>
#include <lakresvos/tabulate/Scanner.h>

namespace lakresvos::tabulate {

enum class Measure {
  Count,
  RowPercent,
  ColumnPercent,
  TotalPercent,
  Mean,
  Deviation,
  Sum,
  Minimum,
  Maximum
};

/// One number per cell of a table.
struct Statistic {
  Measure measure;
  NamedColumn column;  ///< what it is taken of; without a name where NeedsColumn() is false
};

/// Whether the measure is taken of a data column rather than of the rows as such.
LAKRESVOS_TABULATE_EXPORT bool NeedsColumn(Measure measure);

/// Whether the measure is a share of a count.
LAKRESVOS_TABULATE_EXPORT bool IsPercent(Measure measure);

/// "Row %", "Mean": what a table calls the measure.
LAKRESVOS_TABULATE_EXPORT char const* LabelOf(Measure measure);

/// Reads `count,row%,column%,total%,mean:X,sd:X,sum:X,min:X,max:X`, or some of them, in any order.
/// @throws InputError that names the position, also for a statistic that comes twice.
LAKRESVOS_TABULATE_EXPORT std::vector<Statistic> ParseStatistics(std::string const& text);

}  // namespace lakresvos::tabulate

#endif
