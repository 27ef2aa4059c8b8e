#include <algorithm>
#include <climits>
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <cells/OmNumber.h>
#include <lakresvos/OmPivotTable.h>

#include "core/table/OmPivotTableFixture.h"
#include "support/Property.h"

namespace {

/// A text, and the style in its metadata if it has any.
struct Styled {
  std::string text;
  std::optional<int> style;

  std::string Text() const { return style ? text + " in " + std::to_string(*style) : text; }
};

std::string StyledTextOf(OmCellText const* cell) {
  bool const styled = cell != nullptr && cell->hasMeta();
  return Styled{TestTable::TextOf(cell),
                styled ? std::optional(cell->getMeta()->getStyle()) : std::nullopt}
      .Text();
}

/// The cells of a table as a map from index, last dimension first, to text; and, for the start of a
/// walk, the sizes of the store's nodes by their path from the root.
class Model {
 public:
  explicit Model(std::size_t dimensions) : dimensions_(dimensions) {}

  /// Writes a cell, which keeps the style of the one before it, or clears it.
  void Write(Index const& index, std::optional<Styled> cell) {
    Index const path(index.rbegin(), index.rend());
    for (std::size_t level = 0; level < dimensions_; ++level) {
      long& size = nodes_[Head(path, level)];
      size = std::max(size, path[level] + 1L);
    }
    auto const old = cells_.find(path);
    if (cell && old != cells_.end() && old->second.style) {
      cell->style = old->second.style;
    }
    cells_.erase(path);
    if (cell) {
      cells_[path] = *cell;
    }
  }

  /// Gives the cell a style, or takes it away.
  void SetStyle(Index const& index, std::optional<int> style) {
    cells_.at(Index(index.rbegin(), index.rend())).style = style;
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
    std::map<Index, Styled> cells;
    for (auto const& [path, cell] : cells_) {
      cells[Below(path)] = cell;
    }
    nodes_ = nodes;
    cells_ = cells;
    ++dimensions_;
  }

  std::string At(Index const& index) const {
    auto const found = cells_.find(Index(index.rbegin(), index.rend()));
    return found != cells_.end() ? found->second.Text() : "(none)";
  }

  Walked Walk() const {
    Walked walked;
    if (StartsInAClearedBranch()) {
      return walked;
    }
    for (auto const& [path, cell] : cells_) {
      walked.emplace_back(Index(path.rbegin(), path.rend()), cell.Text());
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
  std::map<Index, Styled> cells_;
};

/// A table and what it should hold, which are changed alike.
class Pair {
 public:
  explicit Pair(int dimensions)
      : table_(std::make_unique<TestTable>(dimensions)),
        cells_(static_cast<std::size_t>(dimensions)) {
    for (int number = 0; number < dimensions; ++number) {
      dimensions_.push_back({std::to_string(number), 0, static_cast<unsigned long>(number)});
    }
  }

  void Step(int step) {
    Index const index = DrawIndex();
    int const action = *rc::gen::inRange(0, 28);
    if (action < 10) {
      Write(index, Styled{std::to_string(step), DrawStyle()});
    } else if (action < 14) {
      Write(index, std::nullopt);
    } else if (action < 19) {
      table_->deleteCell(index);
      cells_.Delete(index);
    } else if (action == 19) {
      AddDimension();
    } else if (action < 23) {
      SetStyle(index);
    } else if (action < 25) {
      AddCategory();
    } else if (action < 27) {
      SetBackend();
    } else {
      CopyDimensions();
    }
    CheckCells(index, step);
    CheckDimensions();
  }

 private:
  struct Dimension {
    std::string label;
    int size;
    unsigned long subscript;
  };

  int Count() const { return table_->NDimensions(); }

  Index DrawIndex() const {
    return *rc::gen::container<Index>(
        static_cast<std::size_t>(Count()),
        rc::gen::weightedOneOf<int>({{9, rc::gen::inRange(0, 4)},
                                     {1, rc::gen::inRange(0, 30)},
                                     {1, rc::gen::element(63, 64, 5000, 1 << 20, INT_MAX)}}));
  }

  static std::optional<int> DrawStyle() {
    int const style = *rc::gen::inRange(0, 10);
    return style < 2 ? std::optional(style) : std::nullopt;
  }

  static void SetStyle(OmCellText& cell, std::optional<int> style) {
    OmCellMetaData meta;
    meta.setStyle(static_cast<unsigned short>(style.value_or(0)));
    cell.setMeta(style ? &meta : nullptr);
  }

  void Write(Index const& index, std::optional<Styled> const& styled) {
    OmStringCell cell(styled ? styled->text : "");
    if (styled) {
      SetStyle(cell, styled->style);
    }
    bool const room = written_ <= limit_;
    ++written_;
    RC_ASSERT(table_->Cell(index, styled ? &cell : nullptr) == room);
    if (room) {
      cells_.Write(index, styled);
    } else {
      scratched_ = true;
    }
  }

  /// Changes the metadata of the cell itself.
  void SetStyle(Index const& index) {
    if (OmCellText* const cell = std::as_const(*table_).Cell(index)) {
      std::optional<int> const style = DrawStyle();
      SetStyle(*cell, style);
      cells_.SetStyle(index, style);
    }
  }

  /// With a label, or with categories.
  void AddDimension() {
    if (Count() >= 7) {
      return;
    }
    std::string const label = *rc::gen::element<std::string>("more", "1");
    auto const number = static_cast<unsigned long>(Count());
    bool const copied = *rc::gen::arbitrary<bool>();
    OmDimension const& added =
        copied ? table_->AddDimension(*Nested(label)) : table_->AddDimension(Text(label));
    RC_ASSERT(&added == &std::as_const(*table_).Dimension(static_cast<int>(number)));
    dimensions_.push_back({label, copied ? 3 : 0, number});
    cells_.AddDimension();
  }

  void AddCategory() {
    int const which = *rc::gen::inRange(0, Count());
    OmDimension& dimension = table_->Dimension(which);
    dimension.AddNewChild(dimension.Root(), Text("new"), 0, false);
    ++dimensions_[static_cast<std::size_t>(which)].size;
  }

  /// The settings do not show, but for the limit, which later ones raise or lower.
  void SetBackend() {
    BackendSettings settings = Settings(*rc::gen::arbitrary<bool>(), *rc::gen::arbitrary<bool>());
    if (*rc::gen::inRange(0, 4) == 0) {
      settings.setMaxCells(*rc::gen::inRange(0, 100));
    }
    limit_ = settings.getMaxCells();
    table_->setBackendSettings(settings);
  }

  /// Goes on with an empty table of the same dimensions.
  void CopyDimensions() {
    RC_ASSERT_THROWS_AS(table_->CopyDimensions(*table_), OMSException);
    auto copy = std::make_unique<TestTable>();
    if (*rc::gen::arbitrary<bool>()) {
      copy->setBackendSettings(table_->getBackendSettings());
    } else {
      limit_ = INT_MAX;
    }
    copy->CopyDimensions(*table_);
    table_ = std::move(copy);
    cells_ = Model(dimensions_.size());
    written_ = 0;
    scratched_ = false;
  }

  void CheckCells(Index index, int step) {
    index.resize(static_cast<std::size_t>(Count()));
    RC_ASSERT(StyledTextOf(table_->Cell(index)) == cells_.At(index));
    Walked walked;
    for (auto at = table_->FirstCell(); at.Cell() != nullptr; ++at) {
      walked.emplace_back(at.Index(), StyledTextOf(at.Cell()));
    }
    RC_ASSERT(walked == cells_.Walk());
    index[static_cast<std::size_t>(step) % index.size()] = *rc::gen::element(-1, -2, INT_MIN);
    table_->deleteCell(index);
    RC_ASSERT_THROWS_AS(table_->At(index), OMSException);
    if (written_ <= limit_) {
      RC_ASSERT_THROWS_AS(table_->Put(index, "nowhere"), OMSException);
    } else {
      RC_ASSERT(!table_->Put(index, "nowhere"));
      scratched_ = true;
    }
    ++written_;
    RC_ASSERT(table_->getNumCells() == written_);
    RC_ASSERT(table_->IsScratched() == scratched_);
  }

  void CheckDimensions() const {
    std::vector<int> sizes;
    for (std::size_t i = 0; i < dimensions_.size(); ++i) {
      auto const& [label, size, subscript] = dimensions_[i];
      OmDimension const& dimension = std::as_const(*table_).Dimension(static_cast<int>(i));
      RC_ASSERT(LabelOf(dimension.Root()) == label);
      RC_ASSERT(dimension.Root().Value().subscript == subscript);
      RC_ASSERT(table_->Size(static_cast<int>(i)) == size);
      sizes.push_back(size);
    }
    RC_ASSERT(table_->SizeVector() == sizes);
    RC_ASSERT_THROWS_AS(table_->Size(static_cast<int>(sizes.size())), OMSException);
    RC_ASSERT_THROWS_AS(table_->Dimension(-1), OMSException);
    for (char const* const label : {"0", "1", "more", "none"}) {
      auto const found = std::find_if(dimensions_.begin(), dimensions_.end(),
                                      [&](Dimension const& one) { return one.label == label; });
      RC_ASSERT(table_->FindDimension(Text(label)) ==
                (found != dimensions_.end() ? found - dimensions_.begin() : -1));
    }
    RC_ASSERT(table_->FindDimension(OmNumber(0, 0)) == -1);
  }

  std::unique_ptr<TestTable> table_;
  Model cells_;
  std::vector<Dimension> dimensions_;
  int written_ = 0;
  int limit_ = INT_MAX;
  bool scratched_ = false;
};

RANDOM_PROGRAM(OmPivotTableProperty, BehavesAsAMapUnderRandomChanges) {
  Pair pair(*rc::gen::inRange(1, 5));
  int const steps = DrawStepCount();
  for (int step = 0; step < steps; ++step) {
    pair.Step(step);
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
