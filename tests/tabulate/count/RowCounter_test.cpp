#include "count/RowCounter.h"

#include <gtest/gtest.h>
#include <sstream>

#include <lakresvos/tabulate/CrossTable.h>
#include <lakresvos/tabulate/InputError.h>

#include "csv/CsvReader.h"
#include "data/DataSetBuilder.h"
#include "support/ErrorOf.h"
#include "support/Property.h"
#include "tabulate/TableReader.h"
#include "tabulate/TextData.h"

using namespace lakresvos::tabulate;

namespace {

CountRequest MakeRequest(std::vector<std::string> const& formulas, std::string const& statistics,
                         bool weighted) {
  CountRequest request;
  for (std::string const& formula : formulas) {
    request.formulas.push_back(ParseFormula(formula));
  }
  request.statistics = ParseStatistics(statistics);
  if (weighted) {
    request.weight = {"w", "--weight"};
  }
  return request;
}

CountedData Count(std::string const& bytes, CountRequest const& request, WarningLog& warnings,
                  CsvReading const& how = {}) {
  std::istringstream input(bytes);
  RowCounter counter("data.csv", nullptr, request, warnings);
  ReadCsv(input, "data.csv", counter, how);
  return counter.Result();
}

CountedData Count(std::string const& bytes, CountRequest const& request) {
  WarningLog warnings;
  return Count(bytes, request, warnings);
}

std::string ErrorOfCounting(std::string const& bytes, CountRequest const& request) {
  return ErrorOf([&] { Count(bytes, request); });
}

template <class Data>
std::string DescribeColumns(Data const& data) {
  std::ostringstream text;
  text << data.records << " records\n";
  for (DataColumn const& column : data.columns) {
    text << column.Name() << ": " << column.MissingCount() << " missing\n";
  }
  return text.str();
}

std::string DescribeWarnings(WarningLog const& warnings, bool all) {
  std::ostringstream text;
  for (Skipped const kind : kAllSkipped) {
    if (all || (kind != Skipped::Rows && kind != Skipped::Values)) {
      SkipCount const& count = warnings.Summary(kind);
      text << count.count << " from " << count.line << ", " << count.column << '\n';
    }
  }
  for (Warning const& warning : warnings.First()) {
    text << warning.line << ": " << warning.column << ": " << warning.problem << '\n';
  }
  return text.str();
}

std::string DescribeCounting(std::string const& bytes, CountRequest const& request,
                             CsvReading const& how, bool all) {
  std::string text;
  text += ErrorOf([&] {
    WarningLog warnings;
    CountedData const data = Count(bytes, request, warnings, how);
    text += DescribeColumns(data) + DescribeWarnings(warnings, all);
    for (std::size_t i = 0; i < request.formulas.size(); ++i) {
      TableRequest const table{request.formulas[i]};
      text += DescribeTable(*MakeCrossTable(data, i, table, request.statistics, true));
    }
  });
  return text;
}

/// As above, of data that are read before they are counted.
std::string DescribeKept(std::string const& bytes, CountRequest const& request) {
  std::string text;
  text += ErrorOf([&] {
    WarningLog warnings;
    std::istringstream input(bytes);
    DataSet const data = ReadDataSet(input, "data.csv", ListColumns(request), warnings);
    RowWeights const weights =
        request.weight ? RowWeights(data, request.weight->name, warnings) : RowWeights();
    WarnAboutTexts(data, request.statistics, warnings);
    text += DescribeColumns(data) + DescribeWarnings(warnings, false);
    for (Formula const& formula : request.formulas) {
      text += DescribeTable(*MakeCrossTable(data, weights, {formula}, request.statistics, true));
    }
  });
  return text;
}

std::string OneOf(std::vector<std::string> const& texts) {
  return *rc::gen::elementOf(texts);
}

/// Records of a, b, x and w, with what is missing, texts among the numbers and odd records.
std::string DrawRows() {
  std::string bytes = "a,b,x,w\n";
  auto const rows = *rc::gen::scale(3, rc::gen::inRange(0, 100));
  for (int row = 0; row < rows; ++row) {
    bytes += OneOf({"p", "q", "\"r\ns\"", "NA", "a longer text"}) + ',';
    bytes += OneOf({"1", "1.0", "20", "3", "", "text"}) + ',';
    bytes += OneOf({"1.5", "-2", "1e3", "", "NA", "text", "0.125"}) + ',';
    bytes += OneOf({"1", "2", "0", "0.5", "NA", ""}) + '\n';
    bytes += *rc::gen::inRange(0, 20) == 0 ? OneOf({"p\n", "\n", "1,2,3,4,5\n"}) : "";
  }
  return bytes;
}

CountRequest DrawRequest() {
  return MakeRequest(
      {OneOf({"a ~ b", "~", "a/b ~", "a ~ | b"}), OneOf({"b ~", "a * b ~ w", "w ~ x"})},
      OneOf({"count", "count,mean:x,sd:x", "row%,sum:x,min:b,max:x"}), *rc::gen::arbitrary<bool>());
}

}  // namespace

PROPERTY(RowCounter, CountsWhatWouldBeCountedOfDataInMemory) {
  std::string const bytes = DrawRows();
  CountRequest const request = DrawRequest();
  RC_ASSERT(DescribeCounting(bytes, request, {}, false) == DescribeKept(bytes, request));
}

PROPERTY(RowCounter, CountsTheSameInSeveralThreads) {
  std::string const bytes = DrawRows();
  CountRequest const request = DrawRequest();
  CsvReading const how{*rc::gen::element<std::size_t>(2, 3, 7),
                       *rc::gen::inRange<std::size_t>(3, 200)};
  RC_ASSERT(DescribeCounting(bytes, request, how, true) ==
            DescribeCounting(bytes, request, {}, true));
}

TEST(RowCounter, KeepsValuesOfFormulasAlone) {
  CountedData const data =
      Count("a,b,x,w\np,q,1,2\nNA,q,,1\n", MakeRequest({"a ~"}, "mean:x", true));
  EXPECT_EQ(data.source, "data.csv");
  EXPECT_EQ(data.records, 2u);
  EXPECT_EQ(data.rows, 2u);
  ASSERT_EQ(data.columns.size(), 4u);
  EXPECT_EQ(data.columns[0].Values().size(), 1u);
  for (DataColumn const& column : data.columns) {
    EXPECT_TRUE(column.Codes().empty());
  }
  EXPECT_FALSE(data.columns[2].IsKept());
  EXPECT_EQ(data.columns[0].MissingCount(), 1u);
  EXPECT_EQ(data.columns[2].MissingCount(), 1u);
}

TEST(RowCounter, CountsRowsWithAWeightAlone) {
  WarningLog warnings;
  CountedData const data =
      Count("a,w\np,2\nq,\np,NA\nq,0\n", MakeRequest({"a ~"}, "count", true), warnings);
  EXPECT_EQ(data.records, 4u);
  EXPECT_EQ(data.rows, 2u);
  EXPECT_EQ(warnings.Summary(Skipped::Weights).count, 2u);
  EXPECT_EQ(warnings.Summary(Skipped::Weights).line, 3u);
}

TEST(RowCounter, TellsTheFirstRowThatATableLeavesOut) {
  WarningLog warnings;
  Count("a,b,w\np,q,\nNA,q,1\n,,1\np,NA,1\n", MakeRequest({"b ~", "a ~"}, "count", true), warnings);
  EXPECT_EQ(warnings.Summary(Skipped::Rows).count, 3u);
  EXPECT_EQ(warnings.Summary(Skipped::Rows).line, 3u);
  EXPECT_EQ(warnings.Summary(Skipped::Rows).column, "a");
}

TEST(RowCounter, TellsTheFirstRowThatAStatisticLeavesOut) {
  WarningLog warnings;
  Count("a,x,y\np,1,1\nNA,1,\np,,NA\np,text,1\n", MakeRequest({"a ~"}, "mean:x,sum:y", false),
        warnings);
  EXPECT_EQ(warnings.Summary(Skipped::Values).count, 2u);
  EXPECT_EQ(warnings.Summary(Skipped::Values).line, 3u);
  EXPECT_EQ(warnings.Summary(Skipped::Values).column, "y");
  EXPECT_EQ(warnings.Summary(Skipped::Texts).count, 1u);
}

TEST(RowCounter, LeavesNothingOutWithoutTables) {
  WarningLog warnings;
  CountedData const data = Count("a,x\nNA,\n", MakeRequest({}, "mean:x", false), warnings);
  EXPECT_FALSE(warnings.HasAny());
  EXPECT_EQ(data.rows, 1u);
  EXPECT_TRUE(data.tables.empty());
}

TEST(RowCounter, FailsWithoutAHeader) {
  EXPECT_EQ(ErrorOfCounting("", MakeRequest({}, "count", false)),
            "data.csv:1: expected a header line with the names of the columns");
}

TEST(RowCounter, FailsForAColumnThatIsNotThere) {
  EXPECT_EQ(ErrorOfCounting("a\n1\n", MakeRequest({"a ~"}, "count", true)),
            "data.csv:1: unknown column 'w' in --weight");
  EXPECT_EQ(ErrorOfCounting("a\n1\n", MakeRequest({"b ~"}, "mean:x", true)),
            "data.csv:1: unknown column 'b' in formula 'b ~' at position 1");
}

TEST(RowCounter, FailsForAWeightThatIsNone) {
  CountRequest const request = MakeRequest({"a ~"}, "count", true);
  EXPECT_EQ(ErrorOfCounting("a,w\n1,1\n1,two\n", request),
            "data.csv:3: column 'w': expected a weight of 0 or more, not 'two'");
  EXPECT_EQ(ErrorOfCounting("a,w\n1,-1\n", request),
            "data.csv:2: column 'w': expected a weight of 0 or more, not '-1'");
}

TEST(RowCounter, TellsTheLineOfAWeightThatAnotherThreadReads) {
  std::string bytes = "a,w\n";
  for (int i = 0; i < 1000; ++i) {
    bytes += "p,1\n";
  }
  bytes += "p,two\np,three\n";
  CountRequest const request = MakeRequest({"a ~"}, "count", true);
  WarningLog warnings;
  EXPECT_EQ(ErrorOf([&] {
              Count(bytes, request, warnings, {3, 100});
            }),
            "data.csv:1002: column 'w': expected a weight of 0 or more, not 'two'");
}
