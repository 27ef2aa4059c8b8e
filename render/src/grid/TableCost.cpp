#include "grid/TableCost.h"

#include <algorithm>
#include <array>
#include <vector>

#include <lakresvos/OmVectorTreeWalk.h>

#include "content/CellText.h"

namespace lakresvos::render {

namespace {

constexpr double kHeadingLevel = 8;  // bytes that a level of a heading takes at least

/// What a dimension adds to the cost. Doubles, for products that no integer holds.
struct Extent {
  double size = 0;
  double leaves = 0;
  double levels = 0;      ///< of the deepest leaf
  double labels = 0;      ///< bytes of the labels from the root on, over all leaves
  double sameLeaves = 1;  ///< the most leaves that share a subscript
};

double CountLongestRun(std::vector<unsigned int> numbers) {
  std::sort(numbers.begin(), numbers.end());
  std::size_t longest = 1;
  for (std::size_t first = 0, at = 0; at < numbers.size(); ++at) {
    first = numbers[at] == numbers[first] ? first : at;
    longest = std::max(longest, at - first + 1);
  }
  return static_cast<double>(longest);
}

Extent MeasureExtent(OmDimension const& dimension) {
  Extent extent;
  extent.size = dimension.CategoryCount();
  std::vector<unsigned int> subscripts;
  std::vector<double> labels;  // per node on the path, the bytes of the labels down to it
  OmVectorTreeWalk<OmDimension::ConstNode> walk(dimension.Root());
  while (walk.Next()) {
    OmDimensionNode const& node = walk.Current().Value();
    labels.resize(walk.Path().size() - 1);
    labels.push_back((labels.empty() ? 0 : labels.back()) +
                     static_cast<double>(GetText(node.label).size()));
    if (!node.group) {
      subscripts.push_back(static_cast<unsigned int>(node.subscript));
      extent.levels = std::max(extent.levels, static_cast<double>(labels.size()));
      extent.labels += labels.back();
      walk.SkipChildren();
    }
  }
  extent.leaves = static_cast<double>(subscripts.size());
  extent.sameLeaves = CountLongestRun(std::move(subscripts));
  return extent;
}

/// The places of one axis.
struct AxisCost {
  double combinations = 1;  ///< of subscripts
  double repeats = 1;       ///< at how many places a cell may be found
  double levels = 1;        ///< of the heading

  double Places(double cells) const {
    return std::min(cells * repeats, std::max(cells, combinations));
  }
};

/// A dimension decides where a cell is found once. A further entry of it finds every cell at each
/// of its categories, and so does any entry when the dimension is on an axis across.
AxisCost EstimateCost(std::vector<short> const& axis, std::vector<Extent> const& extents,
                      std::vector<bool> across) {
  AxisCost cost;
  for (short const entry : axis) {
    cost.levels += 1;
    auto const d = static_cast<std::size_t>(entry);
    if (d >= extents.size()) {
      continue;
    }
    Extent const& extent = extents[d];
    cost.combinations *= extent.size;
    cost.repeats *=
        across[d] ? std::max(std::min(extent.size, extent.leaves), 1.0) : extent.sameLeaves;
    cost.levels += extent.levels;
    across[d] = true;
  }
  return cost;
}

std::vector<bool> MarkPlaced(std::vector<std::vector<short> const*> const& axes,
                             std::size_t dimensions) {
  std::vector<bool> on(dimensions, false);
  for (std::vector<short> const* const axis : axes) {
    for (short const entry : *axis) {
      if (auto const d = static_cast<std::size_t>(entry); d < dimensions) {
        on[d] = true;
      }
    }
  }
  return on;
}

}  // namespace

double EstimateShownCost(OmPivotTable const& table, std::size_t cells) {
  double cost = 0;
  std::vector<Extent> extents;
  for (int d = 0; d < table.NDimensions(); ++d) {
    Extent const& extent = extents.emplace_back(MeasureExtent(table.Dimension(d)));
    cost += extent.labels + kHeadingLevel * extent.leaves * extent.levels;
  }
  std::vector<short> const& rows = table.Rows().elements;
  std::vector<short> const& columns = table.Columns().elements;
  std::array<AxisCost, 3> const axes = {
      EstimateCost(rows, extents, MarkPlaced({&columns}, extents.size())),
      EstimateCost(columns, extents, MarkPlaced({&rows}, extents.size())),
      EstimateCost(table.Layers().elements, extents,
                   MarkPlaced({&rows, &columns}, extents.size()))};
  auto const count = static_cast<double>(cells);
  double combinations = 1;
  double repeats = 1;
  for (AxisCost const& axis : axes) {
    cost += kHeadingLevel * axis.Places(count) * axis.levels;
    combinations *= axis.combinations;
    repeats *= axis.repeats;
  }
  return repeats > 1 ? cost + std::min(combinations, count * count * repeats) : cost;
}

}  // namespace lakresvos::render
