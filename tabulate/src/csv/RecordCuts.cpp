#include "csv/RecordCuts.h"

namespace lakresvos::tabulate {

namespace {

/// Whether a line ends with this byte; a CR at the very end may have its LF still to come.
bool EndsLine(std::string_view bytes, std::size_t at) {
  return bytes[at] == '\n' || (bytes[at] == '\r' && at + 1 < bytes.size() && bytes[at + 1] != '\n');
}

/// Where the last record in a range of bytes ends, or the start of the range.
/// @param quoted whether the range ends inside a quoted field.
std::size_t FindLastRecordEnd(std::string_view bytes, std::size_t start, std::size_t end,
                              bool quoted) {
  for (std::size_t at = end; at > start; --at) {
    if (bytes[at - 1] == '"') {
      quoted = !quoted;
    } else if (!quoted && EndsLine(bytes, at - 1)) {
      return at;
    }
  }
  return start;
}

}  // namespace

bool HasOddQuotes(std::string_view bytes) {
  unsigned char odd = 0;
  for (char const c : bytes) {
    odd ^= c == '"' ? 1 : 0;
  }
  return odd != 0;
}

std::vector<std::size_t> CutAfterRecords(std::string_view bytes, bool quoted, std::size_t count) {
  std::vector<std::size_t> cuts;
  std::size_t start = 0;
  for (std::size_t part = 1; part <= count; ++part) {
    std::size_t const end = part == count ? bytes.size() : bytes.size() / count * part;
    quoted ^= HasOddQuotes(bytes.substr(start, end - start));
    std::size_t const cut = FindLastRecordEnd(bytes, start, end, quoted);
    if (cut != start) {
      cuts.push_back(cut);
    }
    start = end;
  }
  return cuts;
}

}  // namespace lakresvos::tabulate
