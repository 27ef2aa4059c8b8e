#ifndef LAKRESVOS_TABULATE_DATASOURCE_H
#define LAKRESVOS_TABULATE_DATASOURCE_H

#include <lakresvos/tabulate/CountedData.h>
#include <lakresvos/tabulate/Export.h>

namespace lakresvos::tabulate {

class WarningLog;

/// Where data come from, and what counts them there.
///
/// Thread safety: needs exclusive access.
class LAKRESVOS_TABULATE_EXPORT DataSource {
 public:
  DataSource() = default;
  DataSource(DataSource const&) = delete;
  DataSource& operator=(DataSource const&) = delete;
  virtual ~DataSource();

  /// Counts all rows for some tables at once, in memory that grows with the cells of these and not
  /// with the rows.
  /// @param warnings gets a warning of everything that is skipped.
  /// @throws InputError that names the place at fault: for data that cannot be read or are broken,
  ///         for a column that is not there, and for a weight that is not a number or is below 0.
  virtual CountedData Count(CountRequest const& request, WarningLog& warnings) = 0;
};

}  // namespace lakresvos::tabulate

#endif
