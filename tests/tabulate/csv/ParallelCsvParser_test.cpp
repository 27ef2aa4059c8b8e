#include "csv/ParallelCsvParser.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <iterator>
#include <new>
#include <sstream>
#include <thread>

#include "tabulate/GatheredCsv.h"

using namespace lakresvos::tabulate;

namespace {

/// Reads bytes in several threads, cut in many ways, and compares that with what one thread makes of
/// them, whose error this is.
void CheckEveryCut(std::string const& bytes, std::string const& error = "none") {
  CsvResult const alone(bytes, {});
  ASSERT_EQ(alone.error, error);
  std::size_t const largest = std::min<std::size_t>(bytes.size() / 2, 60);
  std::size_t parts = 0;
  for (std::size_t const threads : {2, 3, 7}) {
    for (std::size_t block = 3; block <= largest; ++block) {
      CsvResult const together(bytes, {threads, block});
      ASSERT_EQ(together.error, error) << threads << " threads, blocks of " << block;
      ASSERT_EQ(together.gathered.records, alone.gathered.records)
          << threads << " threads, blocks of " << block;
      ASSERT_EQ(together.gathered.lines, alone.gathered.lines)
          << threads << " threads, blocks of " << block;
      parts += together.gathered.parts;
    }
  }
  EXPECT_GT(parts, 0u);
}

std::string Repeat(std::string const& text, int count) {
  std::string repeated;
  for (int i = 0; i < count; ++i) {
    repeated += text;
  }
  return repeated;
}

std::size_t CountThreads() {
  return static_cast<std::size_t>(
      std::distance(std::filesystem::directory_iterator("/proc/self/task"), {}));
}

}  // namespace

TEST(ParallelCsvParser, ReadsPlainRecords) {
  CheckEveryCut(Repeat("ab,c\n,\nd,efg\n", 8));
}

TEST(ParallelCsvParser, ReadsQuotedLineEndsWhereverTheCutsAre) {
  CheckEveryCut(Repeat("a,\"b\nc\"\n\"\n\r\n\r\",\"\"\"\n\"\nd,e\n", 6));
}

TEST(ParallelCsvParser, ReadsCommasAndDoubledQuotesWhereverTheCutsAre) {
  CheckEveryCut(Repeat("\"\",\"\"\"\"\n\",\"\"\",\"\",\"\n", 6));
}

TEST(ParallelCsvParser, CutsNoPairOfCrAndLfInTwo) {
  CheckEveryCut(Repeat("a\r\n\r\nbc,d\r\n\"\r\n\"\r\n", 6));
}

TEST(ParallelCsvParser, ReadsEveryKindOfLineEnd) {
  CheckEveryCut(Repeat("a\rb\n\n\rc\r\n\r\r\nd\n\r", 6));
}

TEST(ParallelCsvParser, SkipsAByteOrderMark) {
  CheckEveryCut("\xEF\xBB\xBF" + Repeat("a,b\n", 10));
  CheckEveryCut("\xEF\xBB\xBF" + Repeat("\"a\",b\n", 10));
}

TEST(ParallelCsvParser, ReadsALastLineWithoutALineEnd) {
  CheckEveryCut(Repeat("a,b\n", 10) + "c,d");
  CheckEveryCut(Repeat("a,b\n", 10) + "c,\"d\"");
  CheckEveryCut(Repeat("a,b\n", 10) + "c,d\r");
}

TEST(ParallelCsvParser, ReadsPartsThatHoldNoRecord) {
  CheckEveryCut("a\n" + std::string(60, '\n') + "b\n" + std::string(60, '\r') + "c\n");
}

TEST(ParallelCsvParser, ReadsRecordsLongerThanAllParts) {
  std::string const large(1000, 'x');
  CheckEveryCut(Repeat("a\n", 30) + large + "\n" + Repeat("b\n", 30));
  CheckEveryCut(Repeat("a\n", 30) + "\"" + large + "\n" + large + "\"\n" + Repeat("\"b\"\n", 30));
}

TEST(ParallelCsvParser, DividesWhatComesAfterALargeQuotedField) {
  std::string const bytes =
      "\"" + std::string(500, '\n') + "\"\n" + Repeat("\"a\",\"b\nc\"\nd,e\n", 100);
  EXPECT_EQ(CsvResult(bytes, {3, 8}).gathered.parts, 2u);
}

TEST(ParallelCsvParser, NamesTheLineOfAnErrorInAnyPart) {
  CheckEveryCut(Repeat("a,\"b\nc\"\n", 9) + "d,e\"\n" + Repeat("f,g\n", 9),
                ":19: column 2: quote in an unquoted field");
  CheckEveryCut(Repeat("a,\"b\nc\"\r\n", 9) + "d,\"e\nf\"g\n" + Repeat("f,g\n", 9),
                ":19: column 2: text after the closing quote");
  CheckEveryCut(Repeat("a,\"b\nc\"\n", 9) + "\"x\ny\",caf\xE9\n" + Repeat("f,g\n", 9),
                ":20: column 2: invalid UTF-8");
  CheckEveryCut(Repeat("a,\"b\nc\"\n", 9) + "d,\"e\nf\n" + Repeat("f,g\n", 9),
                ":19: column 2: unclosed quoted field");
}

TEST(ParallelCsvParser, NamesTheFirstOfSeveralErrors) {
  std::string const fine = Repeat("a,b\n", 8);
  std::string const first = "c,\xC3\n";
  std::string const second = "d\",e\n";
  std::string const third = "\"f\"g,h\n";
  CheckEveryCut(fine + first + fine + second + fine + third + fine, ":9: column 2: invalid UTF-8");
  CheckEveryCut(fine + second + fine + third + fine + first + fine,
                ":9: column 1: quote in an unquoted field");
  CheckEveryCut(fine + third + fine + first + fine + second + fine,
                ":9: column 1: text after the closing quote");
}

TEST(ParallelCsvParser, ReportsAStrayQuoteWithoutReadingToTheEnd) {
  class Endless : public std::streambuf {
   public:
    std::size_t given = 0;

   private:
    int_type underflow() override {
      text_ = ++given == 10 ? "a,5\" pipe\n" : "a,b\n";
      setg(text_.data(), text_.data(), text_.data() + text_.size());
      return traits_type::to_int_type(text_[0]);
    }

    std::string text_;
  };
  Endless endless;
  std::istream input(&endless);
  GatheredCsv gathered;
  EXPECT_EQ(ErrorOf([&] {
              ReadCsv(input, "", gathered, {4, 10});
            }),
            ":10: column 2: quote in an unquoted field");
  EXPECT_LT(endless.given, 1000u);
}

TEST(ParallelCsvParser, ReadsFewBytesInTheCallingThreadAlone) {
  CsvReading const how{.threads = 4};
  EXPECT_EQ(CsvResult("a,b\n1,2\n", how).gathered.parts, 0u);
  std::string const bytes = Repeat("a,b\n", 25000);
  EXPECT_EQ(CsvResult(bytes, how).gathered.parts, 0u);
  EXPECT_EQ(CsvResult(Repeat(bytes, 2), how).gathered.parts, 1u);
}

TEST(ParallelCsvParser, HandsOnWhatASinkOfAnotherThreadThrows) {
  class Refuse : public CsvSink {
   public:
    void Add(CsvRecord const&) override {}
    std::unique_ptr<CsvPartSink> MakePart() override { return std::make_unique<Part>(); }

   private:
    class Part : public CsvPartSink {
      void Add(CsvRecord const& record) override {
        if (record[0] == "b") {
          throw std::bad_alloc();
        }
      }
      void HandOver(std::size_t) override {}
    };
  };
  std::thread([] {}).join();  // with the first one, the thread sanitizer starts one of its own
  std::size_t const threads = CountThreads();
  for (char const* const record : {"b\n", "\"b\"\n"}) {
    Refuse refuse;
    std::istringstream input(Repeat("a\n", 30) + Repeat(record, 30));
    EXPECT_THROW(ReadCsv(input, "", refuse, {4, 10}), std::bad_alloc);
    EXPECT_EQ(CountThreads(), threads);
  }
}

TEST(ParallelCsvParser, ReadsAloneForASinkThatCannotBeDivided) {
  class Whole : public GatheredCsv {
    std::unique_ptr<CsvPartSink> MakePart() override { return CsvSink::MakePart(); }
  };
  std::string const bytes = Repeat("a,\"b\nc\"\n", 30);
  std::istringstream input(bytes);
  Whole whole;
  ReadCsv(input, "", whole, {4, 10});
  EXPECT_EQ(whole.records, CsvResult(bytes, {}).gathered.records);
  EXPECT_EQ(whole.lines, CsvResult(bytes, {}).gathered.lines);
}
