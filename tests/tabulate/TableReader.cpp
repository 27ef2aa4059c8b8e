#include "tabulate/TableReader.h"

#include <algorithm>
#include <iomanip>
#include <sstream>

#include <cells/OmCellMetaData.h>
#include <cells/OmNumber.h>

namespace {

void CollectPaths(OmDimension::ConstNode node, std::string const& above,
                  std::vector<std::string>& paths) {
  for (std::size_t i = 0; i < node.NChildren(); ++i) {
    OmDimension::ConstNode const child = node.Child(i);
    std::string const path = above + child.Value().label->GetText();
    if (child.Value().group) {
      CollectPaths(child, path + " / ", paths);
    } else {
      paths.resize(std::max<std::size_t>(paths.size(), child.Value().subscript + 1));
      paths[child.Value().subscript] = path;
    }
  }
}

}  // namespace

std::vector<std::string> CategoryPaths(OmDimension const& dimension) {
  std::vector<std::string> paths;
  CollectPaths(dimension.Root(), "", paths);
  return paths;
}

OmCellText* CellAt(OmPivotTable const& table, std::vector<std::string> const& paths) {
  std::vector<int> index;
  for (int d = 0; d < table.NDimensions(); ++d) {
    std::vector<std::string> const known = CategoryPaths(table.Dimension(d));
    auto const found = std::find(known.begin(), known.end(), paths[static_cast<std::size_t>(d)]);
    if (found == known.end()) {
      return nullptr;
    }
    index.push_back(static_cast<int>(found - known.begin()));
  }
  return table.Cell(index);
}

std::string TextAt(OmPivotTable const& table, std::vector<std::string> const& paths) {
  OmCellText const* cell = CellAt(table, paths);
  return cell != nullptr ? cell->GetText() : "(none)";
}

std::string NotesAt(OmPivotTable const& table, OmCellText const* cell) {
  std::string notes;
  if (cell != nullptr && cell->getMeta() != nullptr) {
    for (unsigned int const number : cell->getMeta()->getFootnotes()) {
      notes += (notes.empty() ? "" : "; ") + table.Footnotes()[number].text->GetText();
    }
  }
  return notes;
}

std::string DescribeTable(OmPivotTable const& table) {
  std::ostringstream text;
  text << std::setprecision(17) << table.GetTableTitle()->GetText() << " ["
       << NotesAt(table, table.GetTableTitle()) << "]\n";
  for (int d = 0; d < table.NDimensions(); ++d) {
    for (std::string const& path : CategoryPaths(table.Dimension(d))) {
      text << d << ": " << path << '\n';
    }
  }
  for (auto at = table.FirstCell(); at.Cell() != nullptr; ++at) {
    for (int const subscript : at.Index()) {
      text << subscript << ' ';
    }
    auto const& number = dynamic_cast<OmNumber const&>(*at.Cell());
    text << number.GetText() << ' ' << number.Value() << " [" << NotesAt(table, at.Cell()) << "]\n";
  }
  return text.str();
}

std::size_t CellCount(OmPivotTable const& table) {
  std::size_t count = 0;
  for (auto at = table.FirstCell(); at.Cell() != nullptr; ++at) {
    ++count;
  }
  return count;
}
