#include <memory>

#include <lakresvos/OmPivotTable.h>

#include "table/OmPivotTableData.h"

namespace {

/// A copy in the table's region that has passed through the helper, with or without a tracker; null
/// for null.
std::unique_ptr<OmCellText> CloneThroughHelper(OmPivotTable::Data& table, OmCellText const* text) {
  std::unique_ptr<OmCellText> fresh(text != nullptr ? text->Clone(&table) : nullptr);
  if (fresh != nullptr) {
    fresh->Accept(table.icuHelper);
  }
  return fresh;
}

}  // namespace

OmCellText* OmPivotTable::TemplateName() const {
  return _my->templateName.get();
}

OmCellText* OmPivotTable::TableTitle() const {
  return _my->title.get();
}

OmCellText* OmPivotTable::GetTableTitle() const {
  return _my->title.get();
}

void OmPivotTable::SetTableTitle(OmCellText const& title) {
  _my->title = CloneThroughHelper(*_my, &title);
}

OmCellText* OmPivotTable::Caption() const {
  return _my->caption.get();
}

void OmPivotTable::Caption(OmCellText const* caption) {
  _my->caption = CloneThroughHelper(*_my, caption);
}

OmCellText* OmPivotTable::CornerText() const {
  return _my->cornerText.get();
}

void OmPivotTable::CornerText(OmCellText const* text) {
  _my->cornerText = _my->CloneAndBind(text);
}
