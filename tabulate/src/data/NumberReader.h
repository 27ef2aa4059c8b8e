#ifndef LAKRESVOS_TABULATE_DATA_NUMBERREADER_H
#define LAKRESVOS_TABULATE_DATA_NUMBERREADER_H

#include <string_view>

#include "data/ValueFormat.h"

namespace lakresvos::tabulate {

/// Reads the numbers of a column one after the other, and knows how they were written.
class NumberReader {
 public:
  /// @param format of the numbers; null: as ParseNumber() reads them. Has to outlive the reader.
  explicit NumberReader(ValueFormat const* format = nullptr)
      : format_(format == nullptr || format->HasPlainNumbers() ? nullptr : format) {}

  /// The number that a text is, or kNoNumber.
  double Read(std::string_view text) {
    return format_ == nullptr ? ReadPlain(text) : ReadPlain(format_->ToPlainNumber(text));
  }

  /// The largest number of decimals of a number so far; see CountDecimals().
  int Decimals() const { return decimals_; }

  /// Whether all numbers so far are integers.
  bool AreIntegers() const { return integers_; }

  /// Takes over what another reader knows.
  void Merge(NumberReader const& other);

 private:
  double ReadPlain(std::string_view text);
  void Note(double number, int decimals);

  ValueFormat const* format_;
  int decimals_ = 0;
  bool integers_ = true;
};

}  // namespace lakresvos::tabulate

#endif
