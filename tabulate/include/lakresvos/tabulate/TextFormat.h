#ifndef LAKRESVOS_TABULATE_TEXTFORMAT_H
#define LAKRESVOS_TABULATE_TEXTFORMAT_H

#include <optional>

namespace lakresvos::tabulate {

/// How the text of a file stands for data.
///
/// Thread safety: const operations may run in several threads at once; others need exclusive
/// access.
struct TextFormat {
  /// What separates the fields: a byte of ASCII that is neither a quote nor a line end. None: a
  /// comma, a semicolon, a tab or a bar, as the first lines suggest.
  std::optional<char> separator = {};
};

}  // namespace lakresvos::tabulate

#endif
