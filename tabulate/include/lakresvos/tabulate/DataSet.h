#ifndef LAKRESVOS_TABULATE_DATASET_H
#define LAKRESVOS_TABULATE_DATASET_H

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <lakresvos/Export.h>
#include <lakresvos/tabulate/ColumnNumbers.h>
#include <lakresvos/tabulate/Dictionary.h>
#include <lakresvos/tabulate/Export.h>
#include <lakresvos/tabulate/RequiredColumns.h>

namespace lakresvos::tabulate {

class ColumnPart;
class ColumnWriter;
class RowCounter;
class RowTally;
class ValueFormat;
struct LazyNumbers;
class WarningLog;

/// One column of data: its distinct values, and for each row which of them it holds.
///
/// A value is missing when its field is empty or reads NA. Can be moved but not copied. One that
/// was moved from can only be assigned to and destroyed.
///
/// Thread safety: const operations may run in several threads at once; others need exclusive
/// access.
class LAKRESVOS_TABULATE_EXPORT DataColumn {
 public:
  /// Makes a column without rows.
  /// @param kept whether values are kept; if not, only missing ones are counted.
  explicit DataColumn(std::string name, bool kept = true);
  /// Takes over everything of another one, in constant time; references to what that had end.
  DataColumn(DataColumn&& other) noexcept;
  /// Drops what it has and takes over everything of another one.
  DataColumn& operator=(DataColumn&& other) noexcept;
  ~DataColumn();

  /// Adds a row.
  /// @throws std::length_error when there are more than 4,294,967,295 distinct values, and
  ///         std::bad_alloc; the column is unchanged then.
  void Append(std::string_view field);

  /// The name in the header of the data.
  std::string const& Name() const { return name_; }

  /// Whether values are kept. If not, Values() and Codes() are empty. Codes() are empty too when
  /// rows were counted as they were read.
  bool IsKept() const { return kept_; }

  /// Whether the categories are texts in any case, even if all values are numbers; false at first.
  bool IsText() const { return text_; }

  /// Treats the categories as texts even if all values are numbers, in the order of the rows.
  void TreatAsText() { text_ = true; }

  /// The number of rows in which the value is missing, whether or not values are kept.
  std::size_t MissingCount() const { return missing_; }

  /// The distinct values that are not missing; their numbers are the codes. The reference is valid
  /// as long as the column.
  Dictionary const& Values() const { return values_; }

  /// For each row the code of its value, or kMissingCode. The reference is valid as long as the
  /// column.
  std::vector<std::uint32_t> const& Codes() const { return codes_; }

  /// A value as a number that ParseNumber() reads, if it is one as this column writes them; if not,
  /// some other text. For the library itself.
  LAKRESVOS_HIDDEN std::string ToPlainNumber(std::string_view value) const;

  /// The distinct values as numbers. The first call after values were added parses each distinct
  /// value once; later calls take constant time. The reference is valid until the next Append() and
  /// until the column is moved from or destroyed.
  ColumnNumbers const& Numbers() const;

 private:
  friend class ColumnPart;
  friend class ColumnWriter;
  friend class RowCounter;
  friend class RowTally;

  LAKRESVOS_HIDDEN bool IsMissing(std::string_view field) const;
  LAKRESVOS_HIDDEN std::uint32_t Take(std::string_view field);
  LAKRESVOS_HIDDEN void ForgetNumbers();

  std::string name_;
  bool kept_;
  bool text_ = false;
  std::size_t missing_ = 0;
  Dictionary values_;
  std::vector<std::uint32_t> codes_;
  std::unique_ptr<LazyNumbers> numbers_;
  std::shared_ptr<ValueFormat const> format_;  // null: NA is missing, and numbers are plain
};

/// The data of one source, column by column.
///
/// Can be moved but not copied; references to columns and what they hold stay valid then.
///
/// Thread safety: const operations may run in several threads at once; others need exclusive
/// access.
struct LAKRESVOS_TABULATE_EXPORT DataSet {
  std::string file;                 ///< the name of the source, for messages
  std::vector<DataColumn> columns;  ///< in the order of the header
  std::vector<std::size_t> lines;   ///< for each row the line on which it starts, from 1
  std::size_t records = 0;          ///< rows and skipped records, without the header

  /// The number of rows.
  std::size_t Rows() const { return lines.size(); }

  /// The index of the column with this name, or the number of columns when there is none. Takes
  /// time linear in the number of columns.
  std::size_t FindColumn(std::string const& name) const;
};

/// How data are read.
///
/// Thread safety: const operations may run in several threads at once; others need exclusive
/// access.
struct ReadOptions {
  /// How many threads may work at once, the calling one included; 0 counts as 1. The results do not
  /// depend on it. Below 192 KiB of data only the calling one works. Each takes about 1 MiB of
  /// memory, and as much again as the distinct values that it finds.
  unsigned threads = 1;
};

/// Reads a CSV file (RFC 4180, UTF-8) whose first record names the columns.
///
/// Values are kept of the required columns only; missing ones are counted in all. A record with too
/// few or too many fields is skipped. Takes one pass, in time linear in the size of the file.
///
/// Threads that are started have ended when this returns or throws. One that cannot be started is
/// done without.
///
/// @param required the columns to keep.
/// @param warnings gets a warning of each skipped record.
/// @throws InputError with file, line and column at fault: for a file that cannot be read, broken
///         quotes, invalid UTF-8, a missing header, a duplicate column name, and a
///         required column that is not there.
LAKRESVOS_TABULATE_EXPORT DataSet ReadDataSet(std::string const& file,
                                              RequiredColumns const& required, WarningLog& warnings,
                                              ReadOptions const& options = {});

/// Reads CSV from a stream up to its end, which the calling thread alone uses; otherwise as above.
/// @param name names the source in messages.
LAKRESVOS_TABULATE_EXPORT DataSet ReadDataSet(std::istream& input, std::string const& name,
                                              RequiredColumns const& required, WarningLog& warnings,
                                              ReadOptions const& options = {});

}  // namespace lakresvos::tabulate

#endif
