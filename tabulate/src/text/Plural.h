#ifndef LAKRESVOS_TABULATE_TEXT_PLURAL_H
#define LAKRESVOS_TABULATE_TEXT_PLURAL_H

#include <cstddef>
#include <string>

namespace lakresvos::tabulate {

/// "1 row", "2 rows".
inline std::string Plural(std::size_t count, std::string const& noun) {
  return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

}  // namespace lakresvos::tabulate

#endif
