#include "data/DataSetBuilder.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <sstream>
#include <vector>

#include "csv/CsvReader.h"
#include "support/ErrorOf.h"

using namespace lakresvos::tabulate;

namespace {

/// All that comes of reading data, as a text.
std::string DescribeReading(std::string const& bytes, RequiredColumns const& required,
                            CsvReading const& how) {
  std::ostringstream text;
  WarningLog warnings;
  text << ErrorOf([&] {
    std::istringstream input(bytes);
    DataSetBuilder builder("data.csv", required, warnings);
    ReadCsv(input, "data.csv", builder, how);
    DataSet const data = builder.Result();
    text << data.file << ": " << data.records << " records\nlines";
    for (std::size_t const line : data.lines) {
      text << ' ' << line;
    }
    for (DataColumn const& column : data.columns) {
      text << "\ncolumn " << column.Name() << (column.IsKept() ? ", kept, " : ", ")
           << column.MissingCount() << " missing\ncodes";
      for (std::uint32_t const code : column.Codes()) {
        text << ' ' << code;
      }
      for (std::uint32_t code = 0; code < column.Values().size(); ++code) {
        text << "\nvalue " << column.Values()[code];
      }
    }
    text << '\n';
  });
  SkipCount const& skipped = warnings.Summary(Skipped::Lines);
  text << "\nskipped " << skipped.count << " from " << skipped.line << ", " << skipped.column;
  for (Warning const& warning : warnings.First()) {
    text << '\n' << warning.line << ": " << warning.column << ": " << warning.problem;
  }
  return text.str();
}

/// Bytes of CSV with quotes, line ends of all sorts, missing values and, here and there, records
/// with another number of fields.
rc::Gen<std::string> CsvBytes() {
  auto const value =
      rc::gen::element<std::string>("", "NA", "x", "y", "1", "22", "\xC3\xA9", "a longer text");
  auto const quoted =
      rc::gen::map(rc::gen::container<std::string>(rc::gen::element('a', ',', '\n', '\r', ' ')),
                   [](std::string const& inside) { return '"' + inside + "\"\"\""; });
  auto const field = rc::gen::weightedOneOf<std::string>({{4, value}, {1, quoted}});
  auto const lineEnd = rc::gen::element<std::string>("\n", "\r\n", "\r", "\n\n");
  auto const record = rc::gen::map(rc::gen::tuple(field, field, lineEnd), [](auto const& parts) {
    return std::get<0>(parts) + ',' + std::get<1>(parts) + std::get<2>(parts);
  });
  auto const odd = rc::gen::map(rc::gen::pair(field, lineEnd),
                                [](auto const& parts) { return parts.first + parts.second; });
  auto const text = rc::gen::map(rc::gen::container<std::vector<std::string>>(
                                     rc::gen::weightedOneOf<std::string>({{20, record}, {1, odd}})),
                                 [](std::vector<std::string> const& records) {
                                   std::string all;
                                   for (std::string const& each : records) {
                                     all += each;
                                   }
                                   return all;
                                 });
  return rc::gen::scale(2, text);
}

/// How the bytes are read in one thread has to be how they are read in several ones.
void CheckReading(std::string const& bytes) {
  auto const threads = *rc::gen::element<std::size_t>(2, 3, 7);
  auto const block = *rc::gen::inRange<std::size_t>(3, 60);
  RequiredColumns const required{{"b", "the test"}};
  RC_ASSERT(DescribeReading(bytes, required, {threads, block}) ==
            DescribeReading(bytes, required, {}));
}

}  // namespace

RC_GTEST_PROP(DataSetBuilder, MakesTheSameInSeveralThreads, ()) {
  CheckReading("a,b\n" + *CsvBytes());
}

RC_GTEST_PROP(DataSetBuilder, MakesTheSameOfBrokenDataInSeveralThreads, ()) {
  std::string bytes = *rc::gen::element<std::string>("a,b\n", "\"a\",b\r\n",
                                                     "\xEF\xBB\xBF"
                                                     "b\r",
                                                     "\n\na,b\n", "") +
                      *CsvBytes();
  auto const faults = *rc::gen::inRange(1, 4);
  for (int i = 0; i < faults; ++i) {
    auto const at = *rc::gen::inRange<std::size_t>(0, bytes.size() + 1);
    bytes.insert(at, *rc::gen::element<std::string>("\"", "\xC3", ",", "\n", std::string(1, '\0')));
  }
  CheckReading(bytes);
}

TEST(DataSetBuilder, TellsOfABadHeaderBeforeBrokenRows) {
  std::string const bytes = "\n\na,b\n1,2\n" + std::string(100, '\n') + "3,\"4";
  EXPECT_EQ(DescribeReading(bytes, {{"x", "--weight"}}, {3, 4}).substr(0, 43),
            "data.csv:3: unknown column 'x' in --weight\n");
}

TEST(DataSetBuilder, CountsAllLinesThatSeveralThreadsSkip) {
  std::string bytes = "a,b\n";
  for (int i = 0; i < 1000; ++i) {
    bytes += "1,2\n3\n";
  }
  std::string const reading = DescribeReading(bytes, {{"a", "the test"}}, {3, 100});
  EXPECT_NE(reading.find("data.csv: 2000 records\n"), std::string::npos);
  EXPECT_NE(reading.find("skipped 1000 from 3, b"), std::string::npos);
  EXPECT_EQ(reading, DescribeReading(bytes, {{"a", "the test"}}, {}));
}

TEST(DataSetBuilder, GivesManyValuesTheSameCodesInSeveralThreads) {
  std::string bytes = "a,b\n";
  for (int row = 0; row < 40000; ++row) {
    bytes += std::to_string(row * 7919 % 10007) + "," + std::to_string(row * 31 % 5003) + ".5\n";
  }
  RequiredColumns const required{{"a", "the test"}, {"b", "the test"}};
  EXPECT_TRUE(DescribeReading(bytes, required, {3, 5000}) == DescribeReading(bytes, required, {}));
}
