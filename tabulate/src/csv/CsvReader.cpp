#include "csv/CsvReader.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <istream>
#include <memory>
#include <string_view>
#include <system_error>
#include <vector>

#include <lakresvos/tabulate/InputError.h>

#include "csv/ParallelCsvParser.h"
#include "csv/Separator.h"

namespace lakresvos::tabulate {

namespace {

constexpr char kByteOrderMark[] = {'\xEF', '\xBB', '\xBF'};

/// Parses all bytes of a source.
/// @param read fills a buffer and returns how many bytes it got; none at the end.
/// @return what separated the fields.
template <class Read>
char ParseAll(std::string const& name, CsvSink& sink, CsvReading const& how, Read read) {
  std::vector<char> buffer(how.block);
  std::size_t got = read(buffer.data(), buffer.size());
  std::string_view bytes(buffer.data(), got);
  if (bytes.starts_with(std::string_view(kByteOrderMark, sizeof kByteOrderMark))) {
    bytes.remove_prefix(sizeof kByteOrderMark);
  }
  char const separator = how.separator.has_value() ? *how.separator : GuessSeparator(bytes);
  ParallelCsvParser parser(name, sink, how, separator);
  while (got != 0) {
    bool const full =
        static_cast<std::size_t>(bytes.data() + bytes.size() - buffer.data()) == buffer.size();
    bytes.remove_prefix(parser.Parse(bytes));
    std::size_t const kept = bytes.size();  // still to be parsed
    std::copy(bytes.begin(), bytes.end(), buffer.begin());
    if (kept == buffer.size() || (full && 2 * buffer.size() <= parser.GoodSize())) {
      buffer.resize(2 * buffer.size());
    }
    got = read(buffer.data() + kept, buffer.size() - kept);
    bytes = {buffer.data(), kept + got};
  }
  parser.Finish(bytes);
  return separator;
}

}  // namespace

char ReadCsv(std::string const& file, CsvSink& sink, CsvReading const& how) {
  auto const fail = [&file](int error) {
    throw InputError(file + ": " + std::generic_category().message(error));
  };
  std::unique_ptr<std::FILE, int (*)(std::FILE*)> const input(std::fopen(file.c_str(), "rb"),
                                                              &std::fclose);
  if (input == nullptr) {
    fail(errno);
  }
  int error = 0;
  return ParseAll(file, sink, how, [&](char* buffer, std::size_t size) {
    if (error != 0) {
      fail(error);
    }
    std::size_t const got = std::fread(buffer, 1, size, input.get());
    if (std::ferror(input.get()) != 0) {
      error = errno;  // comes after what may be wrong with the bytes before it
    }
    if (got == 0 && error != 0) {
      fail(error);
    }
    return got;
  });
}

char ReadCsv(std::istream& input, std::string const& name, CsvSink& sink, CsvReading const& how) {
  return ParseAll(name, sink, how, [&](char* buffer, std::size_t size) {
    input.read(buffer, static_cast<std::streamsize>(size));
    if (input.gcount() == 0 && input.bad()) {
      throw InputError(name + ": read error");
    }
    return static_cast<std::size_t>(input.gcount());
  });
}

}  // namespace lakresvos::tabulate
