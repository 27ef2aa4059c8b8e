#ifndef LAKRESVOS_TABULATE_INPUT_ERROR_H
#define LAKRESVOS_TABULATE_INPUT_ERROR_H

#include <cstddef>
#include <stdexcept>
#include <string>

#include <lakresvos/tabulate/Export.h>

namespace lakresvos::tabulate {

/// Something that the person who runs the program has to put right. The text says what and where.
class LAKRESVOS_TABULATE_EXPORT InputError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;

  /// "FILE:LINE: what".
  InputError(std::string const& file, std::size_t line, std::string const& what)
      : std::runtime_error(file + ":" + std::to_string(line) + ": " + what) {}
};

}  // namespace lakresvos::tabulate

#endif
