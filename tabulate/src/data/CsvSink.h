#ifndef LAKRESVOS_TABULATE_DATA_CSVSINK_H
#define LAKRESVOS_TABULATE_DATA_CSVSINK_H

#include <cstddef>
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

/// Receives the records of CSV, one after the other.
class CsvSink {
 public:
  virtual ~CsvSink() = default;
  virtual void Add(CsvRecord const& record) = 0;
};

}  // namespace lakresvos::tabulate

#endif
