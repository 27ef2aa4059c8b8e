#include <memory>
#include <utility>

#include <lakresvos/OmPivotTable.h>
#include <lakresvos/OmVectorTreeWalk.h>

#include "table/OmPivotTableData.h"

namespace {

void BindLabels(OmDimension& dimension, icuTracker* tracker) {
  OmVectorTreeWalk<OmDimension::Node> walk(dimension.Root());
  while (walk.Next()) {
    if (OmCellText* const label = walk.Current().Value().label) {
      label->UseTracker(tracker);
    }
  }
}

}  // namespace

void OmPivotTable::Data::Bind(OmCellText& cell) {
  if (icuHelper.hasTracker()) {
    cell.Accept(icuHelper);
  }
}

std::unique_ptr<OmCellText> OmPivotTable::Data::CloneAndBind(OmCellText const* text) {
  std::unique_ptr<OmCellText> fresh(text != nullptr ? text->Clone(this) : nullptr);
  if (fresh != nullptr) {
    Bind(*fresh);
  }
  return fresh;
}

void OmPivotTable::setHelper(OmCellText& cell) {
  _my->Bind(cell);
}

void OmPivotTable::setBackendSettings(BackendSettings const& settings) {
  BackendSettings copy(settings);
  bool const fast = copy.getFastTables();
  std::unique_ptr<icuTracker> texts;
  std::unique_ptr<icuTracker> unicode;
  if (fast && _my->icuTracker == nullptr) {
    texts = std::make_unique<icuTracker>(std::pair(copy.getUnicode(), copy.getLocale()));
    if (!copy.getUnicode()) {
      unicode = std::make_unique<icuTracker>(std::pair(true, copy.getLocale()));
    }
    _my->icuHelper.setTracker(texts.get());
    try {
      BindTexts(texts.get());
    } catch (...) {
      // What was bound keeps its text when the tracker goes.
      _my->icuHelper.setTracker(nullptr);
      throw;
    }
    _my->icuTracker = texts.release();
    _my->u8Tracker = unicode != nullptr ? unicode.release() : _my->icuTracker;
  }
  _my->backendSettings = std::move(copy);
  _my->fastTable = fast;
}

void OmPivotTable::BindTexts(icuTracker* tracker) {
  for (OmCellText* text : {MutableLabel(), _my->templateName.get(), _my->title.get()}) {
    if (text != nullptr) {
      text->Accept(_my->icuHelper);
    }
  }
  for (OmDimension* dimension : _my->_dimensions.Elements()) {
    BindLabels(*dimension, tracker);
  }
  for (OmFootnote const& footnote : _my->footnotes.Elements()) {
    for (OmCellText* text : {footnote.text, footnote.marker}) {
      if (text != nullptr) {
        text->UseTracker(tracker);
      }
    }
  }
}

BackendSettings const& OmPivotTable::getBackendSettings() const {
  return _my->backendSettings;
}

icuTracker* OmPivotTable::getICUTracker() const {
  return _my->icuTracker;
}
icuTracker* OmPivotTable::getU8Tracker() const {
  return _my->u8Tracker;
}
