#include "count/RowCounter.h"

#include <utility>
#include <vector>

#include "csv/CsvHeader.h"
#include "data/ColumnPart.h"

namespace lakresvos::tabulate {

namespace {

std::vector<DataColumn*> RowsOf(std::vector<ColumnPart>& columns) {
  std::vector<DataColumn*> rows;
  rows.reserve(columns.size());
  for (ColumnPart& column : columns) {
    rows.push_back(&column.Rows());
  }
  return rows;
}

}  // namespace

/// What another thread has counted so far.
struct RowCounter::PartRows {
  PartRows(RowPlan const& plan, ValueFormat const* format, CountedData& whole)
      : columns(whole.columns.begin(), whole.columns.end()),
        rows(plan, whole.source, format, RowsOf(columns), warnings) {}

  std::vector<ColumnPart> columns;
  WarningLog warnings;  // since the last time, by lines from 1
  RowTally rows;
};

/// The records of another thread.
class RowCounter::Part : public CsvPartSink {
 public:
  Part(RowCounter& whole, PartRows& part) : whole_(whole), part_(part) {}

  void Add(CsvRecord const& record) override {
    if (record.size() == part_.columns.size()) {
      part_.rows.Add(record);
    } else {
      SkipRecord(record.Line(), record.size(), whole_.data_.columns, part_.warnings);
    }
    ++records_;
  }

  void HandOver(std::size_t linesBefore) override {
    whole_.data_.records += std::exchange(records_, 0);
    whole_.warnings_.Append(std::exchange(part_.warnings, {}), linesBefore);
    for (ColumnPart& column : part_.columns) {
      column.HandOver();
    }
  }

 private:
  RowCounter& whole_;
  PartRows& part_;
  std::size_t records_ = 0;
};

RowCounter::RowCounter(std::string const& name, std::shared_ptr<ValueFormat const> format,
                       CountRequest const& request, WarningLog& warnings)
    : format_(std::move(format)), request_(request), warnings_(warnings) {
  data_.source = name;
}

RowCounter::~RowCounter() = default;

void RowCounter::Add(CsvRecord const& record) {
  if (!rows_.has_value()) {
    ReadHeader(record);
    return;
  }
  ++data_.records;
  if (record.size() == data_.columns.size()) {
    rows_->Add(record);
  } else {
    SkipRecord(record.Line(), record.size(), data_.columns, warnings_);
  }
}

void RowCounter::ReadHeader(CsvRecord const& header) {
  plan_.emplace(request_, FindColumns(header, data_.source, ListColumns(request_)));
  std::vector<bool> kept(header.size());
  for (std::size_t const column : plan_->categories) {
    kept[column] = true;
  }
  for (std::size_t i = 0; i < header.size(); ++i) {
    data_.columns.emplace_back(std::string(header[i]), kept[i]);
    data_.columns.back().format_ = format_;
  }
  std::vector<DataColumn*> columns;
  for (DataColumn& column : data_.columns) {
    columns.push_back(&column);
  }
  rows_.emplace(*plan_, data_.source, format_.get(), std::move(columns), warnings_);
}

std::unique_ptr<CsvPartSink> RowCounter::MakePart() {
  if (!rows_.has_value()) {
    return nullptr;
  }
  return std::make_unique<Part>(*this, parts_.emplace_back(*plan_, format_.get(), data_));
}

CountedData RowCounter::Result() {
  if (!rows_.has_value()) {
    FailWithoutHeader(data_.source);
  }
  for (PartRows& part : parts_) {
    std::vector<std::vector<std::uint32_t> const*> codes;
    for (ColumnPart const& column : part.columns) {
      codes.push_back(&column.CodesInWhole());
    }
    rows_->Merge(part.rows, codes);
  }
  data_.rows = rows_->Rows();
  data_.tables = rows_->Result();
  return std::move(data_);
}

}  // namespace lakresvos::tabulate
