#include <algorithm>
#include <cctype>
#include <cstddef>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

#include <lakresvos/render/JsonReader.h>

#include "render/json/Documents.h"
#include "render/support/EveryFormat.h"
#include "render/support/RandomDocument.h"
#include "support/Property.h"
#include "support/faults/FailingNew.h"

// Damaged and hostile documents must cost little more than their text, whether they are read or
// refused, and whatever is then made of them.

namespace {

using namespace lakresvos::render;

/// What it takes at most to read the text and to show what is read.
std::size_t Cost(std::string const& text) {
  MemoryMeter const meter;
  try {
    RenderInEveryFormat(*json_documents::Read(text));
  } catch (JsonError const&) {
  }
  return meter.Peak();
}

std::size_t Ceiling(std::string const& text) {
  return (std::size_t{1} << 27U) + 1024 * text.size();
}

// Damage

template <class Value>
Value Pick(std::vector<Value> const& values) {
  return *rc::gen::elementOf(values);
}

std::size_t Draw(std::size_t below) {
  return *rc::gen::resize(rc::kNominalSize, rc::gen::inRange<std::size_t>(0, below));
}

/// Where the pieces of a text start that begin with `start`.
std::vector<std::size_t> Starts(std::string const& text, std::string const& start) {
  std::vector<std::size_t> found;
  for (std::size_t at = text.find(start); at != std::string::npos; at = text.find(start, at + 1)) {
    found.push_back(at + start.size());
  }
  return found;
}

/// Puts another number in place of one.
void ChangeANumber(std::string& text) {
  std::vector<std::size_t> starts;
  for (std::size_t i = 1; i < text.size(); ++i) {
    bool const digit = std::isdigit(static_cast<unsigned char>(text[i])) != 0;
    if (digit && std::string(":[,").find(text[i - 1]) != std::string::npos) {
      starts.push_back(i);
    }
  }
  if (starts.empty()) {
    return;
  }
  std::size_t const start = Pick(starts);
  std::size_t const end = text.find_first_not_of("0123456789.e+-", start);
  text.replace(start, end - start,
               Pick<std::string>({"0", "1", "2", "-1", "17", "255", "65536", "1000000", "134217727",
                                  "2147483647", "4294967295", "6442450943", "18446744073709551615",
                                  "1e308", "null", "\"removed\""}));
}

/// Names dimensions on an axis again.
void RepeatAnAxis(std::string& text) {
  std::vector<std::size_t> starts;
  for (char const* const axis : {"\"rows\":[", "\"columns\":[", "\"layers\":["}) {
    std::vector<std::size_t> const more = Starts(text, axis);
    starts.insert(starts.end(), more.begin(), more.end());
  }
  if (!starts.empty()) {
    std::string entries;
    std::string const entry = Pick<std::string>({"0,", "1,", "2,", "-1,"});
    for (std::size_t i = Pick<std::size_t>({1, 2, 3, 10, 1000}); i > 0; --i) {
      entries += entry;
    }
    text.insert(Pick(starts), entries);
  }
}

/// Puts patterns within patterns in place of a label.
void NestPatterns(std::string& text) {
  std::vector<std::size_t> const starts = Starts(text, "\"label\":{");
  if (starts.empty()) {
    return;
  }
  std::string parts;
  std::size_t const levels = 1 + Draw(60);
  std::string const pattern = R"("composite":"{0}{0}")";
  for (std::size_t i = 0; i < levels; ++i) {
    parts += "{" + (i != 0 ? R"("in":)" + std::to_string(i - 1) + "," : "") + pattern + "},";
  }
  std::size_t const start = Pick(starts);
  text.replace(start, text.find('}', start) - start,
               pattern + R"(,"parts":[)" + parts + R"({"in":)" + std::to_string(levels - 1) +
                   R"(,"text":"a"}])");
}

/// Writes a line, which is a node, a cell or an item, once more.
void RepeatALine(std::string& text) {
  std::vector<std::size_t> const starts = Starts(text, "\n");
  std::size_t const start = Pick(starts);
  text.insert(start, text.substr(start, text.find('\n', start) + 1 - start));
}

void CutOff(std::string& text) {
  text.resize(Draw(text.size()));
}

void Damage(std::string& text) {
  constexpr void (*kKinds[])(std::string&) = {ChangeANumber, ChangeANumber, ChangeANumber,
                                              RepeatAnAxis,  NestPatterns,  RepeatALine};
  for (std::size_t i = 1 + Draw(3); i > 0; --i) {
    kKinds[Draw(std::size(kKinds))](text);
  }
  if (Draw(10) == 0) {
    CutOff(text);
  }
}

PROPERTY(JsonReaderMemory, ADamagedDocumentCostsLittleMoreThanItsText) {
  OmOutputTree tree;
  MakeRandomDocument(tree);
  std::string text = json_documents::Written(tree);
  Damage(text);
  RC_LOG() << text;
  RC_ASSERT(Cost(text) <= Ceiling(text));
}

TEST(JsonReaderMemory, MeasuresWhatIsHeld) {
  std::string const text = "{\"format\":\"" + std::string(1000000, 'x') + "\"}";
  EXPECT_GT(Cost(text), text.size());
}

TEST(JsonReaderMemory, ATextOfTheSmallestValuesCostsLittleMoreThanItself) {
  for (char const* const value : {"0", "\"\"", "[]", "{}", "{\"a\":0}", "[[[]]]"}) {
    std::string text = R"({"format":"lakresvos-document","version":1,"parts":[0)";
    for (int i = 0; i < 300000; ++i) {
      text += ',';
      text += value;
    }
    EXPECT_LT(Cost(text + "]}"), 100 * text.size()) << value;
  }
}

}  // namespace
