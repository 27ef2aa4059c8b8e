#include <algorithm>

#include <lakresvos/tabulate/DataSet.h>

#include "csv/CsvReader.h"
#include "data/DataSetBuilder.h"
#include "data/FindColumn.h"

namespace lakresvos::tabulate {

namespace {

CsvReading ChooseReading(ReadOptions const& options) {
  return {.threads = std::max(options.threads, 1U)};
}

}  // namespace

std::size_t DataSet::FindColumn(std::string const& name) const {
  return tabulate::FindColumn(columns, name);
}

DataSet ReadDataSet(std::string const& file, RequiredColumns const& required, WarningLog& warnings,
                    ReadOptions const& options) {
  DataSetBuilder builder(file, required, warnings);
  ReadCsv(file, builder, ChooseReading(options));
  return builder.Result();
}

DataSet ReadDataSet(std::istream& input, std::string const& name, RequiredColumns const& required,
                    WarningLog& warnings, ReadOptions const& options) {
  DataSetBuilder builder(name, required, warnings);
  ReadCsv(input, name, builder, ChooseReading(options));
  return builder.Result();
}

}  // namespace lakresvos::tabulate
