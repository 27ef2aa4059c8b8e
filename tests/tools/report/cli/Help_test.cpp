#include "cli/Help.h"

#include <gtest/gtest.h>
#include <sstream>
#include <string>

#include "cli/Options.h"
#include "support/TemporaryDirectory.h"

namespace {

constexpr char kHelp[] = R"(Usage: lakresvos-report DATA [OPTION]...
       lakresvos-report --from DOCUMENT [OPTION]...

Tabulates the data of a CSV file and writes the tables for a terminal, the web,
a spreadsheet or another program.

Input:
  DATA                CSV file whose first line names the columns, or -
  --separator CHAR    what separates fields, ';' or tab, say (default: guessed)
  --missing LIST      missing values, separated by commas (default: NA)
  --decimal MARK      what is before the decimals of numbers: . (default) or ,
  --thousands MARK    what is between groups of three digits (default: nothing)
  --from DOCUMENT     document saved with --format json, instead of DATA
  --weight COLUMN     count each row as often as COLUMN says
  --text COLUMN       treat the categories of COLUMN as text (repeatable)

Tables:
  --table FORMULA     add a table, 'ROWS ~ COLUMNS | LAYERS' (repeatable)
  --statistics LIST   what each cell shows (default: count)
  --totals            add a Total to each row and column dimension
  --group GROUP       group categories, 'COLUMN: NAME = A, B' (repeatable)
  --title TEXT        title of each table in turn (repeatable)
  --caption TEXT      caption of each table in turn (repeatable)
  --chart             add a bar chart to tables of one or two dimensions
  --style FILE        JSON file with fonts, colors, alignment
  --layers WHICH      layers to show: all (default) or first
  --keep-empty        show rows, columns and layers without cells too

Output:
  --format FORMAT     write text (default), html, markdown, csv, json or xlsx
  -o FILE             write to FILE (default: standard output, also -)
  --strict            write nothing and exit with 1 if anything is skipped

Text:
  --width N           wrap lines at N columns (default: the terminal's, or 100)
  --ascii             draw tables with ASCII characters

CSV:
  --csv-shape SHAPE   a record per cell or per row: long (default) or display
  --csv-safe          put ' before texts that a spreadsheet would run

JSON:
  --json-layout       add the layout of each table

XLSX:
  --xlsx-layers HOW   a sheet per table or per layer: blocks (default) or sheets
  --xlsx-merge AXES   headings to merge: both (default), rows, columns or none

Other:
  --threads N         use at most N threads (default: one per processor)
  -h, --help          print this help and exit
  --version           print the version and exit

A formula is ROWS ~ COLUMNS or ROWS ~ COLUMNS | LAYERS. Each of the three is a
list of columns joined by '*', or empty. A/B nests the values of B in groups
of A. A name with spaces or any of ~ | * / goes in backquotes: `Solar R`.

Statistics (X is a column of numbers): count, row%, column%, total%, mean:X,
sd:X, sum:X, min:X, max:X

Examples:
  lakresvos-report titanic.csv --weight Freq --table 'Class ~ Survived | Age'
  lakresvos-report airquality.csv --table 'Month ~' --statistics mean:Ozone
  lakresvos-report titanic.csv --table 'Sex ~ Age' --format html -o titanic.html

Exit status: 0 success, 1 something was skipped and --strict forbids it, 2 error
)";

std::string PrintHelp() {
  char const* const arguments[] = {"lakresvos-report", "--help"};
  std::ostringstream out;
  lakresvos::report::ParseCommandLine(2, arguments, out);
  return out.str();
}

}  // namespace

TEST(Help, ListsTheOptionsByGroup) {
  EXPECT_EQ(PrintHelp(), kHelp);
}

TEST(Help, FitsANarrowTerminal) {
  std::istringstream lines(PrintHelp());
  for (std::string line; std::getline(lines, line);) {
    EXPECT_LE(line.size(), 80u) << line;
  }
}

TEST(Help, NamesNoOptionThatTheManualLeavesOut) {
  std::string const manual = ReadFile(LAKRESVOS_REPORT_MANUAL);
  std::istringstream lines(PrintHelp());
  std::size_t options = 0;
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("  -")) {
      std::istringstream words(line.substr(line.starts_with("  -h, ") ? 6 : 2));
      std::string option;
      words >> option;
      EXPECT_NE(manual.find(option), std::string::npos) << option;
      ++options;
    }
  }
  EXPECT_EQ(options, 30u);
}
