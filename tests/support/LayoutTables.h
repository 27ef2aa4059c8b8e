#ifndef TESTS_SUPPORT_LAYOUTTABLES_H
#define TESTS_SUPPORT_LAYOUTTABLES_H

#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

#include <cells/OmNumber.h>
#include <cells/OmStringCell.h>
#include <lakresvos/OmPivotTable.h>

/// Short ways to build the tables that the layout tests lay out.
namespace layout_tables {

using Node = OmDimension::Node;

struct Table : OmPivotTable {
  Table() : OmPivotTable(OmStringCell("table"), OmStringCell("layout"), false) {}

  /// Test fixtures, which hold tables, promise not to throw.
  ~Table() noexcept override = default;

  /// Adds a dimension without categories.
  OmDimension& Add(std::string const& label) { return AddDimension(OmStringCell(label)); }

  /// Adds a dimension with `count` categories "<label>0", "<label>1", ... below its root.
  OmDimension& AddFlat(std::string const& label, unsigned int count) {
    OmDimension& dimension = Add(label);
    for (unsigned int i = 0; i < count; ++i) {
      dimension.AddNewChild(dimension.Root(), OmStringCell(label + std::to_string(i)), i, false);
    }
    return dimension;
  }

  /// Adds a flat dimension whose extent is `size`, more than it has categories.
  OmDimension& AddWide(std::string const& label, unsigned int size, unsigned int count) {
    OmDimension& dimension = AddFlat(label, count);
    dimension.AddNewChild(dimension.Root(), OmStringCell("last"), size - 1, false);
    Node passing = dimension.AddNewChild(dimension.Root(), OmStringCell("passing"), 0, false);
    dimension.Delete(passing);
    return dimension;
  }

  void Place(std::initializer_list<short> rows, std::initializer_list<short> columns,
             std::initializer_list<short> layers = {}) {
    Rows().elements = rows;
    Columns().elements = columns;
    Layers().elements = layers;
  }

  void Put(std::vector<int> const& index) { Cell(index, OmNumber(1)); }
  void Clear(std::vector<int> const& index) { Cell(index, nullptr); }

  /// Stores a cell for every combination of the dimensions' subscripts.
  void PutAll() {
    std::vector<int> const sizes = SizeVector();
    std::vector<int> index(sizes.size(), 0);
    for (std::size_t d = 0; d < sizes.size();) {
      Put(index);
      for (d = 0; d < sizes.size() && ++index[d] == sizes[d]; ++d) {
        index[d] = 0;
      }
    }
  }
};

inline Node Group(OmDimension& dimension, Node const& parent, std::string const& label) {
  return dimension.AddNewChild(parent, OmStringCell(label), ~0UL, true);
}

inline Node Category(OmDimension& dimension, Node const& parent, std::string const& label,
                     unsigned long subscript) {
  return dimension.AddNewChild(parent, OmStringCell(label), subscript, false);
}

/// The label of a node, "-" for none, to compare heading cells with.
template <class Handle>
std::string Text(Handle const* node) {
  return node == nullptr ? "-" : node->Value().label->GetText();
}

/// The labels of a list of heading cells.
template <class List>
std::vector<std::string> Texts(List const& nodes) {
  std::vector<std::string> texts;
  for (auto const* node : nodes) {
    texts.push_back(Text(node));
  }
  return texts;
}

}  // namespace layout_tables

#endif
