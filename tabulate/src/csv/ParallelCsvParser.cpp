#include "csv/ParallelCsvParser.h"

#include <algorithm>

#include <lakresvos/tabulate/InputError.h>

#include "csv/RecordCuts.h"
#include "csv/RunTogether.h"

namespace lakresvos::tabulate {

namespace {

constexpr std::size_t kBlocksPerThread = 16;

}  // namespace

ParallelCsvParser::ParallelCsvParser(std::string const& file, CsvSink& sink, CsvReading const& how,
                                     char separator)
    : file_(file), sink_(sink), how_(how), separator_(separator), parser_(file, sink, separator) {}

std::size_t ParallelCsvParser::GoodSize() const {
  return how_.threads == 1 ? how_.block : how_.threads * kBlocksPerThread * how_.block;
}

std::size_t ParallelCsvParser::Parse(std::string_view bytes) {
  if (how_.threads == 1) {
    return parser_.Parse(bytes);
  }
  std::size_t const count = std::clamp<std::size_t>(bytes.size() / how_.block, 1, how_.threads);
  std::vector<std::size_t> const cuts = CutAfterRecords(bytes, quoted_, count);
  if (cuts.empty()) {
    return ParseAlone(bytes);
  }
  if (cuts.size() == 1 || !MakeParts(cuts.size() - 1)) {
    return ParseAlone(bytes.substr(0, cuts.back()));
  }
  ParseTogether(bytes, cuts);
  quoted_ = false;
  return cuts.back();
}

std::size_t ParallelCsvParser::ParseAlone(std::string_view bytes) {
  std::size_t const parsed = parser_.Parse(bytes);
  quoted_ ^= HasOddQuotes(bytes.substr(0, parsed));
  return parsed;
}

/// Makes what as many other threads need.
/// @return whether the sink can be divided.
bool ParallelCsvParser::MakeParts(std::size_t count) {
  while (parts_.size() < count) {
    std::unique_ptr<CsvPartSink> sink = sink_.MakePart();
    if (sink == nullptr) {
      return false;
    }
    parts_.emplace_back(file_, std::move(sink), separator_);
  }
  return true;
}

void ParallelCsvParser::ParseTogether(std::string_view bytes,
                                      std::vector<std::size_t> const& cuts) {
  auto const cut = [&](std::size_t i) {
    std::size_t const start = i == 0 ? 0 : cuts[i - 1];
    return bytes.substr(start, cuts[i] - start);
  };
  RunTogether(cuts.size(), [&](std::size_t i) {
    if (i == 0) {
      parser_.Parse(cut(i));
    } else {
      parts_[i - 1].Parse(cut(i));
    }
  });
  for (std::size_t i = 1; i < cuts.size(); ++i) {
    TakeOver(parts_[i - 1], cut(i));
  }
}

void ParallelCsvParser::TakeOver(Part& part, std::string_view bytes) {
  if (part.broken) {
    parser_.Parse(bytes);  // throws the error again, now with its line
    return;
  }
  std::size_t const linesBefore = parser_.Line() - 1;
  part.sink->HandOver(linesBefore);
  parser_.GoOnAt(linesBefore + part.parser.Line());
}

void ParallelCsvParser::Part::Parse(std::string_view bytes) {
  parser.GoOnAt(1);
  try {
    parser.Parse(bytes);
  } catch (InputError const&) {
    broken = true;
  }
}

}  // namespace lakresvos::tabulate
