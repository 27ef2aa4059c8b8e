#include <iostream>
#include <vector>

#include <lakresvos/OmPivotTable.h>
#include <lakresvos/OmVectorTreeWalk.h>

#include "table/OmPivotTableData.h"

namespace {

/// The text of a cell, nothing for none.
std::string GetText(OmCellText const* cell) {
  return cell != nullptr ? cell->GetText() : "";
}

char const* FormatFlag(bool flag) {
  return flag ? "yes" : "no";
}

void DumpNode(OmDimension::ConstNode const& handle) {
  OmDimensionNode const& node = handle.Value();
  for (unsigned int level = 0; level < handle.depth; ++level) {
    std::cout << "  ";
  }
  std::cout << "Subscript: " << static_cast<long>(node.subscript)
            << ", Group: " << FormatFlag(node.group) << ", hide: " << FormatFlag(node.hide)
            << ", hideLabels: " << FormatFlag(node.hideLabels);
  if (node.sort == 0 || node.sort == 1) {
    std::cout << (node.sort == 0 ? ", Sort: up" : ", Sort: down");
  }
  char const* separator = ", Children: ";
  for (unsigned int const child : node.childIndex.Elements()) {
    std::cout << separator << child;
    separator = ", ";
  }
  if (node.label != nullptr) {
    std::cout << ", Text: ";
    node.label->Dump(0);
  }
  std::cout << std::endl;
}

void DumpTree(OmDimension const& dimension) {
  OmVectorTreeWalk<OmDimension::ConstNode> walk(dimension.Root());
  while (walk.Next()) {
    DumpNode(walk.Current());
  }
}

}  // namespace

void OmPivotTable::Print() const {
  std::cout << "Starting table " << GetText(GetTableTitle()) << std::endl;
  for (OmDimension const* dimension : _my->_dimensions.Elements()) {
    DumpTree(*dimension);
  }
  std::cout << "Cells" << std::endl;
  for (auto at = FirstCell(); at.Cell() != nullptr; ++at) {
    std::cout << GetText(at.Cell()) << std::endl;
  }
  if (CornerText() != nullptr) {
    std::cout << "  Corner Text: " << GetText(CornerText()) << std::endl;
  }
  if (Caption() != nullptr) {
    std::cout << "  Caption: " << GetText(Caption()) << std::endl;
  }
  if (Footnotes().size() != 0) {
    std::cout << "  Footnotes" << std::endl;
    for (OmFootnote const& footnote : Footnotes().Elements()) {
      std::cout << "      " << GetText(footnote.text) << std::endl;
    }
  }
  std::cout << "Done with table " << GetText(GetTableTitle()) << std::endl;
}

void OmPivotTable::PrintCells(PointerVector* node, unsigned long depth, unsigned long index) const {
  struct Entry {
    void* pointer;
    unsigned long depth;
    unsigned long index;
  };
  std::vector<Entry> pending{{node, depth, index}};
  while (!pending.empty()) {
    Entry const entry = pending.back();
    pending.pop_back();
    for (unsigned long group = 0; group < entry.depth; ++group) {
      std::cout << "    [" << entry.index << "] ";
    }
    std::cout << entry.pointer;
    bool const isCell = entry.depth >= _my->_dimensions.size();
    if (isCell && entry.pointer != nullptr) {
      std::cout << " - " << static_cast<OmCellText const*>(entry.pointer)->GetText();
    }
    std::cout << std::endl;
    if (!isCell && entry.pointer != nullptr) {
      auto const& entries = *static_cast<PointerVector const*>(entry.pointer);
      for (unsigned long i = entries.size(); i != 0; --i) {
        pending.push_back({entries[i - 1], entry.depth + 1, i - 1});
      }
    }
  }
}
