#include "cli/Options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cctype>
#include <initializer_list>
#include <ostream>
#include <string_view>
#include <thread>
#include <tuple>
#include <unistd.h>
#include <utility>

#include <lakresvos/lakresvos.h>
#include <lakresvos/tabulate/InputError.h>
#include <lakresvos/tabulate/Quoting.h>

#include "cli/Help.h"
#include "cli/OptionBuilder.h"
#include "cli/OptionConditions.h"
#include "cli/OptionErrors.h"
#include "cli/ShellWord.h"
#include "cli/TerminalWidth.h"

namespace lakresvos::report {

namespace {

constexpr int kMaxThreads = 1024;

/// Values as they are written, which are read once the whole command line is known.
struct RawValues {
  std::vector<std::string> formulas;
  std::vector<std::string> titles;
  std::vector<std::string> captions;
  std::vector<std::string> groupings;
  std::string statistics = "count";
  std::string separator;
  std::string missing;
  std::string thousands;
  bool allLayers = true;
  bool keepEmpty = false;
  std::pair<bool, bool> mergeRowsAndColumns{true, true};
  int threads = 0;  // 0: one per processor
};

void DeclareInput(OptionBuilder& builder, Options& options, RawValues& raw) {
  builder.StartGroup("Input");
  builder.AddText("DATA", "", options.dataFile, "CSV file whose first line names the columns, or -")
      .Requires(kDataGiven);
  builder
      .AddText("--separator", "CHAR", raw.separator,
               "what separates fields, ';' or tab, say (default: guessed)")
      .Requires(kDataGiven);
  builder
      .AddText("--missing", "LIST", raw.missing,
               "missing values, separated by commas (default: NA)")
      .Requires(kDataGiven);
  builder
      .AddChoice<char>("--decimal", "MARK", options.dataFormat.decimal, {{".", '.'}, {",", ','}},
                       "what is before the decimals of numbers:")
      .Requires(kDataGiven);
  builder
      .AddText("--thousands", "MARK", raw.thousands,
               "what is between groups of three digits (default: nothing)")
      .Requires(kDataGiven);
  builder.AddText("--from", "DOCUMENT", options.documentFile,
                  "document saved with --format json, instead of DATA");
  builder.AddText("--weight", "COLUMN", options.weight, "count each row as often as COLUMN says")
      .Requires(kDataGiven);
  builder
      .AddTexts("--text", "COLUMN", options.textColumns, "treat the categories of COLUMN as text")
      .Requires(kDataGiven);
}

void DeclareTables(OptionBuilder& builder, Options& options, RawValues& raw) {
  builder.StartGroup("Tables");
  builder.AddTexts("--table", "FORMULA", raw.formulas, "add a table, 'ROWS ~ COLUMNS | LAYERS'")
      .Requires(kDataGiven);
  builder.AddText("--statistics", "LIST", raw.statistics, "what each cell shows (default: count)")
      .Requires(kDataGiven)
      .Requires(kAnyTable);
  builder.AddFlag("--totals", options.totals, "add a Total to each row and column dimension")
      .Requires(kDataGiven)
      .Requires(kTableWithRowsOrColumns);
  builder.AddTexts("--group", "GROUP", raw.groupings, "group categories, 'COLUMN: NAME = A, B'")
      .Requires(kDataGiven);
  builder.AddTexts("--title", "TEXT", raw.titles, "title of each table in turn")
      .Requires(kDataGiven)
      .Requires(kFormatWithTitles);
  builder.AddTexts("--caption", "TEXT", raw.captions, "caption of each table in turn")
      .Requires(kDataGiven)
      .Requires(kNotCsvFormat);
  builder.AddFlag("--chart", options.charts, "add a bar chart to tables of one or two dimensions")
      .Requires(kDataGiven)
      .Requires(kNotCsvFormat)
      .Requires(kTableWithChart);
  builder.AddText("--style", "FILE", options.styleFile, "JSON file with fonts, colors, alignment")
      .Requires(kDataGiven)
      .Requires(kNotCsvFormat);
  builder
      .AddChoice<bool>("--layers", "WHICH", raw.allLayers, {{"all", true}, {"first", false}},
                       "layers to show:")
      .Requires(kFormatWithLayout)
      .Requires(kFormatWithLayers)
      .Requires(kTableWithLayers);
  builder.AddFlag("--keep-empty", raw.keepEmpty, "show rows, columns and layers without cells too")
      .Requires(kFormatWithLayout)
      .Requires(kAnyTable);
}

void DeclareOutput(OptionBuilder& builder, Options& options) {
  builder.StartGroup("Output");
  builder
      .AddChoice<OutputFormat>("--format", "FORMAT", options.format,
                               {{"text", OutputFormat::Text},
                                {"html", OutputFormat::Html},
                                {"markdown", OutputFormat::Markdown},
                                {"csv", OutputFormat::Csv},
                                {"json", OutputFormat::Json},
                                {"xlsx", OutputFormat::Xlsx}},
                               "write")
      .Requires(kFormatWithContent);
  builder.AddText("-o", "FILE", options.outputFile,
                  "write to FILE (default: standard output, also -)");
  builder.AddFlag("--strict", options.strict,
                  "write nothing and exit with 1 if anything is skipped");
}

void DeclareFormats(OptionBuilder& builder, Options& options, RawValues& raw) {
  builder.StartGroup("Text");
  builder
      .AddNumber("--width", "N", options.text.width, 20, 1000000,
                 "wrap lines at N columns (default: the terminal's, or 100)")
      .Requires(kTextFormat);
  builder.AddFlag("--ascii", options.text.ascii, "draw tables with ASCII characters")
      .Requires(kTextFormat);

  using Shape = render::CsvOptions::Shape;
  builder.StartGroup("CSV");
  builder
      .AddChoice<Shape>("--csv-shape", "SHAPE", options.csv.shape,
                        {{"long", Shape::Long}, {"display", Shape::Display}},
                        "a record per cell or per row:")
      .Requires(kCsvFormat);
  builder.AddFlag("--csv-safe", options.csv.safe, "put ' before texts that a spreadsheet would run")
      .Requires(kCsvFormat);

  builder.StartGroup("JSON");
  builder.AddFlag("--json-layout", options.json.layout, "add the layout of each table")
      .Requires(kJsonFormat);

  builder.StartGroup("XLSX");
  builder
      .AddChoice<bool>("--xlsx-layers", "HOW", options.xlsx.layersAsSheets,
                       {{"blocks", false}, {"sheets", true}}, "a sheet per table or per layer:")
      .Requires(kXlsxFormat)
      .Requires(kTableWithLayers);
  builder
      .AddChoice<std::pair<bool, bool>>("--xlsx-merge", "AXES", raw.mergeRowsAndColumns,
                                        {{"both", {true, true}},
                                         {"rows", {true, false}},
                                         {"columns", {false, true}},
                                         {"none", {false, false}}},
                                        "headings to merge:")
      .Requires(kXlsxFormat);
}

void DeclareOther(OptionBuilder& builder, CLI::App& app, RawValues& raw) {
  builder.StartGroup("Other");
  builder.AddNumber("--threads", "N", raw.threads, 1, kMaxThreads,
                    "use at most N threads (default: one per processor)");
  app.set_help_flag("-h,--help", "print this help and exit");
  app.set_version_flag("--version", "lakresvos-report " LAKRESVOS_VERSION,
                       "print the version and exit");
}

/// Sets the same choices about tables for all renderers.
void SetTableOptions(Options& options, render::TableOptions const& tables) {
  for (render::TableOptions* const each :
       std::initializer_list<render::TableOptions*>{&options.text, &options.html, &options.markdown,
                                                    &options.csv, &options.json, &options.xlsx}) {
    *each = tables;
  }
}

/// The number of processors that this process may use.
int CountProcessors() {
  return static_cast<int>(
      std::clamp<unsigned>(std::thread::hardware_concurrency(), 1, kMaxThreads));
}

/// Assigns the values of a repeated option to the tables in turn.
void AssignTexts(std::vector<std::string> const& texts, char const* option,
                 std::string tabulate::TableRequest::*member,
                 std::vector<tabulate::TableRequest>& tables) {
  if (texts.size() > tables.size()) {
    throw tabulate::InputError(
        std::string("too many ") + option + " options: " + std::to_string(texts.size()) + " for " +
        std::to_string(tables.size()) + (tables.size() == 1 ? " table" : " tables"));
  }
  for (std::size_t i = 0; i < texts.size(); ++i) {
    tables[i].*member = texts[i];
  }
}

std::string QuoteCommand(int argc, char const* const* argv) {
  std::string command = "lakresvos-report";
  for (int i = 1; i < argc; ++i) {
    command += " " + QuoteShellWord(argv[i]);
  }
  return command;
}

char ReadSeparator(std::string const& text) {
  if (text == "tab" || text == "\t") {
    return '\t';
  }
  if (text.size() != 1 || std::ispunct(static_cast<unsigned char>(text[0])) == 0 || text == "\"") {
    throw tabulate::InputError("--separator: expected tab or a single punctuation mark, not " +
                               tabulate::Quote(text));
  }
  return text[0];
}

std::vector<std::string> SplitAtCommas(std::string const& list) {
  std::vector<std::string> parts(1);
  for (char const c : list) {
    if (c == ',') {
      parts.emplace_back();
    } else {
      parts.back() += c;
    }
  }
  return parts;
}

std::string ReadThousands(std::string const& text, char decimal) {
  std::string mark = text == "space" ? " " : text;
  if (mark.size() != 1 || std::string_view(" .,'_").find(mark) == std::string_view::npos) {
    throw tabulate::InputError("--thousands: expected space, '.', ',', ''' or '_', not " +
                               tabulate::Quote(text));
  }
  if (mark[0] == decimal) {
    throw tabulate::InputError("--thousands: " + tabulate::Quote(text) +
                               " is before the decimals (--decimal)");
  }
  return mark;
}

/// Reads what is said of the data's format.
void ReadFormat(RawValues const& raw, tabulate::TextFormat& format) {
  if (!raw.separator.empty()) {
    format.separator = ReadSeparator(raw.separator);
  }
  if (!raw.missing.empty()) {
    format.missing = SplitAtCommas(raw.missing);
  }
  if (!raw.thousands.empty()) {
    format.thousands = ReadThousands(raw.thousands, format.decimal);
  }
}

/// Reads the raw values but for those that belong to single tables.
void ReadValues(RawValues const& raw, Options& options) {
  for (std::string const& formula : raw.formulas) {
    options.tables.push_back({tabulate::ParseFormula(formula, "--table"), "", ""});
  }
  for (std::string const& grouping : raw.groupings) {
    options.groupings.push_back(tabulate::ParseGrouping(grouping, "--group"));
  }
  ReadFormat(raw, options.dataFormat);
  if (options.outputFile == "-") {
    options.outputFile.clear();
  }
  options.statistics = tabulate::ParseStatistics(raw.statistics, "--statistics");
  options.threads = static_cast<unsigned>(raw.threads > 0 ? raw.threads : CountProcessors());
  SetTableOptions(
      options,
      {.skipEmpty = !raw.keepEmpty, .allLayers = raw.allLayers, .threads = options.threads});
  if (options.text.width == 0) {
    bool const isPrinted = options.outputFile.empty();
    options.text.width = isPrinted ? GetTerminalWidth(STDOUT_FILENO) : kUsualWidth;
  }
  std::tie(options.xlsx.mergeRows, options.xlsx.mergeColumns) = raw.mergeRowsAndColumns;
}

}  // namespace

std::optional<Options> ParseCommandLine(int argc, char const* const* argv, std::ostream& out) {
  Options options;
  RawValues raw;
  CLI::App app;
  app.formatter_fn([](CLI::App const* which, std::string const&, CLI::AppFormatMode) {
    return FormatHelp(*which);
  });
  OptionBuilder builder(app);
  DeclareInput(builder, options, raw);
  DeclareTables(builder, options, raw);
  DeclareOutput(builder, options);
  DeclareFormats(builder, options, raw);
  DeclareOther(builder, app, raw);
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
    throw tabulate::InputError("missing operand DATA; see --help");
  }
  options.command = QuoteCommand(argc, argv);
  ReadValues(raw, options);
  builder.CheckConditions(options);
  AssignTexts(raw.titles, "--title", &tabulate::TableRequest::title, options.tables);
  AssignTexts(raw.captions, "--caption", &tabulate::TableRequest::caption, options.tables);
  return options;
}

}  // namespace lakresvos::report
