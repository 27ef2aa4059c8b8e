#include "cli/Options.h"

#include <gtest/gtest.h>
#include <initializer_list>
#include <regex>
#include <sched.h>
#include <sstream>

#include <lakresvos/lakresvos.h>
#include <lakresvos/tabulate/Quoting.h>

#include "support/ErrorOf.h"

using namespace lakresvos::report;
using namespace lakresvos::tabulate;

namespace {

constexpr char const* kWithValue[] = {
    "--table",   "--weight",    "--statistics",  "--title",      "--caption", "--group",
    "--text",    "--style",     "--from",        "--format",     "-o",        "--layers",
    "--width",   "--csv-shape", "--xlsx-layers", "--xlsx-merge", "--threads", "--separator",
    "--missing", "--decimal",   "--thousands"};
constexpr char const* kFlags[] = {"--totals",      "--chart", "--strict",
                                  "--keep-empty",  "--ascii", "--csv-safe",
                                  "--json-layout", "--help",  "--version"};

struct Parsed {
  std::optional<Options> options;
  std::string printed;
};

Parsed Parse(std::vector<char const*> arguments) {
  arguments.insert(arguments.begin(), "lakresvos-report");
  std::ostringstream out;
  Parsed parsed;
  parsed.options = ParseCommandLine(static_cast<int>(arguments.size()), arguments.data(), out);
  parsed.printed = out.str();
  return parsed;
}

Parsed ParseForWorkbook(std::vector<char const*> arguments) {
  arguments.insert(arguments.end(), {"a.csv", "--format", "xlsx", "--table", "a ~ | b"});
  return Parse(std::move(arguments));
}

std::string ErrorIn(std::vector<char const*> const& arguments) {
  return ErrorOf([&] { Parse(arguments); });
}

}  // namespace

TEST(Options, HaveDefaults) {
  Options const options = Parse({"a.csv"}).options.value();
  EXPECT_EQ(options.dataFile, "a.csv");
  EXPECT_TRUE(options.tables.empty());
  ASSERT_EQ(options.statistics.size(), 1u);
  EXPECT_EQ(MakeStatisticLabel(options.statistics[0])->GetText(), "Count");
  EXPECT_EQ(options.weight, "");
  EXPECT_FALSE(options.totals);
  EXPECT_TRUE(options.groupings.empty());
  EXPECT_FALSE(options.charts);
  EXPECT_EQ(options.styleFile, "");
  EXPECT_EQ(options.format, OutputFormat::Text);
  EXPECT_EQ(options.outputFile, "");
  EXPECT_TRUE(options.text.allLayers);
  EXPECT_TRUE(options.text.skipEmpty);
  EXPECT_FALSE(options.text.ascii);
  EXPECT_FALSE(options.strict);
}

TEST(Options, ReadAllOfThem) {
  Options const options = Parse({"--weight", "Freq", "--statistics", "count,sum:x", "--totals",
                                 "--format", "text", "-o", "out.txt", "--layers", "first",
                                 "--keep-empty", "--ascii", "a.csv", "--table", "a ~ b | c"})
                              .options.value();
  EXPECT_EQ(options.weight, "Freq");
  EXPECT_EQ(options.statistics.size(), 2u);
  EXPECT_TRUE(options.totals);
  EXPECT_EQ(options.outputFile, "out.txt");
  EXPECT_FALSE(options.text.allLayers);
  EXPECT_FALSE(options.text.skipEmpty);
  EXPECT_TRUE(options.text.ascii);
  EXPECT_EQ(options.dataFile, "a.csv");
}

TEST(Options, ChooseTheSameOfTheTablesInEveryFormat) {
  Options const options =
      Parse({"a.csv", "--table", "a ~ | b", "--layers", "first", "--keep-empty"}).options.value();
  for (lakresvos::render::TableOptions const* each :
       std::initializer_list<lakresvos::render::TableOptions const*>{
           &options.text, &options.html, &options.markdown, &options.csv, &options.json,
           &options.xlsx}) {
    EXPECT_FALSE(each->allLayers);
    EXPECT_FALSE(each->skipEmpty);
  }
}

TEST(Options, TakeOneTextPerTableAndLeaveTheDataFileAlone) {
  Options const options =
      Parse({"--table", "a ~", "--title", "First", "--table", "~ b", "--caption", "Below", "a.csv"})
          .options.value();
  EXPECT_EQ(options.dataFile, "a.csv");
  ASSERT_EQ(options.tables.size(), 2u);
  EXPECT_EQ(options.tables[0].formula.text, "a ~");
  EXPECT_EQ(options.tables[0].title, "First");
  EXPECT_EQ(options.tables[0].caption, "Below");
  EXPECT_EQ(options.tables[1].formula.text, "~ b");
  EXPECT_EQ(options.tables[1].title, "");
}

TEST(Options, TakeTitlesThatLookLikeOptionsOrLists) {
  Options const options =
      Parse({"a.csv", "--table=a~", "--title=--b", "--table", "b~", "--title", "[1,2]"})
          .options.value();
  EXPECT_EQ(options.tables[0].title, "--b");
  EXPECT_EQ(options.tables[1].title, "[1,2]");
  EXPECT_EQ(Parse({"a.csv", "--table", "a~", "--title", "--weight="}).options->tables[0].title,
            "--weight=");
}

TEST(Options, TakeChartsStyleAndGroups) {
  Options const options = Parse({"a.csv", "--table", "a ~ d", "--chart", "--style", "s.json",
                                 "--group", "a: b = c", "--group", "d: e = f, g"})
                              .options.value();
  EXPECT_TRUE(options.charts);
  EXPECT_EQ(options.styleFile, "s.json");
  ASSERT_EQ(options.groupings.size(), 2u);
  EXPECT_EQ(options.groupings[1].column.name, "d");
}

TEST(Options, TakeColumnsOfTexts) {
  Options const options = Parse({"--text", "a", "--text", "b c", "a.csv"}).options.value();
  EXPECT_EQ(options.textColumns, (std::vector<std::string>{"a", "b c"}));
  EXPECT_EQ(options.dataFile, "a.csv");
}

TEST(Options, TakeASeparator) {
  EXPECT_FALSE(Parse({"a.csv"}).options->dataFormat.separator.has_value());
  for (auto const& [text, separator] :
       {std::pair{";", ';'}, {",", ','}, {"|", '|'}, {"^", '^'}, {"tab", '\t'}, {"\t", '\t'}}) {
    EXPECT_EQ(Parse({"a.csv", "--separator", text}).options->dataFormat.separator, separator);
  }
}

TEST(Options, RefuseOtherSeparators) {
  for (std::string const text : {"x", "7", "\"", " ", ";;", "\n", "\xC2\xA7"}) {
    EXPECT_EQ(ErrorIn({"a.csv", "--separator", text.c_str()}),
              "--separator: expected tab or a single punctuation mark, not " + Quote(text));
  }
}

TEST(Options, TakeTheFormatOfValues) {
  TextFormat const usual = Parse({"a.csv"}).options->dataFormat;
  EXPECT_EQ(usual.missing, (std::vector<std::string>{"NA"}));
  EXPECT_EQ(usual.decimal, '.');
  EXPECT_EQ(usual.thousands, "");
  TextFormat const format =
      Parse({"a.csv", "--missing", "NA,.,N/A, 99", "--decimal", ",", "--thousands", "space"})
          .options->dataFormat;
  EXPECT_EQ(format.missing, (std::vector<std::string>{"NA", ".", "N/A", " 99"}));
  EXPECT_EQ(format.decimal, ',');
  EXPECT_EQ(format.thousands, " ");
  for (std::string const mark : {".", "'", "_", " "}) {
    EXPECT_EQ(Parse({"a.csv", "--decimal", ",", "--thousands", mark.c_str()})
                  .options->dataFormat.thousands,
              mark);
  }
  EXPECT_EQ(Parse({"a.csv", "--thousands", ","}).options->dataFormat.thousands, ",");
}

TEST(Options, RefuseMarksThatNumbersDoNotHave) {
  for (std::string const text : {"x", "..", "-", "5"}) {
    EXPECT_EQ(ErrorIn({"a.csv", "--thousands", text.c_str()}),
              "--thousands: expected space, '.', ',', ''' or '_', not " + Quote(text));
  }
  EXPECT_EQ(ErrorIn({"a.csv", "--thousands", "."}),
            "--thousands: '.' is before the decimals (--decimal)");
  EXPECT_EQ(ErrorIn({"a.csv", "--thousands", ",", "--decimal", ","}),
            "--thousands: ',' is before the decimals (--decimal)");
}

TEST(Options, TakeAHyphenForStandardInputAndOutput) {
  Options const options = Parse({"-", "-o", "-"}).options.value();
  EXPECT_TRUE(options.ReadsStandardInput());
  EXPECT_EQ(options.DataName(), "standard input");
  EXPECT_EQ(options.outputFile, "");
  Options const file = Parse({"./-", "-o", "./-"}).options.value();
  EXPECT_FALSE(file.ReadsStandardInput());
  EXPECT_EQ(file.DataName(), "./-");
  EXPECT_EQ(file.outputFile, "./-");
}

TEST(Options, RememberTheCommandAsAShellWouldTakeIt) {
  EXPECT_EQ(Parse({"a b.csv", "--table", "a ~ b"}).options->command,
            "lakresvos-report 'a b.csv' --table 'a ~ b'");
}

TEST(Options, GiveHelp) {
  for (char const* option : {"--help", "-h"}) {
    Parsed const parsed = Parse({option});
    EXPECT_FALSE(parsed.options.has_value());
    EXPECT_TRUE(parsed.printed.starts_with("Usage: lakresvos-report ")) << parsed.printed;
  }
}

TEST(Options, GiveTheVersion) {
  Parsed const parsed = Parse({"--version"});
  EXPECT_FALSE(parsed.options.has_value());
  EXPECT_EQ(parsed.printed, "lakresvos-report " LAKRESVOS_VERSION "\n");
}

TEST(OptionErrors, NoDataFile) {
  EXPECT_EQ(ErrorIn({}), "missing operand DATA; see --help");
}

TEST(OptionErrors, EmptyValue) {
  EXPECT_EQ(ErrorIn({""}), "operand DATA is empty");
  for (std::string const option : kWithValue) {
    std::string const error = option + " needs a value";
    EXPECT_EQ(ErrorIn({"a.csv", "--table", "a ~", option.c_str(), ""}), error);
    EXPECT_EQ(ErrorIn({"a.csv", option.c_str(), "", "--table", "a ~"}), error);
    EXPECT_EQ(ErrorIn({"a.csv", option.c_str()}), error);
    if (option.starts_with("--")) {
      EXPECT_EQ(ErrorIn({"a.csv", (option + "=").c_str()}), error);
      EXPECT_EQ(ErrorIn({(option + "=").c_str(), "a.csv"}), error);
    }
  }
}

TEST(OptionErrors, FlagWithAValue) {
  for (std::string const flag : kFlags) {
    for (char const* value : {"=", "=1", "=true", "=maybe"}) {
      EXPECT_EQ(ErrorIn({"a.csv", (flag + value).c_str()}), flag + " takes no value");
    }
  }
}

TEST(OptionErrors, OptionGivenTwice) {
  for (char const* option : {"--weight", "--statistics", "--style", "-o", "--from"}) {
    EXPECT_EQ(ErrorIn({"a.csv", option, "a", option, "b"}),
              std::string(option) + " is given more than once");
  }
  EXPECT_EQ(ErrorIn({"a.csv", "--width", "80", "--width", "80"}),
            "--width is given more than once");
  EXPECT_EQ(ErrorIn({"a.csv", "--format", "text", "--format", "csv"}),
            "--format is given more than once");
}

TEST(OptionErrors, DataBesideASavedDocument) {
  EXPECT_EQ(ErrorIn({"--from", "a.json", "a.csv"}), "DATA cannot be used with --from");
  EXPECT_EQ(ErrorIn({"--from", "a.json", "--totals"}), "--totals cannot be used with --from");
  EXPECT_EQ(ErrorIn({"--title", "T", "--from", "a.json"}), "--title cannot be used with --from");
}

TEST(OptionErrors, AreNeverInTheWordsOfTheParser) {
  std::vector<std::string> arguments{"a.csv", "b.csv", "--nope", "-n",  "--nope=1",
                                     "--no=", "-",     "--",     "-on", "-5"};
  for (std::string const option : kWithValue) {
    for (char const* value : {"", "=", "=x", "=1e9", "=99999999999999999999", "=[1,2]", "= "}) {
      arguments.push_back(option + value);
    }
  }
  for (std::string const flag : kFlags) {
    for (char const* value : {"", "=", "=x", "=-1", "=false", "={}"}) {
      arguments.push_back(flag + value);
    }
  }
  for (std::string const& first : arguments) {
    for (std::string const& second :
         {std::string("a.csv"), std::string("--from=x"), std::string("--nope"), first}) {
      std::string const error =
          std::regex_replace(ErrorIn({first.c_str(), second.c_str()}), std::regex("--missing"), "");
      for (char const* words : {"required",
                                "expected:",
                                "expected exactly",
                                "not expected",
                                "excludes",
                                "requires",
                                "not in",
                                "in range",
                                "Could not",
                                "convert",
                                "allowed",
                                "override",
                                "missing",
                                "Expected",
                                "The ",
                                "At Most",
                                "At least",
                                "TEXT",
                                "INI",
                                "invalid command line"}) {
        bool const isOwn = error == "missing operand DATA; see --help";
        EXPECT_TRUE(isOwn || error.find(words) == std::string::npos)
            << first << ' ' << second << ": " << error;
      }
    }
  }
}

TEST(OptionErrors, OptionWithoutEffect) {
  EXPECT_EQ(ErrorIn({"a.csv", "--table", "a ~", "--format", "html", "--ascii"}),
            "--ascii has no effect without --format text");
  EXPECT_EQ(ErrorIn({"--from", "a.json", "--csv-shape", "long"}),
            "--csv-shape has no effect without --format csv");
  EXPECT_EQ(ErrorIn({"a.csv", "--table", "a * b ~ c", "--chart"}),
            "--chart has no effect without a table that has one or two dimensions and no layers");
}

TEST(OptionErrors, TwoDataFiles) {
  EXPECT_EQ(ErrorIn({"a.csv", "b.csv"}), "unexpected argument 'b.csv'");
  EXPECT_EQ(ErrorIn({"a.csv", "--", "--b"}), "unexpected argument '--b'");
}

TEST(OptionErrors, UnknownOption) {
  EXPECT_EQ(ErrorIn({"a.csv", "--tabel"}), "unknown option '--tabel'");
  EXPECT_EQ(ErrorIn({"a.csv", "--tabel=a~"}), "unknown option '--tabel'");
  EXPECT_EQ(ErrorIn({"a.csv", "-x"}), "unknown option '-x'");
}

TEST(OptionErrors, UnknownFormat) {
  EXPECT_EQ(ErrorIn({"a.csv", "--format", "tex"}),
            "--format: expected one of text, html, markdown, csv, json, xlsx, not 'tex'");
}

TEST(Options, MayBeStrict) {
  EXPECT_TRUE(Parse({"a.csv", "--strict"}).options->strict);
}

TEST(Options, ReadEveryFormat) {
  EXPECT_EQ(Parse({"a.csv", "--format", "text"}).options->format, OutputFormat::Text);
  EXPECT_EQ(Parse({"a.csv", "--format", "html"}).options->format, OutputFormat::Html);
  EXPECT_EQ(Parse({"a.csv", "--format", "markdown"}).options->format, OutputFormat::Markdown);
  EXPECT_EQ(Parse({"a.csv", "--table", "a ~", "--format", "csv"}).options->format,
            OutputFormat::Csv);
  EXPECT_EQ(Parse({"a.csv", "--format", "json"}).options->format, OutputFormat::Json);
  EXPECT_EQ(Parse({"a.csv", "--format", "xlsx"}).options->format, OutputFormat::Xlsx);
}

TEST(Options, ReadTheWidthOfText) {
  EXPECT_EQ(Parse({"a.csv", "-o", "a.txt"}).options->text.width, 100);
  EXPECT_GT(Parse({"a.csv"}).options->text.width, 0);
  EXPECT_EQ(Parse({"a.csv", "--width", "72"}).options->text.width, 72);
}

TEST(OptionErrors, WidthThatCannotBe) {
  for (std::string const width : {"19", "1000001", "wide", "80x", "80.5", "99999999999", "-80"}) {
    EXPECT_EQ(ErrorIn({"a.csv", ("--width=" + width).c_str()}),
              "--width: expected a whole number from 20 to 1000000, not '" + width + "'");
  }
  EXPECT_EQ(ErrorIn({"a.csv", "--table", "a ~", "--width", "80", "--format", "csv"}),
            "--width has no effect without --format text");
}

TEST(Options, UseAllProcessorsUnlessToldOtherwise) {
  cpu_set_t allowed;
  ASSERT_EQ(::sched_getaffinity(0, sizeof allowed, &allowed), 0);
  EXPECT_EQ(Parse({"a.csv"}).options->threads, static_cast<unsigned>(CPU_COUNT(&allowed)));
  EXPECT_EQ(Parse({"a.csv", "--threads", "1"}).options->threads, 1u);
  EXPECT_EQ(Parse({"a.csv", "--threads", "1024"}).options->threads, 1024u);
  EXPECT_EQ(Parse({"--from", "a.json", "--threads", "3"}).options->threads, 3u);
}

TEST(OptionErrors, NumberOfThreadsThatCannotBe) {
  for (std::string const threads : {"0", "-1", "1025", "all", "2x", "1.5", "99999999999"}) {
    EXPECT_EQ(ErrorIn({"a.csv", ("--threads=" + threads).c_str()}),
              "--threads: expected a whole number from 1 to 1024, not '" + threads + "'");
  }
}

TEST(Options, ReadTheShapeOfCsv) {
  using Shape = lakresvos::render::CsvOptions::Shape;
  EXPECT_EQ(Parse({"a.csv"}).options->csv.shape, Shape::Long);
  std::vector<char const*> arguments{"a.csv", "--table", "a ~", "--format", "csv"};
  arguments.insert(arguments.end(), {"--csv-shape", "display", "--csv-safe"});
  Options const options = Parse(arguments).options.value();
  EXPECT_EQ(options.csv.shape, Shape::Display);
  EXPECT_TRUE(options.csv.safe);
}

TEST(Options, ReadTheLayersAndTheMergingOfWorkbooks) {
  Options const plain = Parse({"a.csv"}).options.value();
  EXPECT_FALSE(plain.xlsx.layersAsSheets);
  EXPECT_TRUE(plain.xlsx.mergeRows && plain.xlsx.mergeColumns);
  EXPECT_TRUE(ParseForWorkbook({"--xlsx-layers", "sheets"}).options->xlsx.layersAsSheets);
  Options const rows = ParseForWorkbook({"--xlsx-merge", "rows"}).options.value();
  EXPECT_TRUE(rows.xlsx.mergeRows && !rows.xlsx.mergeColumns);
  Options const columns = ParseForWorkbook({"--xlsx-merge", "columns"}).options.value();
  EXPECT_TRUE(!columns.xlsx.mergeRows && columns.xlsx.mergeColumns);
  Options const none = ParseForWorkbook({"--xlsx-merge", "none"}).options.value();
  EXPECT_FALSE(none.xlsx.mergeRows || none.xlsx.mergeColumns);
}

TEST(OptionErrors, UnknownLayers) {
  EXPECT_EQ(ErrorIn({"a.csv", "--layers", "last"}),
            "--layers: expected one of all, first, not 'last'");
}

TEST(OptionErrors, MalformedFormula) {
  EXPECT_EQ(ErrorIn({"a.csv", "--table", "a b"}),
            "--table 'a b': expected '*', '/' or '~' at position 3");
}

TEST(OptionErrors, MalformedGroup) {
  EXPECT_EQ(ErrorIn({"a.csv", "--group", "a: b"}), "--group 'a: b': expected '=' at position 5");
}

TEST(OptionErrors, MoreTitlesThanTables) {
  EXPECT_EQ(ErrorIn({"a.csv", "--title", "T"}), "too many --title options: 1 for 0 tables");
}

TEST(OptionErrors, MoreCaptionsThanTables) {
  EXPECT_EQ(ErrorIn({"a.csv", "--table", "~", "--caption", "a", "--caption", "b"}),
            "too many --caption options: 2 for 1 table");
}
