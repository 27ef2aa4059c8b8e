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

namespace lakresvos::tabulate {

namespace {

constexpr char kByteOrderMark[] = {'\xEF', '\xBB', '\xBF'};

/// Parses all bytes of a source.
/// @param read fills a buffer and returns how many bytes it got; none at the end.
template <class Read>
void ParseAll(std::string const& name, CsvSink& sink, CsvReading const& how, Read read) {
  ParallelCsvParser parser(name, sink, how);
  std::vector<char> buffer(how.block);
  std::size_t kept = 0;  // bytes at the start of the buffer that are still to be parsed
  for (bool first = true;; first = false) {
    std::size_t const got = read(buffer.data() + kept, buffer.size() - kept);
    std::string_view bytes(buffer.data(), kept + got);
    if (got == 0) {
      parser.Finish(bytes);
      return;
    }
    bool const full = bytes.size() == buffer.size();
    if (first && bytes.starts_with(std::string_view(kByteOrderMark, sizeof kByteOrderMark))) {
      bytes.remove_prefix(sizeof kByteOrderMark);
    }
    bytes.remove_prefix(parser.Parse(bytes));
    kept = bytes.size();
    std::copy(bytes.begin(), bytes.end(), buffer.begin());
    if (kept == buffer.size() || (full && 2 * buffer.size() <= parser.GoodSize())) {
      buffer.resize(2 * buffer.size());
    }
  }
}

}  // namespace

void ReadCsv(std::string const& file, CsvSink& sink, CsvReading const& how) {
  auto const fail = [&file](int error) {
    throw InputError(file + ": " + std::generic_category().message(error));
  };
  std::unique_ptr<std::FILE, int (*)(std::FILE*)> const input(std::fopen(file.c_str(), "rb"),
                                                              &std::fclose);
  if (input == nullptr) {
    fail(errno);
  }
  int error = 0;
  ParseAll(file, sink, how, [&](char* buffer, std::size_t size) {
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

void ReadCsv(std::istream& input, std::string const& name, CsvSink& sink, CsvReading const& how) {
  ParseAll(name, sink, how, [&](char* buffer, std::size_t size) {
    input.read(buffer, static_cast<std::streamsize>(size));
    if (input.gcount() == 0 && input.bad()) {
      throw InputError(name + ": read error");
    }
    return static_cast<std::size_t>(input.gcount());
  });
}

}  // namespace lakresvos::tabulate
