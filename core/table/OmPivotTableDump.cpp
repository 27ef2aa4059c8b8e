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

/// One line of the dump of the cell store.
void PrintEntry(void const* entry, unsigned long depth, unsigned long index, bool isCell) {
  for (unsigned long group = 0; group < depth; ++group) {
    std::cout << "    [" << index << "] ";
  }
  std::cout << entry;
  if (isCell && entry != nullptr) {
    std::cout << " - " << static_cast<OmCellText const*>(entry)->GetText();
  }
  std::cout << std::endl;
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
  // The nodes from the first one down, each with the entry that comes next.
  struct Step {
    PointerVector const* node;
    unsigned long next;
  };
  std::vector<Step> path;
  std::size_t const bottom = _my->_dimensions.size();
  PrintEntry(node, depth, index, depth >= bottom);
  if (node != nullptr && depth < bottom) {
    path.push_back({node, 0});
  }
  while (!path.empty()) {
    Step& step = path.back();
    if (step.next == step.node->size()) {
      path.pop_back();
      continue;
    }
    unsigned long const position = step.next++;
    void* const entry = step.node->Entry(position);
    unsigned long const below = depth + path.size();
    if (below >= bottom) {
      PrintEntry(entry, below, position, true);
      continue;
    }
    PointerVector const* const child = PointerVector::FromEntry(entry);
    PrintEntry(child, below, position, false);
    if (child != nullptr) {
      path.push_back({child, 0});
    }
  }
}
