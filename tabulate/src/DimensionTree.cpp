#include "DimensionTree.h"

#include <algorithm>
#include <string>
#include <vector>

#include <cells/OmCellMetaData.h>
#include <cells/OmComposite.h>
#include <cells/OmDataValue.h>
#include <cells/OmLabelledCell.h>
#include <cells/OmStringCell.h>
#include <cells/OmVariable.h>
#include <lakresvos/tabulate/Number.h>

namespace lakresvos::tabulate {

namespace {

constexpr unsigned long kNoSubscript = static_cast<unsigned long>(-1);

/// The label of one category of a data column.
std::unique_ptr<OmCellText> CategoryLabel(DataColumn const& column, CategoryOrder const& order,
                                          std::uint32_t category) {
  std::string text(column.values[order.codeOf[category]]);
  if (order.numeric) {
    double const number = ParseNumber(text);
    text.erase(0, number == 0 && text.starts_with('-') ? 1 : 0);
    return std::make_unique<OmNumDataValue>(number, text);
  }
  return std::make_unique<OmStringDataValue>(text, "");
}

}  // namespace

std::unique_ptr<OmCellText> LabelOf(TableDimension const& dimension, DataSet const& data) {
  if (dimension.columns.size() == 1) {
    return std::make_unique<OmVariable>(data.columns[dimension.columns[0]].name, "");
  }
  std::string pattern;
  for (std::size_t level = 0; level < dimension.columns.size(); ++level) {
    pattern += (level == 0 ? "{" : " / {") + std::to_string(level) + "}";
  }
  auto label = std::make_unique<OmComposite>(pattern);
  for (std::size_t const column : dimension.columns) {
    label->AddPart(OmVariable(data.columns[column].name, ""));
  }
  return label;
}

void FillDimension(OmDimension& target, TableDimension const& source, DataSet const& data,
                   bool withTotal) {
  std::size_t const depth = source.columns.size();
  // Only the newest group of each level gets children, so that no handle here goes stale.
  std::vector<OmDimension::Node> parents(depth);
  parents[0] = target.Root();
  std::vector<std::uint32_t> above;
  for (std::uint32_t subscript = 0; subscript < source.categories.size(); ++subscript) {
    TupleIndex::Tuple const path = source.categories[subscript];
    auto const same = std::mismatch(above.begin(), above.end(), path.begin()).first;
    auto const shared = static_cast<std::size_t>(same - above.begin());
    for (std::size_t level = shared; level < depth; ++level) {
      bool const group = level + 1 < depth;
      auto const label =
          CategoryLabel(data.columns[source.columns[level]], source.orders[level], path[level]);
      OmDimension::Node const node =
          target.AddNewChild(parents[level], *label, group ? kNoSubscript : subscript, group);
      if (group) {
        parents[level + 1] = node;
      }
    }
    above.assign(path.begin(), path.end());
  }
  if (withTotal) {
    OmStringCell label("Total", true);
    OmCellMetaData meta;
    meta.setTotal(true);
    label.setMeta(&meta);
    target.AddNewChild(target.Root(), label, source.Total(), false);
  }
}

bool IsOfData(OmDimensionNode const& node) {
  return dynamic_cast<OmLabelledCell const*>(node.label) != nullptr;
}

}  // namespace lakresvos::tabulate
