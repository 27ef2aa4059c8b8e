#include <algorithm>
#include <array>
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
  return (std::size_t{1} << 26U) + 1024 * text.size();
}

bool IsRead(std::string const& text) {
  try {
    json_documents::Read(text);
    return true;
  } catch (JsonError const&) {
    return false;
  }
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

// Dimensions on an axis again and again

/// The categories of one dimension.
struct Categories {
  int leaves = 1;
  int groups = 0;     ///< one in the other above each leaf
  int sharing = 1;    ///< how many leaves have a subscript together
  std::string label;  ///< of the root, and of each group and leaf
};

std::string WriteDimension(Categories const& categories) {
  std::string const label = R"(,"label":{"text":")" + categories.label + R"("})";
  std::string nodes = R"({"id":0,"group":true)" + label + "}";
  int id = 0;
  auto const add = [&](int parent, std::string const& kind) {
    nodes += R"(,{"id":)" + std::to_string(++id) + R"(,"parent":)" + std::to_string(parent) +
             label + kind + "}";
    return id;
  };
  for (int leaf = 0; leaf < categories.leaves; ++leaf) {
    int parent = 0;
    for (int group = 0; group < categories.groups; ++group) {
      parent = add(parent, R"(,"group":true)");
    }
    add(parent, R"(,"subscript":)" + std::to_string(leaf / categories.sharing));
  }
  return R"({"size":)" + std::to_string(categories.leaves) + R"(,"nodes":[)" + nodes + "]}";
}

/// A table's dimensions, and what its axes name.
struct Placed {
  std::vector<Categories> dimensions;
  std::array<std::vector<std::size_t>, 3> axes;
  std::size_t cells = 1;
};

template <class Element, class Write>
std::string Join(std::vector<Element> const& elements, Write write) {
  std::string text;
  for (Element const& element : elements) {
    text += (text.empty() ? "" : ",") + write(element);
  }
  return "[" + text + "]";
}

/// A document of that table, its cells at the first subscripts of the first dimension.
std::string Write(Placed const& placed) {
  std::string text =
      R"({"format":"lakresvos-document","version":1,"parts":[{"depth":0,"type":"table",)"
      R"("label":{"text":"t"},"template":{"text":"t"},"dimensions":)" +
      Join(placed.dimensions, WriteDimension);
  auto const number = [](std::size_t d) { return std::to_string(d); };
  constexpr char const* kNames[] = {"rows", "columns", "layers"};
  for (std::size_t axis = 0; axis < placed.axes.size(); ++axis) {
    text += std::string(",\"") + kNames[axis] + "\":" + Join(placed.axes[axis], number);
  }
  std::vector<std::vector<std::size_t>> cells;
  for (std::size_t i = 0; i < placed.cells; ++i) {
    cells.emplace_back(placed.dimensions.size(), 0).front() = i;
  }
  return text + R"(,"cells":)" +
         Join(cells,
              [&](std::vector<std::size_t> const& index) {
                return R"({"index":)" + Join(index, number) + R"(,"text":"c"})";
              }) +
         "}]}";
}

TEST(JsonReaderMemory, ADimensionAsOftenOnAnAxisAsIsReadCostsLittleMoreThanItsText) {
  for (std::size_t axis = 0; axis < 3; ++axis) {
    for (Categories const& categories : {Categories{3, 0, 1, "a label"}, {2, 10, 1, "another"}}) {
      Placed placed{{categories}, {}};
      std::string text;
      for (std::string longer = Write(placed); IsRead(longer) && placed.axes[axis].size() < 40;
           longer = Write(placed)) {
        text = longer;
        placed.axes[axis].push_back(0);
      }
      EXPECT_GT(placed.axes[axis].size(), 2);
      EXPECT_LE(Cost(text), Ceiling(text)) << text;
    }
  }
}

PROPERTY(JsonReaderMemory, DimensionsOnAxesAgainAndAgainCostLittleMoreThanTheirText) {
  Placed placed;
  placed.dimensions.resize(1 + Draw(3));
  for (Categories& categories : placed.dimensions) {
    categories = {Pick<int>({1, 2, 3, 5, 8, 20}), Pick<int>({0, 0, 0, 1, 3, 10}),
                  Pick<int>({1, 1, 1, 2, 10}),
                  std::string(Pick<std::size_t>({0, 1, 30, 300}), 'x')};
  }
  placed.cells = 1 + Draw(static_cast<std::size_t>(placed.dimensions.front().leaves));
  std::size_t const most = Draw(6);
  std::size_t const favorite = Draw(3);
  for (std::size_t i = 0; i < most; ++i) {
    std::size_t const axis = Draw(4) != 0 ? favorite : Draw(3);
    placed.axes[axis].push_back(Draw(placed.dimensions.size()));
    if (!IsRead(Write(placed))) {
      placed.axes[axis].pop_back();
    }
  }
  std::string const text = Write(placed);
  RC_LOG() << text;
  RC_ASSERT(Cost(text) <= Ceiling(text));
}

// Other texts

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
