#ifndef LAKRESVOS_TABULATE_NAMETOKEN_H
#define LAKRESVOS_TABULATE_NAMETOKEN_H

#include <cstddef>
#include <string>

namespace lakresvos::tabulate {

/// A name that was read from a formula, a list of statistics or a grouping: of a column, a category
/// or a group.
///
/// Thread safety: const operations may run in several threads at once; others need exclusive
/// access.
struct NameToken {
  std::string name;          ///< in UTF-8, without backquotes
  std::size_t position = 0;  ///< where the name starts in what was read, in code points from 1
};

}  // namespace lakresvos::tabulate

#endif
