#ifndef LAKRESVOS_TABULATE_CSV_CSVSINK_H
#define LAKRESVOS_TABULATE_CSV_CSVSINK_H

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

namespace lakresvos::tabulate {

/// One record of CSV. Valid only during CsvSink::Add().
class CsvRecord {
 public:
  /// The line on which the record starts, from 1.
  std::size_t Line() const { return line_; }

  /// The number of fields.
  std::size_t size() const { return fields_.size(); }

  /// The field at `index`, below size(), with its quotes removed.
  std::string_view operator[](std::size_t index) const { return fields_[index]; }

 private:
  friend class CsvParser;

  std::vector<std::string_view> fields_;
  std::size_t line_ = 1;
};

class CsvPartSink;

/// Receives the records of CSV, one after the other.
class CsvSink {
 public:
  virtual ~CsvSink() = default;
  virtual void Add(CsvRecord const& record) = 0;

  /// Makes a sink for records from further down, which another thread may fill at the same time.
  /// @return null when the records to come have to be added here, for the time being or at all.
  virtual std::unique_ptr<CsvPartSink> MakePart() { return nullptr; }
};

/// Receives records for another sink, which made it and outlives it.
class CsvPartSink : public CsvSink {
 public:
  /// Hands what was added since the last time over to the other sink, after all that this one has.
  /// @param linesBefore to be added to the lines of the records.
  virtual void HandOver(std::size_t linesBefore) = 0;
};

}  // namespace lakresvos::tabulate

#endif
