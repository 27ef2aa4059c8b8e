#ifndef LAKRESVOS_TABULATE_CSV_CSVREADER_H
#define LAKRESVOS_TABULATE_CSV_CSVREADER_H

#include <cstddef>
#include <iosfwd>
#include <optional>
#include <string>

#include "csv/CsvSink.h"

namespace lakresvos::tabulate {

/// How CSV is read.
struct CsvReading {
  std::size_t threads = 1;      ///< how many may parse it at the same time, at least 1
  std::size_t block = 1 << 16;  ///< how many bytes are worth a thread, at least 3

  /// What separates fields: a byte of ASCII that is neither a quote nor a line end; none: guessed of
  /// the first block.
  std::optional<char> separator = ',';
};

/// Reads a CSV file as in RFC 4180, in one pass, in memory that grows with the longest record and
/// the number of threads alone.
///
/// Fields are UTF-8, with or without a byte order mark; spaces belong to them; quoted ones may hold
/// separators, doubled quotes and line ends. Beyond the RFC, lines may end with LF or CR as well as CR
/// LF, and empty lines are skipped.
///
/// @return what separated the fields.
/// @throws InputError for a file that cannot be read, for broken quotes and for invalid UTF-8, with
///         the line on which the bad field starts and the number of its column; whatever the sink
///         throws. No thread is left then.
char ReadCsv(std::string const& file, CsvSink& sink, CsvReading const& how = {});

/// Reads CSV from a stream up to its end, in the calling thread alone; otherwise as above.
/// @param name names the source in messages.
char ReadCsv(std::istream& input, std::string const& name, CsvSink& sink,
             CsvReading const& how = {});

}  // namespace lakresvos::tabulate

#endif
