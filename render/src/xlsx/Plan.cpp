#include "xlsx/Plan.h"

#include <lakresvos/OmChart.h>

#include "content/CellText.h"
#include "grid/DocumentWalk.h"
#include "grid/IdleVisitor.h"
#include "xlsx/Sheet.h"

namespace lakresvos::render {

namespace {

constexpr double kMaxSheetsInFiles = 50;  // a process may have as few as 256 files open

/// At most so many layers, a double because no integer holds all products.
double CountLayers(OmPivotTable const& table) {
  double layers = 1;
  for (short const dimension : table.Layers()) {
    if (dimension >= 0 && dimension < table.NDimensions()) {
      layers *= table.Dimension(dimension).CategoryCount();
    }
  }
  return layers;
}

}  // namespace

class XlsxPlan::Visitor : public IdleVisitor {
 public:
  using IdleVisitor::Visit;

  Visitor(XlsxPlan& plan, XlsxOptions const& options) : plan_(plan), options_(options) {}

  /// Whether what was visited leaves the rows in files.
  bool FitsFiles() const { return sheets_ <= kMaxSheetsInFiles && !wraps_; }

  void Visit(OmPivotTable& table) override {
    if (!table.Show()) {
      return;
    }
    std::string const title = GetText(FindHeadline(table));
    XlsxStyle const style = ApplyArea(XlsxStyle(), table, FormatArea::AreaTitle);
    wraps_ = wraps_ || XlsxSheet::WrapsAcrossPage(title, style);
    sheets_ += options_.layersAsSheets && options_.allLayers ? CountLayers(table) : 1;
    plan_.titles_.emplace(&table, title);
  }
  void Visit(OmChart& chart) override { sheets_ += chart.GetImageData().empty() ? 0 : 1; }

 private:
  XlsxPlan& plan_;
  XlsxOptions const& options_;
  double sheets_ = 1;  // the contents
  bool wraps_ = false;
};

XlsxPlan::XlsxPlan(OmOutputTree const& tree, XlsxOptions const& options) {
  Visitor visitor(*this, options);
  int depth = 0;
  VisitAll(tree, visitor, depth);
  rows_ = visitor.FitsFiles() ? XlsxRows::InFiles : XlsxRows::InMemory;
}

}  // namespace lakresvos::render
