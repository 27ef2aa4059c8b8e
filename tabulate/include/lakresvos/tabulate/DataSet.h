#ifndef LAKRESVOS_TABULATE_DATA_SET_H
#define LAKRESVOS_TABULATE_DATA_SET_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include <lakresvos/tabulate/Dictionary.h>
#include <lakresvos/tabulate/Export.h>

namespace lakresvos::tabulate {

class WarningLog;

/// One column: its distinct values, and for each row which of them it holds.
struct DataColumn {
  /// The code of a missing value, which is an empty field or one that reads NA.
  static constexpr std::uint32_t kMissing = 0xFFFFFFFF;

  std::string name;
  bool kept = false;                 ///< whether values and codes are filled
  bool text = false;                 ///< whether its categories are texts, whatever they look like
  Dictionary values;                 ///< the distinct values that are not missing
  std::vector<std::uint32_t> codes;  ///< per row, the number of its value or kMissing
  std::size_t missing = 0;           ///< in how many rows the value is missing
};

/// A column that is asked for, and where, for messages.
struct LAKRESVOS_TABULATE_EXPORT ColumnWish {
  std::string name;
  std::string_view option;   ///< "--table", say
  std::string_view value{};  ///< of the option; empty: goes without saying. Has to outlive the wish
  std::size_t position = 0;  ///< of the name in the value, from 1; 0: the name is all of it

  /// "--table 'a ~ b' at position 5".
  std::string Source() const;
};

/// The data of one file, column by column.
///
/// Thread safety: reading from several threads is safe while nobody changes the object.
struct LAKRESVOS_TABULATE_EXPORT DataSet {
  std::string file;
  std::vector<DataColumn> columns;
  std::vector<std::size_t> lines;  ///< per row, the line on which it starts
  std::size_t records = 0;         ///< rows and what was skipped, without the header

  std::size_t Rows() const { return lines.size(); }

  /// The number of the column with this name. Requires: there is one.
  std::size_t Find(std::string const& name) const;
};

/// Reads a CSV file whose first record names the columns. Values are kept of the wished columns
/// alone; missing ones are counted in all. A record with too few or too many fields is skipped with
/// a warning.
///
/// @throws InputError as ReadCsv(), for a file without a header or with a name that comes twice in
///         it, and for a wished column that it lacks.
LAKRESVOS_TABULATE_EXPORT DataSet ReadDataSet(std::string const& file,
                                              std::vector<ColumnWish> const& wishes,
                                              WarningLog& warnings);

}  // namespace lakresvos::tabulate

#endif
