#include "xlsx/Losses.h"

namespace lakresvos::render {

namespace {

struct Wording {
  char const* one;
  char const* many;
  char const* what;
};

constexpr std::array<Wording, 3> kWordings = {{
    {"text", "texts", " longer than the 32767 characters of a cell left out"},
    {"picture", "pictures", " left out, damaged or in an unknown format"},
    {"number", "numbers", " written as text: too many number formats with footnote marks"},
}};

}  // namespace

void XlsxLosses::Add(XlsxLoss kind, std::string const& place) {
  Count& count = counts_[static_cast<std::size_t>(kind)];
  if (++count.count == 1) {
    count.first = place;
  }
}

std::vector<std::string> XlsxLosses::Lines() const {
  std::vector<std::string> lines;
  for (std::size_t kind = 0; kind < counts_.size(); ++kind) {
    auto const& [count, first] = counts_[kind];
    Wording const& wording = kWordings[kind];
    if (count > 0) {
      lines.push_back(std::to_string(count) + ' ' + (count == 1 ? wording.one : wording.many) +
                      wording.what + ", the first at " + first);
    }
  }
  return lines;
}

}  // namespace lakresvos::render
