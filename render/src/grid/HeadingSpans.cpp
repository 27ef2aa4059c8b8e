#include "grid/HeadingSpans.h"

#include <algorithm>

namespace lakresvos::render {

namespace {

void const* FindElement(PathNode const* node) {
  return node != nullptr ? node->element : nullptr;
}

}  // namespace

std::vector<HeadingSpan> MergeHeading(int places, std::vector<bool> const& startsDimension,
                                      std::function<std::deque<PathNode*>(int)> const& levelNodes) {
  std::vector<HeadingSpan> spans;
  auto const count = static_cast<std::size_t>(places);
  std::vector<std::size_t> enclosing(count, 0);  // per place, the span of the level before
  for (std::size_t level = 0; level < startsDimension.size(); ++level) {
    std::deque<PathNode*> nodes = levelNodes(static_cast<int>(level));
    nodes.resize(count, nullptr);
    for (std::size_t first = 0, end = 0; first < count; first = end) {
      std::size_t const outer = enclosing[first];
      void const* const element = FindElement(nodes[first]);
      while (end < count && enclosing[end] == outer && FindElement(nodes[end]) == element) {
        ++end;
      }
      auto const run = static_cast<int>(end - first);
      if (element == nullptr && !startsDimension[level] && spans[outer].count == run) {
        ++spans[outer].levels;
        continue;
      }
      std::fill(enclosing.begin() + static_cast<std::ptrdiff_t>(first),
                enclosing.begin() + static_cast<std::ptrdiff_t>(end), spans.size());
      spans.push_back({nodes[first], static_cast<int>(level), 1, static_cast<int>(first), run});
    }
  }
  return spans;
}

}  // namespace lakresvos::render
