#include "csv/CsvHeader.h"

#include <unordered_map>

#include <lakresvos/tabulate/InputError.h>
#include <lakresvos/tabulate/Quoting.h>

#include "text/Plural.h"

namespace lakresvos::tabulate {

namespace {

/// The first column that a record has no field for, or the number of the first field too many.
std::string NameFirstOddField(std::size_t fields, std::vector<DataColumn> const& columns) {
  return fields < columns.size() ? columns[fields].Name() : std::to_string(columns.size() + 1);
}

}  // namespace

std::vector<std::size_t> FindColumns(CsvRecord const& header, std::string const& file,
                                     RequiredColumns const& required) {
  std::unordered_map<std::string, std::size_t> numbers;
  for (std::size_t i = 0; i < header.size(); ++i) {
    std::string const name(header[i]);
    auto const [known, added] = numbers.emplace(name, i);
    if (!added) {
      throw InputError(file, header.Line(),
                       "duplicate column name " + Quote(name) + " in columns " +
                           std::to_string(known->second + 1) + " and " + std::to_string(i + 1));
    }
  }
  std::vector<std::size_t> places;
  for (RequiredColumn const& column : required) {
    auto const found = numbers.find(column.name);
    if (found == numbers.end()) {
      throw InputError(file, header.Line(),
                       "unknown column " + Quote(column.name) + " in " + column.DescribeSource());
    }
    places.push_back(found->second);
  }
  return places;
}

void FailWithoutHeader(std::string const& file) {
  throw InputError(file, 1, "expected a header line with the names of the columns");
}

void SkipRecord(std::size_t line, std::size_t fields, std::vector<DataColumn> const& columns,
                WarningLog& warnings) {
  warnings.Add({Skipped::Lines, line, NameFirstOddField(fields, columns),
                Plural(fields, "field") + " where the header has " +
                    std::to_string(columns.size()) + "; the line was skipped"});
}

}  // namespace lakresvos::tabulate
