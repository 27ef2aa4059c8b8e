#include <typeinfo>

#include <cells/OmStringCell.h>

#include "CellOrder.h"

namespace {

/// What cells and short texts share: as much as processors fetch at once.
constexpr std::size_t kBlock = 64;

/// The bytes after a cell of exactly this class.
template <class Cell>
std::byte* RoomAfter(Cell* cell) {
  return reinterpret_cast<std::byte*>(cell + 1);
}

}  // namespace

OmPlainText::OmPlainText(std::string const& text) : text_(text, Home()) {}

OmPlainText::OmPlainText(OmPlainText const& other, OmMemoryRegion* region)
    : OmCellText(other), text_(other.text_.View(), Home(region)) {}

OmPlainText::OmPlainText(OmPlainText const& other, std::byte* room)
    : OmCellText(other), text_(other.text_.View(), room) {}

OmPlainText::~OmPlainText() = default;

std::size_t OmPlainText::RoomBeside(std::size_t size) const {
  std::size_t const length = text_.View().size();
  return size + length <= kBlock ? length : 0;
}

std::string OmPlainText::GetText() const {
  return text_.Text();
}

short OmPlainText::Compare(OmCellText const& other, bool ignoreCase) const {
  auto const* const text = cell_order::FindPeer<OmStringCell, OmStringCellUTF8>(*this, other);
  return text != nullptr ? cell_order::CompareTexts(text_.View(), text->text_.View(), ignoreCase)
                         : CompareTexts(other, ignoreCase);
}

void OmPlainText::UseTracker(icuTracker* tracker) {
  if (!text_.IsBoundTo(tracker)) {
    text_ = text_.BoundTo(tracker);
    NoteOwnership();
  }
}

icuTracker* OmPlainText::GetTracker() const {
  return text_.Tracker();
}

OmStringCell::OmStringCell(std::string const& text, bool translatable)
    : OmPlainText(text), translatable_(translatable) {}

OmStringCell::OmStringCell(OmStringCell const& other, OmMemoryRegion* region)
    : OmPlainText(other, region), translatable_(other.translatable_) {}

OmStringCell::OmStringCell(OmStringCell const& other, InOneBlock)
    : OmPlainText(other, RoomAfter(this)), translatable_(other.translatable_) {}

OmStringCell::~OmStringCell() = default;

OmCellText* OmStringCell::Clone(OmMemoryRegion* region) const {
  std::size_t const room = RoomBeside(sizeof(OmStringCell));
  return room != 0 ? new (region, room) OmStringCell(*this, InOneBlock())
                   : new (region) OmStringCell(*this, region);
}

long OmStringCell::GetKind() const {
  return StringCellKind;
}

void OmStringCell::Accept(Visitor& visitor) {
  visitor.Visit(*this);
}

bool OmStringCell::GoesWithRegion() const {
  return typeid(*this) == typeid(OmStringCell);
}

OmStringCellUTF8::OmStringCellUTF8(std::string const& text) : OmPlainText(text) {}

OmStringCellUTF8::OmStringCellUTF8(OmStringCellUTF8 const& other, OmMemoryRegion* region)
    : OmPlainText(other, region) {}

OmStringCellUTF8::OmStringCellUTF8(OmStringCellUTF8 const& other, InOneBlock)
    : OmPlainText(other, RoomAfter(this)) {}

OmStringCellUTF8::~OmStringCellUTF8() = default;

OmCellText* OmStringCellUTF8::Clone(OmMemoryRegion* region) const {
  std::size_t const room = RoomBeside(sizeof(OmStringCellUTF8));
  return room != 0 ? new (region, room) OmStringCellUTF8(*this, InOneBlock())
                   : new (region) OmStringCellUTF8(*this, region);
}

long OmStringCellUTF8::GetKind() const {
  return StringCellUTF8Kind;
}

void OmStringCellUTF8::Accept(Visitor& visitor) {
  visitor.Visit(*this);
}

bool OmStringCellUTF8::GoesWithRegion() const {
  return typeid(*this) == typeid(OmStringCellUTF8);
}
