#include "chart/TableChart.h"

#include <limits>
#include <vector>

#include <cells/OmCellMetaData.h>
#include <cells/OmNumber.h>
#include <lakresvos/OmVectorTreeWalk.h>

namespace lakresvos::report {

namespace {

struct Category {
  std::string path;
  int subscript;
};

bool IsTotal(OmCellText const& label) {
  return label.hasMeta() && label.getMeta()->isTotal();
}

std::vector<Category> FindCategories(OmDimension const& dimension) {
  std::vector<Category> categories;
  OmVectorTreeWalk<OmDimension::ConstNode> walk(dimension.Root());
  while (walk.Next()) {
    OmDimensionNode const& node = walk.Current().Value();
    if (node.group || IsTotal(*node.label)) {
      continue;
    }
    std::string path;
    for (std::size_t level = 1; level < walk.Path().size(); ++level) {
      path += (level > 1 ? " / " : "") + walk.Path()[level].Value().label->GetText();
    }
    categories.push_back({path, static_cast<int>(node.subscript)});
  }
  return categories;
}

class NumberVisitor : public OmCellText::Visitor {
 public:
  using OmCellText::Visitor::Visit;

  void Visit(OmNumber& cell) override { number = cell.Value(); }

  double number = std::numeric_limits<double>::quiet_NaN();
};

/// The number in a cell; NaN where there is none.
double FindNumber(OmPivotTable const& table, std::vector<int> const& index) {
  NumberVisitor visitor;
  if (OmCellText* const cell = table.Cell(index)) {
    cell->Accept(visitor);
  }
  return visitor.number;
}

}  // namespace

bool CanChart(tabulate::Formula const& formula) {
  std::size_t const dimensions = formula.rows.size() + formula.columns.size();
  return formula.layers.empty() && (dimensions == 1 || dimensions == 2);
}

render::ChartData MakeChartData(OmPivotTable const& table, std::size_t dimensions,
                                std::string const& valueTitle) {
  std::vector<Category> const categories = FindCategories(table.Dimension(0));
  bool const twoWay = dimensions == 2;
  std::vector<Category> const series =
      twoWay ? FindCategories(table.Dimension(1)) : std::vector<Category>{{"", 0}};
  render::ChartData data;
  data.categoryTitle = table.Dimension(0).Root().Value().label->GetText();
  data.seriesTitle = twoWay ? table.Dimension(1).Root().Value().label->GetText() : "";
  data.valueTitle = valueTitle;
  for (Category const& category : categories) {
    data.categories.push_back(category.path);
  }
  std::vector<int> index(static_cast<std::size_t>(table.NDimensions()), 0);
  for (Category const& one : series) {
    data.series.push_back({one.path, {}});
    for (Category const& category : categories) {
      index[0] = category.subscript;
      if (twoWay) {
        index[1] = one.subscript;
      }
      data.series.back().values.push_back(FindNumber(table, index));
    }
  }
  return data;
}

}  // namespace lakresvos::report
