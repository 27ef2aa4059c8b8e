#include <gtest/gtest.h>
#include <sstream>

#include <lakresvos/tabulate/CrossTable.h>
#include <lakresvos/tabulate/TextFile.h>
#include <lakresvos/tabulate/WarningLog.h>

#include "support/ErrorOf.h"
#include "support/TemporaryDirectory.h"
#include "support/faults/FailingNew.h"
#include "tabulate/TableReader.h"

using namespace lakresvos::tabulate;

namespace {

CountRequest CountBy(std::string const& formula) {
  CountRequest request;
  request.formulas.push_back(ParseFormula(formula));
  request.statistics = ParseStatistics("count,mean:x");
  return request;
}

/// The table of a file as a text, after the numbers of its rows and of what was skipped.
std::string DescribeFile(std::string const& file, ReadOptions const& options) {
  CountRequest const request = CountBy("a ~ b");
  WarningLog warnings;
  CountedData const data = TextFile(file, {}, options).Count(request, warnings);
  return std::to_string(data.records) + " records, " + std::to_string(warnings.Total()) +
         " skipped\n" +
         DescribeTable(*MakeCrossTable(data, 0, {request.formulas[0]}, request.statistics, true));
}

}  // namespace

TEST(TextFile, CountsTheRowsOfAFile) {
  TemporaryDirectory const directory;
  std::string const file = directory.Write("data.csv", "a,b,x\np,1,2\nq,1,3\np,1,4\np\n");
  CountRequest const request = CountBy("a ~ b");
  WarningLog warnings;
  CountedData const data = TextFile(file).Count(request, warnings);
  EXPECT_EQ(data.source, file);
  EXPECT_EQ(data.records, 4u);
  EXPECT_EQ(data.rows, 3u);
  auto const table = MakeCrossTable(data, 0, {request.formulas[0]}, request.statistics, false);
  EXPECT_EQ(TextAt(*table, {"p", "1", "Count"}), "2");
  EXPECT_EQ(TextAt(*table, {"p", "1", "Mean of x"}), "3.00");
  EXPECT_EQ(warnings.Summary(Skipped::Lines).line, 5u);
}

TEST(TextFile, CountsTheSameInAnyNumberOfThreads) {
  std::string bytes = "a,b,x\n";
  for (int row = 0; row < 60000; ++row) {
    bytes += std::to_string(row * 7919 % 101) + ',' + (row % 7 == 0 ? "NA" : "p") + ',' +
             std::to_string(row % 13) + '\n';
  }
  TemporaryDirectory const directory;
  std::string const file = directory.Write("data.csv", bytes);
  std::string const alone = DescribeFile(file, {.threads = 1});
  EXPECT_EQ(DescribeFile(file, {.threads = 0}), alone);
  EXPECT_EQ(DescribeFile(file, {.threads = 3}), alone);
}

TEST(TextFile, TakesNoMoreMemoryForMoreRows) {
  auto const peak = [](int rows) {
    std::string bytes = "a,b,x,other\n";
    for (int row = 0; row < rows; ++row) {
      bytes += "p," + std::to_string(row % 9) + ',' + std::to_string(row) + ".25,text " +
               std::to_string(row) + '\n';
    }
    TemporaryDirectory const directory;
    TextFile source(directory.Write("data.csv", bytes));
    CountRequest const request = CountBy("a ~ b");
    WarningLog warnings;
    MemoryMeter const meter;
    CountedData const data = source.Count(request, warnings);
    EXPECT_EQ(data.rows, static_cast<std::size_t>(rows));
    return meter.Peak();
  };
  EXPECT_LE(peak(50000), peak(2000) + 1000);
}

TEST(TextFile, CanBeCountedAgain) {
  TemporaryDirectory const directory;
  TextFile source(directory.Write("data.csv", "a,b,x\np,1,2\n"));
  WarningLog warnings;
  EXPECT_EQ(source.Count(CountBy("a ~"), warnings).rows, 1u);
  EXPECT_EQ(source.Count(CountBy("b ~"), warnings).rows, 1u);
}

TEST(TextFile, GuessesTheSeparatorAndNotesIt) {
  TemporaryDirectory const directory;
  std::string const file = directory.Write("data.csv", "a;b;x\np;1;2\nq;\"1;1\";3\n");
  WarningLog warnings;
  CountedData const data = TextFile(file).Count(CountBy("a ~"), warnings);
  EXPECT_EQ(data.columns.size(), 3u);
  EXPECT_EQ(data.rows, 2u);
  ASSERT_EQ(data.notes.size(), 1u);
  EXPECT_EQ(data.notes[0].label, "Separator");
  EXPECT_EQ(data.notes[0].text, "Semicolon");
}

TEST(TextFile, TakesTheSeparatorThatItIsGiven) {
  TemporaryDirectory const directory;
  std::string const file = directory.Write("data.csv", "a,x^b;c;d\np,1^2\n");
  WarningLog warnings;
  CountedData const data = TextFile(file, {.separator = '^'}).Count({}, warnings);
  ASSERT_EQ(data.columns.size(), 2u);
  EXPECT_EQ(data.columns[0].Name(), "a,x");
  EXPECT_EQ(data.rows, 1u);
  EXPECT_TRUE(data.notes.empty());
}

TEST(TextFile, ReadsAStream) {
  std::istringstream input("a,b,x\np,1,2\nq\n");
  WarningLog warnings;
  CountedData const data = TextFile(input, "standard input").Count(CountBy("a ~"), warnings);
  EXPECT_EQ(data.source, "standard input");
  EXPECT_EQ(data.rows, 1u);
  EXPECT_EQ(warnings.Summary(Skipped::Lines).line, 3u);
}

TEST(TextFile, NamesAStreamThatIsBroken) {
  std::istringstream input("a,b\n\"");
  WarningLog warnings;
  EXPECT_EQ(ErrorOf([&] { TextFile(input, "standard input").Count({}, warnings); }),
            "standard input:2: column 1: unclosed quoted field");
}

TEST(TextFile, NamesAFileThatCannotBeRead) {
  WarningLog warnings;
  EXPECT_EQ(ErrorOf([&] { TextFile("no/such.csv").Count({}, warnings); }),
            "no/such.csv: No such file or directory");
}
