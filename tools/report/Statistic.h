#ifndef TOOLS_REPORT_STATISTIC_H
#define TOOLS_REPORT_STATISTIC_H

#include <string>
#include <vector>

#include "Scanner.h"

namespace lakresvos::report {

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
bool NeedsColumn(Measure measure);

/// Whether the measure is a share of a count.
bool IsPercent(Measure measure);

/// "Row %", "Mean": what a table calls the measure.
char const* LabelOf(Measure measure);

/// Reads `count,row%,column%,total%,mean:X,sd:X,sum:X,min:X,max:X`, or some of them, in any order.
/// @throws ReportError that names the position, also for a statistic that comes twice.
std::vector<Statistic> ParseStatistics(std::string const& text);

}  // namespace lakresvos::report

#endif
