#include "cli/Help.h"

#include <iomanip>
#include <sstream>
#include <vector>

#include <lakresvos/tabulate/Statistic.h>

namespace lakresvos::report {

namespace {

constexpr char kUsage[] = R"(Usage: lakresvos-report DATA [OPTION]...
       lakresvos-report --from DOCUMENT [OPTION]...

Tabulates the data of a CSV file and writes the tables for a terminal, the web,
a spreadsheet or another program.
)";

constexpr char kFormulas[] = R"(
A formula is ROWS ~ COLUMNS or ROWS ~ COLUMNS | LAYERS. Each of the three is a
list of columns joined by '*', or empty. A/B nests the values of B in groups
of A. A name with spaces or any of ~ | * / goes in backquotes: `Solar R`.

)";

constexpr char kExamples[] = R"(
Examples:
  lakresvos-report titanic.csv --weight Freq --table 'Class ~ Survived | Age'
  lakresvos-report airquality.csv --table 'Month ~' --statistics mean:Ozone
  lakresvos-report titanic.csv --table 'Sex ~ Age' --format html -o titanic.html

Exit status: 0 success, 1 something was skipped and --strict forbids it, 2 error
)";

/// The statistics after what they are, in lines that fit a narrow terminal.
std::string FormatStatistics() {
  constexpr std::size_t kMaxWidth = 80;
  std::string text;
  std::string line = "Statistics (X is a column of numbers):";
  char const* separator = "";
  for (std::string const& statistic : tabulate::ListStatistics()) {
    line += separator;
    separator = ",";
    if (line.size() + 2 + statistic.size() > kMaxWidth) {
      text += line + "\n";
      line = statistic;
    } else {
      line += " " + statistic;
    }
  }
  return text + line + "\n";
}

std::string FormatOption(CLI::Option const& option) {
  constexpr int kHelpColumn = 22;
  std::string names = CLI::detail::find_and_replace(option.get_name(false, true), ",", ", ");
  if (!option.get_option_text().empty()) {
    names += " " + option.get_option_text();
  }
  std::ostringstream line;
  line.exceptions(std::ios::badbit);
  line << "  " << std::left << std::setw(kHelpColumn - 2) << names << option.get_description()
       << '\n';
  return line.str();
}

}  // namespace

std::string FormatHelp(CLI::App const& app) {
  std::string help = kUsage;
  for (std::string const& group : app.get_groups()) {
    help += "\n" + group + ":\n";
    for (CLI::Option const* const option :
         app.get_options([&](CLI::Option const* each) { return each->get_group() == group; })) {
      help += FormatOption(*option);
    }
  }
  return help + kFormulas + FormatStatistics() + kExamples;
}

}  // namespace lakresvos::report
