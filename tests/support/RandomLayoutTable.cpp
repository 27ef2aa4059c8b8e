#include "support/RandomLayoutTable.h"

#include <algorithm>
#include <numeric>
#include <random>
#include <rapidcheck.h>

namespace layout_tables {

namespace {

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

/// The way from the root to a node below it, if there is any.
std::vector<Node> AnyPath(OmDimension& dimension) {
  std::vector<Node> path{dimension.Root()};
  while (path.back().NChildren() != 0 && (path.size() == 1 || !OneIn(2))) {
    path.push_back(path.back().Child(
        static_cast<std::size_t>(Draw(static_cast<int>(path.back().NChildren())))));
  }
  return path;
}

/// A node below the root, if there is any.
Node AnyNode(OmDimension& dimension) {
  return AnyPath(dimension).back();
}

void DeleteSome(OmDimension& dimension) {
  for (int deletes = Draw(3); deletes > 0; --deletes) {
    Node node = AnyNode(dimension);
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

/// The product of the extents of all axis entries: what trying every combination costs. An empty
/// dimension counts as one, for it empties its own axis alone.
double Places(Table const& table) {
  double product = 1;
  for (PuppetVector<short> const* axis : {&table.Rows(), &table.Columns(), &table.Layers()}) {
    for (short d : *axis) {
      product *= d >= 0 && d < table.NDimensions() ? std::max(table.Size(d), 1) : 1;
    }
  }
  return product;
}

PuppetVector<short>& AnyAxis(Table& table) {
  int const which = Draw(3);
  return which == 0 ? table.Rows() : which == 1 ? table.Columns() : table.Layers();
}

void PutAnywhere(Table& table, short entry) {
  PuppetVector<short>& axis = AnyAxis(table);
  axis.elements.insert(axis.begin() + Draw(static_cast<int>(axis.size()) + 1), entry);
}

short AnyEntry(Table const& table) {
  return *rc::gen::element<short>(-1, 99, -32768, static_cast<short>(table.NDimensions()), 0, 1, 2);
}

void ShortenAxes(Table& table, double mostPlaces) {
  PuppetVector<short>* const axes[] = {&table.Rows(), &table.Columns(), &table.Layers()};
  while (Places(table) > mostPlaces) {
    auto const longest = std::max_element(
        std::begin(axes), std::end(axes),
        [](auto const* left, auto const* right) { return left->size() < right->size(); });
    (*longest)->elements.pop_back();
  }
}

void PlaceAnywhere(Table& table, double mostPlaces) {
  for (int d = 0; d < table.NDimensions(); ++d) {
    if (!OneIn(10)) {
      PutAnywhere(table, static_cast<short>(d));
    }
  }
  while (OneIn(5)) {
    PutAnywhere(table, AnyEntry(table));
  }
  ShortenAxes(table, mostPlaces);
}

void StoreCells(Table& table, double mostPlaces) {
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
  for (double i = 0; i < few + std::min(combinations, mostPlaces / 2) * share / 100; ++i) {
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

OmDimension& AnyDimension(Table& table) {
  return table.Dimension(Draw(table.NDimensions()));
}

void ChangeCell(Table& table) {
  std::vector<int> index = table.SizeVector();
  for (int& subscript : index) {
    subscript = OneIn(50) ? 0x7FFFFFFF : Draw(std::clamp(subscript, 0, 20) + 1);
  }
  switch (Draw(4)) {
    case 0:
      RC_LOG() << "delete" << Describe(index) << "\n";
      return table.deleteCell(index);
    case 1:
      RC_LOG() << "clear" << Describe(index) << "\n";
      return table.Clear(index);
    default:
      RC_LOG() << "put" << Describe(index) << "\n";
      return table.Put(index);
  }
}

void ChangeFlags(Table& table) {
  OmDimensionNode& node = AnyNode(AnyDimension(table)).Value();
  SetFlags(node);
  RC_LOG() << "flags of " << node.label->GetText() << "\n";
}

void AddCategory(Table& table) {
  OmDimension& dimension = AnyDimension(table);
  Node const node = OneIn(2) ? dimension.Root() : AnyNode(dimension);
  std::string const label = node.Value().label->GetText();
  RC_LOG() << "child of " << label << "\n";
  if (OneIn(3)) {
    SetFlags(Group(dimension, node, label + "+").Value());
  } else {
    auto const subscript = static_cast<unsigned long>(Draw(8));
    SetFlags(Category(dimension, node, label + "+", subscript).Value());
  }
}

void DeleteNode(Table& table) {
  OmDimension& dimension = AnyDimension(table);
  Node node = AnyNode(dimension);
  if (node.depth != 0) {
    RC_LOG() << "delete " << node.Value().label->GetText() << "\n";
    dimension.Delete(node);
  }
}

/// Wraps a node, and some of the siblings after it.
void InsertChild(OmDimension& dimension, Node const& parent, Node const& node) {
  std::vector<Node> nodes;
  for (std::size_t i = 0; i < parent.NChildren(); ++i) {
    if (parent[i].element == node.element || (!nodes.empty() && OneIn(2))) {
      nodes.push_back(parent[i]);
    }
  }
  std::vector<Node*> wrapped;
  for (Node& one : nodes) {
    wrapped.push_back(&one);
  }
  dimension.insertChild(OmStringCell("wrap"), wrapped);
}

void MoveChild(OmDimension& dimension, Node& node) {
  Node before = AnyNode(dimension);
  bool const exchange = OneIn(2);
  RC_LOG() << (exchange ? "  exchanged with " : "  before ") << before.Value().label->GetText()
           << "\n";
  dimension.moveChild(node, OneIn(4) ? nullptr : &before, exchange);
}

/// Makes one of the edits that keep subscripts and groups consistent. Categories are not dissolved:
/// that leaves them a subscript for which the model has no room.
void EditCategories(Table& table) {
  OmDimension& dimension = AnyDimension(table);
  std::vector<Node> const path = AnyPath(dimension);
  Node node = path.back();
  Node const parent = path.size() > 1 ? path[path.size() - 2] : node;
  int const edit = Draw(4);
  RC_LOG() << "edit " << edit << " of " << node.Value().label->GetText() << "\n";
  if (edit == 0) {
    dimension.insertCategory(OmStringCell("inserted"), node, OneIn(3) ? AnyNode(dimension) : parent,
                             OneIn(2));
  } else if (edit == 1) {
    InsertChild(dimension, parent, node);
  } else if (edit == 2 && node.Value().group) {
    dimension.removeChild(node);
  } else {
    MoveChild(dimension, node);
  }
  LogTable(table);
}

void AddDimension(Table& table) {
  if (table.NDimensions() < 4) {
    AddRandomDimension(table, std::string(1, static_cast<char>('A' + table.NDimensions())));
    LogTable(table);
  }
}

void ChangeAxis(Table& table) {
  PuppetVector<short>& axis = AnyAxis(table);
  if (!axis.empty() && OneIn(2)) {
    axis.elements.erase(axis.begin() + Draw(static_cast<int>(axis.size())));
  } else {
    PutAnywhere(table, OneIn(4) ? AnyEntry(table) : static_cast<short>(Draw(table.NDimensions())));
  }
  LogTable(table);
}

}  // namespace

void MakeRandomTable(Table& table, double mostPlaces) {
  int const dimensions = *rc::gen::element(0, 1, 2, 2, 2, 3, 3, 3, 3, 4, 4, 4);
  for (int d = 0; d < dimensions; ++d) {
    AddRandomDimension(table, std::string(1, static_cast<char>('A' + d)));
  }
  PlaceAnywhere(table, mostPlaces);
  if (dimensions != 0) {
    StoreCells(table, mostPlaces);
  }
  LogTable(table);
}

void ChangeTable(Table& table, double mostPlaces) {
  switch (table.NDimensions() == 0 ? -1 : Draw(10)) {
    case 0:
      return ChangeFlags(table);
    case 1:
      AddCategory(table);
      break;
    case 2:
      DeleteNode(table);
      break;
    case 3:
      ChangeAxis(table);
      break;
    case 4:
    case 5:
    case 6:
      return ChangeCell(table);
    case 7:
    case 8:
      EditCategories(table);
      break;
    default:
      AddDimension(table);
  }
  ShortenAxes(table, mostPlaces);
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
