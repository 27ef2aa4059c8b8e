#include "cli/OptionConditions.h"

#include <gtest/gtest.h>
#include <map>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "support/ErrorOf.h"

using namespace lakresvos::report;

namespace {

using Words = std::vector<std::string>;

/// A command line that asks for these tables in a format, followed by more words.
Words Tabulate(Words const& formulas, std::string const& format, Words const& more = {}) {
  Words words{"lakresvos-report", "a.csv", "--format", format};
  for (std::string const& formula : formulas) {
    words.insert(words.end(), {"--table", formula});
  }
  words.insert(words.end(), more.begin(), more.end());
  return words;
}

Words const kFormats{"text", "html", "markdown", "csv", "json", "xlsx"};

std::map<std::string, Words> const kValues{
    {"--width", {"80"}},        {"--csv-shape", {"display"}}, {"--xlsx-layers", {"sheets"}},
    {"--xlsx-merge", {"none"}}, {"--layers", {"first"}},      {"--statistics", {"count"}},
    {"--style", {"s.json"}},    {"--caption", {"C"}},         {"--title", {"T"}},
};

/// The error of the command line once it has one more option, with a valid value.
std::string ErrorIn(Words words, std::string const& option) {
  if (!option.empty()) {
    words.push_back(option);
    auto const value = kValues.find(option);
    if (value != kValues.end()) {
      words.insert(words.end(), value->second.begin(), value->second.end());
    }
  }
  std::vector<char const*> arguments;
  for (std::string const& word : words) {
    arguments.push_back(word.c_str());
  }
  std::ostringstream out;
  return ErrorOf(
      [&] { ParseCommandLine(static_cast<int>(arguments.size()), arguments.data(), out); });
}

}  // namespace

TEST(OptionConditions, OptionsOfAFormatNeedIt) {
  for (auto const& [option, own] : {std::pair<std::string, std::string>{"--ascii", "text"},
                                    {"--width", "text"},
                                    {"--csv-shape", "csv"},
                                    {"--csv-safe", "csv"},
                                    {"--json-layout", "json"},
                                    {"--xlsx-layers", "xlsx"},
                                    {"--xlsx-merge", "xlsx"}}) {
    for (std::string const& format : kFormats) {
      EXPECT_EQ(ErrorIn(Tabulate({"a ~ b | c"}, format), option),
                format == own ? "none" : option + " has no effect without --format " + own);
    }
  }
}

TEST(OptionConditions, LayoutOptionsNeedALayout) {
  Words words = Tabulate({"a ~ b | c"}, "json");
  EXPECT_EQ(ErrorIn(words, "--layers"),
            "--layers has no effect with --format json unless --json-layout is given");
  EXPECT_EQ(ErrorIn(words, "--keep-empty"),
            "--keep-empty has no effect with --format json unless --json-layout is given");
  words.emplace_back("--json-layout");
  EXPECT_EQ(ErrorIn(words, "--layers"), "none");
  EXPECT_EQ(ErrorIn(words, "--keep-empty"), "none");
}

TEST(OptionConditions, LongCsvHasAllLayers) {
  Words words = Tabulate({"a ~ b | c"}, "csv");
  EXPECT_EQ(ErrorIn(words, "--layers"), "--layers has no effect with --csv-shape long");
  EXPECT_EQ(ErrorIn(words, "--keep-empty"), "none");
  words.insert(words.end(), {"--csv-shape", "display"});
  EXPECT_EQ(ErrorIn(words, "--layers"), "none");
}

TEST(OptionConditions, LayerOptionsNeedLayers) {
  for (char const* option : {"--layers", "--xlsx-layers"}) {
    EXPECT_EQ(ErrorIn(Tabulate({"a ~ b"}, "xlsx"), option),
              std::string(option) + " has no effect without a table that has layers");
    EXPECT_EQ(ErrorIn(Tabulate({"a ~ b", "a ~ | b"}, "xlsx"), option), "none");
  }
}

TEST(OptionConditions, StatisticsNeedATable) {
  for (char const* option : {"--statistics", "--keep-empty"}) {
    EXPECT_EQ(ErrorIn(Tabulate({}, "text"), option),
              std::string(option) + " has no effect without --table");
    EXPECT_EQ(ErrorIn(Tabulate({"~"}, "text"), option), "none");
  }
}

TEST(OptionConditions, TotalsNeedRowsOrColumns) {
  EXPECT_EQ(ErrorIn(Tabulate({"~ | a", "~"}, "text"), "--totals"),
            "--totals has no effect without a table that has rows or columns");
  EXPECT_EQ(ErrorIn(Tabulate({"~ | a", "~ b"}, "text"), "--totals"), "none");
  EXPECT_EQ(ErrorIn(Tabulate({"a ~"}, "text"), "--totals"), "none");
}

TEST(OptionConditions, ChartsNeedATableThatHasOne) {
  for (char const* formula : {"a * b ~ c", "~", "~ | a", "a ~ b | c"}) {
    EXPECT_EQ(ErrorIn(Tabulate({formula}, "html"), "--chart"),
              "--chart has no effect without a table that has one or two dimensions and no layers");
    EXPECT_EQ(ErrorIn(Tabulate({formula, "a/b ~"}, "html"), "--chart"), "none");
  }
}

TEST(OptionConditions, SavedDocumentMayHoldAnything) {
  Words const words{"lakresvos-report", "--from", "a.json", "--format", "xlsx"};
  for (char const* option : {"--layers", "--xlsx-layers", "--keep-empty"}) {
    EXPECT_EQ(ErrorIn(words, option), "none");
  }
}

TEST(OptionConditions, CsvHasNoPlaceForWhatIsAroundTables) {
  for (std::string const& format : kFormats) {
    for (std::string const option : {"--chart", "--style", "--caption"}) {
      EXPECT_EQ(ErrorIn(Tabulate({"a ~ b"}, format), option),
                format == "csv" ? option + " has no effect with --format csv" : "none");
    }
    EXPECT_EQ(ErrorIn(Tabulate({"a ~ b"}, format), "--totals"), "none");
  }
}

TEST(OptionConditions, CsvNamesTablesWhereThereAreSeveral) {
  EXPECT_EQ(ErrorIn(Tabulate({"a ~ b"}, "csv"), "--title"),
            "--title has no effect with --format csv and one table");
  EXPECT_EQ(ErrorIn(Tabulate({"a ~ b", "~ b"}, "csv"), "--title"), "none");
  EXPECT_EQ(ErrorIn(Tabulate({"a ~ b"}, "markdown"), "--title"), "none");
}

TEST(OptionConditions, CsvNeedsATable) {
  EXPECT_EQ(ErrorIn(Tabulate({}, "csv"), ""), "--format csv writes nothing without --table");
  EXPECT_EQ(ErrorIn(Tabulate({"~"}, "csv"), ""), "none");
  EXPECT_EQ(ErrorIn(Tabulate({}, "markdown"), ""), "none");
  EXPECT_EQ(ErrorIn({"lakresvos-report", "--from", "a.json", "--format", "csv"}, ""), "none");
}
