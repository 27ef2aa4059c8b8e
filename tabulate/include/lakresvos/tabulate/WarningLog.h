#ifndef LAKRESVOS_TABULATE_WARNINGLOG_H
#define LAKRESVOS_TABULATE_WARNINGLOG_H

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include <lakresvos/tabulate/Export.h>

namespace lakresvos::tabulate {

/// What can be skipped in the data.
enum class Skipped {
  Lines,    ///< records with too few or too many fields
  Weights,  ///< rows without a weight
  Texts,    ///< values that are texts where numbers are needed
  Rows,     ///< rows that lack a value in a column of a table
  Values    ///< rows that lack a value of which a statistic is taken
};

/// All kinds, in the order in which to tell of them.
constexpr std::array<Skipped, 5> kAllSkipped = {Skipped::Lines, Skipped::Weights, Skipped::Texts,
                                                Skipped::Rows, Skipped::Values};

/// Something in the data that was skipped.
///
/// Thread safety: const operations may run in several threads at once; others need exclusive
/// access.
struct Warning {
  Skipped kind;         ///< what was skipped
  std::size_t line;     ///< in the data, from 1
  std::string column;   ///< the column's name, or the number of a column without one
  std::string problem;  ///< what was found and what came of it
};

/// How much of one kind was skipped, and where that starts.
///
/// Thread safety: const operations may run in several threads at once; others need exclusive
/// access.
struct SkipCount {
  std::size_t count = 0;  ///< how often
  std::size_t line = 0;   ///< the first one by line; 0 when there is none
  std::string column;     ///< of that one, as in the Warning
};

/// Counts by kind what was skipped, and keeps the first warnings by line.
///
/// Thread safety: const operations may run in several threads at once; others need exclusive
/// access.
class LAKRESVOS_TABULATE_EXPORT WarningLog {
 public:
  /// The number of warnings that are kept.
  static constexpr std::size_t kMaxKept = 100;

  /// Counts what is skipped and keeps a warning of it. Takes constant time, amortized.
  void Add(Warning warning);

  /// Counts what is skipped without a warning.
  /// @param line   from 1.
  /// @param column as in a Warning.
  void Count(Skipped kind, std::size_t line, std::string const& column);

  /// Adds everything of another log.
  /// @param linesBefore to be added to its lines.
  void Append(WarningLog const& other, std::size_t linesBefore);

  /// What was counted of a kind. The reference is valid as long as the log.
  SkipCount const& Summary(Skipped kind) const { return counts_[static_cast<std::size_t>(kind)]; }

  /// Whether anything was counted.
  bool HasAny() const;

  /// The first kMaxKept warnings by line; those of one line in the order in which they were added.
  std::vector<Warning> First() const;

  /// The number of warnings that were added, kept or not.
  std::size_t Total() const { return total_; }

 private:
  std::vector<Warning> kept_;  // the first ones and at most as many others
  std::size_t total_ = 0;
  std::array<SkipCount, kAllSkipped.size()> counts_;
};

}  // namespace lakresvos::tabulate

#endif
