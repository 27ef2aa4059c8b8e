#include "grid/TableCost.h"

#include <algorithm>
#include <vector>

#include <lakresvos/OmVectorTreeWalk.h>

#include "content/CellText.h"

namespace lakresvos::render {

namespace {

// Bytes, about what the renderer takes that takes most.
constexpr double kHeadingLevel = 8;   // of a level of a heading at one place
constexpr double kHeadingCell = 400;  // of a cell of a heading, however many places it reaches over
constexpr double kHeadingPlace = 200;  // of a row or column
constexpr double kBodyCell = 8;

/// The labels of how many rows are held at a time.
constexpr double kRowsAtATime = 1024;

/// What a dimension adds to the cost. Doubles, for products that no integer holds.
struct Extent {
  double size = 0;
  double leaves = 0;
  double nodes = 0;       ///< that are leaves or above them, or groups without leaves
  double levels = 0;      ///< of the deepest leaf
  double labels = 0;      ///< bytes of the labels from the root on, over all leaves
  double longest = 0;     ///< the most of these that one leaf has
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
    extent.nodes += 1;
    if (!node.group) {
      subscripts.push_back(static_cast<unsigned int>(node.subscript));
      extent.levels = std::max(extent.levels, static_cast<double>(labels.size()));
      extent.labels += labels.back();
      extent.longest = std::max(extent.longest, labels.back());
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
  double places = 1;   ///< of the heading; a cell that none of the leaves has is at one of them
  double repeats = 1;  ///< at how many places a cell may be found
  double levels = 1;   ///< of the heading

  double Places(double cells) const { return std::min(cells * repeats, places); }
};

/// Calls `use` with the extent of each entry of an axis that is a dimension's, and its number: the
/// outermost first, which is the last one.
template <class Use>
void ForEachExtent(std::vector<short> const& axis, std::vector<Extent> const& extents, Use use) {
  std::for_each(axis.rbegin(), axis.rend(), [&](short entry) {
    if (auto const d = static_cast<std::size_t>(entry); d < extents.size()) {
      use(extents[d], d);
    }
  });
}

/// A dimension decides where a cell is found once. A further entry of it finds every cell at each
/// of its categories, and so does any entry when the dimension is on an axis across.
AxisCost EstimateCost(std::vector<short> const& axis, std::vector<Extent> const& extents,
                      std::vector<bool> across) {
  AxisCost cost;
  cost.levels += static_cast<double>(axis.size());
  ForEachExtent(axis, extents, [&](Extent const& extent, std::size_t d) {
    cost.combinations *= extent.size;
    cost.places *= std::max(extent.size, extent.leaves) + 1;
    cost.repeats *=
        across[d] ? std::max(std::min(extent.size, extent.leaves), 1.0) : extent.sameLeaves;
    cost.levels += extent.levels;
    across[d] = true;
  });
  return cost;
}

/// How many cells a heading of so many places has at most. Places with the same node are one cell,
/// so a dimension has each of its nodes once for each combination of leaves further out.
double CountHeadingCells(std::vector<short> const& axis, std::vector<Extent> const& extents,
                         double places) {
  double cells = 1;
  double outer = 1;
  ForEachExtent(axis, extents, [&](Extent const& extent, std::size_t /*dimension*/) {
    cells += std::min(places * (extent.levels + 1), std::min(places, outer) * (extent.nodes + 1));
    outer *= extent.leaves;
  });
  return cells;
}

/// The bytes of the labels at so many places, each with all those from the root on.
double CountLabelBytes(std::vector<short> const& axis, std::vector<Extent> const& extents,
                       double places) {
  double leaves = 1;
  ForEachExtent(axis, extents,
                [&](Extent const& extent, std::size_t /*dimension*/) { leaves *= extent.leaves; });
  double bytes = 0;
  ForEachExtent(axis, extents, [&](Extent const& extent, std::size_t /*dimension*/) {
    double const all = extent.leaves > 0 ? leaves / extent.leaves * extent.labels : 0;
    bytes += std::min(places * extent.longest, all);
  });
  return bytes;
}

/// @param labelled at how many of the places labels are held at a time.
double EstimateHeading(std::vector<short> const& axis, std::vector<Extent> const& extents,
                       AxisCost const& cost, double places, double labelled) {
  return (kHeadingPlace + kHeadingLevel * cost.levels) * places +
         kHeadingCell * CountHeadingCells(axis, extents, places) +
         CountLabelBytes(axis, extents, std::min(places, labelled));
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
  AxisCost const down = EstimateCost(rows, extents, MarkPlaced({&columns}, extents.size()));
  AxisCost const across = EstimateCost(columns, extents, MarkPlaced({&rows}, extents.size()));
  AxisCost const layers =
      EstimateCost(table.Layers().elements, extents, MarkPlaced({&rows, &columns}, extents.size()));
  auto const count = static_cast<double>(cells);
  cost += kHeadingLevel * layers.Places(count) * layers.levels;
  cost += layers.repeats *
          (EstimateHeading(rows, extents, down, down.Places(count), kRowsAtATime) +
           EstimateHeading(columns, extents, across, across.Places(count), across.Places(count)));
  double const repeats = down.repeats * across.repeats * layers.repeats;
  double const combinations = down.combinations * across.combinations * layers.combinations;
  return repeats > 1 ? cost + kBodyCell * std::min(combinations, count * count * repeats) : cost;
}

}  // namespace lakresvos::render
