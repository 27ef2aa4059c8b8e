#ifndef LAKRESVOS_RENDER_CONTENT_CELLTEXT_H
#define LAKRESVOS_RENDER_CONTENT_CELLTEXT_H

#include <string>

#include <cells/OmCellMetaData.h>
#include <cells/OmCellText.h>
#include <lakresvos/OmPivotTable.h>

namespace lakresvos::render {

// Texts as the document has them: not yet cleaned or escaped for any format.

/// The text of a label; nothing for a null one.
inline std::string GetText(OmCellText const* label) {
  return label != nullptr ? label->GetText() : std::string();
}

/// Whether a label is that of a total.
inline bool IsTotal(OmCellText const* label) {
  return label != nullptr && label->hasMeta() && label->getMeta()->isTotal();
}

/// What a table is headed by: its title, or its label when it has none.
inline OmCellText const* FindHeadline(OmPivotTable const& table) {
  OmCellText const* const title = table.GetTableTitle();
  return title != nullptr ? title : table.Label();
}

}  // namespace lakresvos::render

#endif
