#include <memory>

#include <lakresvos/OmPivotTable.h>

#include "dimension/OmLabelOrder.h"
#include "table/OmPivotTableData.h"

namespace {

/// The position of the first footnote with this text; the number of footnotes when there is none.
std::size_t FindFootnote(OmVector<OmFootnote> const& footnotes, OmCellText const& text) {
  std::size_t position = 0;
  while (position < footnotes.size() && !LabelEqual(footnotes[position].text, &text)) {
    ++position;
  }
  return position;
}

}  // namespace

OmFootnote::~OmFootnote() {
  delete text;
  delete marker;
}

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
  std::unique_ptr<OmCellText> text = _my->CloneAndBind(known ? nullptr : footnote.text);
  std::unique_ptr<OmCellText> marker = _my->CloneAndBind(footnote.marker);
  OmFootnote& entry = known ? footnotes[position] : footnotes.emplace_back(_my);
  if (known) {
    entry.count = static_cast<int>(static_cast<unsigned int>(entry.count) + 1);
  } else {
    entry.text = text.release();
    entry.count = count < 0 ? count : 1;
  }
  std::unique_ptr<OmCellText> const before(entry.marker);
  entry.marker = marker.release();
  return static_cast<int>(position);
}

void OmPivotTable::RemovedFootnotes(bool removed) {
  _my->removedFootnotes = removed;
}
bool OmPivotTable::HasRemovedFootnotes() const {
  return _my->removedFootnotes;
}
