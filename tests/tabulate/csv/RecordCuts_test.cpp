#include "csv/RecordCuts.h"

#include <gtest/gtest.h>
#include <string>

using namespace lakresvos::tabulate;

namespace {

using Cuts = std::vector<std::size_t>;

}  // namespace

TEST(RecordCuts, MakePartsOfTheSizeThatRecordsAllow) {
  EXPECT_EQ(CutAfterRecords("aaaa\nbbbb\ncccc\ndddd\n", false, 2), (Cuts{10, 20}));
  EXPECT_EQ(CutAfterRecords("aaaa\nbbbb\ncccc\ndddd\n", false, 3), (Cuts{5, 10, 20}));
  EXPECT_EQ(CutAfterRecords("aaaa\nbbbb\ncccc\ndddd\n", false, 1), (Cuts{20}));
}

TEST(RecordCuts, LeaveWhatIsNotKnownToEnd) {
  EXPECT_EQ(CutAfterRecords("aaaa\nbbbb\ncc", false, 2), (Cuts{5, 10}));
  EXPECT_EQ(CutAfterRecords("aaaa", false, 2), Cuts());
  EXPECT_EQ(CutAfterRecords("", false, 2), Cuts());
}

TEST(RecordCuts, AreFewerWhereRecordsAreLong) {
  EXPECT_EQ(CutAfterRecords("aaaaaaaaaaaaaaaa\nb\nc\n", false, 4), (Cuts{21}));
  EXPECT_EQ(CutAfterRecords("a\nbbbbbbbbbbbbbbbb\nc\n", false, 4), (Cuts{2, 21}));
}

TEST(RecordCuts, AreNotInQuotes) {
  EXPECT_EQ(CutAfterRecords("aa\n\"b\n\n\n\",b\nc\n", false, 2), (Cuts{3, 14}));
  EXPECT_EQ(CutAfterRecords("aa\n\"b\"\"\n\n\",b\nc\n", false, 2), (Cuts{3, 15}));
  EXPECT_EQ(CutAfterRecords("aa\n\"b\n\n\n", false, 2), (Cuts{3}));
}

TEST(RecordCuts, AreAfterTheQuoteThatEndsAFieldFromBefore) {
  EXPECT_EQ(CutAfterRecords("a\n\n\n\"\nb\n", true, 1), (Cuts{8}));
  EXPECT_EQ(CutAfterRecords("a\n\n\n\"\nb\n", true, 2), (Cuts{8}));
  EXPECT_EQ(CutAfterRecords("a\nb\n", true, 2), Cuts());
}

TEST(RecordCuts, AreNotBetweenCrAndLf) {
  EXPECT_EQ(CutAfterRecords("aaa\r\nbbb\r\n", false, 1), (Cuts{10}));
  EXPECT_EQ(CutAfterRecords("aaa\r\nbb\r\n", false, 2), (Cuts{9}));
  EXPECT_EQ(CutAfterRecords("aaa\r\nbbb\r", false, 1), (Cuts{5}));
  EXPECT_EQ(CutAfterRecords("aaa\rbbb\rc", false, 2), (Cuts{4, 8}));
}

TEST(OddQuotes, AreCounted) {
  EXPECT_FALSE(HasOddQuotes(""));
  EXPECT_TRUE(HasOddQuotes("a\"b"));
  EXPECT_FALSE(HasOddQuotes("\"ab\""));
  EXPECT_TRUE(HasOddQuotes(std::string(1000, '"') + std::string(1000, 'x') + '"'));
}
