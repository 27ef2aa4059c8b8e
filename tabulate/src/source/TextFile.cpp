#include <algorithm>
#include <memory>
#include <utility>

#include <lakresvos/tabulate/TextFile.h>

#include "count/RowCounter.h"
#include "csv/CsvReader.h"
#include "csv/Separator.h"
#include "data/ValueFormat.h"

namespace lakresvos::tabulate {

DataSource::~DataSource() = default;

TextFile::TextFile(std::string file, TextFormat const& format, ReadOptions const& options)
    : file_(std::move(file)), format_(format), options_(options) {}

TextFile::TextFile(std::istream& input, std::string name, TextFormat const& format,
                   ReadOptions const& options)
    : input_(&input), file_(std::move(name)), format_(format), options_(options) {}

CountedData TextFile::Count(CountRequest const& request, WarningLog& warnings) {
  RowCounter counter(file_, ValueFormat::MakeUnlessUsual(format_), request, warnings);
  CsvReading const how{.threads = std::max(options_.threads, 1U), .separator = format_.separator};
  char const separator =
      input_ != nullptr ? ReadCsv(*input_, file_, counter, how) : ReadCsv(file_, counter, how);
  CountedData data = counter.Result();
  if (!format_.separator.has_value()) {
    data.notes.push_back({"Separator", NameSeparator(separator)});
  }
  return data;
}

}  // namespace lakresvos::tabulate
