#include "cli/SkipMessages.h"

#include <lakresvos/tabulate/Quoting.h>

namespace lakresvos::report {

namespace {

/// What became of one, and of several.
struct Wording {
  char const* one;
  char const* several;
};

Wording WordingOf(tabulate::Skipped kind) {
  switch (kind) {
    case tabulate::Skipped::Lines:
      return {"line with too few or too many fields was skipped",
              "lines with too few or too many fields were skipped"};
    case tabulate::Skipped::Weights:
      return {"row without a weight was skipped", "rows without a weight were skipped"};
    case tabulate::Skipped::Texts:
      return {"text counts as missing where a number is needed",
              "texts count as missing where numbers are needed"};
    case tabulate::Skipped::Rows:
      return {"row with missing values was left out of a table",
              "rows with missing values were left out of a table"};
    case tabulate::Skipped::Values:
      break;
  }
  return {"row with a missing value was left out of a statistic",
          "rows with missing values were left out of a statistic"};
}

}  // namespace

std::vector<std::string> SkipMessages(tabulate::WarningLog const& log, std::string const& file) {
  std::vector<std::string> messages;
  for (tabulate::Skipped const kind : tabulate::kAllSkipped) {
    tabulate::SkipCount const& count = log.Of(kind);
    if (count.count != 0) {
      Wording const wording = WordingOf(kind);
      messages.push_back(file + ": " + std::to_string(count.count) + " " +
                         (count.count == 1 ? wording.one : wording.several) +
                         ", the first on line " + std::to_string(count.line) + ", column " +
                         tabulate::Quoted(count.column));
    }
  }
  return messages;
}

}  // namespace lakresvos::report
