#include "cli/Program.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <sstream>
#include <sys/resource.h>
#include <utility>

#include <lakresvos/lakresvos.h>

#include "document/Document.h"
#include "support/ErrorOf.h"
#include "support/faults/FailingNew.h"
#include "tools/report/cli/ReportRun.h"

using namespace lakresvos::report;
using namespace lakresvos::tabulate;

namespace {

/// The message for this file and these options, which must end the program with exit status 2,
/// nothing printed and the output file as it was.
std::string Complaint(std::string const& bytes, std::vector<std::string> arguments) {
  TemporaryDirectory const directory;
  std::string const file = directory.Write("data.csv", bytes);
  std::string const output = directory.Write("out.txt", "as it was");
  arguments.insert(arguments.end(), {file, "-o", output});
  ReportRun const run = RunReport(arguments);
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(ReadFile(output), "as it was");
  EXPECT_EQ(directory.Entries(), 2u);
  std::string const start = "lakresvos-report: ";
  EXPECT_TRUE(run.err.starts_with(start)) << run.err;
  EXPECT_EQ(run.err.find('\n'), run.err.size() - 1) << run.err;
  std::string complaint = run.err.substr(start.size(), run.err.size() - start.size() - 1);
  return complaint.starts_with(file) ? complaint.substr(file.size()) : complaint;
}

}  // namespace

TEST(Program, PrintsToStandardOutput) {
  TemporaryDirectory const directory;
  std::string const file = directory.Write("a.csv", "pet,n\ncat,2\ndog,3\n");
  ReportRun const run = RunReport({file, "--table", "pet ~", "--weight", "n", "--totals", "--title",
                                   "Pets", "--caption", "Made up", "--ascii"});
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_EQ(run.err, "");
  std::string const table =
      "\nPets\n"
      "+-------+---+\n"
      "| pet   |   |\n"
      "+=======+===+\n"
      "| cat   | 2 |\n"
      "| dog   | 3 |\n"
      "| Total | 5 |\n"
      "+-------+---+\n"
      "Made up\n";
  ASSERT_GE(run.out.size(), table.size());
  EXPECT_EQ(run.out.substr(run.out.size() - table.size()), table);
  EXPECT_NE(run.out.find("\n  lakresvos-report " + file + " --table 'pet ~' --weight n --totals"),
            std::string::npos);
}

TEST(Program, ShowsAStyledTableWithGroupsAndItsChart) {
  TemporaryDirectory const directory;
  std::string const file = directory.Write("a.csv", "pet\ncat\ndog\ndog\nemu\n");
  std::string const style = directory.Write(
      "style.json", R"({"data": {"horizontal": "left"}, "title": {"horizontal": "centre"}})");
  ReportRun const run =
      RunReport({file, "--table", "pet ~", "--style", style, "--chart", "--ascii", "--title",
                 "Pets", "--group", "pet: furry = cat, dog", "--statistics", "count,total%"});
  EXPECT_EQ(run.err, "");
  std::string const end =
      "\n              Pets\n"
      "+-------------+-------+---------+\n"
      "| pet         | Count | Total % |\n"
      "+=======+=====+=======+=========+\n"
      "| furry | cat | 1     | 25.0    |\n"
      "|       | dog | 2     | 50.0    |\n"
      "+-------+-----+-------+---------+\n"
      "| emu         | 1     | 25.0    |\n"
      "+-------------+-------+---------+\n"
      "\n[Chart: Pets (bar)]\n";
  ASSERT_GE(run.out.size(), end.size());
  EXPECT_EQ(run.out.substr(run.out.size() - end.size()), end);
}

TEST(Program, WritesTheSameToAFile) {
  TemporaryDirectory const directory;
  std::vector<std::string> arguments{DataPath("titanic.csv"), "--table", "Class ~ Sex", "--width",
                                     "1000"};
  std::string printed = RunReport(arguments).out;
  arguments.insert(arguments.end(), {"-o", directory.Path("out.txt")});
  ReportRun const run = RunReport(arguments);
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_EQ(run.out, "");
  std::string const log = "--table 'Class ~ Sex' --width 1000";
  printed.insert(printed.find(log) + log.size(), " -o " + directory.Path("out.txt"));
  EXPECT_EQ(ReadFile(directory.Path("out.txt")), printed);
}

TEST(Program, WritesTheSameHoweverManyThreadsItUses) {
  TemporaryDirectory const directory;
  std::string bytes = "a,b,x\r\n";
  for (int i = 0; i < 40000; ++i) {
    bytes += i % 7 == 0 ? "NA," : "a" + std::to_string(i % 3000) + ",";
    bytes += i % 3 == 0 ? "\"b, \"\"quoted\"\"\r\n\"," : "b" + std::to_string(i % 11) + ",";
    bytes += i % 5000 == 4999 ? "1,2\r\n" : std::to_string(i % 1009) + ".25\n";
  }
  std::string const file = directory.Write("a.csv", bytes);
  std::string const broken = directory.Write("broken.csv", bytes + "a,\"b\"c,1\n" + bytes + "\"");
  auto const run = [](std::string const& threads, std::string const& data,
                      std::string const& format) {
    return RunReport({"--threads", threads, data, "--format", format, "--table", "a ~ b",
                      "--statistics", "count,mean:x,sum:x"});
  };
  for (std::string const format : {"text", "html", "markdown", "csv", "json"}) {
    ReportRun const alone = run("1", file, format);
    ReportRun together = run("4", file, format);
    std::string const used = "--threads 4";  // in the command, which most formats show
    if (std::size_t const at = together.out.find(used); at != std::string::npos) {
      together.out.replace(at, used.size(), "--threads 1");
    }
    EXPECT_TRUE(together.out == alone.out) << format;
    EXPECT_EQ(together.err, alone.err);
    EXPECT_EQ(together.exitCode, 0);
    EXPECT_NE(alone.err.find("8 lines with too few or too many fields"), std::string::npos)
        << alone.err;
  }
  ReportRun const failed = run("4", broken, "text");
  EXPECT_EQ(failed.exitCode, 2);
  EXPECT_EQ(failed.err, run("1", broken, "text").err);
  EXPECT_NE(failed.err.find("column 2: text after the closing quote"), std::string::npos)
      << failed.err;
}

TEST(Program, WritesTheFileThatADanglingLinkNames) {
  for (std::string const format : {"text", "xlsx"}) {
    TemporaryDirectory const directory;
    std::filesystem::create_symlink("target", directory.Path("link"));
    ReportRun const run =
        RunReport({DataPath("titanic.csv"), "--format", format, "-o", directory.Path("link")});
    EXPECT_EQ(run.err, "");
    EXPECT_TRUE(std::filesystem::is_symlink(directory.Path("link")));
    EXPECT_NE(ReadFile(directory.Path("target")), "");
  }
}

TEST(Program, WrapsTextAtTheWidth) {
  std::vector<std::string> const wide{DataPath("titanic.csv"), "--table",
                                      "Class ~ Sex * Age * Survived"};
  auto const widest = [](std::string const& text) {
    std::ptrdiff_t width = 0;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
      auto const startsCharacter = [](char c) { return (static_cast<unsigned char>(c) >> 6) != 2; };
      width = std::max(width, std::count_if(line.begin(), line.end(), startsCharacter));
    }
    return width;
  };
  EXPECT_LE(widest(RunReport(wide).out), 100);
  for (int const width : {40, 80, 200}) {
    std::vector<std::string> arguments = wide;
    arguments.insert(arguments.end(), {"--width", std::to_string(width)});
    EXPECT_LE(widest(RunReport(arguments).out), width);
  }
}

TEST(Program, ShowsTheFirstLayerAlone) {
  std::vector<std::string> arguments{DataPath("titanic.csv"), "--table", "Class ~ Sex | Age"};
  std::string const all = RunReport(arguments).out;
  EXPECT_NE(all.find("Age: Child"), std::string::npos);
  EXPECT_NE(all.find("Age: Adult"), std::string::npos);
  arguments.insert(arguments.end(), {"--layers", "first"});
  std::string const first = RunReport(arguments).out;
  EXPECT_NE(first.find("Age: Child"), std::string::npos);
  EXPECT_EQ(first.find("Age: Adult"), std::string::npos);
}

TEST(Program, ShowsEmptyRowsWhenAsked) {
  TemporaryDirectory const directory;
  std::string const file = directory.Write("a.csv", "a,b,c\nx,1,u\ny,2,v\n");
  std::vector<std::string> arguments{file, "--table", "a ~ b | c", "--ascii"};
  EXPECT_EQ(RunReport(arguments).out.find("| y |   |"), std::string::npos);
  arguments.emplace_back("--keep-empty");
  EXPECT_NE(RunReport(arguments).out.find("| y |   |   |\n"), std::string::npos);
}

TEST(Program, ReadsEveryFormOfCsvAlike) {
  TemporaryDirectory const directory;
  std::vector<std::string> const forms{"name,n\n\"a, \"\"b\"\"\",1\nc,2\n",
                                       "\xEF\xBB\xBFname,n\r\n\"a, \"\"b\"\"\",1\r\nc,2",
                                       "\"name\",\"n\"\n\n\"a, \"\"b\"\"\",\"1\"\n\"c\",\"2\"\n\n"};
  std::string first;
  for (std::string const& form : forms) {
    std::string const file = directory.Write("a.csv", form);
    ReportRun const run = RunReport({file, "--table", "name ~", "--weight", "n"});
    EXPECT_EQ(run.exitCode, 0) << run.err;
    first = first.empty() ? run.out : first;
    EXPECT_EQ(run.out, first);
  }
  EXPECT_NE(first.find("│ a, \"b\" │ 1 │"), std::string::npos) << first;
}

TEST(Program, ReadsFromAPipe) {
  TemporaryDirectory const directory;
  for (std::string const data : {"/dev/stdin", "-"}) {
    std::string const command = "printf 'a\\nx\\nx\\n' | " LAKRESVOS_REPORT_PROGRAM " " + data +
                                " --table 'a ~' --ascii -o - >" + directory.Path("out");
    EXPECT_EQ(std::system(command.c_str()), 0);
    EXPECT_NE(ReadFile(directory.Path("out")).find("| x | 2 |"), std::string::npos);
  }
  EXPECT_NE(ReadFile(directory.Path("out")).find("standard input"), std::string::npos);
}

TEST(Program, ReadsOtherSeparatorsAndNumbers) {
  TemporaryDirectory const directory;
  std::string const file =
      directory.Write("data.csv", "region;amount\nnorth;1.234,5\nsouth;n/a\nnorth;0,25\n");
  ReportRun const run =
      RunReport({file, "--decimal", ",", "--thousands", ".", "--missing", "n/a", "--table",
                 "region ~", "--statistics", "sum:amount", "--format", "csv"});
  EXPECT_EQ(run.exitCode, 0) << run.err;
  EXPECT_NE(run.out.find("north,1234.75,"), std::string::npos) << run.out;
}

TEST(Program, GivesHelpAndVersion) {
  ReportRun const help = RunReport({"--help"});
  EXPECT_EQ(help.exitCode, 0);
  EXPECT_NE(help.out.find("ROWS ~ COLUMNS | LAYERS"), std::string::npos);
  EXPECT_EQ(RunReport({"--version"}).out, "lakresvos-report " LAKRESVOS_VERSION "\n");
}

TEST(Program, WarnsOfWhatItSkips) {
  TemporaryDirectory const directory;
  std::string const file = directory.Write("a.csv", "a,b\nx,1\ny\nz,2,3\n");
  ReportRun const run = RunReport({file, "--table", "a ~"});
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_NE(run.out.find("Warnings"), std::string::npos);
  EXPECT_NE(run.out.find("│ 1       │    3 │ b      │ 1 field where the header has 2"),
            std::string::npos)
      << run.out;
  EXPECT_NE(run.out.find("│ 2       │    4 │ 3      │ 3 fields where the header has 2"),
            std::string::npos);
}

TEST(Program, SaysWhatItSkippedInEveryFormat) {
  TemporaryDirectory const directory;
  std::string const file = directory.Write(
      "a.csv", "a,x,w\np,1,1\nq\nr,text,1\nNA,2,1\ns,3,\nt,1,2,3\nu,,1\nv,more,1\n");
  for (std::vector<std::string> const& format :
       std::vector<std::vector<std::string>>{{"text"},
                                             {"html"},
                                             {"markdown"},
                                             {"csv"},
                                             {"csv", "--csv-shape", "display"},
                                             {"json"},
                                             {"xlsx"}}) {
    std::vector<std::string> arguments{file,       "--table", "a ~",
                                       "--weight", "w",       "--statistics",
                                       "sum:x",    "-o",      directory.Path("out"),
                                       "--format"};
    arguments.insert(arguments.end(), format.begin(), format.end());
    ReportRun const run = RunReport(arguments);
    EXPECT_EQ(run.exitCode, 0);
    std::string const start = "lakresvos-report: " + file + ": ";
    EXPECT_EQ(run.err,
              start +
                  "2 lines with too few or too many fields were skipped, the first on line 3, "
                  "column 'x'\n" +
                  start + "1 row without a weight was skipped, the first on line 6, column 'w'\n" +
                  start +
                  "2 values that are not numbers were treated as missing, the first on line 4, "
                  "column 'x'\n" +
                  start +
                  "1 row with missing values was left out of a table, the first on line 5, "
                  "column 'a'\n" +
                  start +
                  "1 row with a missing value was left out of a statistic, the first on "
                  "line 8, column 'x'\n")
        << format[0];
    EXPECT_TRUE(std::filesystem::remove(directory.Path("out")));
  }
}

TEST(Program, WritesNothingWhenItIsStrictAndSkippedSomething) {
  TemporaryDirectory const directory;
  std::string const file = directory.Write("a.csv", "a,b\nx,1\ny\n");
  std::string const output = directory.Write("out", "as it was");
  std::string const complaint =
      "lakresvos-report: " + file +
      ": 1 line with too few or too many fields was skipped, the first on line 3, column 'b'\n";
  for (std::vector<std::string> const& target :
       std::vector<std::vector<std::string>>{{}, {"-o", output}}) {
    std::vector<std::string> arguments{file, "--table", "a ~", "--strict"};
    arguments.insert(arguments.end(), target.begin(), target.end());
    ReportRun const run = RunReport(arguments);
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, complaint);
  }
  EXPECT_EQ(ReadFile(output), "as it was");
}

TEST(Program, WritesAsUsualWhenItIsStrictAndSkippedNothing) {
  std::vector<std::string> arguments{DataPath("titanic.csv"), "--table", "Class ~", "--format",
                                     "csv"};
  std::string const usual = RunReport(arguments).out;
  arguments.emplace_back("--strict");
  ReportRun const run = RunReport(arguments);
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(run.out, usual);
}

TEST(Program, WritesTablesThatAProgramCanTellApart) {
  TemporaryDirectory const directory;
  std::string const file = directory.Write("a.csv", "a,b\nx,1\nTotal,2\n");
  ReportRun const run = RunReport({file, "--table", "a ~", "--table", "b ~", "--title", "One",
                                   "--title", "Two", "--totals", "--format", "csv"});
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(run.out,
            "table,a,b,totals,value\r\n"
            "One,x,,,1\r\n"
            "One,Total,,,1\r\n"
            "One,Total,,a,2\r\n"
            "Two,,1,,1\r\n"
            "Two,,2,,1\r\n"
            "Two,,Total,b,2\r\n");
}

TEST(Program, TellsTotalsApartInASavedDocumentToo) {
  TemporaryDirectory const directory;
  std::string const file = directory.Write("a.csv", "a,b\nx,1\nTotal,2\n");
  std::vector<std::string> arguments{file, "--table", "a / b ~", "--totals", "--format"};
  std::vector<std::string> save = arguments;
  save.insert(save.end(), {"json", "-o", directory.Path("saved")});
  ASSERT_EQ(RunReport(save).exitCode, 0);
  arguments.emplace_back("csv");
  std::string const direct = RunReport(arguments).out;
  EXPECT_EQ(direct, "a,b,totals,value\r\nx,1,,1\r\nTotal,2,,1\r\n,Total,a; b,2\r\n");
  EXPECT_EQ(RunReport({"--from", directory.Path("saved"), "--format", "csv"}).out, direct);
}

TEST(Program, WritesTheHeaderOfAnEmptyTable) {
  TemporaryDirectory const directory;
  std::string const file = directory.Write("a.csv", "a,b\n");
  std::vector<std::string> arguments{file, "--table", "a ~ b", "--format", "csv"};
  EXPECT_EQ(RunReport(arguments).out, "a,b,value\r\n");
  arguments.insert(arguments.end(), {"--csv-shape", "display"});
  EXPECT_EQ(RunReport(arguments).out, "a,b\r\n");
}

TEST(Program, ShowsHostileTextAsText) {
  TemporaryDirectory const directory;
  std::string const file =
      directory.Write("a.csv", "a\n\"\x1B[31mred\"\n\"two\nlines\"\n=1+1\n\u202Eback\n<b>\n");
  ReportRun const run = RunReport({file, "--table", "a ~"});
  EXPECT_EQ(run.exitCode, 0);
  for (char const* line : {"│ \uFFFD[31mred │ 1 │\n", "│ two      │ 1 │\n│ lines    │   │\n",
                           "│ =1+1     │ 1 │\n", "│ \uFFFDback    │ 1 │\n", "│ <b>      │ 1 │\n"}) {
    EXPECT_NE(run.out.find(line), std::string::npos) << run.out;
  }
}

namespace {

/// The table as long CSV, without the header and the carriage returns.
std::string Records(std::string const& bytes, std::vector<std::string> arguments) {
  TemporaryDirectory const directory;
  arguments.insert(arguments.end(), {directory.Write("a.csv", bytes), "--format", "csv"});
  ReportRun const run = RunReport(arguments);
  EXPECT_EQ(run.exitCode, 0) << run.err;
  std::string records = run.out.substr(run.out.find('\n') + 1);
  std::erase(records, '\r');
  return records;
}

}  // namespace

TEST(Program, FindsADeviationBesideMuchLargerNumbers) {
  std::string const times = "x,w\n1700000039,1.3\n1700000042,0.2\n1700000024,0.4\n";
  std::string const constant = "x,w\n250000,0.7\n250000,1.1\n250000,2.1\n";
  std::vector<std::string> const arguments{"--statistics", "sd:x", "--weight", "w", "--table", "~"};
  EXPECT_EQ(Records(times, arguments).substr(0, 25), "Std. deviation of x,9.216");
  EXPECT_EQ(Records(constant, arguments), "Std. deviation of x,0\n");
}

TEST(Program, NeverShowsInfinity) {
  EXPECT_EQ(Records("x\n1e308\n1e308\n-1e308\n", {"--statistics", "sum:x,min:x", "--table", "~"}),
            "Sum of x,1e+308\nMinimum of x,-1e+308\n");
  EXPECT_EQ(Records("w\n1e308\n1e308\n",
                    {"--statistics", "count,total%", "--weight", "w", "--table", "~"}),
            "Count,\nTotal %,100\n");
}

TEST(Program, KeepsIdentifiersApart) {
  EXPECT_EQ(Records("a\n9007199254740993\n9007199254740992\n", {"--table", "a ~"}),
            "9007199254740992,1\n9007199254740993,1\n");
  EXPECT_EQ(Records("a\n1234\n01234\n12\n", {"--table", "a ~"}), "1234,1\n01234,1\n12,1\n");
  EXPECT_EQ(Records("a\n2\n1.0\n1\n", {"--table", "a ~"}), "1.0,2\n2,1\n");
  EXPECT_EQ(Records("a\n2\n1.0\n1\n", {"--table", "a ~", "--text", "a"}), "2,1\n1.0,1\n1,1\n");
}

TEST(Program, GroupsNumbersHoweverTheyAreWritten) {
  EXPECT_EQ(Records("w\n1\n-0\n0\n2\n", {"--table", "w ~", "--group", "w: Low = 1.0, 0e1"}),
            "Low,0,2\nLow,1,1\n,2,1\n");
}

TEST(ProgramErrors, FileThatIsNotThere) {
  ReportRun const run = RunReport({"/nowhere/a.csv"});
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_EQ(run.err, "lakresvos-report: /nowhere/a.csv: No such file or directory\n");
}

TEST(ProgramErrors, Directory) {
  EXPECT_EQ(RunReport({"/"}).err, "lakresvos-report: /: Is a directory\n");
}

TEST(ProgramErrors, EmptyFile) {
  EXPECT_EQ(Complaint("", {}), ":1: expected a header line with the names of the columns");
}

TEST(ProgramErrors, UnknownColumn) {
  EXPECT_EQ(Complaint("a,b\n1,2\n", {"--table", "a ~ c"}),
            ":1: unknown column 'c' in --table 'a ~ c' at position 5");
}

TEST(ProgramErrors, TextForAWeight) {
  EXPECT_EQ(Complaint("a,w\n1,2\n1,two\n", {"--weight", "w"}),
            ":3: column 'w': expected a weight of 0 or more, not 'two'");
}

TEST(ProgramErrors, NegativeWeight) {
  EXPECT_EQ(Complaint("a,w\n1,-2\n", {"--weight", "w"}),
            ":2: column 'w': expected a weight of 0 or more, not '-2'");
}

TEST(ProgramErrors, WeightThatSpansLinesStaysOneLine) {
  EXPECT_EQ(Complaint("a,w\n1,\"two\nlines\"\n", {"--weight", "w"}),
            ":2: column 'w': expected a weight of 0 or more, not 'two\\nlines'");
}

TEST(ProgramErrors, BrokenQuoting) {
  EXPECT_EQ(Complaint("a,b\n1,2\n3,\"4\n", {}), ":3: column 2: unclosed quoted field");
  EXPECT_EQ(Complaint("a,b\n1,2\"\n", {}), ":2: column 2: quote in an unquoted field");
  EXPECT_EQ(Complaint("a,b\n\"1\"x,2\n", {}), ":2: column 1: text after the closing quote");
}

TEST(ProgramErrors, BytesThatAreNotUtf8) {
  EXPECT_EQ(Complaint("a,b\n1,M\xFCnchen\n", {}), ":2: column 2: invalid UTF-8");
}

TEST(ProgramErrors, WideCharacters) {
  EXPECT_EQ(Complaint(std::string("\xFF\xFE"
                                  "a\0\n\0",
                                  6),
                      {}),
            ":1: column 1: invalid UTF-8");
}

TEST(ProgramErrors, OneColumnNameTwice) {
  EXPECT_EQ(Complaint("a,a\n1,2\n", {}), ":1: duplicate column name 'a' in columns 1 and 2");
}

TEST(ProgramErrors, MalformedFormula) {
  EXPECT_EQ(Complaint("a\n1\n", {"--table", "a +"}),
            "--table 'a +': expected '*', '/' or '~' at position 3");
}

TEST(ProgramErrors, MalformedStatistics) {
  EXPECT_EQ(Complaint("a\n1\n", {"--statistics", "mean"}),
            "--statistics 'mean': expected ':' and a column name at position 5");
}

TEST(ProgramErrors, UnknownCategory) {
  EXPECT_EQ(Complaint("a\n1\n", {"--table", "a ~", "--group", "a: b = 2"}),
            "--group 'a: b = 2': unknown category '2' of column 'a' at position 8");
}

TEST(ProgramErrors, CategoriesThatAreNoSiblings) {
  EXPECT_EQ(Complaint("a,b\n1,x\n2,y\n", {"--table", "a / b ~", "--group", "b: `c d` = x, y"}),
            "--group 'b: `c d` = x, y': category 'y' never occurs next to 'x' "
            "at position 15");
}

TEST(ProgramErrors, BadStyle) {
  TemporaryDirectory const directory;
  std::string const style = directory.Write("style.json", "{\n  \"data\": 1}");
  EXPECT_EQ(Complaint("a\n1\n", {"--table", "a ~", "--style", style}),
            style + ": /data: expected an object");
}

TEST(ProgramErrors, OutputThatWouldOverwriteTheStyle) {
  TemporaryDirectory const directory;
  std::string const file = directory.Write("a.csv", "a\n1\n");
  std::string const style = directory.Write("style.json", "{}");
  ReportRun const run = RunReport({file, "--style", style, "-o", style});
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_EQ(run.err, "lakresvos-report: " + style + ": refusing to overwrite the style file\n");
  EXPECT_EQ(ReadFile(style), "{}");
}

TEST(ProgramErrors, ColumnOfTextsInNoTable) {
  EXPECT_EQ(Complaint("a,b\nx,1\n", {"--table", "a ~", "--text", "b"}),
            "--text: column 'b' is in no table");
}

TEST(ProgramErrors, EmptyValue) {
  EXPECT_EQ(Complaint("a\nx\n", {"--weight", ""}), "--weight needs a value");
  EXPECT_EQ(Complaint("a\nx\n", {"--style", ""}), "--style needs a value");
}

TEST(ProgramErrors, OptionWithoutEffect) {
  EXPECT_EQ(Complaint("a\nx\n", {"--table", "a ~", "--ascii", "--format", "json"}),
            "--ascii has no effect without --format text");
}

TEST(ProgramErrors, UnknownOption) {
  EXPECT_EQ(Complaint("a\n1\n", {"--frobnicate"}), "unknown option '--frobnicate'");
}

TEST(ProgramErrors, OutputThatCannotBeWritten) {
  ReportRun const run = RunReport({DataPath("titanic.csv"), "-o", "/nowhere/out.txt"});
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_EQ(run.err, "lakresvos-report: /nowhere/out.txt: No such file or directory\n");
}

TEST(ProgramErrors, OutputDeviceThatIsFull) {
  ReportRun const run = RunReport({DataPath("titanic.csv"), "-o", "/dev/full"});
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_EQ(run.err, "lakresvos-report: /dev/full: No space left on device\n");
}

TEST(ProgramErrors, StandardOutputThatCannotBeWritten) {
  for (auto const& [to, reason] : {std::pair(">/dev/full", "No space left on device"),
                                   std::pair(">&-", "Bad file descriptor")}) {
    for (char const* format : {"text", "html", "markdown", "csv", "json", "xlsx"}) {
      TemporaryDirectory const directory;
      std::string const command = LAKRESVOS_REPORT_PROGRAM " " + DataPath("titanic.csv") +
                                  " --table 'Class ~ Sex' --format " + format + " 2>" +
                                  directory.Path("err") + " " + to;
      EXPECT_EQ(WEXITSTATUS(std::system(command.c_str())), 2) << command;
      EXPECT_EQ(ReadFile(directory.Path("err")),
                std::string("lakresvos-report: standard output: ") + reason + "\n");
    }
  }
}

TEST(ProgramErrors, NoPlaceForTemporaryFiles) {
  TemporaryDirectory const directory;
  std::string const command = "TMPDIR=/nowhere " LAKRESVOS_REPORT_PROGRAM " " +
                              DataPath("titanic.csv") + " --format xlsx -o " +
                              directory.Path("out") + " 2>" + directory.Path("err");
  EXPECT_EQ(WEXITSTATUS(std::system(command.c_str())), 2);
  EXPECT_EQ(ReadFile(directory.Path("err")),
            "lakresvos-report: cannot create a temporary file in /nowhere: No such file or "
            "directory\n");
  EXPECT_FALSE(std::filesystem::exists(directory.Path("out")));
}

TEST(ProgramErrors, LongNamesKeepTheReasonInSight) {
  ReportRun const run = RunReport({"/" + std::string(3000, 'n')});
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_LT(run.err.size(), 600u);
  EXPECT_TRUE(run.err.ends_with("nnn: File name too long\n")) << run.err;
}

TEST(ProgramErrors, WorkbookOnATerminal) {
  TemporaryDirectory const directory;
  std::string const command =
      LAKRESVOS_REPORT_PROGRAM " " + DataPath("titanic.csv") + " --format xlsx";
  std::string const terminal =
      "script -q -e -c '" + command + "' /dev/null >" + directory.Path("out") + " </dev/null";
  EXPECT_EQ(WEXITSTATUS(std::system(terminal.c_str())), 2);
  EXPECT_EQ(ReadFile(directory.Path("out")),
            "lakresvos-report: refusing to write a workbook to a terminal; use -o FILE\r\n");
}

TEST(ProgramErrors, WorkbookThatTakesTooMuchRoom) {
  TemporaryDirectory const directory;
  std::string data = "a\n";
  for (int category = 0; category < 16385; ++category) {
    data += std::to_string(category) + '\n';
  }
  std::string const file = directory.Write("a.csv", data);
  ReportRun const run = RunReport({file, "--table", "~ a", "--title", "Wide", "--format", "xlsx",
                                   "-o", directory.Path("a.xlsx")});
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_EQ(run.err,
            "lakresvos-report: 'Wide' is too large for a sheet, which has 1048576 rows and 16384 "
            "columns\n");
  EXPECT_FALSE(std::filesystem::exists(directory.Path("a.xlsx")));
}

TEST(ProgramErrors, TableWithMoreRowsThanCanBeShown) {
  TemporaryDirectory const directory;
  std::string data = "a,b,c,d,e,f,g,h\n";
  for (int i = 0; i < 20; ++i) {
    std::string const value = std::to_string(i);
    for (int column = 0; column < 8; ++column) {
      data += (column == 0 ? "" : ",") + value;
    }
    data += '\n';
  }
  std::string const file = directory.Write("a.csv", data);
  for (auto const& [formula, what] :
       {std::pair("a*b*c*d*e*f*g*h ~", "rows"), std::pair("~ a*b*c*d*e*f*g*h", "columns")}) {
    std::string const saved = directory.Path("saved.json");
    ASSERT_EQ(
        RunReport({file, "--table", formula, "--title", "T", "--format", "json", "-o", saved}).err,
        "");
    std::string const message =
        std::string("lakresvos-report: table 'T' has more ") + what + " than can be shown\n";
    for (std::vector<std::string> arguments :
         std::vector<std::vector<std::string>>{{"text"},
                                               {"html"},
                                               {"markdown"},
                                               {"csv", "--csv-shape", "display"},
                                               {"json", "--json-layout"},
                                               {"xlsx"}}) {
      arguments.insert(arguments.begin(), {"--from", saved, "--keep-empty", "-o",
                                           directory.Path("output"), "--format"});
      ReportRun const run = RunReport(arguments);
      EXPECT_EQ(run.exitCode, 2);
      EXPECT_EQ(run.err, message) << arguments[6];
      EXPECT_FALSE(std::filesystem::exists(directory.Path("output")));
    }
    ReportRun const run = RunReport({"--from", saved, "--keep-empty", "--format", "csv"});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err,
              "lakresvos-report: table 'T' has more combinations of categories than can be "
              "written\n");
  }
}

TEST(ProgramErrors, WorkbookThatCannotHoldATextIsWrittenWithoutIt) {
  TemporaryDirectory const directory;
  std::string const file = directory.Write("a.csv", "a\n" + std::string(40000, 'x') + "\n");
  ReportRun const run = RunReport({file, "--table", "a ~", "--title", "Long", "--format", "xlsx",
                                   "-o", directory.Path("a.xlsx")});
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_EQ(run.err,
            "lakresvos-report: 1 text longer than the 32767 characters of a cell left out, the "
            "first at 'Long'!A4\n");
  EXPECT_TRUE(std::filesystem::exists(directory.Path("a.xlsx")));
}

TEST(ProgramErrors, StrictRunRefusesAWorkbookThatCannotHoldAText) {
  TemporaryDirectory const directory;
  std::string const file = directory.Write("a.csv", "a\n" + std::string(40000, 'x') + "\n");
  std::string const saved = directory.Path("a.json");
  ASSERT_EQ(RunReport({file, "--table", "a ~", "--format", "json", "-o", saved}).exitCode, 0);
  std::string const old = directory.Write("old.xlsx", "old");
  std::vector<std::string> const arguments = {"--from", saved, "--format", "xlsx", "--strict"};
  ReportRun const printed = RunReport(arguments);
  EXPECT_EQ(printed.exitCode, 1);
  EXPECT_EQ(printed.out, "");
  EXPECT_NE(printed.err.find("1 text longer than the 32767 characters"), std::string::npos);
  std::vector<std::string> toFile = arguments;
  toFile.insert(toFile.end(), {"-o", old});
  EXPECT_EQ(RunReport(toFile).exitCode, 1);
  EXPECT_EQ(ReadFile(old), "old");
}

TEST(ProgramErrors, OutputThatWouldOverwriteTheData) {
  TemporaryDirectory const directory;
  std::string const file = directory.Write("a.csv", "a\n1\n");
  ReportRun const run = RunReport({file, "-o", file});
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_EQ(run.err, "lakresvos-report: " + file + ": refusing to overwrite the data file\n");
  EXPECT_EQ(ReadFile(file), "a\n1\n");
}

TEST(ProgramMemory, LeavesTheDocumentAloneWheneverAnAllocationFails) {
  TemporaryDirectory const directory;
  Options options;
  options.dataFile = directory.Write("a.csv", "a,b,x,w\np,q,1.5,2\np,r,,1\nNA,q,2,1\ns,q\n");
  options.weight = "w";
  options.totals = true;
  options.statistics = ParseStatistics("count,row%,mean:x");
  options.tables = {{ParseFormula("a / b ~ x"), "", ""},
                    {ParseFormula("a ~ b"), "Title", "Caption"}};
  options.groupings = {ParseGrouping("b: g = q, r")};
  options.charts = true;
  options.styleFile = directory.Write("style.json", R"({"data": {"font": "A font with a name"}})");
  std::unique_ptr<OmOutputTree> document;
  std::size_t const failures = FailEveryAllocation(
      [&] {
        document.reset();
        document = std::make_unique<OmOutputTree>();
        AppendReport(*document, options);
      },
      [&] { EXPECT_TRUE(document == nullptr || document->size() == 1u); });
  EXPECT_GT(failures, 1000u);
  EXPECT_EQ(document->size(), 9u);
}

TEST(ProgramMemory, GrowsWithTheDimensionsAndNotWithTheirSquare) {
  TemporaryDirectory const directory;
  std::string names;
  std::string values;
  std::string formula;
  for (int i = 0; i < 16000; ++i) {
    std::string const name = "c" + std::to_string(i);
    names += (i > 0 ? "," : "") + name;
    values += i > 0 ? ",x" : "x";
    formula += (i > 0 ? "*" : "") + name;
  }
  std::string const file = directory.Write("a.csv", names + "\n" + values + "\n");
  ReportRun const run = RunReport({file, "--table", formula + "~", "--format", "csv"});
  EXPECT_EQ(run.err, "");
  EXPECT_TRUE(run.out.starts_with(names));
  EXPECT_NE(run.out.find("\n" + values + ",1"), std::string::npos);
  struct rusage usage;
  ASSERT_EQ(getrusage(RUSAGE_CHILDREN, &usage), 0);
  EXPECT_LT(usage.ru_maxrss, 1 << 20) << "kilobytes";
}

// Saved documents

TEST(Program, ShowsASavedDocumentAsItShowsTheOneThatWasSaved) {
  TemporaryDirectory const directory;
  std::string const saved = directory.Path("saved.json");
  std::vector<std::string> const arguments{DataPath("titanic.csv"),
                                           "--weight",
                                           "Freq",
                                           "--totals",
                                           "--table",
                                           "Class * Sex ~ Survived | Age",
                                           "--title",
                                           "Survival",
                                           "--table",
                                           "Class ~ Survived",
                                           "--chart"};
  std::vector<std::string> save = arguments;
  save.insert(save.end(), {"--format", "json", "--json-layout", "-o", saved});
  ASSERT_EQ(RunReport(save).err, "");
  ReportRun const direct = RunReport(arguments);
  ReportRun const loaded = RunReport({"--from", saved});
  EXPECT_EQ(loaded.err, "");
  // The document holds the command, which was another one.
  auto const afterCommand = [](std::string const& text) { return text.substr(text.find("Notes")); };
  EXPECT_EQ(afterCommand(loaded.out), afterCommand(direct.out));
  EXPECT_NE(loaded.out.find("Survival"), std::string::npos);
}

TEST(Program, WritesASavedDocumentAsItWas) {
  TemporaryDirectory const directory;
  std::string const saved = directory.Path("saved.json");
  ASSERT_EQ(
      RunReport({DataPath("airquality.csv"), "--table", "Month ~", "--format", "json", "-o", saved})
          .err,
      "");
  EXPECT_EQ(RunReport({"--from", saved, "--format", "json"}).out, ReadFile(saved));
}

TEST(Program, WillNotOverwriteTheSavedDocument) {
  TemporaryDirectory const directory;
  std::string const document = R"({"format":"lakresvos-document","version":1,"parts":[]})";
  std::string const file = directory.Write("saved.json", document);
  EXPECT_EQ(RunReport({"--from", file, "-o", file}).err,
            "lakresvos-report: " + file + ": refusing to overwrite the saved document\n");
  EXPECT_EQ(ReadFile(file), document);
}

TEST(Program, TellsWhatIsWrongWithASavedDocument) {
  TemporaryDirectory const directory;
  std::string const torn = directory.Write("torn.json", "{\n\"format");
  EXPECT_EQ(RunReport({"--from", torn}).err,
            "lakresvos-report: " + torn + ":2:8: invalid JSON: unexpected end\n");
  EXPECT_EQ(RunReport({"--from", directory.Path("")}).err,
            "lakresvos-report: " + directory.Path("") + ": Is a directory\n");
  std::string const other = directory.Write("other.json", R"({"format":1})");
  EXPECT_EQ(RunReport({"--from", other}).err,
            "lakresvos-report: " + other + ": /format: expected a string\n");
  EXPECT_EQ(RunReport({"--from", directory.Path("none")}).err,
            "lakresvos-report: " + directory.Path("none") + ": No such file or directory\n");
}

TEST(Program, TakesNoDataBesideASavedDocument) {
  for (std::vector<std::string> const& more :
       std::vector<std::vector<std::string>>{{"data.csv"},
                                             {"--table", "a ~"},
                                             {"--weight", "w"},
                                             {"--statistics", "count"},
                                             {"--totals"},
                                             {"--title", "t"},
                                             {"--caption", "c"},
                                             {"--group", "a: b = c"},
                                             {"--text", "a"},
                                             {"--chart"},
                                             {"--style", "s.json"}}) {
    std::vector<std::string> arguments{"--from", "saved.json"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    ReportRun const run = RunReport(arguments);
    EXPECT_EQ(run.exitCode, 2);
    std::string const option = more.front() == "data.csv" ? "DATA" : more.front();
    EXPECT_EQ(run.err, "lakresvos-report: " + option + " cannot be used with --from\n");
  }
}
