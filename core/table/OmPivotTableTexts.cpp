#include <memory>

#include <lakresvos/OmPivotTable.h>
#include <lakresvos/OmVectorTreeWalk.h>

#include "dimension/OmLabelOrder.h"
#include "table/OmPivotTableData.h"

namespace {

using OwnedText = std::unique_ptr<OmCellText>;

OwnedText CloneInto(OmMemoryRegion* region, OmCellText const* text) {
  return OwnedText(text != nullptr ? text->Clone(region) : nullptr);
}

/// The position of the first footnote with this text; the number of footnotes when there is none.
std::size_t FindFootnote(OmVector<OmFootnote> const& footnotes, OmCellText const& text) {
  std::size_t position = 0;
  while (position < footnotes.size() && !LabelEqual(footnotes[position].text, &text)) {
    ++position;
  }
  return position;
}

void BindLabels(OmDimension& dimension, icuTracker* tracker) {
  OmVectorTreeWalk<OmDimension::Node> walk(dimension.Root());
  while (walk.Next()) {
    if (OmCellText* const label = walk.Current().Value().label) {
      label->UseTracker(tracker);
    }
  }
}

}  // namespace

OmFootnote::~OmFootnote() {
  delete text;
  delete marker;
}

// Texts

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
  OwnedText fresh = CloneInto(_my, &title);
  fresh->Accept(_my->icuHelper);
  _my->title = std::move(fresh);
}

OmCellText* OmPivotTable::Caption() const {
  return _my->caption.get();
}

void OmPivotTable::Caption(OmCellText const* caption) {
  OwnedText fresh = CloneInto(_my, caption);
  if (fresh != nullptr) {
    fresh->Accept(_my->icuHelper);
  }
  _my->caption = std::move(fresh);
}

OmCellText* OmPivotTable::CornerText() const {
  return _my->cornerText.get();
}

void OmPivotTable::CornerText(OmCellText const* text) {
  OwnedText fresh = CloneInto(_my, text);
  if (fresh != nullptr) {
    _my->Bind(*fresh);
  }
  _my->cornerText = std::move(fresh);
}

void OmPivotTable::Data::Bind(OmCellText& cell) {
  if (icuHelper.hasTracker()) {
    cell.Accept(icuHelper);
  }
}

void OmPivotTable::setHelper(OmCellText& cell) {
  _my->Bind(cell);
}

// Footnotes

OmVector<OmFootnote>& OmPivotTable::Footnotes() {
  return _my->footnotes;
}
OmVector<OmFootnote> const& OmPivotTable::Footnotes() const {
  return _my->footnotes;
}

int OmPivotTable::Footnote(OmFootnote const& footnote, bool append) {
  if (footnote.text == nullptr) {
    return -1;
  }
  OmVector<OmFootnote>& footnotes = _my->footnotes;
  int const count = footnote.count;
  std::size_t const position = append ? footnotes.size() : FindFootnote(footnotes, *footnote.text);
  bool const known = position < footnotes.size();
  OwnedText text = CloneInto(_my, known ? nullptr : footnote.text);
  if (text != nullptr) {
    _my->Bind(*text);
  }
  OwnedText marker = CloneInto(_my, footnote.marker);
  if (marker != nullptr) {
    _my->Bind(*marker);
  }
  OmFootnote& entry = known ? footnotes[position] : footnotes.emplace_back(_my);
  if (known) {
    entry.count = static_cast<int>(static_cast<unsigned int>(entry.count) + 1);
  } else {
    entry.text = text.release();
    entry.count = count < 0 ? count : 1;
  }
  OwnedText const before(entry.marker);
  entry.marker = marker.release();
  return static_cast<int>(position);
}

void OmPivotTable::RemovedFootnotes(bool removed) {
  _my->removedFootnotes = removed;
}
bool OmPivotTable::HasRemovedFootnotes() const {
  return _my->removedFootnotes;
}

// Back end

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
