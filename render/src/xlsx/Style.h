#ifndef LAKRESVOS_RENDER_XLSX_STYLE_H
#define LAKRESVOS_RENDER_XLSX_STYLE_H

#include <string>

#include <cells/OmCellMetaData.h>
#include <lakresvos/OmPivotTable.h>
#include <lakresvos/render/AreaStyle.h>

namespace lakresvos::render {

/// How a cell of a workbook looks; cells of equal styles share one format.
struct XlsxStyle {
  std::string font;  ///< empty: the workbook's own
  double size = 0;   ///< in points; 0: the workbook's own
  bool bold = false;
  bool italic = false;
  bool underline = false;
  bool raised = false;
  HorizontalAlignment horizontal = HorizontalAlignment::Any;
  VerticalAlignment vertical = VerticalAlignment::Top;
  std::string color;       ///< "#rrggbb" or empty
  std::string background;  ///< "#rrggbb" or empty
  std::string numberFormat;
  int indent = 0;
  bool rule = false;       ///< a line below
  bool groupRule = false;  ///< a faint line above
  bool wrap = false;

  bool operator<(XlsxStyle const& other) const;
};

/// `style` with what a table's format for an area says.
XlsxStyle ApplyArea(XlsxStyle style, OmPivotTable const& table, FormatArea::Area area);

/// `style` with what a cell style says.
XlsxStyle ApplyProperties(XlsxStyle style, OmCellProperties const& properties);

/// `style` in the colors of every other row, where the format of the data area wants that.
XlsxStyle ApplyAlternateColors(XlsxStyle style, FormatArea const* data);

}  // namespace lakresvos::render

#endif
