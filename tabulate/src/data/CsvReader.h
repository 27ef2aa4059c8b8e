#ifndef LAKRESVOS_TABULATE_DATA_CSVREADER_H
#define LAKRESVOS_TABULATE_DATA_CSVREADER_H

#include <iosfwd>
#include <string>

#include "data/CsvSink.h"

namespace lakresvos::tabulate {

/// Reads a CSV file as in RFC 4180, in one pass, in memory that grows with the longest record
/// alone.
///
/// Fields are UTF-8, with or without a byte order mark; spaces belong to them; quoted ones may hold
/// commas, doubled quotes and line ends. Beyond the RFC, lines may end with LF or CR as well as CR
/// LF, and empty lines are skipped.
///
/// @throws InputError for a file that cannot be read, for broken quotes and for invalid UTF-8, with
///         the line on which the bad field starts and the number of its column; whatever the sink
///         throws.
void ReadCsv(std::string const& file, CsvSink& sink);

/// Reads CSV from a stream up to its end; otherwise as above.
/// @param name names the source in messages.
void ReadCsv(std::istream& input, std::string const& name, CsvSink& sink);

}  // namespace lakresvos::tabulate

#endif
