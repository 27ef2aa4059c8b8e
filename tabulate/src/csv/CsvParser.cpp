#include "csv/CsvParser.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>
#include <new>

#include <lakresvos/tabulate/InputError.h>

#include "text/Utf8.h"

namespace lakresvos::tabulate {

namespace {

std::size_t CountLineEnds(std::string_view text) {
  std::size_t count = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    bool const pair = text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n';
    count += !pair && (text[i] == '\n' || text[i] == '\r') ? 1 : 0;
  }
  return count;
}

/// A byte of each of the eight in a word.
constexpr std::uint64_t Repeat(char byte) {
  return 0x0101010101010101U * static_cast<unsigned char>(byte);
}

/// The highest bit of the first zero byte; bytes after that may have theirs too.
std::uint64_t MarkZeros(std::uint64_t word) {
  return (word - Repeat('\x01')) & ~word & Repeat('\x80');
}

/// The first line end, or the end.
char const* FindLineEnd(char const* at, char const* end) {
  return std::find_if(at, end, [](char c) { return c == '\n' || c == '\r'; });
}

}  // namespace

CsvParser::CsvParser(std::string const& file, CsvSink& sink, char separator)
    : file_(file), sink_(sink), separator_(separator) {
  csv_init(&parser_, CSV_STRICT | CSV_STRICT_FINI | CSV_REPALL_NL);
  csv_set_space_func(&parser_, [](unsigned char) { return 0; });
  csv_set_delim(&parser_, static_cast<unsigned char>(separator));
  csv_set_blk_size(&parser_, 1 << 16);
}

std::size_t CsvParser::Parse(std::string_view bytes) {
  ascii_ = IsAscii(bytes);
  char const* at = bytes.data();
  char const* const end = at + bytes.size();
  while (at != end) {
    char const* const next = parsing_ ? ParseLine(at, end) : ReadPlainRecord(at, end);
    if (next == at && !parsing_) {
      break;
    }
    at = next;
  }
  return static_cast<std::size_t>(at - bytes.data());
}

void CsvParser::Finish(std::string_view bytes) {
  ParsePart(bytes);
  int const status = csv_fini(&parser_, &OnField, &OnRowEnd, this);
  Rethrow();
  if (status != 0) {
    FailUnlessParsed("unclosed quoted field");
  }
}

void CsvParser::GoOnAt(std::size_t line) {
  record_.line_ = line;
  afterCarriageReturn_ = false;
}

/// The first separator, quote or line end, or the end, eight bytes at a time (H. S. Warren, Hacker's
/// Delight, 6-1).
char const* CsvParser::FindSpecial(char const* at, char const* end) const {
  if constexpr (std::endian::native == std::endian::little) {
    std::uint64_t const separators = Repeat(separator_);
    for (; end - at >= 8; at += 8) {
      std::uint64_t word = 0;
      std::memcpy(&word, at, sizeof word);
      std::uint64_t const marks = MarkZeros(word ^ separators) | MarkZeros(word ^ Repeat('"')) |
                                  MarkZeros(word ^ Repeat('\n')) | MarkZeros(word ^ Repeat('\r'));
      if (marks != 0) {
        return at + std::countr_zero(marks) / 8;
      }
    }
  }
  while (at != end && *at != separator_ && *at != '"' && *at != '\n' && *at != '\r') {
    ++at;
  }
  return at;
}

/// Takes a record without quotes. If there are some, the parser is to take it.
/// @return where it ends; where it starts when it is not taken.
char const* CsvParser::ReadPlainRecord(char const* const start, char const* const end) {
  record_.fields_.clear();
  for (char const* field = start;;) {
    char const* const stop = FindSpecial(field, end);
    parsing_ = stop != end && *stop == '"';
    if (stop == end || parsing_) {
      return start;
    }
    if (*stop == separator_ || !record_.fields_.empty() || stop != field) {
      record_.fields_.emplace_back(field, static_cast<std::size_t>(stop - field));
    }
    field = stop + 1;
    if (*stop != separator_) {
      EndRow(*stop, ascii_ || IsAscii({start, static_cast<std::size_t>(stop - start)}));
      return field;
    }
  }
}

/// Has the parser take the rest of a line.
/// @return where that ends.
char const* CsvParser::ParseLine(char const* start, char const* end) {
  char const* const lineEnd = FindLineEnd(start, end);
  char const* const next = lineEnd != end ? lineEnd + 1 : end;
  ParsePart({start, static_cast<std::size_t>(next - start)});
  return next;
}

void CsvParser::ParsePart(std::string_view bytes) {
  std::size_t const parsed =
      csv_parse(&parser_, bytes.data(), bytes.size(), &OnField, &OnRowEnd, this);
  Rethrow();
  if (parsed != bytes.size()) {
    FailUnlessParsed(bytes[parsed] == '"' ? "quote in an unquoted field"
                                          : "text after the closing quote");
  }
}

// The parser is C and has no way to stop: what is thrown below it waits here until it returns, and
// what it still reports is dropped.
template <class Action>
void CsvParser::Guarded(Action action) noexcept {
  if (thrown_ != nullptr) {
    return;
  }
  try {
    action();
  } catch (...) {
    thrown_ = std::current_exception();
  }
}

void CsvParser::OnField(void* text, std::size_t size, void* self) {
  auto& parser = *static_cast<CsvParser*>(self);
  parser.Guarded([&] {
    parser.text_.append(static_cast<char const*>(text), size);
    parser.ends_.push_back(parser.text_.size());
  });
}

void CsvParser::OnRowEnd(int end, void* self) {
  auto& parser = *static_cast<CsvParser*>(self);
  parser.Guarded([&] {
    parser.parsing_ = false;
    parser.ReadParsedFields();
    parser.EndRow(end, IsAscii(parser.text_));
    parser.text_.clear();
    parser.ends_.clear();
  });
}

/// Makes fields of those that the parser has finished.
void CsvParser::ReadParsedFields() {
  record_.fields_.clear();
  std::size_t start = 0;
  for (std::size_t const end : ends_) {
    record_.fields_.push_back(std::string_view(text_).substr(start, end - start));
    start = end;
  }
}

void CsvParser::EndRow(int end, bool ascii) {
  bool const empty = record_.size() == 0;
  bool const pair = empty && end == '\n' && afterCarriageReturn_;
  afterCarriageReturn_ = end == '\r';
  if (pair) {
    return;
  }
  if (!empty) {
    if (!ascii) {
      CheckUtf8();
    }
    sink_.Add(record_);
    record_.line_ += CountLinesInRecord();
  }
  ++record_.line_;
}

void CsvParser::CheckUtf8() const {
  std::size_t line = record_.line_;
  for (std::size_t column = 0; column < record_.size(); ++column) {
    if (!IsUtf8(record_[column])) {
      Fail(line, column, "invalid UTF-8");
    }
    line += CountLineEnds(record_[column]);
  }
}

/// How many line ends are inside the fields that the parser has finished.
std::size_t CsvParser::CountLinesInRecord() const {
  std::size_t lines = 0;
  std::size_t start = 0;
  for (std::size_t const end : ends_) {
    lines += CountLineEnds(std::string_view(text_).substr(start, end - start));
    start = end;
  }
  return lines;
}

void CsvParser::FailUnlessParsed(char const* broken) const {
  if (csv_error(const_cast<csv_parser*>(&parser_)) != CSV_EPARSE) {
    throw std::bad_alloc();
  }
  Fail(record_.line_ + CountLinesInRecord(), ends_.size(), broken);
}

void CsvParser::Fail(std::size_t line, std::size_t column, std::string const& what) const {
  throw InputError(file_, line, "column " + std::to_string(column + 1) + ": " + what);
}

void CsvParser::Rethrow() const {
  if (thrown_ != nullptr) {
    std::rethrow_exception(thrown_);
  }
}

}  // namespace lakresvos::tabulate
