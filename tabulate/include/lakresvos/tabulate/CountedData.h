#ifndef LAKRESVOS_TABULATE_COUNTEDDATA_H
#define LAKRESVOS_TABULATE_COUNTEDDATA_H

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include <lakresvos/tabulate/DataSet.h>
#include <lakresvos/tabulate/Export.h>
#include <lakresvos/tabulate/Formula.h>
#include <lakresvos/tabulate/RequiredColumns.h>
#include <lakresvos/tabulate/Statistic.h>

namespace lakresvos::tabulate {

struct TableCounts;

/// What is to be counted of data.
///
/// Thread safety: const operations may run in several threads at once; others need exclusive
/// access.
struct CountRequest {
  std::vector<Formula> formulas = {};         ///< one for each table
  std::vector<Statistic> statistics = {};     ///< the same for each table
  std::optional<RequiredColumn> weight = {};  ///< how often a row counts; none: once
};

/// Something about a source that a reader of its tables should know.
///
/// Thread safety: const operations may run in several threads at once; others need exclusive
/// access.
struct SourceNote {
  std::string label;  ///< "Separator"
  std::string text;   ///< "Semicolon"
};

/// What was counted of data: as much as some tables need, and no single rows.
///
/// Can be moved but not copied. One that was moved from can only be assigned to and destroyed.
///
/// Thread safety: const operations may run in several threads at once; others need exclusive
/// access.
struct LAKRESVOS_TABULATE_EXPORT CountedData {
  /// Nothing was counted.
  CountedData();
  /// Takes over everything of another one, in constant time.
  CountedData(CountedData&& other) noexcept;
  /// Drops what it has and takes over everything of another one.
  CountedData& operator=(CountedData&& other) noexcept;
  ~CountedData();

  /// The index of the column with this name, or the number of columns when there is none. Takes
  /// time linear in the number of columns.
  std::size_t FindColumn(std::string const& name) const;

  std::string source;               ///< the name of the source, for messages
  std::vector<SourceNote> notes;    ///< in the order in which they are to be shown
  std::vector<DataColumn> columns;  ///< in the order of the source; those of formulas are kept
  std::size_t records = 0;          ///< rows and skipped records
  std::size_t rows = 0;             ///< the rows that count: those with a weight, if there are any
  std::vector<TableCounts> tables;  ///< for each formula what MakeCrossTable() needs
};

}  // namespace lakresvos::tabulate

#endif
