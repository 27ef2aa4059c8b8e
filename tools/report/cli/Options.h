#ifndef LAKRESVOS_REPORT_CLI_OPTIONS_H
#define LAKRESVOS_REPORT_CLI_OPTIONS_H

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include <lakresvos/render/CsvRenderer.h>
#include <lakresvos/render/HtmlRenderer.h>
#include <lakresvos/render/JsonRenderer.h>
#include <lakresvos/render/MarkdownRenderer.h>
#include <lakresvos/render/TextRenderer.h>
#include <lakresvos/render/XlsxRenderer.h>
#include <lakresvos/tabulate/CrossTable.h>
#include <lakresvos/tabulate/Statistic.h>
#include <lakresvos/tabulate/TextFormat.h>

namespace lakresvos::report {

/// What the document is written as.
enum class OutputFormat { Text, Html, Markdown, Csv, Json, Xlsx };

/// What the program is asked to do.
struct Options {
  std::string command;   ///< the whole command line, quoted for a shell
  std::string dataFile;  ///< "-": standard input; empty: a saved document is given instead
  tabulate::TextFormat dataFormat;
  std::string documentFile;  ///< empty: data are given instead
  std::vector<tabulate::TableRequest> tables;
  std::vector<tabulate::Statistic> statistics;
  std::string weight;  ///< a column; empty: every row counts once
  bool totals = false;
  std::vector<tabulate::Grouping> groupings;
  std::vector<std::string> textColumns;  ///< whose categories are texts, even if they are numeric
  bool charts = false;     ///< one after each table with one or two dimensions and no layers
  std::string styleFile;   ///< empty: none
  std::string outputFile;  ///< empty: standard output
  bool strict = false;     ///< write nothing when anything would be left out
  OutputFormat format = OutputFormat::Text;
  unsigned threads = 1;  ///< how many may work at once

  // What the renderer of each format is asked for; the choices about tables are the same for all.

  render::TextOptions text;
  render::HtmlOptions html;
  render::MarkdownOptions markdown;
  render::CsvOptions csv;
  render::JsonOptions json;
  render::XlsxOptions xlsx;

  bool ReadsStandardInput() const { return dataFile == "-"; }

  /// What messages and documents call the data.
  std::string DataName() const { return ReadsStandardInput() ? "standard input" : dataFile; }
};

/// Reads the command line.
/// @param out gets the help or the version when the command line asks for it.
/// @return nothing when help or the version was written.
/// @throws InputError for an invalid command line.
std::optional<Options> ParseCommandLine(int argc, char const* const* argv, std::ostream& out);

}  // namespace lakresvos::report

#endif
