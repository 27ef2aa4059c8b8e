#ifndef LAKRESVOS_TABULATE_INPUTERROR_H
#define LAKRESVOS_TABULATE_INPUTERROR_H

#include <cstddef>
#include <stdexcept>
#include <string>

#include <lakresvos/tabulate/Export.h>

namespace lakresvos::tabulate {

/// Something in the input that its author has to correct: in data, a formula or an option. what()
/// says what and where, in one sentence; it may hold line ends and control characters of the input.
///
/// Thread safety: const operations may run in several threads at once; others need exclusive
/// access.
class LAKRESVOS_TABULATE_EXPORT InputError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;

  /// Makes an error that reads "FILE:LINE: what".
  /// @param line from 1.
  InputError(std::string const& file, std::size_t line, std::string const& what)
      : std::runtime_error(file + ":" + std::to_string(line) + ": " + what) {}
};

}  // namespace lakresvos::tabulate

#endif
