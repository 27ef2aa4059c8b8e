#include <iostream>
#include <optional>

#include <cells/OmCellMetaData.h>
#include <cells/OmCellText.h>

#include "CellOrder.h"

/// What few cells have.
struct OmCellText::Extras {
  Extras() = default;
  Extras(Extras const& other)
      : meta(other.meta),
        context(other.context ? std::make_shared<OmLabelDisplay>(*other.context) : nullptr) {}
  Extras& operator=(Extras const&) = delete;
  ~Extras() = default;

  std::optional<OmCellMetaData> meta;
  std::shared_ptr<OmLabelDisplay> context;
};

OmCellText::OmCellText() noexcept = default;

OmCellText::OmCellText(OmCellText const& other)
    : extras_(other.extras_ ? std::make_unique<Extras>(*other.extras_) : nullptr) {
  if (extras_) {
    NoteOwnership();
  }
}

OmCellText::~OmCellText() = default;

void OmCellText::ShareContext(OmCellText const& other) {
  if (other.hasContext()) {
    MakeExtras().context = other.extras_->context;
  } else if (extras_) {
    extras_->context.reset();
  }
}

void OmCellText::UseTracker(icuTracker* /*tracker*/) {}

void OmCellText::Dump(int indent) const {
  for (int level = 0; level < indent; ++level) {
    std::cout << "  ";
  }
  std::cout << GetText();
}

icuTracker* OmCellText::GetTracker() const {
  return nullptr;
}

OmCellMetaData const* OmCellText::getMeta() const {
  return extras_ && extras_->meta ? &*extras_->meta : nullptr;
}

void OmCellText::setMeta(OmCellMetaData const* meta) {
  if (meta != nullptr) {
    OmCellMetaData copy = *meta;
    MakeExtras().meta = std::move(copy);
  } else if (extras_) {
    extras_->meta.reset();
  }
}

bool OmCellText::hasContext() const {
  return extras_ && extras_->context;
}

OmLabelDisplay OmCellText::ContextDisplay() const {
  return hasContext() && !cell_order::ScopedDefaultDisplay::Active() ? *extras_->context
                                                                     : OmLabelDisplay::Label;
}

void OmCellText::ContextDisplay(OmLabelDisplay display) {
  if (hasContext()) {
    *extras_->context = display;
  } else {
    auto context = std::make_shared<OmLabelDisplay>(display);
    MakeExtras().context = std::move(context);
  }
}

short OmCellText::CompareTexts(OmCellText const& other, bool ignoreCase) const {
  if (short const order = cell_order::CompareRanks(*this, other)) {
    return order;
  }
  cell_order::ScopedDefaultDisplay const scope;
  return cell_order::CompareTexts(GetText(), other.GetText(), ignoreCase);
}

bool OmCellText::GoesWithRegion() const {
  return false;
}

bool OmCellText::TakeValue(OmCellText const& /*other*/) {
  return false;
}

void OmCellText::NoteOwnership() const {
  if (OmMemoryRegion* const region = OmMemoryRegion::FindRegion(this)) {
    region->NoteOwner();
  }
}

OmMemoryRegion* OmCellText::Home(OmMemoryRegion* region) const {
  return region != nullptr ? region : OmMemoryRegion::FindRegion(this);
}

OmCellText::Extras& OmCellText::MakeExtras() {
  if (!extras_) {
    extras_ = std::make_unique<Extras>();
    NoteOwnership();
  }
  return *extras_;
}

OmCellText::Visitor::~Visitor() = default;
void OmCellText::Visitor::Visit(OmNumber& /*cell*/) {}
void OmCellText::Visitor::Visit(OmStringCell& /*cell*/) {}
void OmCellText::Visitor::Visit(OmStringCellUTF8& /*cell*/) {}
void OmCellText::Visitor::Visit(OmVariable& /*cell*/) {}
void OmCellText::Visitor::Visit(OmNumDataValue& /*cell*/) {}
void OmCellText::Visitor::Visit(OmStringDataValue& /*cell*/) {}
void OmCellText::Visitor::Visit(OmComposite& /*cell*/) {}
