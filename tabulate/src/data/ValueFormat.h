#ifndef LAKRESVOS_TABULATE_DATA_VALUEFORMAT_H
#define LAKRESVOS_TABULATE_DATA_VALUEFORMAT_H

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <lakresvos/tabulate/TextFormat.h>

namespace lakresvos::tabulate {

/// How the values of a source are written: which are missing, and how numbers look.
class ValueFormat {
 public:
  explicit ValueFormat(TextFormat const& format);

  /// The format, or null for the usual one, which data columns know by themselves: NA is missing, and
  /// numbers look as ParseNumber() reads them.
  static std::shared_ptr<ValueFormat const> MakeUnlessUsual(TextFormat const& format);

  /// Whether this value, which is not empty, is missing.
  bool IsMissing(std::string_view value) const;

  /// Whether numbers look as ParseNumber() reads them.
  bool HasPlainNumbers() const { return decimal_ == '.' && groupMarks_.empty(); }

  /// A number as ParseNumber() reads it. Empty for a text that is no number here, though it may be
  /// one to ParseNumber().
  std::string ToPlainNumber(std::string_view text) const;

 private:
  std::size_t FindGroupMark(std::string_view text) const;

  std::vector<std::string> missing_;
  char decimal_;
  std::vector<std::string> groupMarks_;  // between groups of three digits; any of them
};

}  // namespace lakresvos::tabulate

#endif
