#include "csv/Separator.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <vector>

namespace lakresvos::tabulate {

namespace {

struct Candidate {
  char separator;
  char const* name;
};

constexpr Candidate kCandidates[] = {
    {',', "Comma"}, {';', "Semicolon"}, {'\t', "Tab"}, {'|', "Bar"}};
constexpr std::size_t kMostRecords = 20;

/// How many of each candidate one record has outside its quotes.
using Counts = std::vector<std::size_t>;

/// Counts the candidates in each of the first records that are not empty.
std::vector<Counts> CountInRecords(std::string_view bytes) {
  std::vector<Counts> records;
  Counts counts(std::size(kCandidates));
  bool quoted = false;
  bool empty = true;
  for (char const c : bytes) {
    if (!quoted && (c == '\n' || c == '\r')) {
      if (!empty) {
        records.push_back(counts);
        counts.assign(counts.size(), 0);
      }
      empty = true;
      if (records.size() == kMostRecords) {
        return records;
      }
      continue;
    }
    empty = false;
    quoted ^= c == '"';
    for (std::size_t i = 0; i < counts.size() && !quoted; ++i) {
      counts[i] += c == kCandidates[i].separator ? 1 : 0;
    }
  }
  if (records.empty()) {
    records.push_back(counts);
  }
  return records;
}

}  // namespace

char GuessSeparator(std::string_view bytes) {
  std::vector<Counts> const records = CountInRecords(bytes);
  std::size_t best = 0;
  bool bestIsEven = false;
  std::size_t most = 0;
  for (std::size_t i = 0; i < std::size(kCandidates); ++i) {
    std::size_t const first = records.front()[i];
    bool const even = first != 0 && std::ranges::all_of(records, [&](Counts const& one) {
                        return one[i] == first;
                      });
    if (even > bestIsEven || (even == bestIsEven && first > most)) {
      best = i;
      bestIsEven = even;
      most = first;
    }
  }
  return kCandidates[best].separator;
}

std::string NameSeparator(char separator) {
  auto const known = std::ranges::find(kCandidates, separator, &Candidate::separator);
  return known != std::end(kCandidates) ? known->name : std::string(1, separator);
}

}  // namespace lakresvos::tabulate
