#include <gtest/gtest.h>

#include <lakresvos/tabulate/DataSet.h>

#include "support/ErrorOf.h"
#include "support/TemporaryDirectory.h"
#include "tabulate/TextData.h"

using namespace lakresvos::tabulate;

namespace {

/// The error's text without the name of the file.
std::string ErrorIn(std::string const& bytes, RequiredColumns const& required = {}) {
  TemporaryDirectory const directory;
  std::string const file = directory.Write("data.csv", bytes);
  WarningLog warnings;
  std::string const error = ErrorOf([&] { ReadDataSet(file, required, warnings); });
  return error.starts_with(file) ? error.substr(file.size()) : error;
}

}  // namespace

TEST(DataSet, NumbersValuesByFirstAppearance) {
  DataSet const data = ReadData("a,b\ny,1\nx,2\ny,3\n", {"a"});
  ASSERT_EQ(data.columns.size(), 2u);
  EXPECT_EQ(data.columns[0].Name(), "a");
  EXPECT_EQ(data.columns[0].Codes(), (std::vector<std::uint32_t>{0, 1, 0}));
  EXPECT_EQ(data.columns[0].Values()[0], "y");
  EXPECT_EQ(data.columns[0].Values()[1], "x");
  EXPECT_EQ(data.lines, (std::vector<std::size_t>{2, 3, 4}));
  EXPECT_EQ(data.Rows(), 3u);
  EXPECT_EQ(data.records, 3u);
}

TEST(DataSet, KeepsValuesOfRequiredColumnsAlone) {
  DataSet const data = ReadData("a,b\n1,2\n", {"b"});
  EXPECT_FALSE(data.columns[0].IsKept());
  EXPECT_TRUE(data.columns[0].Codes().empty());
  EXPECT_TRUE(data.columns[1].IsKept());
}

TEST(DataSet, TakesEmptyFieldsAndNaForMissing) {
  DataSet const data = ReadData("a,b\n,x\nNA,x\nna,x\nN/A,x\n", {"a"});
  EXPECT_EQ(data.columns[0].Codes(),
            (std::vector<std::uint32_t>{kMissingCode, kMissingCode, 0, 1}));
  EXPECT_EQ(data.columns[0].MissingCount(), 2u);
}

TEST(DataSet, CountsMissingValuesInColumnsThatAreNotKept) {
  EXPECT_EQ(ReadData("a,b\n1,\n2,NA\n3,x\n", {"a"}).columns[1].MissingCount(), 2u);
}

TEST(DataSet, FindsColumnsByName) {
  DataSet const data = ReadData("a,Solar R,\n", {});
  EXPECT_EQ(data.FindColumn("Solar R"), 1u);
  EXPECT_EQ(data.FindColumn(""), 2u);
}

TEST(DataSet, MayHaveNoRows) {
  DataSet const data = ReadData("a,b\n", {"a"});
  EXPECT_EQ(data.Rows(), 0u);
  EXPECT_EQ(data.columns.size(), 2u);
}

TEST(DataSet, WarnsOfRecordsWithTooFewFields) {
  WarningLog warnings;
  DataSet const data = ReadData("a,b,c\n1,2,3\n4\n5,6\n7,8,9\n", {"a"}, warnings);
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
  EXPECT_EQ(ReadData("a,b\n1,2,\n", {"a"}, warnings).Rows(), 0u);
  EXPECT_EQ(warnings.First()[0].line, 2u);
  EXPECT_EQ(warnings.First()[0].column, "3");
  EXPECT_EQ(warnings.First()[0].problem, "3 fields where the header has 2; the line was skipped");
}

TEST(DataSet, DoesNotTakeValuesFromSkippedRecords) {
  EXPECT_EQ(ReadData("a,b\nx\ny,1\n", {"a"}).columns[0].Values().size(), 1u);
}

TEST(DataSet, CountsLinesInsideQuotedFields) {
  EXPECT_EQ(ReadData("a,b\n\"1\n2\",x\n3,y\n", {}).lines, (std::vector<std::size_t>{2, 4}));
}

TEST(DataSet, IsReadFromAFileToo) {
  TemporaryDirectory const directory;
  std::string const file = directory.Write("data.csv", "a\n1\n");
  WarningLog warnings;
  DataSet const data = ReadDataSet(file, {{"a", "the test"}}, warnings);
  EXPECT_EQ(data.file, file);
  EXPECT_EQ(data.columns[0].Values()[0], "1");
}

TEST(DataSet, KeepsItsColumnsInPlaceWhenItIsMoved) {
  DataSet data = ReadData("a\n1\n", {"a"});
  DataColumn const* const column = &data.columns[0];
  DataSet const moved = std::move(data);
  EXPECT_EQ(&moved.columns[0], column);
}

TEST(DataSetErrors, EmptyFile) {
  EXPECT_EQ(ErrorIn(""), ":1: expected a header line with the names of the columns");
  EXPECT_EQ(ErrorIn("\n\n"), ":1: expected a header line with the names of the columns");
}

TEST(DataSetErrors, OneNameTwice) {
  EXPECT_EQ(ErrorIn("a,b,a\n1,2,3\n"), ":1: duplicate column name 'a' in columns 1 and 3");
  EXPECT_EQ(ErrorIn("\n,\n"), ":2: duplicate column name '' in columns 1 and 2");
}

TEST(DataSetErrors, RequiredColumnThatIsNotThere) {
  EXPECT_EQ(ErrorIn("a,b\n1,2\n", {{"a", "--weight"}, {"A", "--weight"}}),
            ":1: unknown column 'A' in --weight");
}

TEST(DataSetErrors, ComeBeforeTheRowsAreRead) {
  EXPECT_EQ(ErrorIn("a\n\"", {{"x", "--weight"}}), ":1: unknown column 'x' in --weight");
}
