#include "data/DataSetBuilder.h"

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

#include "csv/CsvHeader.h"
#include "data/ColumnPart.h"

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
    FailWithoutHeader(data_.file);
  }
  FlushColumns();
  return std::move(data_);
}

void DataSetBuilder::AddColumns(CsvRecord const& header) {
  std::vector<bool> kept(header.size());
  for (std::size_t const column : FindColumns(header, data_.file, required_)) {
    kept[column] = true;
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
  SkipRecord(line, fields, data_.columns, warnings_);
}

}  // namespace lakresvos::tabulate
