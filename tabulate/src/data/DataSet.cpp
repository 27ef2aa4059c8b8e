#include <algorithm>
#include <string_view>
#include <unordered_map>

#include <lakresvos/tabulate/DataSet.h>
#include <lakresvos/tabulate/InputError.h>
#include <lakresvos/tabulate/Quoting.h>
#include <lakresvos/tabulate/WarningLog.h>

#include "data/CsvReader.h"
#include "text/Plural.h"

namespace lakresvos::tabulate {

namespace {

class DataSetBuilder : public CsvSink {
 public:
  DataSetBuilder(std::string const& name, RequiredColumns const& required, WarningLog& warnings)
      : required_(required), warnings_(warnings) {
    data_.file = name;
  }

  void Add(CsvRecord const& record) override {
    if (data_.columns.empty()) {
      AddColumns(record);
    } else {
      AddRow(record);
    }
  }

  /// @throws InputError when there was no header.
  DataSet Result() {
    if (data_.columns.empty()) {
      throw InputError(data_.file, 1, "expected a header line with the names of the columns");
    }
    return std::move(data_);
  }

 private:
  void AddColumns(CsvRecord const& header) {
    std::unordered_map<std::string, std::size_t> numbers;
    for (std::size_t i = 0; i < header.size(); ++i) {
      std::string const name(header[i]);
      auto const [known, added] = numbers.emplace(name, i);
      if (!added) {
        throw InputError(data_.file, header.Line(),
                         "duplicate column name " + Quote(name) + " in columns " +
                             std::to_string(known->second + 1) + " and " + std::to_string(i + 1));
      }
    }
    std::vector<bool> kept(header.size());
    for (RequiredColumn const& column : required_) {
      auto const found = numbers.find(column.name);
      if (found == numbers.end()) {
        throw InputError(data_.file, header.Line(),
                         "unknown column " + Quote(column.name) + " in " + column.DescribeSource());
      }
      kept[found->second] = true;
    }
    for (std::size_t i = 0; i < header.size(); ++i) {
      data_.columns.emplace_back(std::string(header[i]), kept[i]);
    }
  }

  void AddRow(CsvRecord const& record) {
    ++data_.records;
    if (record.size() != data_.columns.size()) {
      warnings_.Add({Skipped::Lines, record.Line(), NameFirstOddField(record),
                     Plural(record.size(), "field") + " where the header has " +
                         std::to_string(data_.columns.size()) + "; the line was skipped"});
      return;
    }
    data_.lines.push_back(record.Line());
    for (std::size_t i = 0; i < record.size(); ++i) {
      data_.columns[i].Append(record[i]);
    }
  }

  /// The first column that the record has no field for, or the number of the first field too many.
  std::string NameFirstOddField(CsvRecord const& record) const {
    return record.size() < data_.columns.size() ? data_.columns[record.size()].Name()
                                                : std::to_string(data_.columns.size() + 1);
  }

  DataSet data_;
  RequiredColumns const& required_;
  WarningLog& warnings_;
};

}  // namespace

std::size_t DataSet::FindColumn(std::string const& name) const {
  auto const found = std::find_if(columns.begin(), columns.end(),
                                  [&](DataColumn const& column) { return column.Name() == name; });
  return static_cast<std::size_t>(found - columns.begin());
}

DataSet ReadDataSet(std::string const& file, RequiredColumns const& required,
                    WarningLog& warnings) {
  DataSetBuilder builder(file, required, warnings);
  ReadCsv(file, builder);
  return builder.Result();
}

DataSet ReadDataSet(std::istream& input, std::string const& name, RequiredColumns const& required,
                    WarningLog& warnings) {
  DataSetBuilder builder(name, required, warnings);
  ReadCsv(input, name, builder);
  return builder.Result();
}

}  // namespace lakresvos::tabulate
