#ifndef TESTS_RENDER_SUPPORT_RENDERTABLES_H
#define TESTS_RENDER_SUPPORT_RENDERTABLES_H

#include <initializer_list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <cells/OmCellMetaData.h>
#include <cells/OmNumber.h>
#include <cells/OmStringCell.h>
#include <lakresvos/OmOutputTree.h>

#include "support/LayoutTables.h"

/// Short ways to build the tables that the renderer tests show.
namespace render_tables {

using layout_tables::Category;
using layout_tables::Group;
using layout_tables::Table;

inline OmStringCellUTF8 Utf8(std::string const& text) {
  return OmStringCellUTF8(text);
}

/// Adds a dimension with these categories below its root.
inline OmDimension& AddCategories(Table& table, std::string const& label,
                                  std::initializer_list<char const*> categories) {
  OmDimension& dimension = table.Add(label);
  unsigned long subscript = 0;
  for (char const* category : categories) {
    Category(dimension, dimension.Root(), category, subscript++);
  }
  return dimension;
}

/// Makes `cell` refer to footnotes and returns it.
template <class Kind>
Kind& WithFootnotes(Kind& cell, std::initializer_list<unsigned int> numbers) {
  OmCellMetaData meta;
  for (unsigned int const number : numbers) {
    meta.addFootnote(number);
  }
  cell.setMeta(&meta);
  return cell;
}

/// Adds a footnote and returns its number.
inline unsigned int AddFootnote(OmPivotTable& table, std::string const& text,
                                std::string const& marker = {}) {
  OmFootnote footnote;
  footnote.text = new OmStringCellUTF8(text);
  if (!marker.empty()) {
    footnote.marker = new OmStringCellUTF8(marker);
  }
  return static_cast<unsigned int>(table.Footnote(footnote, true));
}

/// Makes an item below `parent`, which belongs to the document.
template <class Part, class... Arguments>
Part& AppendItem(OmOutputTree::Node const& parent, Arguments&&... arguments) {
  auto part = std::make_unique<Part>(std::forward<Arguments>(arguments)...);
  return static_cast<Part&>(*parent.AppendChild(part.release()).Value());
}

/// A document of one table, which it does not own, and nothing else.
class TableDocument {
 public:
  explicit TableDocument(OmPivotTable& table) {
    OmOutputTree::Node root = tree_.begin();
    tree_.Erase(root);
    tree_.Append(&table);
  }
  TableDocument(TableDocument const&) = delete;
  TableDocument& operator=(TableDocument const&) = delete;
  ~TableDocument() { tree_.Unlink(tree_.begin()); }

  OmOutputTree const& Tree() const { return tree_; }

 private:
  OmOutputTree tree_;
};

/// The subscripts of all stored cells.
inline std::vector<std::vector<int>> StoredCells(OmPivotTable const& table) {
  std::vector<std::vector<int>> indexes;
  for (auto at = table.FirstCell(); at.Cell() != nullptr; ++at) {
    indexes.push_back(at.Index());
  }
  return indexes;
}

}  // namespace render_tables

#endif
