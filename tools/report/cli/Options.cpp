#include "cli/Options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <ostream>
#include <utility>

#include <lakresvos/lakresvos.h>
#include <lakresvos/tabulate/InputError.h>
#include <lakresvos/tabulate/Quoting.h>

#include "cli/OptionEffects.h"
#include "cli/OptionErrors.h"
#include "cli/ShellWord.h"

namespace lakresvos::report {

namespace {

constexpr char kDescription[] = "Tabulates the data of a CSV file and prints the tables.";

constexpr char kFooter[] = R"(
A formula is ROWS ~ COLUMNS or ROWS ~ COLUMNS | LAYERS. Each axis is a list of data columns joined by
'*', or empty. A/B nests B's values in groups of A's. A name with blanks or with one of ~ | * / in it
stands in back-quotes. Categories are shown in ascending order when all values of their column are
numbers, else in the order in which the file has them. A column with a number like 007 holds texts.

A value is missing when its field is empty or reads NA.

Statistics, in a list separated by commas: count, row%, column%, total%, and of the numbers in a
column X: mean:X, sd:X, sum:X, min:X, max:X. Percentages are taken within each layer. One that cannot
be computed is shown as '.'.

Examples:
  lakresvos-report titanic.csv --weight Freq --totals --table 'Class * Sex ~ Survived | Age'
  lakresvos-report airquality.csv --statistics mean:Ozone,sd:Ozone --table 'Month ~'

What had to be skipped in the data is said on standard error, in a line for each kind of it.

The program ends with 0, with 1 when something was skipped and --strict forbids that, or with 2 and
one line on standard error when something has to be put right; in both cases the output file is as it
was.)";

struct Texts {
  std::vector<std::string> formulas;
  std::vector<std::string> titles;
  std::vector<std::string> captions;
  std::vector<std::string> groupings;
  std::string statistics = "count";
  std::string format = "text";
  std::string layers = "all";
  std::string csvShape = "long";
  std::string xlsxLayers = "blocks";
  std::string xlsxMerge = "both";
};

constexpr std::array<std::pair<char const*, OutputFormat>, 6> kFormats = {{
    {"text", OutputFormat::Text},
    {"html", OutputFormat::Html},
    {"markdown", OutputFormat::Markdown},
    {"csv", OutputFormat::Csv},
    {"json", OutputFormat::Json},
    {"xlsx", OutputFormat::Xlsx},
}};

std::vector<std::string> FormatNames() {
  std::vector<std::string> names;
  names.reserve(kFormats.size());
  for (auto const& [name, format] : kFormats) {
    names.emplace_back(name);
  }
  return names;
}

OutputFormat FormatNamed(std::string const& wanted) {
  return std::find_if(kFormats.begin(), kFormats.end(),
                      [&](auto const& entry) { return entry.first == wanted; })
      ->second;
}

void Declare(CLI::App& app, Options& options, Texts& texts) {
  app.set_version_flag("--version", "lakresvos-report " LAKRESVOS_VERSION);
  app.add_option("DATA", options.dataFile, "the CSV file; its first line names the columns");
  app.add_option("--table", texts.formulas, "a table to make, as a formula; repeatable")
      ->type_name("FORMULA")
      ->allow_extra_args(false);
  app.add_option("--weight", options.weight, "the column that says how often each row counts")
      ->type_name("COLUMN");
  app.add_option("--statistics", texts.statistics, "what each cell shows (default: count)")
      ->type_name("LIST");
  app.add_flag("--totals", options.totals, "a Total on every dimension of the rows and columns");
  app.add_option("--title", texts.titles,
                 "the title of a table, the first for the first; repeatable")
      ->type_name("TEXT")
      ->allow_extra_args(false);
  app.add_option("--caption", texts.captions, "the caption of a table, likewise; repeatable")
      ->type_name("TEXT")
      ->allow_extra_args(false);
  app.add_option("--group", texts.groupings,
                 "categories to put under a group, as in 'Class: Staff = Crew, 3rd'; repeatable")
      ->type_name("GROUP")
      ->allow_extra_args(false);
  app.add_option("--text", options.textColumns,
                 "a column whose values are texts even if they look like numbers; repeatable")
      ->type_name("COLUMN")
      ->allow_extra_args(false);
  app.add_flag("--chart", options.charts,
               "a bar chart behind each table with one or two dimensions and no layers");
  app.add_option("--style", options.styleFile, "a JSON file that says how areas of tables look")
      ->type_name("FILE");
  app.add_flag("--strict", options.strict, "write nothing and end with 1 when anything is skipped");
  CLI::Option* const from =
      app.add_option("--from", options.documentFile,
                     "a document that was saved as JSON, instead of data and what to make of them")
          ->type_name("DOCUMENT");
  for (char const* option : {"DATA", "--table", "--weight", "--statistics", "--totals", "--title",
                             "--caption", "--group", "--text", "--chart", "--style"}) {
    from->excludes(option);
  }
  app.add_option("--format", texts.format, "what to write (default: text)")
      ->check(OneOf(FormatNames()));
  app.add_option("-o", options.outputFile, "where to write (default: standard output)")
      ->type_name("FILE");
  app.add_option("--layers", texts.layers, "which layers to show (default: all)")
      ->check(OneOf({"all", "first"}));
  app.add_flag("--keep-empty", options.keepEmpty,
               "show rows, columns and layers without a cell too");
  app.add_flag("--ascii", options.ascii, "draw with plain characters");
  app.add_option("--width", options.width,
                 "where lines of text end (default: as wide as the terminal, else 100)")
      ->type_name("N")
      ->check(WholeNumber(20, 1000000));
  app.add_option("--csv-shape", texts.csvShape,
                 "a record for each cell, or for each row as it is shown (default: long)")
      ->check(OneOf({"long", "display"}));
  app.add_flag("--csv-safe", options.csvSafe,
               "put ' before texts in CSV that spreadsheets would run");
  app.add_flag("--json-layout", options.jsonLayout, "add what each table shows to JSON");
  app.add_option("--xlsx-layers", texts.xlsxLayers,
                 "layers below one another, or each on a sheet (default: blocks)")
      ->check(OneOf({"blocks", "sheets"}));
  app.add_option("--xlsx-merge", texts.xlsxMerge,
                 "which headings are merged cells, not repeated ones (default: both)")
      ->check(OneOf({"both", "rows", "columns", "none"}));
}

/// Gives each table its own of the texts that `option` was used for.
void Hand(std::vector<std::string> const& texts, char const* option,
          std::string tabulate::TableRequest::*member,
          std::vector<tabulate::TableRequest>& tables) {
  if (texts.size() > tables.size()) {
    throw tabulate::InputError(std::string("there are more ") + option + " (" +
                               std::to_string(texts.size()) + ") than --table (" +
                               std::to_string(tables.size()) + ")");
  }
  for (std::size_t i = 0; i < texts.size(); ++i) {
    tables[i].*member = texts[i];
  }
}

}  // namespace

std::optional<Options> ParseCommandLine(int argc, char const* const* argv, std::ostream& out) {
  Options options;
  Texts texts;
  CLI::App app(kDescription, "lakresvos-report");
  app.footer(kFooter);
  Declare(app, options, texts);
  CheckAssignments(app, argc, argv);
  try {
    app.parse(argc, argv);
  } catch (CLI::Success const& success) {
    app.exit(success, out, out);
    return std::nullopt;
  } catch (CLI::ParseError const& error) {
    Refuse(app, error);
  }
  RefuseEmptyValues(app);
  if (options.dataFile.empty() && options.documentFile.empty()) {
    throw tabulate::InputError("DATA is required");
  }
  options.command = "lakresvos-report";
  for (int i = 1; i < argc; ++i) {
    options.command += " " + ShellWord(argv[i]);
  }
  for (std::string const& formula : texts.formulas) {
    options.tables.push_back({tabulate::ParseFormula(formula), "", ""});
  }
  for (std::string const& grouping : texts.groupings) {
    options.groupings.push_back(tabulate::ParseGrouping(grouping));
  }
  Hand(texts.titles, "--title", &tabulate::TableRequest::title, options.tables);
  Hand(texts.captions, "--caption", &tabulate::TableRequest::caption, options.tables);
  options.statistics = tabulate::ParseStatistics(texts.statistics);
  options.allLayers = texts.layers == "all";
  options.format = FormatNamed(texts.format);
  options.csvDisplay = texts.csvShape == "display";
  options.xlsxLayersAsSheets = texts.xlsxLayers == "sheets";
  options.xlsxMergeRows = texts.xlsxMerge == "both" || texts.xlsxMerge == "rows";
  options.xlsxMergeColumns = texts.xlsxMerge == "both" || texts.xlsxMerge == "columns";
  CheckEffects(options, [&](char const* option) { return app.count(option) > 0; });
  return options;
}

}  // namespace lakresvos::report
