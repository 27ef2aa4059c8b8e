#ifndef LAKRESVOS_TABULATE_DATA_COLUMNWRITER_H
#define LAKRESVOS_TABULATE_DATA_COLUMNWRITER_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include <lakresvos/tabulate/DataSet.h>

namespace lakresvos::tabulate {

/// How many distinct values are more than are near at hand at any time. Tests set another number, so
/// that small data have many; nobody else does.
inline std::size_t manyValues = 4096;

/// Appends rows to a column faster than the column itself, which waits for memory at nearly every
/// row once it has many distinct values: here some rows are looked up together, by when the memory
/// that each one needs is on its way.
class ColumnWriter {
 public:
  /// @param column stays at its address as long as the writer is used.
  explicit ColumnWriter(DataColumn& column) : column_(&column) {}

  /// Adds a row. Its code is not right before Flush().
  /// @throws std::length_error when there are more than 4,294,967,295 distinct values. When anything
  ///         is thrown, the row is not added.
  void Append(std::string_view field) {
    if (column_->Values().size() < manyValues) {
      column_->Append(field);
    } else {
      AppendLater(field);
    }
  }

  /// Completes the rows that were added; if it throws, it can be called again.
  void Flush();

 private:
  struct Waiting {
    std::uint64_t hash;
    std::size_t end;  // of its text
    std::size_t row;
  };

  void AppendLater(std::string_view field);

  DataColumn* column_;
  std::array<Waiting, 16> waiting_;
  std::size_t count_ = 0;  // how many of them there are
  std::string text_;       // theirs, one after the other
};

}  // namespace lakresvos::tabulate

#endif
