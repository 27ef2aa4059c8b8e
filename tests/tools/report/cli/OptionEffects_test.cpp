#include "cli/OptionEffects.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "support/ErrorOf.h"

using namespace lakresvos::report;
using namespace lakresvos::tabulate;

namespace {

Options Tabulating(std::vector<std::string> const& formulas, OutputFormat format) {
  Options options;
  options.dataFile = "a.csv";
  options.format = format;
  for (std::string const& formula : formulas) {
    options.tables.push_back({ParseFormula(formula), "", ""});
  }
  return options;
}

std::string ErrorIn(Options const& options, std::string const& given) {
  return ErrorOf([&] { CheckEffects(options, [&](char const* name) { return given == name; }); });
}

}  // namespace

TEST(OptionEffects, OptionsOfAFormatNeedIt) {
  using enum OutputFormat;
  struct Case {
    char const* option;
    OutputFormat format;
    char const* name;
  };
  for (Case const& one : {Case{"--ascii", Text, "text"},
                          {"--width", Text, "text"},
                          {"--csv-shape", Csv, "csv"},
                          {"--csv-safe", Csv, "csv"},
                          {"--json-layout", Json, "json"},
                          {"--xlsx-layers", Xlsx, "xlsx"},
                          {"--xlsx-merge", Xlsx, "xlsx"}}) {
    for (OutputFormat const format : {Text, Html, Markdown, Csv, Json, Xlsx}) {
      EXPECT_EQ(ErrorIn(Tabulating({"a ~ b | c"}, format), one.option),
                format == one.format
                    ? "none"
                    : std::string(one.option) + " has no effect without --format " + one.name);
    }
  }
}

TEST(OptionEffects, LayoutOptionsNeedALayout) {
  Options options = Tabulating({"a ~ b | c"}, OutputFormat::Json);
  EXPECT_EQ(ErrorIn(options, "--layers"),
            "--layers has no effect with --format json unless --json-layout is given");
  EXPECT_EQ(ErrorIn(options, "--keep-empty"),
            "--keep-empty has no effect with --format json unless --json-layout is given");
  options.jsonLayout = true;
  EXPECT_EQ(ErrorIn(options, "--layers"), "none");
  EXPECT_EQ(ErrorIn(options, "--keep-empty"), "none");
}

TEST(OptionEffects, LongCsvHasAllLayers) {
  Options options = Tabulating({"a ~ b | c"}, OutputFormat::Csv);
  EXPECT_EQ(ErrorIn(options, "--layers"), "--layers has no effect with --csv-shape long");
  EXPECT_EQ(ErrorIn(options, "--keep-empty"), "none");
  options.csvDisplay = true;
  EXPECT_EQ(ErrorIn(options, "--layers"), "none");
}

TEST(OptionEffects, LayerOptionsNeedLayers) {
  for (char const* option : {"--layers", "--xlsx-layers"}) {
    EXPECT_EQ(ErrorIn(Tabulating({"a ~ b"}, OutputFormat::Xlsx), option),
              std::string(option) + " has no effect without a table that has layers");
    EXPECT_EQ(ErrorIn(Tabulating({"a ~ b", "a ~ | b"}, OutputFormat::Xlsx), option), "none");
  }
}

TEST(OptionEffects, StatisticsNeedATable) {
  for (char const* option : {"--statistics", "--keep-empty"}) {
    EXPECT_EQ(ErrorIn(Tabulating({}, OutputFormat::Text), option),
              std::string(option) + " has no effect without --table");
    EXPECT_EQ(ErrorIn(Tabulating({"~"}, OutputFormat::Text), option), "none");
  }
}

TEST(OptionEffects, TotalsNeedRowsOrColumns) {
  EXPECT_EQ(ErrorIn(Tabulating({"~ | a", "~"}, OutputFormat::Text), "--totals"),
            "--totals has no effect without a table that has rows or columns");
  EXPECT_EQ(ErrorIn(Tabulating({"~ | a", "~ b"}, OutputFormat::Text), "--totals"), "none");
  EXPECT_EQ(ErrorIn(Tabulating({"a ~"}, OutputFormat::Text), "--totals"), "none");
}

TEST(OptionEffects, ChartsNeedATableThatHasOne) {
  for (char const* formula : {"a * b ~ c", "~", "~ | a", "a ~ b | c"}) {
    EXPECT_EQ(ErrorIn(Tabulating({formula}, OutputFormat::Html), "--chart"),
              "--chart has no effect without a table that has one or two dimensions and no layers");
    EXPECT_EQ(ErrorIn(Tabulating({formula, "a/b ~"}, OutputFormat::Html), "--chart"), "none");
  }
}

TEST(OptionEffects, SavedDocumentMayHoldAnything) {
  Options options = Tabulating({}, OutputFormat::Xlsx);
  options.documentFile = "a.json";
  for (char const* option : {"--layers", "--xlsx-layers", "--keep-empty"}) {
    EXPECT_EQ(ErrorIn(options, option), "none");
  }
}

TEST(OptionEffects, CsvHasNoPlaceForWhatIsAroundTables) {
  using enum OutputFormat;
  for (OutputFormat const format : {Text, Html, Markdown, Csv, Json, Xlsx}) {
    for (std::string const option : {"--chart", "--style", "--caption"}) {
      EXPECT_EQ(ErrorIn(Tabulating({"a ~ b"}, format), option),
                format == Csv ? option + " has no effect with --format csv" : "none");
    }
    EXPECT_EQ(ErrorIn(Tabulating({"a ~ b"}, format), "--totals"), "none");
  }
}

TEST(OptionEffects, CsvNamesTablesWhereThereAreSeveral) {
  EXPECT_EQ(ErrorIn(Tabulating({"a ~ b"}, OutputFormat::Csv), "--title"),
            "--title has no effect with --format csv and one table");
  EXPECT_EQ(ErrorIn(Tabulating({"a ~ b", "~ b"}, OutputFormat::Csv), "--title"), "none");
  EXPECT_EQ(ErrorIn(Tabulating({"a ~ b"}, OutputFormat::Markdown), "--title"), "none");
}

TEST(OptionEffects, CsvNeedsATable) {
  EXPECT_EQ(ErrorIn(Tabulating({}, OutputFormat::Csv), ""),
            "--format csv writes nothing without --table");
  EXPECT_EQ(ErrorIn(Tabulating({"~"}, OutputFormat::Csv), ""), "none");
  EXPECT_EQ(ErrorIn(Tabulating({}, OutputFormat::Markdown), ""), "none");
  Options saved = Tabulating({}, OutputFormat::Csv);
  saved.documentFile = "a.json";
  EXPECT_EQ(ErrorIn(saved, ""), "none");
}
