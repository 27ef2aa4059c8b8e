#ifndef LAKRESVOS_TABULATE_WARNING_LOG_H
#define LAKRESVOS_TABULATE_WARNING_LOG_H

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include <lakresvos/tabulate/Export.h>

namespace lakresvos::tabulate {

/// What can be passed over in the data.
enum class Skipped {
  Lines,    ///< with too few or too many fields
  Weights,  ///< rows that have none
  Texts,    ///< where numbers are needed
  Rows,     ///< that miss a value in a column of a table
  Values    ///< rows that miss a value which a statistic is taken of
};

constexpr std::array<Skipped, 5> kAllSkipped = {Skipped::Lines, Skipped::Weights, Skipped::Texts,
                                                Skipped::Rows, Skipped::Values};

/// Something in the data that was passed over.
struct Warning {
  Skipped kind;
  std::size_t line;     ///< from 1
  std::string column;   ///< the column's name; empty when it is the whole line
  std::string problem;  ///< what was found and what came of it
};

/// How much of one kind was passed over, and where that starts.
struct SkipCount {
  std::size_t count = 0;
  std::size_t line = 0;  ///< the first by line
  std::string column;    ///< as in the Warning
};

/// Counts what was passed over by kind, and keeps the first warnings by line.
class LAKRESVOS_TABULATE_EXPORT WarningLog {
 public:
  /// How many warnings are kept.
  static constexpr std::size_t kKept = 100;

  /// Counts what is passed over and keeps a warning of it.
  void Add(Warning warning);

  /// Counts what the report tells elsewhere than among its warnings.
  void Count(Skipped kind, std::size_t line, std::string const& column);

  /// What was counted of a kind.
  SkipCount const& Of(Skipped kind) const { return counts_[static_cast<std::size_t>(kind)]; }

  /// Whether anything was counted.
  bool Any() const;

  /// The first kKept warnings by line; those of one line in the order in which they were added.
  std::vector<Warning> First() const;

  /// How many warnings were added.
  std::size_t Total() const { return total_; }

 private:
  std::vector<Warning> kept_;  // the first ones and at most as many others
  std::size_t total_ = 0;
  std::array<SkipCount, kAllSkipped.size()> counts_;
};

}  // namespace lakresvos::tabulate

#endif
