#include "data/CsvReader.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <sstream>
#include <stdexcept>

#include "support/ErrorOf.h"
#include "support/TemporaryDirectory.h"

using namespace lakresvos::tabulate;

namespace {

using Records = std::vector<std::vector<std::string>>;

class Gather : public CsvSink {
 public:
  void Add(CsvRecord const& record) override {
    records.emplace_back();
    for (std::size_t i = 0; i < record.size(); ++i) {
      records.back().emplace_back(record[i]);
    }
    lines.push_back(record.Line());
  }

  Records records;
  std::vector<std::size_t> lines;
};

Gather Read(std::string const& bytes) {
  TemporaryDirectory const directory;
  Gather gather;
  ReadCsv(directory.Write("data.csv", bytes), gather);
  return gather;
}

/// The error's text with the file's name cut off.
std::string ErrorIn(std::string const& bytes) {
  TemporaryDirectory const directory;
  std::string const file = directory.Write("data.csv", bytes);
  Gather gather;
  std::string const error = ErrorOf([&] { ReadCsv(file, gather); });
  return error.starts_with(file) ? error.substr(file.size()) : error;
}

std::string Field(std::string const& text) {
  std::string field = "\"";
  for (char const c : text) {
    field += c == '"' ? "\"\"" : std::string(1, c);
  }
  return field + "\"";
}

}  // namespace

TEST(CsvReader, ReadsFieldsAndLines) {
  Gather const read = Read("a,b\n1,2\n3,4\n");
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
  Gather const read = Read("a\r\nb\nc\rd");
  EXPECT_EQ(read.records, (Records{{"a"}, {"b"}, {"c"}, {"d"}}));
  EXPECT_EQ(read.lines, (std::vector<std::size_t>{1, 2, 3, 4}));
}

TEST(CsvReader, SkipsEmptyLinesButCountsThem) {
  Gather const read = Read("\n\r\na\r\n\r\n\n\r\rb\n\n");
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
  Gather const read = Read("\"a,b\",\"say \"\"hi\"\"\"\n\"two\r\nlines\n\n\",x\nlast,1\n");
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
  Gather gather;
  EXPECT_EQ(ErrorOf([&] { ReadCsv("/nowhere/data.csv", gather); }),
            "/nowhere/data.csv: No such file or directory");
}

TEST(CsvReader, NamesADirectory) {
  Gather gather;
  EXPECT_EQ(ErrorOf([&] { ReadCsv("/", gather); }), "/: Is a directory");
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
  Gather gather;
  ReadCsv(input, "data", gather);
  EXPECT_EQ(gather.records, (Records{{"a", "b"}, {"1", "2\n3"}}));
  EXPECT_EQ(gather.lines, (std::vector<std::size_t>{1, 2}));
  std::istringstream broken("a\n\"");
  EXPECT_EQ(ErrorOf([&] { ReadCsv(broken, "data", gather); }),
            "data:2: column 1: unclosed quoted field");
}

TEST(CsvReader, NamesAStreamThatCannotBeRead) {
  class Unreadable : public std::streambuf {
    int_type underflow() override { throw std::runtime_error("lost"); }
  };
  Unreadable buffer;
  std::istream input(&buffer);
  Gather gather;
  EXPECT_EQ(ErrorOf([&] { ReadCsv(input, "data", gather); }), "data: read error");
}

TEST(CsvReader, ReadsFieldsLargerThanAnyBuffer) {
  std::string const large(300000, 'x');
  Gather const read = Read(large + ",\"" + large + "\n\"\nb,c\n");
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
