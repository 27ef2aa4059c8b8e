#include <cells/OmDataValue.h>
#include <cells/OmLabelledCell.h>
#include <cells/OmVariable.h>

#include "CellOrder.h"

OmLabelledCell::OmLabelledCell(std::string const& label) : label_(label, Home()) {}

OmLabelledCell::OmLabelledCell(OmLabelledCell const& other, OmMemoryRegion* region)
    : OmCellText(other),
      label_(other.label_.View(), Home(region)),
      display_(other.display_),
      hasDisplay_(other.hasDisplay_) {}

OmLabelledCell::~OmLabelledCell() = default;

std::string OmLabelledCell::GetText() const {
  OmLabelDisplay const display = Display();
  if (display == OmLabelDisplay::Value || label_.View().empty()) {
    return ValueText();
  }
  return display == OmLabelDisplay::Both ? ValueText().append(" ").append(label_.View())
                                         : label_.Text();
}

void OmLabelledCell::UseTracker(icuTracker* tracker) {
  if (!label_.IsBoundTo(tracker)) {
    label_ = label_.BoundTo(tracker);
    NoteOwnership();
  }
}

icuTracker* OmLabelledCell::GetTracker() const {
  return label_.Tracker();
}

std::string OmLabelledCell::Label() const {
  return label_.Text();
}

OmLabelDisplay OmLabelledCell::Display() const {
  return hasDisplay_ && !cell_order::ScopedDefaultDisplay::Active() ? display_ : ContextDisplay();
}

short OmLabelledCell::CompareLabels(OmLabelledCell const& other, bool ignoreCase) const {
  return cell_order::CompareTexts(label_.View(), other.label_.View(), ignoreCase);
}

OmLabelledText::OmLabelledText(std::string const& value, std::string const& label)
    : OmLabelledCell(label), value_(value, Home()) {}

OmLabelledText::OmLabelledText(OmLabelledText const& other, OmMemoryRegion* region)
    : OmLabelledCell(other, region), value_(other.value_.View(), Home(region)) {}

OmLabelledText::~OmLabelledText() = default;

short OmLabelledText::Compare(OmCellText const& other, bool ignoreCase) const {
  auto const* const text = cell_order::FindPeer<OmVariable, OmStringDataValue>(*this, other);
  if (text == nullptr) {
    return CompareTexts(other, ignoreCase);
  }
  short const order = cell_order::CompareTexts(value_.View(), text->value_.View(), ignoreCase);
  return order != 0 ? order : CompareLabels(*text, ignoreCase);
}

void OmLabelledText::UseTracker(icuTracker* tracker) {
  // Both texts change or neither does: all that can fail comes first.
  if (!value_.IsBoundTo(tracker)) {
    OmCellBytes value = value_.BoundTo(tracker);
    OmLabelledCell::UseTracker(tracker);
    value_ = std::move(value);
  }
}

std::string OmLabelledText::ValueText() const {
  return value_.Text();
}
