#include <gtest/gtest.h>

#include <lakresvos/tabulate/DataSet.h>

#include "support/ErrorOf.h"
#include "tabulate/TextData.h"

using namespace lakresvos::tabulate;

namespace {

constexpr std::uint32_t kMissing = DataColumn::kMissing;

/// The error's text without the name of the file.
std::string ErrorIn(std::string const& bytes, std::vector<ColumnWish> const& wishes = {}) {
  TemporaryDirectory const directory;
  std::string const file = directory.Write("data.csv", bytes);
  WarningLog warnings;
  std::string const error = ErrorOf([&] { ReadDataSet(file, wishes, warnings); });
  return error.starts_with(file) ? error.substr(file.size()) : error;
}

}  // namespace

TEST(DataSet, NumbersValuesByFirstAppearance) {
  DataSet const data = DataOf("a,b\ny,1\nx,2\ny,3\n", {"a"});
  ASSERT_EQ(data.columns.size(), 2u);
  EXPECT_EQ(data.columns[0].name, "a");
  EXPECT_EQ(data.columns[0].codes, (std::vector<std::uint32_t>{0, 1, 0}));
  EXPECT_EQ(data.columns[0].values[0], "y");
  EXPECT_EQ(data.columns[0].values[1], "x");
  EXPECT_EQ(data.lines, (std::vector<std::size_t>{2, 3, 4}));
  EXPECT_EQ(data.Rows(), 3u);
  EXPECT_EQ(data.records, 3u);
}

TEST(DataSet, KeepsValuesOfWishedColumnsAlone) {
  DataSet const data = DataOf("a,b\n1,2\n", {"b"});
  EXPECT_FALSE(data.columns[0].kept);
  EXPECT_TRUE(data.columns[0].codes.empty());
  EXPECT_TRUE(data.columns[1].kept);
}

TEST(DataSet, TakesEmptyFieldsAndNaForMissing) {
  DataSet const data = DataOf("a,b\n,x\nNA,x\nna,x\nN/A,x\n", {"a"});
  EXPECT_EQ(data.columns[0].codes, (std::vector<std::uint32_t>{kMissing, kMissing, 0, 1}));
  EXPECT_EQ(data.columns[0].missing, 2u);
}

TEST(DataSet, CountsMissingValuesInColumnsThatAreNotKept) {
  EXPECT_EQ(DataOf("a,b\n1,\n2,NA\n3,x\n", {"a"}).columns[1].missing, 2u);
}

TEST(DataSet, FindsColumnsByName) {
  DataSet const data = DataOf("a,Solar R,\n", {});
  EXPECT_EQ(data.Find("Solar R"), 1u);
  EXPECT_EQ(data.Find(""), 2u);
}

TEST(DataSet, MayHaveNoRows) {
  DataSet const data = DataOf("a,b\n", {"a"});
  EXPECT_EQ(data.Rows(), 0u);
  EXPECT_EQ(data.columns.size(), 2u);
}

TEST(DataSet, WarnsOfRecordsWithTooFewFields) {
  WarningLog warnings;
  DataSet const data = DataOf("a,b,c\n1,2,3\n4\n5,6\n7,8,9\n", {"a"}, warnings);
  EXPECT_EQ(data.Rows(), 2u);
  EXPECT_EQ(data.records, 4u);
  EXPECT_EQ(data.lines, (std::vector<std::size_t>{2, 5}));
  ASSERT_EQ(warnings.Total(), 2u);
  EXPECT_EQ(warnings.First()[0].line, 3u);
  EXPECT_EQ(warnings.First()[0].column, "b");
  EXPECT_EQ(warnings.First()[0].problem, "1 field where the header has 3; the line was skipped");
  EXPECT_EQ(warnings.First()[1].column, "c");
  EXPECT_EQ(warnings.First()[1].problem, "2 fields where the header has 3; the line was skipped");
}

TEST(DataSet, WarnsOfRecordsWithTooManyFields) {
  WarningLog warnings;
  EXPECT_EQ(DataOf("a,b\n1,2,\n", {"a"}, warnings).Rows(), 0u);
  EXPECT_EQ(warnings.First()[0].line, 2u);
  EXPECT_EQ(warnings.First()[0].column, "3");
  EXPECT_EQ(warnings.First()[0].problem, "3 fields where the header has 2; the line was skipped");
}

TEST(DataSet, DoesNotTakeValuesFromSkippedRecords) {
  EXPECT_EQ(DataOf("a,b\nx\ny,1\n", {"a"}).columns[0].values.size(), 1u);
}

TEST(DataSet, CountsLinesInsideQuotedFields) {
  EXPECT_EQ(DataOf("a,b\n\"1\n2\",x\n3,y\n", {}).lines, (std::vector<std::size_t>{2, 4}));
}

TEST(DataSetErrors, EmptyFile) {
  EXPECT_EQ(ErrorIn(""), ":1: the file has no line that names the columns");
  EXPECT_EQ(ErrorIn("\n\n"), ":1: the file has no line that names the columns");
}

TEST(DataSetErrors, OneNameTwice) {
  EXPECT_EQ(ErrorIn("a,b,a\n1,2,3\n"), ":1: columns 1 and 3 have the same name 'a'");
  EXPECT_EQ(ErrorIn("\n,\n"), ":2: columns 1 and 2 have the same name ''");
}

TEST(DataSetErrors, WishedColumnThatIsNotThere) {
  EXPECT_EQ(ErrorIn("a,b\n1,2\n", {{"a", "--weight"}, {"A", "--weight"}}),
            ":1: there is no column 'A', which --weight asks for");
}

TEST(DataSetErrors, ComeBeforeTheRowsAreRead) {
  EXPECT_EQ(ErrorIn("a\n\"", {{"x", "--weight"}}),
            ":1: there is no column 'x', which --weight asks for");
}
