#ifndef LAKRESVOS_REPORT_CLI_OPTIONS_H
#define LAKRESVOS_REPORT_CLI_OPTIONS_H

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include <lakresvos/tabulate/CrossTable.h>
#include <lakresvos/tabulate/Statistic.h>

namespace lakresvos::report {

/// What the document is written as.
enum class OutputFormat { Text, Html, Markdown, Csv, Json, Xlsx };

/// What the program is asked to do.
struct Options {
  std::string command;       ///< the whole command line, as a shell would have to be given it
  std::string dataFile;      ///< empty: a saved document is given instead
  std::string documentFile;  ///< empty: data are given instead
  std::vector<tabulate::TableRequest> tables;
  std::vector<tabulate::Statistic> statistics;
  std::string weight;  ///< a column; empty: every row counts once
  bool totals = false;
  std::vector<tabulate::Grouping> groupings;
  std::vector<std::string> textColumns;  ///< whose categories are texts, whatever they look like
  bool charts = false;    ///< one behind each table with one or two dimensions and no layers
  std::string styleFile;  ///< empty: none
  OutputFormat format = OutputFormat::Text;
  std::string outputFile;  ///< empty: standard output
  bool strict = false;     ///< nothing is written when anything would be left out
  bool allLayers = true;
  bool keepEmpty = false;
  bool ascii = false;
  std::optional<int> width;  ///< of text; none: the terminal's, or else the usual one
  bool csvDisplay = false;   ///< the shape of the tables as they are shown
  bool csvSafe = false;
  bool jsonLayout = false;  ///< with what each table shows
  bool xlsxLayersAsSheets = false;
  bool xlsxMergeRows = true;
  bool xlsxMergeColumns = true;
};

/// Reads the command line. When it asks for help or for the version, writes that to `out` and gives
/// nothing.
/// @throws InputError for a command line that cannot be carried out.
std::optional<Options> ParseCommandLine(int argc, char const* const* argv, std::ostream& out);

}  // namespace lakresvos::report

#endif
