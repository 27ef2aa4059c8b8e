#ifndef LAKRESVOS_TABULATE_TEXTFORMAT_H
#define LAKRESVOS_TABULATE_TEXTFORMAT_H

#include <optional>
#include <string>
#include <vector>

namespace lakresvos::tabulate {

/// How the text of a file stands for data.
///
/// Thread safety: const operations may run in several threads at once; others need exclusive
/// access.
struct TextFormat {
  /// What separates the fields: a byte of ASCII that is neither a quote nor a line end. None: a
  /// comma, a semicolon, a tab or a bar, as the first lines suggest.
  std::optional<char> separator = {};

  /// Values that are missing, beside empty ones, exactly as they are written.
  std::vector<std::string> missing = {"NA"};

  char decimal = '.';  ///< what is before the decimals of a number

  /// What is between groups of three digits of a number, if it has any; other than `decimal`. A space
  /// is also one at which no line breaks.
  std::string thousands = {};
};

}  // namespace lakresvos::tabulate

#endif
