#include "cli/SkipMessages.h"

#include <lakresvos/tabulate/Quoting.h>

namespace lakresvos::report {

namespace {

/// The words that follow a count.
struct Wording {
  char const* singular;
  char const* plural;
};

Wording ChooseWording(tabulate::Skipped kind) {
  switch (kind) {
    case tabulate::Skipped::Lines:
      return {"line with too few or too many fields was skipped",
              "lines with too few or too many fields were skipped"};
    case tabulate::Skipped::Weights:
      return {"row without a weight was skipped", "rows without a weight were skipped"};
    case tabulate::Skipped::Texts:
      return {"value that is not a number was treated as missing",
              "values that are not numbers were treated as missing"};
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

std::vector<std::string> MakeSkipMessages(tabulate::WarningLog const& log,
                                          std::string const& file) {
  std::vector<std::string> messages;
  for (tabulate::Skipped const kind : tabulate::kAllSkipped) {
    tabulate::SkipCount const& count = log.Summary(kind);
    if (count.count != 0) {
      Wording const wording = ChooseWording(kind);
      messages.push_back(file + ": " + std::to_string(count.count) + " " +
                         (count.count == 1 ? wording.singular : wording.plural) +
                         ", the first on line " + std::to_string(count.line) + ", column " +
                         tabulate::Quote(count.column));
    }
  }
  return messages;
}

}  // namespace lakresvos::report
