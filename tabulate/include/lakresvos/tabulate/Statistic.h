#ifndef LAKRESVOS_TABULATE_STATISTIC_H
#define LAKRESVOS_TABULATE_STATISTIC_H

#include <memory>
#include <string>
#include <vector>

#include <cells/OmCellText.h>
#include <lakresvos/tabulate/Export.h>
#include <lakresvos/tabulate/NameToken.h>

namespace lakresvos::tabulate {

struct DataSet;
struct StatisticKind;
class WarningLog;

/// One number for each cell of a table; ParseStatistics() makes them.
///
/// Thread safety: const operations may run in several threads at once; others need exclusive
/// access.
struct Statistic {
  StatisticKind const* kind;  ///< what is computed; never null, owned by the library
  NameToken column;           ///< what it is taken of; without a name when NeedsColumn() is false
  std::string source = "statistics";  ///< what messages call the list that has it
};

/// Whether a statistic is taken of a data column rather than of the rows as such.
LAKRESVOS_TABULATE_EXPORT bool NeedsColumn(Statistic const& statistic);

/// How every statistic is written in a list, in the order of the manual: "count", or "mean:X" for
/// one that is taken of a column X.
LAKRESVOS_TABULATE_EXPORT std::vector<std::string> ListStatistics();

/// What a statistic is called in tables: "Count", "Mean of Ozone".
/// @return a cell that the caller owns, never null.
LAKRESVOS_TABULATE_EXPORT std::unique_ptr<OmCellText> MakeStatisticLabel(
    Statistic const& statistic);

/// Parses a list such as `count,row%,mean:X,sd:X` of what ListStatistics() gives.
///
/// The count is the sum of the weights, of which percentages are taken too; a number in a column
/// counts as often as its row's weight says. The standard deviation is that of a sample: the root
/// of the sum of squared distances from the mean over the sum of the weights less 1.
///
/// @param source what messages call the list: the option that has it, say.
/// @throws InputError that names the position, also for a duplicate statistic.
LAKRESVOS_TABULATE_EXPORT std::vector<Statistic> ParseStatistics(
    std::string const& text, std::string const& source = "statistics");

/// Warns of every row in which a column that a statistic is taken of has a text instead of a
/// number; it counts as missing. To be called once for a data set, however many tables are made of
/// it.
/// Requires: the data set keeps the columns of the statistics.
LAKRESVOS_TABULATE_EXPORT void WarnAboutTexts(DataSet const& data,
                                              std::vector<Statistic> const& statistics,
                                              WarningLog& warnings);

}  // namespace lakresvos::tabulate

#endif
