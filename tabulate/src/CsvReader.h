#ifndef LAKRESVOS_TABULATE_CSVREADER_H
#define LAKRESVOS_TABULATE_CSVREADER_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace lakresvos::tabulate {

/// One record of a CSV file. Valid only while it is handed out.
class CsvRecord {
 public:
  /// The line on which the record starts, from 1.
  std::size_t Line() const { return line_; }

  /// The number of fields.
  std::size_t size() const { return ends_.size(); }

  /// The field at `index`, below size(), with its quotes removed.
  std::string_view operator[](std::size_t index) const {
    std::size_t const start = index == 0 ? 0 : ends_[index - 1];
    return std::string_view(text_).substr(start, ends_[index] - start);
  }

 private:
  friend class CsvParser;

  std::string text_;               // all fields, one behind the other
  std::vector<std::size_t> ends_;  // where each field ends
  std::size_t line_ = 1;
};

/// Takes the records of a CSV file, one after the other.
class CsvSink {
 public:
  virtual ~CsvSink() = default;
  virtual void Take(CsvRecord const& record) = 0;
};

/// Reads a CSV file as RFC 4180 has it, in one pass, in memory that grows with the longest record
/// alone.
///
/// Fields are UTF-8, behind a byte order mark or not; blanks belong to them; quoted ones may hold
/// commas, doubled quotes and line ends. Lines end with CR LF, LF or CR. Empty lines are no
/// records.
///
/// @throws InputError for a file that cannot be read, for broken quoting, and for bytes that are
///         not UTF-8, naming the line on which the bad field starts and the number of its column;
///         whatever the sink throws.
void ReadCsv(std::string const& file, CsvSink& sink);

}  // namespace lakresvos::tabulate

#endif
