#ifndef LAKRESVOS_TABULATE_REQUIREDCOLUMNS_H
#define LAKRESVOS_TABULATE_REQUIREDCOLUMNS_H

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include <lakresvos/tabulate/Export.h>
#include <lakresvos/tabulate/Formula.h>
#include <lakresvos/tabulate/Statistic.h>

namespace lakresvos::tabulate {

/// A data column that a table needs, and where it is named, for messages.
///
/// Thread safety: const operations may run in several threads at once; others need exclusive
/// access.
struct LAKRESVOS_TABULATE_EXPORT RequiredColumn {
  std::string name;    ///< as in the header of the data
  std::string source;  ///< what names it: "formula", say
  std::shared_ptr<std::string const> value =
      {};                    ///< the text in which it is named; null: not shown
  std::size_t position = 0;  ///< of the name in that text, in code points from 1; 0: not shown

  /// "formula 'a ~ b' at position 5".
  std::string DescribeSource() const;
};

/// The data columns that are to be kept when data are read. One may be there several times.
using RequiredColumns = std::vector<RequiredColumn>;

/// The columns of a formula: those of the rows, then of the columns, then of the layers.
LAKRESVOS_TABULATE_EXPORT RequiredColumns ListColumns(Formula const& formula);

/// The columns of which statistics are taken, in the order of the statistics.
LAKRESVOS_TABULATE_EXPORT RequiredColumns ListColumns(std::vector<Statistic> const& statistics);

/// The columns of a formula and then of statistics: all that a table without weights needs.
LAKRESVOS_TABULATE_EXPORT RequiredColumns ListColumns(Formula const& formula,
                                                      std::vector<Statistic> const& statistics);

}  // namespace lakresvos::tabulate

#endif
