#include "data/CsvReader.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <csv.h>
#include <exception>
#include <istream>
#include <memory>
#include <new>
#include <system_error>

#include <lakresvos/tabulate/InputError.h>

#include "text/Utf8.h"

namespace lakresvos::tabulate {

namespace {

constexpr char kByteOrderMark[] = {'\xEF', '\xBB', '\xBF'};

std::size_t CountLineEnds(std::string_view text) {
  std::size_t count = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    bool const pair = text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n';
    count += !pair && (text[i] == '\n' || text[i] == '\r') ? 1 : 0;
  }
  return count;
}

}  // namespace

/// Gathers the parser's fields into records and keeps count of lines.
class CsvParser {
 public:
  CsvParser(std::string const& file, CsvSink& sink) : file_(file), sink_(sink) {
    if (csv_init(&parser_, CSV_STRICT | CSV_STRICT_FINI | CSV_REPALL_NL) != 0) {
      throw std::bad_alloc();
    }
    csv_set_space_func(&parser_, [](unsigned char) { return 0; });
    csv_set_blk_size(&parser_, 1 << 16);
  }
  CsvParser(CsvParser const&) = delete;
  CsvParser& operator=(CsvParser const&) = delete;
  ~CsvParser() { csv_free(&parser_); }

  void Parse(std::string_view bytes) {
    std::size_t const parsed =
        csv_parse(&parser_, bytes.data(), bytes.size(), &OnField, &OnRowEnd, this);
    Rethrow();
    if (parsed != bytes.size()) {
      FailUnlessParsed(bytes[parsed] == '"' ? "quote in an unquoted field"
                                            : "text after the closing quote");
    }
  }

  void Finish() {
    int const status = csv_fini(&parser_, &OnField, &OnRowEnd, this);
    Rethrow();
    if (status != 0) {
      FailUnlessParsed("unclosed quoted field");
    }
  }

 private:
  // The parser is C and has no way to stop: what is thrown below it waits here until it returns,
  // and what it still reports is dropped.
  template <class Action>
  void Guarded(Action action) noexcept {
    if (thrown_ != nullptr) {
      return;
    }
    try {
      action();
    } catch (...) {
      thrown_ = std::current_exception();
    }
  }

  static void OnField(void* text, std::size_t size, void* self) {
    auto& parser = *static_cast<CsvParser*>(self);
    parser.Guarded([&] {
      parser.record_.text_.append(static_cast<char const*>(text), size);
      parser.record_.ends_.push_back(parser.record_.text_.size());
      parser.afterCarriageReturn_ = false;
    });
  }

  static void OnRowEnd(int end, void* self) {
    auto& parser = *static_cast<CsvParser*>(self);
    parser.Guarded([&] { parser.EndRow(end); });
  }

  void EndRow(int end) {
    if (end == '\n' && afterCarriageReturn_) {
      afterCarriageReturn_ = false;
      return;
    }
    afterCarriageReturn_ = end == '\r';
    if (record_.size() != 0) {
      CheckUtf8();
      sink_.Add(record_);
      record_.line_ += CountLinesInRecord();
      record_.text_.clear();
      record_.ends_.clear();
    }
    ++record_.line_;
  }

  void CheckUtf8() const {
    if (IsAscii(record_.text_)) {
      return;
    }
    std::size_t line = record_.line_;
    for (std::size_t column = 0; column < record_.size(); ++column) {
      if (!IsUtf8(record_[column])) {
        Fail(line, column, "invalid UTF-8");
      }
      line += CountLineEnds(record_[column]);
    }
  }

  /// How many line ends are inside the record's finished fields.
  std::size_t CountLinesInRecord() const {
    std::size_t lines = 0;
    if (record_.text_.find('\n') != std::string::npos ||
        record_.text_.find('\r') != std::string::npos) {
      for (std::size_t column = 0; column < record_.size(); ++column) {
        lines += CountLineEnds(record_[column]);
      }
    }
    return lines;
  }

  [[noreturn]] void FailUnlessParsed(char const* broken) const {
    if (csv_error(const_cast<csv_parser*>(&parser_)) != CSV_EPARSE) {
      throw std::bad_alloc();
    }
    Fail(record_.line_ + CountLinesInRecord(), record_.size(), broken);
  }

  [[noreturn]] void Fail(std::size_t line, std::size_t column, std::string const& what) const {
    throw InputError(file_, line, "column " + std::to_string(column + 1) + ": " + what);
  }

  void Rethrow() const {
    if (thrown_ != nullptr) {
      std::rethrow_exception(thrown_);
    }
  }

  std::string const& file_;
  CsvSink& sink_;
  csv_parser parser_;
  CsvRecord record_;
  bool afterCarriageReturn_ = false;
  std::exception_ptr thrown_;
};

namespace {

/// Parses all bytes of a source.
/// @param read fills a buffer and returns how many bytes it got: fewer than asked for at the end.
template <class Read>
void ParseAll(std::string const& name, CsvSink& sink, Read read) {
  CsvParser parser(name, sink);
  std::vector<char> buffer(1 << 16);
  for (bool first = true;; first = false) {
    std::size_t const size = read(buffer.data(), buffer.size());
    std::string_view bytes(buffer.data(), size);
    if (first && bytes.starts_with(std::string_view(kByteOrderMark, sizeof kByteOrderMark))) {
      bytes.remove_prefix(sizeof kByteOrderMark);
    }
    parser.Parse(bytes);
    if (size < buffer.size()) {
      break;
    }
  }
  parser.Finish();
}

}  // namespace

void ReadCsv(std::string const& file, CsvSink& sink) {
  auto const fail = [&file] {
    throw InputError(file + ": " + std::generic_category().message(errno));
  };
  std::unique_ptr<std::FILE, int (*)(std::FILE*)> const input(std::fopen(file.c_str(), "rb"),
                                                              &std::fclose);
  if (input == nullptr) {
    fail();
  }
  ParseAll(file, sink, [&](char* buffer, std::size_t size) {
    std::size_t const got = std::fread(buffer, 1, size, input.get());
    if (std::ferror(input.get()) != 0) {
      fail();
    }
    return got;
  });
}

void ReadCsv(std::istream& input, std::string const& name, CsvSink& sink) {
  ParseAll(name, sink, [&](char* buffer, std::size_t size) {
    input.read(buffer, static_cast<std::streamsize>(size));
    if (input.bad()) {
      throw InputError(name + ": read error");
    }
    return static_cast<std::size_t>(input.gcount());
  });
}

}  // namespace lakresvos::tabulate
