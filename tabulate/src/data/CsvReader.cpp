#include "data/CsvReader.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <istream>
#include <memory>
#include <string_view>
#include <system_error>
#include <vector>

#include <lakresvos/tabulate/InputError.h>

#include "data/CsvParser.h"

namespace lakresvos::tabulate {

namespace {

constexpr char kByteOrderMark[] = {'\xEF', '\xBB', '\xBF'};

/// Parses all bytes of a source.
/// @param read fills a buffer and returns how many bytes it got: fewer than asked for at the end.
template <class Read>
void ParseAll(std::string const& name, CsvSink& sink, Read read) {
  CsvParser parser(name, sink);
  std::vector<char> buffer(1 << 16);
  std::size_t kept = 0;  // bytes at the start of the buffer that are still to be parsed
  for (bool first = true;; first = false) {
    std::size_t const size = kept + read(buffer.data() + kept, buffer.size() - kept);
    std::string_view bytes(buffer.data(), size);
    if (first && bytes.starts_with(std::string_view(kByteOrderMark, sizeof kByteOrderMark))) {
      bytes.remove_prefix(sizeof kByteOrderMark);
    }
    bytes.remove_prefix(parser.Parse(bytes));
    if (size < buffer.size()) {
      parser.Finish(bytes);
      return;
    }
    kept = bytes.size();
    std::copy(bytes.begin(), bytes.end(), buffer.begin());
    if (kept == buffer.size()) {
      buffer.resize(2 * kept);
    }
  }
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
