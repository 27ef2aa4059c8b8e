#include <algorithm>
#include <climits>
#include <gtest/gtest.h>
#include <map>
#include <optional>
#include <random>

#include <lakresvos/OmPivotTable.h>

#include "core/table/OmPivotTableFixture.h"
#include "support/Property.h"

namespace {

/// A table as a map from index, last dimension first, to text; and, for the start of a walk, the
/// sizes of the store's nodes by their path from the root.
class Model {
 public:
  explicit Model(std::size_t dimensions) : dimensions_(dimensions) {}

  void Write(Index const& index, std::optional<std::string> const& text) {
    Index const path(index.rbegin(), index.rend());
    for (std::size_t level = 0; level < dimensions_; ++level) {
      long& size = nodes_[Head(path, level)];
      size = std::max(size, path[level] + 1L);
    }
    cells_.erase(path);
    if (text) {
      cells_[path] = *text;
    }
  }

  void Delete(Index const& index) {
    Index const path(index.rbegin(), index.rend());
    auto const bottom = nodes_.find(Head(path, dimensions_ - 1));
    if (bottom == nodes_.end() || path.back() >= bottom->second) {
      return;
    }
    cells_.erase(path);
    for (std::size_t level = dimensions_ - 1; level != 0; --level) {
      Index const node = Head(path, level);
      if (HoldsBelow(nodes_, node) || HoldsBelow(cells_, node)) {
        return;
      }
      nodes_.erase(node);
    }
  }

  void AddDimension() {
    std::map<Index, long> nodes;
    for (auto const& [path, size] : nodes_) {
      nodes[Below(path)] = size;
    }
    if (!nodes.empty()) {
      nodes[Index{}] = 1;
    }
    std::map<Index, std::string> cells;
    for (auto const& [path, text] : cells_) {
      cells[Below(path)] = text;
    }
    nodes_ = nodes;
    cells_ = cells;
    ++dimensions_;
  }

  std::string At(Index const& index) const {
    auto const found = cells_.find(Index(index.rbegin(), index.rend()));
    return found != cells_.end() ? found->second : "(none)";
  }

  Walked Walk() const {
    Walked walked;
    if (StartsInAClearedBranch()) {
      return walked;
    }
    for (auto const& [path, text] : cells_) {
      walked.emplace_back(Index(path.rbegin(), path.rend()), text);
    }
    return walked;
  }

 private:
  static Index Head(Index const& path, std::size_t length) {
    return {path.begin(), path.begin() + static_cast<std::ptrdiff_t>(length)};
  }

  static Index Below(Index path) {
    path.insert(path.begin(), 0);
    return path;
  }

  template <class Value>
  static bool HoldsBelow(std::map<Index, Value> const& map, Index const& node) {
    auto const next = map.upper_bound(node);
    return next != map.end() && next->first.size() > node.size() &&
           Head(next->first, node.size()) == node;
  }

  bool StartsInAClearedBranch() const {
    Index node;
    while (node.size() + 1 < dimensions_) {
      auto const child = std::find_if(nodes_.begin(), nodes_.end(), [&](auto const& entry) {
        return entry.first.size() == node.size() + 1 && Head(entry.first, node.size()) == node;
      });
      if (child == nodes_.end()) {
        return true;
      }
      node = child->first;
    }
    return !HoldsBelow(cells_, node);
  }

  std::size_t dimensions_;
  std::map<Index, long> nodes_;
  std::map<Index, std::string> cells_;
};

RANDOM_PROGRAM(OmPivotTableProperty, BehavesAsAMapUnderRandomChanges) {
  auto const dimensions = *rc::gen::inRange(1, 5);
  TestTable table(dimensions);
  Model model(static_cast<std::size_t>(dimensions));
  int const steps = DrawStepCount();
  for (int step = 0; step < steps; ++step) {
    int const count = table.NDimensions();
    Index const index = *rc::gen::container<Index>(
        static_cast<std::size_t>(count),
        rc::gen::weightedOneOf<int>({{9, rc::gen::inRange(0, 4)},
                                     {1, rc::gen::inRange(0, 30)},
                                     {1, rc::gen::element(63, 64, 5000, 1 << 20, INT_MAX)}}));
    int const action = *rc::gen::inRange(0, 20);
    if (action < 10) {
      table.Put(index, std::to_string(step));
      model.Write(index, std::to_string(step));
    } else if (action < 14) {
      table.Clear(index);
      model.Write(index, std::nullopt);
    } else if (action < 19) {
      table.deleteCell(index);
      model.Delete(index);
    } else if (count < 7) {
      table.AddDimension(Text("more"));
      model.AddDimension();
    }
    Index probe = index;
    probe.resize(static_cast<std::size_t>(table.NDimensions()));
    RC_ASSERT(table.At(probe) == model.At(probe));
    RC_ASSERT(table.Walk() == model.Walk());
    probe[static_cast<std::size_t>(step) % probe.size()] = *rc::gen::element(-1, -2, INT_MIN);
    table.deleteCell(probe);
    RC_ASSERT_THROWS_AS(table.At(probe), OMSException);
    RC_ASSERT_THROWS_AS(table.Put(probe, "nowhere"), OMSException);
  }
}

PROPERTY(OmPivotTableProperty, HoldsManyCellsAtAnySubscripts) {
  auto const dimensions = static_cast<std::size_t>(*rc::gen::inRange(1, 5));
  // Per dimension how many bits its subscripts have: nodes are crowded, nearly empty or in between.
  auto const bits = *rc::gen::container<std::vector<int>>(dimensions, rc::gen::inRange(1, 32));
  std::mt19937_64 random(*rc::gen::arbitrary<unsigned int>());
  TestTable table(static_cast<int>(dimensions));
  std::map<Index, std::string> cells;  // last dimension first
  auto const anywhere = [&] {
    Index index;
    for (int const count : bits) {
      index.push_back(static_cast<int>(random() & ((1UL << count) - 1)));
    }
    return index;
  };
  Index index;
  for (int step = *rc::gen::inRange(0, 1500); step > 0; --step) {
    // Mostly along the first dimension, as tables are filled.
    if (index.empty() || random() % 4 == 0) {
      index = anywhere();
    } else {
      index[0] = static_cast<int>(random() & ((1UL << bits[0]) - 1));
    }
    Index const path(index.rbegin(), index.rend());
    if (random() % 5 != 0) {
      table.Put(index, std::to_string(step));
      cells[path] = std::to_string(step);
    } else {
      table.deleteCell(index);
      cells.erase(path);
    }
  }
  Walked walked;
  for (auto const& [path, text] : cells) {
    walked.emplace_back(Index(path.rbegin(), path.rend()), text);
    RC_ASSERT(table.At(walked.back().first) == text);
  }
  RC_ASSERT(table.Walk() == walked);
  for (int probe = 0; probe < 200; ++probe) {
    index = anywhere();
    auto const found = cells.find(Index(index.rbegin(), index.rend()));
    RC_ASSERT(table.At(index) == (found != cells.end() ? found->second : "(none)"));
  }
  if (cells.size() > 100) {
    // The texts lie in the cells' region, 16 bytes each; a path of its own takes some 50 a level.
    RC_ASSERT(table.data().BytesInUse() < cells.size() * (64 + 80 * dimensions) + 20000);
  }
  for (auto const& [path, text] : cells) {
    table.deleteCell(Index(path.rbegin(), path.rend()));
  }
  RC_ASSERT(table.Walk().empty());
  RC_ASSERT(table.data().BytesInUse() < 5000UL);
}

// Callers are not to use an iterator after a change. Those that do see cells that the table has.
PROPERTY(OmPivotTableProperty, AWalkOverATableThatChangesStaysInIt) {
  TestTable table(3);
  auto const change = [&] {
    Index index = *rc::gen::container<Index>(
        3,
        rc::gen::weightedOneOf<int>({{9, rc::gen::inRange(0, 6)}, {3, rc::gen::inRange(0, 3000)}}));
    index.resize(static_cast<std::size_t>(table.NDimensions()));
    int const action = *rc::gen::inRange(0, 30);
    if (action < 18) {
      table.Put(index, "text");
    } else if (action < 29) {
      table.deleteCell(index);
    } else if (table.NDimensions() < 5) {
      table.AddDimension(Text("more"));
    }
  };
  for (int i = 0; i < 40; ++i) {
    change();
  }
  Index before;
  auto at = table.FirstCell();
  for (int step = 0; step < 300 && at.Cell() != nullptr; ++step) {
    if (step % 3 == 0) {
      change();
    }
    ++at;
    if (at.Cell() != nullptr) {
      Index index = at.Index();
      std::reverse(index.begin(), index.end());
      RC_ASSERT(before < index);
      before = index;
      Index full = at.Index();
      full.resize(static_cast<std::size_t>(table.NDimensions()));
      RC_ASSERT(table.Cell(full) == at.Cell());
    }
  }
}

PROPERTY(OmPivotTableProperty, TheConstWalkIsTheSame) {
  TestTable table(3);
  for (int step = *rc::gen::inRange(0, 40); step > 0; --step) {
    Index const index = *rc::gen::container<Index>(3, rc::gen::inRange(0, 4));
    if (*rc::gen::inRange(0, 4) == 0) {
      table.Clear(index);
    } else {
      table.Put(index, std::to_string(step));
    }
  }
  Walked cells;
  for (auto at = std::as_const(table).FirstCell(); at.Cell() != nullptr; ++at) {
    cells.emplace_back(at.Index(), at.Cell()->GetText());
  }
  RC_ASSERT(cells == table.Walk());
}

}  // namespace
