#include "support/RandomLayoutTable.h"

#include <algorithm>
#include <numeric>
#include <random>
#include <rapidcheck.h>

namespace layout_tables {

namespace {

constexpr double kMaxPlaces = 8000;

/// Evenly distributed however small the case is meant to be; a table of one kind of node tests
/// little.
int Draw(int below) {
  return *rc::gen::resize(rc::kNominalSize, rc::gen::inRange(0, below));
}

bool OneIn(int chances) {
  return Draw(chances) == chances - 1;
}

/// Gives the categories of one dimension their subscripts.
class Subscripts {
 public:
  unsigned long Next() {
    switch (Draw(24)) {
      case 20:
      case 22:
        return static_cast<unsigned long>(Draw(static_cast<int>(next_) + 1));
      case 23:
        return FarOut();
      case 21:
        next_ += 3;
        [[fallthrough]];
      default:
        return next_++;
    }
  }

 private:
  static unsigned long FarOut() { return *rc::gen::element(~0UL, 17UL); }

  unsigned long next_ = 0;
};

void SetFlags(OmDimensionNode& node) {
  node.hide = OneIn(5);
  node.hideLabels = OneIn(7);
}

void AddChildren(OmDimension& dimension, Node const& parent, int count, int levels,
                 Subscripts& subscripts) {
  for (int i = 0; i < count; ++i) {
    bool const group = levels > 1 && OneIn(3);
    std::string const label = parent.Value().label->GetText() + "." + std::to_string(i);
    Node const child = group ? Group(dimension, parent, label)
                             : Category(dimension, parent, label, subscripts.Next());
    SetFlags(child.Value());
    if (group || OneIn(12)) {
      AddChildren(dimension, child, Draw(4), levels - 1, subscripts);
    }
  }
}

void DeleteSome(OmDimension& dimension) {
  for (int deletes = Draw(3); deletes > 0; --deletes) {
    Node node = dimension.Root();
    while (node.NChildren() != 0 && (node.depth == 0 || !OneIn(2))) {
      node = node.Child(static_cast<std::size_t>(Draw(static_cast<int>(node.NChildren()))));
    }
    dimension.Delete(node);
  }
}

void AddRandomDimension(Table& table, std::string const& label) {
  bool const rootIsCategory = OneIn(16);
  OmDimension made(
      OmDimensionNode(OmStringCell(label), rootIsCategory ? 0 : ~0UL, !rootIsCategory, nullptr),
      nullptr);
  OmDimension& dimension = table.AddDimension(made);
  SetFlags(dimension.Root().Value());
  Subscripts subscripts;
  int const count = OneIn(14) ? 0 : OneIn(4) ? 12 + Draw(12) : 1 + Draw(5);
  AddChildren(dimension, dimension.Root(), count, 4, subscripts);
  if (OneIn(3)) {
    DeleteSome(dimension);
  }
}

/// The product of the extents of all axis entries: what trying every combination costs.
double Places(Table const& table) {
  double product = 1;
  for (PuppetVector<short> const* axis : {&table.Rows(), &table.Columns(), &table.Layers()}) {
    for (short d : *axis) {
      product *= d >= 0 && d < table.NDimensions() ? table.Size(d) : 1;
    }
  }
  return product;
}

void PlaceAnywhere(Table& table) {
  PuppetVector<short>* const axes[] = {&table.Rows(), &table.Columns(), &table.Layers()};
  auto const put = [&](short entry) {
    PuppetVector<short>& axis = *axes[Draw(3)];
    axis.elements.insert(axis.begin() + Draw(static_cast<int>(axis.size()) + 1), entry);
  };
  for (int d = 0; d < table.NDimensions(); ++d) {
    if (!OneIn(10)) {
      put(static_cast<short>(d));
    }
  }
  while (OneIn(5)) {
    put(*rc::gen::element<short>(-1, 99, -32768, static_cast<short>(table.NDimensions()), 0, 1, 2));
  }
  while (Places(table) > kMaxPlaces) {
    auto const longest = std::max_element(
        std::begin(axes), std::end(axes),
        [](auto const* left, auto const* right) { return left->size() < right->size(); });
    (*longest)->elements.pop_back();
  }
}

void StoreCells(Table& table) {
  std::mt19937 random(static_cast<unsigned int>(Draw(1 << 30)));
  std::vector<int> const sizes = table.SizeVector();
  auto const anywhere = [&] {
    std::vector<int> index;
    for (int size : sizes) {
      bool const far = random() % 64 == 0;
      index.push_back(static_cast<int>(far ? random() & 0x7FFFFFFFU
                                           : random() % static_cast<unsigned int>(size + 2)));
    }
    return index;
  };
  double const combinations = std::accumulate(sizes.begin(), sizes.end(), 1.0, std::multiplies<>());
  std::vector<std::vector<int>> stored;
  int const share = *rc::gen::element(0, 0, 0, 1, 5, 30, 100, 400);  // per cent of the combinations
  int const few = OneIn(4) ? 0 : Draw(10);
  for (double i = 0; i < few + std::min(combinations, 4000.0) * share / 100; ++i) {
    stored.push_back(anywhere());
    table.Put(stored.back());
  }
  for (int clears = OneIn(3) ? Draw(8) : 0; clears > 0 && !stored.empty(); --clears) {
    std::vector<int> const& index = stored[random() % stored.size()];
    if (OneIn(2)) {
      table.deleteCell(index);
    } else {
      table.Clear(index);
    }
  }
}

std::string Describe(OmDimension::ConstNode node) {
  OmDimensionNode const& value = node.Value();
  std::string text = value.group ? "(" : std::to_string(value.subscript);
  text += value.hide ? "h" : "";
  text += value.hideLabels ? "l" : "";
  for (std::size_t i = 0; i < node.NChildren(); ++i) {
    text += " " + Describe(node.Child(i));
  }
  return text + (value.group ? ")" : "");
}

template <class Numbers>
std::string Describe(Numbers const& numbers) {
  std::string text;
  for (auto number : numbers) {
    text += " " + std::to_string(number);
  }
  return "{" + text + " }";
}

void LogTable(Table const& table) {
  RC_LOG() << "table\n";
  for (int d = 0; d < table.NDimensions(); ++d) {
    OmDimension const& dimension = table.Dimension(d);
    RC_LOG() << "  " << Describe(dimension.Root()) << " of size " << dimension.CategoryCount()
             << "\n";
  }
  RC_LOG() << "  rows " << Describe(table.Rows()) << " columns " << Describe(table.Columns())
           << " layers " << Describe(table.Layers()) << "\n  cells";
  for (OmPivotTable::ConstIterator at = table.FirstCell(); at.Cell() != nullptr; ++at) {
    RC_LOG() << " " << Describe(at.Index());
  }
  RC_LOG() << "\n";
}

}  // namespace

void MakeRandomTable(Table& table) {
  int const dimensions = *rc::gen::element(0, 1, 2, 2, 2, 3, 3, 3, 3, 4, 4, 4);
  for (int d = 0; d < dimensions; ++d) {
    AddRandomDimension(table, std::string(1, static_cast<char>('A' + d)));
  }
  PlaceAnywhere(table);
  if (dimensions != 0) {
    StoreCells(table);
  }
  LogTable(table);
}

void AddLateDimensions(Table& table) {
  for (int count = *rc::gen::inRange(1, 3); count > 0; --count) {
    auto const d = static_cast<short>(table.NDimensions());
    table.AddFlat("late", static_cast<unsigned int>(*rc::gen::inRange(1, 4)));
    std::vector<short>& axis =
        (*rc::gen::arbitrary<bool>() ? table.Rows() : table.Columns()).elements;
    axis.insert(axis.begin() + *rc::gen::inRange<std::ptrdiff_t>(0, std::ssize(axis) + 1), d);
  }
  LogTable(table);
}

}  // namespace layout_tables
