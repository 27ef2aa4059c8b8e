#include "data/DataSetBuilder.h"

#include <algorithm>
#include <iterator>
#include <unordered_map>
#include <utility>
#include <vector>

#include <lakresvos/tabulate/InputError.h>
#include <lakresvos/tabulate/Quoting.h>

#include "data/ColumnPart.h"
#include "text/Plural.h"

namespace lakresvos::tabulate {

/// The records of another thread.
class DataSetBuilder::Part : public CsvPartSink {
 public:
  explicit Part(DataSetBuilder& whole)
      : whole_(whole), columns_(whole.data_.columns.begin(), whole.data_.columns.end()) {}

  void Add(CsvRecord const& record) override {
    if (record.size() != columns_.size()) {
      skipped_.push_back({record.Line(), record.size()});
      return;
    }
    lines_.push_back(record.Line());
    for (std::size_t i = 0; i < record.size(); ++i) {
      columns_[i].Append(record[i]);
    }
  }

  void HandOver(std::size_t linesBefore) override {
    for (SkippedRecord const& record : skipped_) {
      whole_.Skip(linesBefore + record.line, record.fields);
    }
    skipped_.clear();
    whole_.FlushColumns();
    DataSet& data = whole_.data_;
    data.records += lines_.size();
    std::transform(lines_.begin(), lines_.end(), std::back_inserter(data.lines),
                   [&](std::size_t line) { return linesBefore + line; });
    lines_.clear();
    for (ColumnPart& column : columns_) {
      column.HandOver();
    }
  }

 private:
  struct SkippedRecord {
    std::size_t line;
    std::size_t fields;
  };

  DataSetBuilder& whole_;
  std::vector<SkippedRecord> skipped_;
  std::vector<std::size_t> lines_;  // of the other records
  std::vector<ColumnPart> columns_;
};

DataSetBuilder::DataSetBuilder(std::string const& name, RequiredColumns const& required,
                               WarningLog& warnings)
    : required_(required), warnings_(warnings) {
  data_.file = name;
}

void DataSetBuilder::Add(CsvRecord const& record) {
  if (data_.columns.empty()) {
    AddColumns(record);
  } else {
    AddRow(record);
  }
}

std::unique_ptr<CsvPartSink> DataSetBuilder::MakePart() {
  return data_.columns.empty() ? nullptr : std::make_unique<Part>(*this);
}

DataSet DataSetBuilder::Result() {
  if (data_.columns.empty()) {
    throw InputError(data_.file, 1, "expected a header line with the names of the columns");
  }
  FlushColumns();
  return std::move(data_);
}

void DataSetBuilder::AddColumns(CsvRecord const& header) {
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
  for (DataColumn& column : data_.columns) {
    writers_.emplace_back(column);
  }
}

void DataSetBuilder::AddRow(CsvRecord const& record) {
  if (record.size() != data_.columns.size()) {
    Skip(record.Line(), record.size());
    return;
  }
  ++data_.records;
  data_.lines.push_back(record.Line());
  for (std::size_t i = 0; i < record.size(); ++i) {
    writers_[i].Append(record[i]);
  }
}

void DataSetBuilder::FlushColumns() {
  for (ColumnWriter& writer : writers_) {
    writer.Flush();
  }
}

/// Leaves out a record with this number of fields.
void DataSetBuilder::Skip(std::size_t line, std::size_t fields) {
  ++data_.records;
  warnings_.Add({Skipped::Lines, line, NameFirstOddField(fields),
                 Plural(fields, "field") + " where the header has " +
                     std::to_string(data_.columns.size()) + "; the line was skipped"});
}

/// The first column that a record has no field for, or the number of the first field too many.
std::string DataSetBuilder::NameFirstOddField(std::size_t fields) const {
  return fields < data_.columns.size() ? data_.columns[fields].Name()
                                       : std::to_string(data_.columns.size() + 1);
}

}  // namespace lakresvos::tabulate
