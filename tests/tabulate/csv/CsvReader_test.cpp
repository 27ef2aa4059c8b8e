#include "csv/CsvReader.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <sstream>
#include <stdexcept>

#include "support/ErrorOf.h"
#include "support/TemporaryDirectory.h"
#include "tabulate/GatheredCsv.h"
#include "tabulate/csv/PlainCsvReading.h"

using namespace lakresvos::tabulate;

namespace {

using csv_model::CheckReading;
using Records = GatheredCsv::Records;

/// How many bytes can be read before a disk fails; the linker puts the wrapper below in fread's
/// place.
std::size_t readable = SIZE_MAX;

GatheredCsv Read(std::string const& bytes) {
  TemporaryDirectory const directory;
  GatheredCsv gathered;
  ReadCsv(directory.Write("data.csv", bytes), gathered);
  return gathered;
}

/// The error's text with the file's name cut off.
std::string ErrorIn(std::string const& bytes) {
  TemporaryDirectory const directory;
  std::string const file = directory.Write("data.csv", bytes);
  GatheredCsv gathered;
  std::string const error = ErrorOf([&] { ReadCsv(file, gathered); });
  return error.starts_with(file) ? error.substr(file.size()) : error;
}

std::string ErrorOfADiskThatFailsAfter(std::string const& bytes) {
  readable = bytes.size();
  std::string error = ErrorIn(bytes + std::string(100, 'x'));
  readable = SIZE_MAX;
  return error;
}

std::string Field(std::string const& text) {
  std::string field = "\"";
  for (char const c : text) {
    field += c == '"' ? "\"\"" : std::string(1, c);
  }
  return field + "\"";
}

/// Bytes in which every mark of CSV is frequent.
rc::Gen<std::string> MarkedBytes() {
  return rc::gen::container<std::string>(rc::gen::weightedElement<char>({{12, 'a'},
                                                                         {4, 'b'},
                                                                         {6, ','},
                                                                         {1, '"'},
                                                                         {2, '\n'},
                                                                         {2, '\r'},
                                                                         {1, ' '},
                                                                         {1, '\0'},
                                                                         {1, '\xC3'},
                                                                         {1, '\xA9'}}));
}

}  // namespace

extern "C" {

std::size_t __real_fread(void* to, std::size_t size, std::size_t count, std::FILE* file);

std::size_t __wrap_fread(void* to, std::size_t size, std::size_t count, std::FILE* file) {
  if (readable == SIZE_MAX) {
    return __real_fread(to, size, count, file);
  }
  std::size_t const got = __real_fread(to, 1, std::min(size * count, readable), file);
  readable -= got;
  if (readable == 0) {
    std::fputc('x', file);  // which fails, for the file is open for reading
    errno = EIO;
  }
  return got;
}
}

TEST(CsvReader, ReadsFieldsAndLines) {
  GatheredCsv const read = Read("a,b\n1,2\n3,4\n");
  EXPECT_EQ(read.records, (Records{{"a", "b"}, {"1", "2"}, {"3", "4"}}));
  EXPECT_EQ(read.lines, (std::vector<std::size_t>{1, 2, 3}));
}

TEST(CsvReader, NeedsNoLineEndAtTheEnd) {
  EXPECT_EQ(Read("a,b\n1,2").records, (Records{{"a", "b"}, {"1", "2"}}));
}

TEST(CsvReader, SkipsAByteOrderMark) {
  EXPECT_EQ(Read("\xEF\xBB\xBF"
                 "a,b\n")
                .records,
            (Records{{"a", "b"}}));
}

TEST(CsvReader, TakesAQuotedFieldAfterAByteOrderMark) {
  EXPECT_EQ(Read("\xEF\xBB\xBF\"a\",b\n").records, (Records{{"a", "b"}}));
}

TEST(CsvReader, TakesAByteOrderMarkElsewhereAsText) {
  EXPECT_EQ(Read("a\n\xEF\xBB\xBF"
                 "1\n")
                .records,
            (Records{{"a"},
                     {"\xEF\xBB\xBF"
                      "1"}}));
}

TEST(CsvReader, ReadsEveryKindOfLineEnd) {
  GatheredCsv const read = Read("a\r\nb\nc\rd");
  EXPECT_EQ(read.records, (Records{{"a"}, {"b"}, {"c"}, {"d"}}));
  EXPECT_EQ(read.lines, (std::vector<std::size_t>{1, 2, 3, 4}));
}

TEST(CsvReader, SkipsEmptyLinesButCountsThem) {
  GatheredCsv const read = Read("\n\r\na\r\n\r\n\n\r\rb\n\n");
  EXPECT_EQ(read.records, (Records{{"a"}, {"b"}}));
  EXPECT_EQ(read.lines, (std::vector<std::size_t>{3, 8}));
}

TEST(CsvReader, KeepsAQuotedEmptyFieldAsARecord) {
  EXPECT_EQ(Read("a\n\"\"\n").records, (Records{{"a"}, {""}}));
}

TEST(CsvReader, KeepsEmptyFields) {
  EXPECT_EQ(Read(",\n,,\n").records, (Records{{"", ""}, {"", "", ""}}));
}

TEST(CsvReader, KeepsSpacesAsPartOfTheField) {
  EXPECT_EQ(Read(" a , b\t\n  \n").records, (Records{{" a ", " b\t"}, {"  "}}));
}

TEST(CsvReader, UnquotesCommasQuotesAndLineEnds) {
  GatheredCsv const read = Read("\"a,b\",\"say \"\"hi\"\"\"\n\"two\r\nlines\n\n\",x\nlast,1\n");
  EXPECT_EQ(read.records,
            (Records{{"a,b", "say \"hi\""}, {"two\r\nlines\n\n", "x"}, {"last", "1"}}));
  EXPECT_EQ(read.lines, (std::vector<std::size_t>{1, 2, 6}));
}

TEST(CsvReader, GivesNoRecordForAnEmptyFile) {
  EXPECT_TRUE(Read("").records.empty());
  EXPECT_TRUE(Read("\xEF\xBB\xBF").records.empty());
  EXPECT_TRUE(Read("\r\n\n").records.empty());
}

TEST(CsvReader, NamesAFileThatIsNotThere) {
  GatheredCsv gathered;
  EXPECT_EQ(ErrorOf([&] { ReadCsv("/nowhere/data.csv", gathered); }),
            "/nowhere/data.csv: No such file or directory");
}

TEST(CsvReader, NamesAFileThatCannotBeReadToItsEnd) {
  EXPECT_EQ(ErrorOfADiskThatFailsAfter("a,b\n1,"), ": Input/output error");
  EXPECT_EQ(ErrorOfADiskThatFailsAfter(""), ": Input/output error");
}

TEST(CsvReader, NamesWhatIsWrongBeforeADiskFails) {
  EXPECT_EQ(ErrorOfADiskThatFailsAfter("a,b\n1,x\"y\n"),
            ":2: column 2: quote in an unquoted field");
}

TEST(CsvReader, NamesADirectory) {
  GatheredCsv gathered;
  EXPECT_EQ(ErrorOf([&] { ReadCsv("/", gathered); }), "/: Is a directory");
}

TEST(CsvReader, NamesTheQuoteInsideAPlainField) {
  EXPECT_EQ(ErrorIn("a,b\n1,x\"y\n"), ":2: column 2: quote in an unquoted field");
}

TEST(CsvReader, NamesTheTextAfterAClosingQuote) {
  EXPECT_EQ(ErrorIn("a,b\n\"1\" ,2\n"), ":2: column 1: text after the closing quote");
}

TEST(CsvReader, NamesTheLineOfTheQuoteThatIsNeverClosed) {
  EXPECT_EQ(ErrorIn("a,b\n\"x\ny\",\"1\n2\n3\n"), ":3: column 2: unclosed quoted field");
}

TEST(CsvReader, NamesTheFieldWithBytesThatAreNotUtf8) {
  EXPECT_EQ(ErrorIn("a,b\n\"x\ny\",caf\xE9\n"), ":3: column 2: invalid UTF-8");
}

TEST(CsvReader, DoesNotMakeACharacterOfTheEndsOfTwoFields) {
  EXPECT_EQ(ErrorIn("\xC3,\xA9\n"), ":1: column 1: invalid UTF-8");
}

TEST(CsvReader, HandsOnWhatTheSinkThrows) {
  class Refuse : public CsvSink {
    void Add(CsvRecord const&) override { throw std::logic_error("enough"); }
  };
  TemporaryDirectory const directory;
  Refuse refuse;
  EXPECT_THROW(ReadCsv(directory.Write("data.csv", "a\nb\nc\n"), refuse), std::logic_error);
}

TEST(CsvReader, ReadsAStreamAsItReadsAFile) {
  std::istringstream input("a,b\n1,\"2\n3\"");
  GatheredCsv gathered;
  ReadCsv(input, "data", gathered);
  EXPECT_EQ(gathered.records, (Records{{"a", "b"}, {"1", "2\n3"}}));
  EXPECT_EQ(gathered.lines, (std::vector<std::size_t>{1, 2}));
  std::istringstream broken("a\n\"");
  EXPECT_EQ(ErrorOf([&] { ReadCsv(broken, "data", gathered); }),
            "data:2: column 1: unclosed quoted field");
}

TEST(CsvReader, NamesAStreamThatCannotBeRead) {
  class Unreadable : public std::streambuf {
    int_type underflow() override { throw std::runtime_error("lost"); }
  };
  Unreadable buffer;
  std::istream input(&buffer);
  GatheredCsv gathered;
  EXPECT_EQ(ErrorOf([&] { ReadCsv(input, "data", gathered); }), "data: read error");
}

TEST(CsvReader, ReadsFieldsLargerThanAnyBuffer) {
  std::string const large(300000, 'x');
  GatheredCsv const read = Read(large + ",\"" + large + "\n\"\nb,c\n");
  EXPECT_EQ(read.records, (Records{{large, large + "\n"}, {"b", "c"}}));
  EXPECT_EQ(read.lines, (std::vector<std::size_t>{1, 3}));
}

RC_GTEST_PROP(CsvReader, ReadsBackWhateverIsWrittenInQuotes, ()) {
  auto const text =
      rc::gen::container<std::string>(rc::gen::element('a', 'b', ',', '"', '\n', '\r', ' ', '\0'));
  auto const records = *rc::gen::container<Records>(
      rc::gen::nonEmpty(rc::gen::container<std::vector<std::string>>(text)));
  std::string bytes;
  for (auto const& record : records) {
    for (std::size_t i = 0; i < record.size(); ++i) {
      bytes += i > 0 ? "," : "";
      bytes += Field(record[i]);
    }
    bytes += *rc::gen::element("\n", "\r\n");
  }
  RC_ASSERT(Read(bytes).records == records);
}

RC_GTEST_PROP(CsvReader, AgreesWithAReaderThatGoesFromByteToByte, ()) {
  CheckReading(*MarkedBytes());
}

RC_GTEST_PROP(CsvReader, ReadsTheSameWithAnotherSeparator, ()) {
  auto const commas = *rc::gen::scale(10, MarkedBytes());
  char const separator = *rc::gen::element(';', '\t', '|', '^');
  auto const swap = [separator](std::string text) {
    for (char& c : text) {
      c = c == ',' ? separator : c == separator ? ',' : c;
    }
    return text;
  };
  CsvReading const how{*rc::gen::element<std::size_t>(1, 3), 7};
  CsvResult expected(commas, how);
  for (std::vector<std::string>& record : expected.gathered.records) {
    for (std::string& field : record) {
      field = swap(field);
    }
  }
  CsvReading other = how;
  other.separator = separator;
  CsvResult const result(swap(commas), other);
  RC_ASSERT(result.error == expected.error);
  RC_ASSERT(result.gathered.records == expected.gathered.records);
  RC_ASSERT(result.gathered.lines == expected.gathered.lines);
}

RC_GTEST_PROP(CsvReader, AgreesWithThatOneInSeveralThreads, ()) {
  auto const bytes = *rc::gen::scale(10, MarkedBytes());
  auto const threads = *rc::gen::element<std::size_t>(2, 3, 7);
  auto const block = *rc::gen::inRange<std::size_t>(3, 40);
  CheckReading(bytes, {threads, block});
}

RC_GTEST_PROP(CsvReader, AgreesWithThatOneWhereItsBuffersEnd, ()) {
  constexpr std::size_t kBuffer = 1 << 16;
  auto const bytes = *MarkedBytes();
  auto const before = kBuffer * *rc::gen::element<std::size_t>(1, 2, 3) -
                      *rc::gen::inRange<std::size_t>(0, bytes.size() + 2);
  auto const lineLength = *rc::gen::element<std::size_t>(7, 100, 50000, 4 * kBuffer);
  std::string all;
  while (all.size() < before) {
    all += all.size() % lineLength == lineLength - 1 ? '\n' : 'x';
  }
  CheckReading(all + bytes);
}
