#ifndef LAKRESVOS_TABULATE_CSV_CSVHEADER_H
#define LAKRESVOS_TABULATE_CSV_CSVHEADER_H

#include <cstddef>
#include <string>
#include <vector>

#include <lakresvos/tabulate/DataSet.h>
#include <lakresvos/tabulate/RequiredColumns.h>
#include <lakresvos/tabulate/WarningLog.h>

#include "csv/CsvSink.h"

namespace lakresvos::tabulate {

/// Finds columns in the record that names them.
/// @param file names the source in messages.
/// @return for each required column its number.
/// @throws InputError when the header has a name twice or lacks a required column.
std::vector<std::size_t> FindColumns(CsvRecord const& header, std::string const& file,
                                     RequiredColumns const& required);

/// The error of data without a header.
[[noreturn]] void FailWithoutHeader(std::string const& file);

/// Warns of a record that has not as many fields as there are columns, and counts it as skipped.
void SkipRecord(std::size_t line, std::size_t fields, std::vector<DataColumn> const& columns,
                WarningLog& warnings);

}  // namespace lakresvos::tabulate

#endif
