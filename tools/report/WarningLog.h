#ifndef TOOLS_REPORT_WARNINGLOG_H
#define TOOLS_REPORT_WARNINGLOG_H

#include <cstddef>
#include <string>
#include <vector>

namespace lakresvos::report {

/// Something in the data that was passed over.
struct Warning {
  std::size_t line;     ///< from 1
  std::string column;   ///< the column's name; empty when it is the whole line
  std::string problem;  ///< what was found and what came of it
};

/// Counts warnings and keeps the first of them by line.
class WarningLog {
 public:
  /// How many warnings are kept.
  static constexpr std::size_t kKept = 100;

  void Add(Warning warning);

  /// The first kKept warnings by line; those of one line in the order in which they were added.
  std::vector<Warning> First() const;

  /// How many were added.
  std::size_t Total() const { return total_; }

 private:
  std::vector<Warning> kept_;  // the first ones and at most as many others
  std::size_t total_ = 0;
};

}  // namespace lakresvos::report

#endif
