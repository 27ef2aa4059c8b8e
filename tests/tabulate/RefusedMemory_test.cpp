#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include <lakresvos/OmVectorTreeWalk.h>
#include <lakresvos/tabulate/tabulate.h>

#include "count/RowCounter.h"
#include "csv/CsvReader.h"
#include "data/DataSetBuilder.h"
#include "support/faults/FailingMalloc.h"
#include "support/faults/FailingNew.h"
#include "tabulate/FewValues.h"
#include "tabulate/TextData.h"

// What tabulation does when there is no memory: it throws std::bad_alloc, and then nothing is left
// behind and nothing is changed.

using namespace lakresvos::tabulate;

namespace {

using Texts = std::vector<std::string>;

std::string const kCsv =
    "a,b,x,w\n"
    "p,q,1.5,2\n"
    "p,\"a \"\"long\"\" value\nof two lines\",,1\n"
    "NA,q,2,1\n"
    "s,q\n"
    "a value that is longer than others,10,not a number,0.5\n"
    "s,9,3.25,NA\n";

RequiredColumns AllColumns() {
  RequiredColumns required;
  for (char const* const name : {"a", "b", "x", "w"}) {
    required.push_back({name, "the test", std::make_shared<std::string const>(name), 1});
  }
  return required;
}

// Descriptions, of which equal things have equal ones

/// Throws when it runs out of memory, as streams do not unless they are told.
class Text : public std::ostringstream {
 public:
  Text() { exceptions(std::ios::badbit); }
};

void Describe(std::ostream& out, OmDimension const& dimension) {
  OmVectorTreeWalk<OmDimension::ConstNode> walk(dimension.Root());
  while (walk.Next()) {
    OmDimensionNode const& node = walk.Current().Value();
    out << walk.Current().depth << node.label->GetText() << node.subscript << "\n";
  }
}

std::string Describe(OmPivotTable const& table) {
  Text out;
  out << table.GetTableTitle()->GetText() << "\n";
  for (int d = 0; d < table.NDimensions(); ++d) {
    Describe(out, table.Dimension(d));
  }
  for (auto at = table.FirstCell(); at.Cell() != nullptr; ++at) {
    for (int const subscript : at.Index()) {
      out << subscript << ",";
    }
    out << at.Cell()->GetText() << "\n";
  }
  return out.str();
}

std::string Describe(DataSet const& data) {
  Text out;
  for (DataColumn const& column : data.columns) {
    out << column.Name() << column.MissingCount() << ":";
    for (std::uint32_t const code : column.Codes()) {
      out << (code == kMissingCode ? "-" : column.Values()[code]) << ";";
    }
    for (double const number : column.Numbers().byCode) {
      out << number << ",";
    }
  }
  return out.str();
}

std::string Describe(WarningLog const& warnings) {
  Text out;
  out << warnings.Total();
  for (Warning const& warning : warnings.First()) {
    out << warning.line << warning.column << warning.problem;
  }
  for (Skipped const kind : kAllSkipped) {
    out << warnings.Summary(kind).count << warnings.Summary(kind).column;
  }
  return out.str();
}

Texts Names(RequiredColumns const& columns) {
  Texts names;
  for (RequiredColumn const& column : columns) {
    names.push_back(column.name + column.DescribeSource());
  }
  return names;
}

class TabulateRefusedMemory : public testing::Test {
 protected:
  Formula const formula = ParseFormula("a / `b` * w ~ x");
  std::vector<Statistic> const statistics =
      ParseStatistics("count,row%,mean:x,sd:x,sum:x,min:x,max:x");
  std::vector<Grouping> const groupings = {ParseGrouping("a: `a group with a name` = p, s")};
};

}  // namespace

// Requests

TEST_F(TabulateRefusedMemory, WhileAFormulaIsRead) {
  EXPECT_GT(FailEveryAllocationOf([] {
              Formula const read = ParseFormula("`a name that is long enough` / b ~ c | d",
                                                "an option with a long name");
              return read.text + read.source + read.rows.front().front().name +
                     read.layers.front().front().name;
            }),
            10U);
}

TEST_F(TabulateRefusedMemory, WhileAGroupingIsRead) {
  EXPECT_GT(FailEveryAllocationOf([] {
              Grouping const read = ParseGrouping("a: `a group with a name` = p, s");
              return read.group.name + read.categories.back().name;
            }),
            5U);
}

TEST_F(TabulateRefusedMemory, WhileStatisticsAreReadAndNamed) {
  EXPECT_GT(FailEveryAllocationOf([] {
              std::string names;
              for (Statistic const& one : ParseStatistics("count,mean:`a column's name`,sd:x")) {
                names += MakeStatisticLabel(one)->GetText();
              }
              return names;
            }),
            10U);
  EXPECT_GT(FailEveryAllocationOf(ListStatistics), 5U);
}

TEST_F(TabulateRefusedMemory, WhileColumnsAreListed) {
  EXPECT_GT(FailEveryAllocationOf([&] { return Names(ListColumns(formula, statistics)); }), 10U);
  EXPECT_GT(FailEveryAllocationOf([&] { return Names(ListColumns(statistics)); }), 2U);
  EXPECT_GT(FailEveryAllocationOf([&] {
              CheckGroupings(groupings, ListColumns(formula));
              return true;
            }),
            4U);
}

TEST_F(TabulateRefusedMemory, WhileARequestIsRefused) {
  auto const error = [](auto const& parse) {
    return [parse]() -> std::string {
      try {
        parse();
      } catch (InputError const& refusal) {
        return refusal.what();
      }
      return "none";
    };
  };
  EXPECT_GT(FailEveryAllocationOf(error([] { ParseFormula("a / `b ~ c"); })), 5U);
  EXPECT_GT(FailEveryAllocationOf(error([] { ParseGrouping("b: = q"); })), 5U);
  EXPECT_GT(FailEveryAllocationOf(error([] { ParseStatistics("count,median"); })), 5U);
  EXPECT_GT(FailEveryAllocationOf(error([&] { CheckGroupings(groupings, {}); })), 5U);
  EXPECT_GT(FailEveryAllocationOf(error([] { ReadData("a,a\n", {"a"}); })), 5U);
}

TEST_F(TabulateRefusedMemory, WhileATextIsQuoted) {
  std::string const text = "a text with `quotes` and \x01 that is longer than " + kCsv;
  EXPECT_GT(FailEveryAllocationOf([&] { return EscapeControls(text); }), 1U);
  EXPECT_GT(FailEveryAllocationOf([&] { return Quote(text); }), 1U);
  EXPECT_GT(FailEveryAllocationOf([&] { return Shorten(text); }), 1U);
}

// Data

TEST_F(TabulateRefusedMemory, WhileDataAreRead) {
  RequiredColumns const required = AllColumns();
  auto const read = [&] {
    WarningLog warnings;
    std::istringstream input(kCsv);
    DataSet const data = ReadDataSet(input, "data.csv", required, warnings);
    return Describe(data) + Describe(warnings);
  };
  EXPECT_GT(FailEveryAllocationOf(read), 30U);
  FewValues const few;
  EXPECT_GT(FailEveryAllocationOf(read), 30U);
}

TEST_F(TabulateRefusedMemory, WhileThreadsReadData) {
  std::string csv = kCsv;
  for (int i = 0; i < 20; ++i) {
    csv += "a value number " + std::to_string(i) + ",\"b\",1,2\ns,q\n";
  }
  RequiredColumns const required = AllColumns();
  auto const read = [&] {
    WarningLog warnings;
    DataSetBuilder builder("data.csv", required, warnings);
    std::istringstream input(csv);
    ReadCsv(input, "data.csv", builder, {.threads = 3, .block = 64});
    return Describe(builder.Result()) + Describe(warnings);
  };
  EXPECT_GT(FailEveryAllocationOf(read, FailAfter::Threads::All), 60U);
  FewValues const few;
  EXPECT_GT(FailEveryAllocationOf(read, FailAfter::Threads::All), 60U);
}

TEST_F(TabulateRefusedMemory, WhileDataAreCountedAsTheyAreRead) {
  std::string csv = kCsv;
  for (int i = 0; i < 20; ++i) {
    csv += "a value number " + std::to_string(i) + ",\"b\",1,2\ns,q\nNA,a,text,NA\n";
  }
  CountRequest const request{
      {formula, ParseFormula("b ~ a")}, statistics, RequiredColumn{"w", "--weight"}};
  for (CsvReading const how : {CsvReading{}, CsvReading{.threads = 3, .block = 64}}) {
    EXPECT_GT(FailEveryAllocationOf(
                  [&] {
                    WarningLog warnings;
                    RowCounter counter("data.csv", nullptr, request, warnings);
                    std::istringstream input(csv);
                    ReadCsv(input, "data.csv", counter, how);
                    CountedData const data = counter.Result();
                    return Describe(*MakeCrossTable(data, 0, {formula}, statistics, true)) +
                           Describe(warnings);
                  },
                  FailAfter::Threads::All),
              100U);
  }
}

TEST_F(TabulateRefusedMemory, WhileALogTakesOverAnother) {
  WarningLog below;
  below.Add({Skipped::Lines, 1, "a column with a long name", "a problem that is described"});
  WarningLog log;
  log.Add({Skipped::Lines, 9, "another column with a long name", "another problem as well"});
  std::size_t total = 1;
  EXPECT_GT(FailEveryAllocation(
                [&] {
                  log.Append(below, 1);
                  ++total;
                },
                [&] {
                  EXPECT_EQ(log.Total(), total);
                  EXPECT_EQ(log.Summary(Skipped::Lines).count, total);
                  EXPECT_EQ(log.First().size(), std::min(total, WarningLog::kMaxKept));
                }),
            3U);
}

TEST_F(TabulateRefusedMemory, WhileTheParserInCReadsData) {
  if (!FailMallocAfter::Works()) {
    GTEST_SKIP() << "sanitizers want malloc() for themselves";
  }
  std::string const csv = "a,b,x,w\n\"" + std::string(200'000, 'q') + "\",\"b\",1,2\n";
  std::string const expected = Describe(ReadData(csv, {"a", "b", "x", "w"}));
  std::string described;
  EXPECT_GT(FailEvery<FailMallocAfter>(
                [&] {
                  described = Describe(ReadData(csv, {"a", "b", "x", "w"}));
                },
                [] {}),
            2U);
  EXPECT_EQ(described, expected);
}

TEST_F(TabulateRefusedMemory, WhileAnEmptyColumnOrDictionaryIsMade) {
  std::string const name = "the name of a column that is long enough for the heap";
  EXPECT_GT(FailEveryAllocationOf([&] { return DataColumn(name).Name(); }), 1U);
  FailEveryAllocationOf([] { return Dictionary().size(); });
}

TEST_F(TabulateRefusedMemory, WhileAColumnGrows) {
  DataColumn column("a column");
  auto const rows = [&] { return column.Codes().size() + column.MissingCount(); };
  std::size_t failures = 0;
  for (std::size_t row = 0; row < 40; ++row) {
    std::string const field = "a field that is no text seen before " + std::to_string(row);
    std::size_t const missing = column.MissingCount();
    failures += FailEveryAllocation([&] { column.Append(field); },
                                    [&] {
                                      EXPECT_EQ(rows(), row);
                                      EXPECT_EQ(column.Values().size(), row);
                                    });
    EXPECT_EQ(column.MissingCount(), missing);
    EXPECT_EQ(column.Values()[column.Codes().back()], field);
  }
  EXPECT_GT(failures, 20U);
}

TEST_F(TabulateRefusedMemory, WhileADictionaryGrows) {
  Dictionary dictionary;
  std::size_t failures = 0;
  for (std::uint32_t id = 0; id < 100; ++id) {
    std::string const text = "a text that was not there before " + std::to_string(id);
    std::uint32_t given = Dictionary::kNone;
    failures += FailEveryAllocation([&] { given = dictionary.Intern(text); },
                                    [&] {
                                      EXPECT_EQ(dictionary.size(), id);
                                      EXPECT_EQ(dictionary.Find(text), Dictionary::kNone);
                                    });
    EXPECT_EQ(given, id);
    EXPECT_EQ(dictionary[id], text);
    EXPECT_EQ(dictionary.Find(text), id);
  }
  EXPECT_GT(failures, 10U);
}

TEST_F(TabulateRefusedMemory, WhileNumbersAreMadeOfTexts) {
  DataSet const data = ReadData(kCsv, {"a", "b", "x", "w"});
  EXPECT_GT(FailEveryAllocation([&] { data.columns[2].Numbers(); }, [] {}), 0U);
  EXPECT_EQ(data.columns[2].Numbers().decimals, 2);
}

TEST_F(TabulateRefusedMemory, WhileRowsAreWeighedAndTextsAreWarnedOf) {
  DataSet const data = ReadData(kCsv, {"a", "b", "x", "w"});
  EXPECT_GT(FailEveryAllocationOf([&] {
              WarningLog warnings;
              RowWeights const weights(data, "w", warnings);
              WarnAboutTexts(data, statistics, warnings);
              return Describe(warnings) + std::to_string(weights.At(0));
            }),
            5U);
}

TEST_F(TabulateRefusedMemory, WhileAWarningIsKept) {
  WarningLog warnings;
  std::string const column = "a column with a name";
  for (std::size_t i = 0; i + 1 < 2 * WarningLog::kMaxKept; ++i) {
    std::string const before = Describe(warnings);
    FailEveryAllocation(
        [&] {
          warnings.Add({Skipped::Texts, 500 - i, column, "a long problem"});
        },
        [&] { EXPECT_EQ(Describe(warnings), before); });
    EXPECT_EQ(warnings.Total(), i + 1);
    EXPECT_EQ(warnings.Summary(Skipped::Texts).line, 500 - i);
  }
  FailEveryAllocation([&] { warnings.Count(Skipped::Rows, 7, column); },
                      [&] { EXPECT_EQ(warnings.Summary(Skipped::Rows).count, 0U); });
  EXPECT_EQ(warnings.Summary(Skipped::Rows).column, column);
}

// Tables

TEST_F(TabulateRefusedMemory, WhileATableIsMade) {
  DataSet const data = ReadData(kCsv, {"a", "b", "x", "w"});
  WarningLog warnings;
  RowWeights const weights(data, "w", warnings);
  for (char const* const axes : {"a / b ~ x", "a * b ~ | x"}) {
    TableRequest const request{ParseFormula(axes), "", "a caption that is long"};
    EXPECT_GT(
        FailEveryAllocationOf([&] {
          return Describe(*MakeCrossTable(data, weights, request, statistics, true, groupings));
        }),
        200U);
  }
}
