#ifndef LAKRESVOS_TABULATE_DATA_NUMBERREADER_H
#define LAKRESVOS_TABULATE_DATA_NUMBERREADER_H

#include <string_view>

namespace lakresvos::tabulate {

/// Reads the numbers of a column one after the other, and knows how they were written.
class NumberReader {
 public:
  /// The number that a text is, or kNoNumber; see ParseNumber().
  double Read(std::string_view text);

  /// The largest number of decimals of a number so far; see CountDecimals().
  int Decimals() const { return decimals_; }

  /// Whether all numbers so far are integers.
  bool AreIntegers() const { return integers_; }

  /// Takes over what another reader knows.
  void Merge(NumberReader const& other);

 private:
  void Note(double number, int decimals);

  int decimals_ = 0;
  bool integers_ = true;
};

}  // namespace lakresvos::tabulate

#endif
