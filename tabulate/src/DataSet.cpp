#include <algorithm>
#include <string_view>
#include <unordered_map>

#include <lakresvos/tabulate/DataSet.h>
#include <lakresvos/tabulate/InputError.h>
#include <lakresvos/tabulate/Quoting.h>
#include <lakresvos/tabulate/WarningLog.h>

#include "CsvReader.h"

namespace lakresvos::tabulate {

namespace {

bool IsMissing(std::string_view field) {
  return field.empty() || field == "NA";
}

std::string Fields(std::size_t count) {
  return std::to_string(count) + (count == 1 ? " field" : " fields");
}

class DataSetSink : public CsvSink {
 public:
  DataSetSink(DataSet& data, std::vector<ColumnWish> const& wishes, WarningLog& warnings)
      : data_(data), wishes_(wishes), warnings_(warnings) {}

  void Take(CsvRecord const& record) override {
    if (data_.columns.empty()) {
      TakeHeader(record);
    } else {
      TakeRow(record);
    }
  }

 private:
  void TakeHeader(CsvRecord const& record) {
    std::unordered_map<std::string, std::size_t> numbers;
    for (std::size_t i = 0; i < record.size(); ++i) {
      std::string const name(record[i]);
      auto const [known, added] = numbers.emplace(name, i);
      if (!added) {
        throw InputError(data_.file, record.Line(),
                         "columns " + std::to_string(known->second + 1) + " and " +
                             std::to_string(i + 1) + " have the same name " + Quoted(name));
      }
    }
    data_.columns.resize(record.size());
    for (auto const& [name, number] : numbers) {
      data_.columns[number].name = name;
    }
    for (ColumnWish const& wish : wishes_) {
      auto const found = numbers.find(wish.name);
      if (found == numbers.end()) {
        throw InputError(
            data_.file, record.Line(),
            "there is no column " + Quoted(wish.name) + ", which " + wish.Source() + " asks for");
      }
      data_.columns[found->second].kept = true;
    }
  }

  void TakeRow(CsvRecord const& record) {
    ++data_.records;
    if (record.size() != data_.columns.size()) {
      warnings_.Add({Skipped::Lines, record.Line(), NameOfFirstOddField(record),
                     Fields(record.size()) + " where the header has " +
                         std::to_string(data_.columns.size()) + "; the line was skipped"});
      return;
    }
    data_.lines.push_back(record.Line());
    for (std::size_t i = 0; i < record.size(); ++i) {
      DataColumn& column = data_.columns[i];
      std::string_view const field = record[i];
      bool const missing = IsMissing(field);
      column.missing += missing ? 1 : 0;
      if (column.kept) {
        column.codes.push_back(missing ? DataColumn::kMissing : column.values.Intern(field));
      }
    }
  }

  /// The first column that the record has no field for, or the number of the first field too many.
  std::string NameOfFirstOddField(CsvRecord const& record) const {
    return record.size() < data_.columns.size() ? data_.columns[record.size()].name
                                                : std::to_string(data_.columns.size() + 1);
  }

  DataSet& data_;
  std::vector<ColumnWish> const& wishes_;
  WarningLog& warnings_;
};

}  // namespace

std::string ColumnWish::Source() const {
  std::string source(option);
  if (!value.empty()) {
    source += " '" + std::string(value) + "'";
  }
  return position == 0 ? source : source + " at position " + std::to_string(position);
}

std::size_t DataSet::Find(std::string const& name) const {
  auto const found = std::find_if(columns.begin(), columns.end(),
                                  [&](DataColumn const& column) { return column.name == name; });
  return static_cast<std::size_t>(found - columns.begin());
}

DataSet ReadDataSet(std::string const& file, std::vector<ColumnWish> const& wishes,
                    WarningLog& warnings) {
  DataSet data;
  data.file = file;
  DataSetSink sink(data, wishes, warnings);
  ReadCsv(file, sink);
  if (data.columns.empty()) {
    throw InputError(file, 1, "the file has no line that names the columns");
  }
  return data;
}

}  // namespace lakresvos::tabulate
