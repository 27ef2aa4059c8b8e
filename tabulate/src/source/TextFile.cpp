#include <algorithm>
#include <utility>

#include <lakresvos/tabulate/TextFile.h>

#include "count/RowCounter.h"
#include "csv/CsvReader.h"
#include "csv/Separator.h"

namespace lakresvos::tabulate {

DataSource::~DataSource() = default;

TextFile::TextFile(std::string file, TextFormat const& format, ReadOptions const& options)
    : file_(std::move(file)), format_(format), options_(options) {}

CountedData TextFile::Count(CountRequest const& request, WarningLog& warnings) {
  RowCounter counter(file_, request, warnings);
  char const separator = ReadCsv(
      file_, counter, {.threads = std::max(options_.threads, 1U), .separator = format_.separator});
  CountedData data = counter.Result();
  if (!format_.separator.has_value()) {
    data.notes.push_back({"Separator", NameSeparator(separator)});
  }
  return data;
}

}  // namespace lakresvos::tabulate
