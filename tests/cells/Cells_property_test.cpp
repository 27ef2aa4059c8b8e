#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include <cells/cells.h>

#include "PlainOrder.h"
#include "PlainTexts.h"
#include "support/Property.h"

namespace {

constexpr int kTrackers = 2;
constexpr int kRegions = 2;
constexpr std::size_t kMostCells = 5;
constexpr std::size_t kMostNodes = 8;  // of a composite

/// What a cell holds, in plain values; or nothing, where a composite has a node without a cell.
struct PlainCell {
  long kind = 0;  // 0: none
  double number = 0;
  int decimals = -1;
  bool translatable = false;
  std::string text;  // the text, name, value or pattern
  std::string label;
  std::optional<OmLabelDisplay> display;
  std::optional<OmCellMetaData> meta;
  std::shared_ptr<OmLabelDisplay> context;
  std::optional<std::size_t> tracker;
  std::vector<PlainCell> parts;  // of a composite
  std::vector<PlainCell> below;  // the nodes below that of the cell
};

bool IsLabelled(PlainCell const& cell) {
  return cell.kind == OmCellText::VariableKind || cell.kind == OmCellText::NumDataValueKind ||
         cell.kind == OmCellText::StringDataValueKind;
}

bool IsString(PlainCell const& cell) {
  return cell.kind == OmCellText::StringCellKind || cell.kind == OmCellText::StringCellUTF8Kind;
}

std::size_t CountNodes(PlainCell const& cell) {
  std::size_t count = 1;
  for (auto const* const nodes : {&cell.parts, &cell.below}) {
    for (PlainCell const& node : *nodes) {
      count += CountNodes(node);
    }
  }
  return count;
}

/// What a clone holds: contexts of its own, and no tracker.
PlainCell Cloned(PlainCell cell) {
  if (cell.context) {
    cell.context = std::make_shared<OmLabelDisplay>(*cell.context);
  }
  cell.tracker.reset();
  for (auto* const nodes : {&cell.parts, &cell.below}) {
    for (PlainCell& node : *nodes) {
      node = Cloned(std::move(node));
    }
  }
  return cell;
}

OmLabelDisplay ContextDisplay(PlainCell const& cell) {
  return cell.context ? *cell.context : OmLabelDisplay::Label;
}

/// The value of a labelled cell.
std::string ValueText(PlainCell const& cell) {
  return cell.kind == OmCellText::NumDataValueKind ? PlainNumberText(cell.number) : cell.text;
}

/// @param modes whether display modes count.
std::string PlainText(PlainCell const& cell, bool modes = true) {
  if (cell.kind == OmCellText::NumberKind) {
    return PlainNumberText(cell.number, cell.decimals);
  }
  if (cell.kind == OmCellText::CompositeKind) {
    std::vector<std::optional<std::string>> texts;
    for (PlainCell const& part : cell.parts) {
      texts.push_back(part.kind != 0 ? std::optional(PlainText(part, modes)) : std::nullopt);
    }
    return PlainCompositeText(cell.text, texts);
  }
  if (!IsLabelled(cell)) {
    return cell.text;
  }
  auto const shown = modes ? cell.display.value_or(ContextDisplay(cell)) : OmLabelDisplay::Label;
  if (shown == OmLabelDisplay::Value || cell.label.empty()) {
    return ValueText(cell);
  }
  return shown == OmLabelDisplay::Both ? ValueText(cell) + " " + cell.label : cell.label;
}

int OrderOf(PlainCell const& a, PlainCell const& b, bool ignoreCase) {
  auto const rank = [](PlainCell const& cell) { return IsString(cell) ? 0 : cell.kind; };
  if (rank(a) != rank(b)) {
    return rank(a) < rank(b) ? -1 : 1;
  }
  if (a.kind == OmCellText::NumberKind) {
    return Either(PlainOrder(a.number, b.number), PlainOrder(a.decimals, b.decimals));
  }
  if (!IsLabelled(a)) {
    return PlainOrder(PlainText(a, false), PlainText(b, false), ignoreCase);
  }
  return Either(a.kind == OmCellText::NumDataValueKind ? PlainOrder(a.number, b.number)
                                                       : PlainOrder(a.text, b.text, ignoreCase),
                PlainOrder(a.label, b.label, ignoreCase));
}

std::string DrawText() {
  return *rc::gen::element<std::string>("", "a", "A", "ab", "\u00E9", "\u00C9", "{0}", "{1} of {0}",
                                        "{0}{2}", std::string("\0", 1), "\xFF",
                                        std::string(100, 'x'));
}

double DrawNumber() {
  return *rc::gen::element(0.0, -0.0, 1.0, -2.5, 0.1, 1e-7, 1e300,
                           std::numeric_limits<double>::infinity(),
                           std::numeric_limits<double>::quiet_NaN());
}

OmLabelDisplay DrawDisplay() {
  return *rc::gen::element(OmLabelDisplay::Value, OmLabelDisplay::Label, OmLabelDisplay::Both);
}

bool Draw(int percent) {
  return *rc::gen::inRange(0, 100) < percent;
}

/// The `Visit` that a cell calls, by kind.
class KindOfVisit : public OmCellText::Visitor {
 public:
  long Of(OmCellText& cell) {
    kind_ = 0;
    cell.Accept(*this);
    return kind_;
  }

  void Visit(OmNumber& /*cell*/) override { kind_ = OmCellText::NumberKind; }
  void Visit(OmStringCell& /*cell*/) override { kind_ = OmCellText::StringCellKind; }
  void Visit(OmStringCellUTF8& /*cell*/) override { kind_ = OmCellText::StringCellUTF8Kind; }
  void Visit(OmVariable& /*cell*/) override { kind_ = OmCellText::VariableKind; }
  void Visit(OmNumDataValue& /*cell*/) override { kind_ = OmCellText::NumDataValueKind; }
  void Visit(OmStringDataValue& /*cell*/) override { kind_ = OmCellText::StringDataValueKind; }
  void Visit(OmComposite& /*cell*/) override { kind_ = OmCellText::CompositeKind; }

 private:
  long kind_ = 0;
};

using PartTree = OmVectorTree<OmCellText*>;

/// Cells on the default heap and in regions, bound and not, beside plain copies of them.
class Program {
 public:
  Program() {
    for (std::size_t i = 0; i < kTrackers; ++i) {
      ReplaceTracker(i);
    }
    for (std::size_t i = 0; i < kRegions; ++i) {
      regions_[i] = std::make_unique<OmMemoryRegion>(false);
    }
  }

  ~Program() {
    for (Held const& held : held_) {
      delete held.cell;
    }
  }

  Program(Program const&) = delete;
  Program& operator=(Program const&) = delete;

  void Step() {
    int const action = *rc::gen::inRange(0, 20);
    if (held_.empty() || (action < 3 && held_.size() < kMostCells)) {
      Make();
    } else if (action < 5) {
      Clone();
    } else if (action == 5) {
      Delete(static_cast<std::size_t>(*rc::gen::inRange(0, static_cast<int>(held_.size()))));
    } else if (action == 6) {
      ReplaceTracker(static_cast<std::size_t>(*rc::gen::inRange(0, kTrackers)));
    } else if (action == 7) {
      ReplaceRegion(static_cast<std::size_t>(*rc::gen::inRange(0, kRegions)));
    } else if (action < 11) {
      AddPart();
    } else {
      Change(action);
    }
  }

  void Check() {
    std::array<std::set<std::string>, kTrackers> texts;
    for (Held const& held : held_) {
      RC_ASSERT(OmMemoryRegion::FindRegion(held.cell) == RegionOf(held.place, true));
      CheckCell(*held.cell, held.plain, texts);
    }
    for (std::size_t i = 0; i < kTrackers; ++i) {
      RC_ASSERT(trackers_[i]->TextCount() == texts[i].size());
    }
    for (std::size_t i = 0; i < kRegions; ++i) {
      if (Count(i) == 0) {
        RC_ASSERT(regions_[i]->BytesInUse() == 0UL);
      }
    }
  }

  /// Compares any two cells.
  void CheckOrder() {
    if (held_.empty()) {
      return;
    }
    auto const [cell, plain] = Pick();
    auto const [other, otherPlain] = Pick();
    bool const ignoreCase = *rc::gen::arbitrary<bool>();
    RC_ASSERT(Sign(cell->Compare(*other, ignoreCase)) == OrderOf(*plain, *otherPlain, ignoreCase));
  }

 private:
  struct Held {
    OmCellText* cell;
    PlainCell plain;
    std::size_t place;  // kRegions: the default heap
  };

  OmMemoryRegion* RegionOf(std::size_t place, bool named = false) const {
    if (place < kRegions) {
      return regions_[place].get();
    }
    return named ? OmMemoryRegion::DefaultHeap() : nullptr;
  }

  std::size_t Count(std::size_t place) const {
    return static_cast<std::size_t>(std::count_if(
        held_.begin(), held_.end(), [&](Held const& held) { return held.place == place; }));
  }

  static std::size_t DrawPlace() {
    return static_cast<std::size_t>(*rc::gen::inRange(0, kRegions + 1));
  }

  Held& Draw() {
    return held_[static_cast<std::size_t>(*rc::gen::inRange(0, static_cast<int>(held_.size())))];
  }

  /// Any cell: one that is held, or a part of one.
  std::pair<OmCellText*, PlainCell*> Pick() {
    Held& held = Draw();
    std::pair<OmCellText*, PlainCell*> picked(held.cell, &held.plain);
    while (!picked.second->parts.empty() && ::Draw(70)) {
      auto const number = static_cast<std::size_t>(
          *rc::gen::inRange(0, static_cast<int>(picked.second->parts.size())));
      if (picked.second->parts[number].kind == 0) {
        break;
      }
      picked = {dynamic_cast<OmComposite&>(*picked.first).Parts().Root().Child(number).Value(),
                &picked.second->parts[number]};
    }
    return picked;
  }

  void Make() {
    PlainCell plain;
    plain.kind = *rc::gen::inRange<long>(OmCellText::StringCellKind, OmCellText::CompositeKind + 1);
    if (plain.kind == OmCellText::NumberKind || plain.kind == OmCellText::NumDataValueKind) {
      plain.number = DrawNumber();
    } else {
      plain.text = DrawText();
    }
    if (plain.kind == OmCellText::NumberKind) {
      plain.decimals = *rc::gen::inRange(-1, 4);
    }
    if (IsLabelled(plain)) {
      plain.label = DrawText();
    }
    plain.translatable = plain.kind == OmCellText::StringCellKind && ::Draw(50);
    std::size_t const place = DrawPlace();
    held_.push_back({New(plain, RegionOf(place)), plain, place});
  }

  static OmCellText* New(PlainCell const& plain, OmMemoryRegion* region) {
    switch (plain.kind) {
      case OmCellText::StringCellKind:
        return new (region) OmStringCell(plain.text, plain.translatable);
      case OmCellText::StringCellUTF8Kind:
        return new (region) OmStringCellUTF8(plain.text);
      case OmCellText::NumberKind:
        return new (region) OmNumber(plain.number, plain.decimals);
      case OmCellText::VariableKind:
        return new (region) OmVariable(plain.text, plain.label);
      case OmCellText::NumDataValueKind:
        return new (region) OmNumDataValue(plain.number, plain.label);
      case OmCellText::StringDataValueKind:
        return new (region) OmStringDataValue(plain.text, plain.label);
      default:
        return new (region) OmComposite(plain.text);
    }
  }

  void Clone() {
    auto const [cell, plain] = Pick();
    std::size_t const place = DrawPlace();
    Held copy{cell->Clone(RegionOf(place)), Cloned(*plain), place};
    copy.plain.below.clear();  // they are the composite's
    if (held_.size() < kMostCells) {
      held_.push_back(std::move(copy));
      return;
    }
    Held& victim = Draw();
    delete victim.cell;
    victim = std::move(copy);
  }

  void Delete(std::size_t number) {
    delete held_[number].cell;
    held_.erase(held_.begin() + static_cast<std::ptrdiff_t>(number));
  }

  /// Cells that are bound to the former tracker outlive it.
  void ReplaceTracker(std::size_t number) {
    trackers_[number] = std::make_unique<icuTracker>(std::pair(true, std::string("en")));
    for (Held& held : held_) {
      Unbind(held.plain, number);
    }
  }

  static void Unbind(PlainCell& cell, std::size_t tracker) {
    if (cell.tracker == tracker) {
      cell.tracker.reset();
    }
    for (PlainCell& part : cell.parts) {
      Unbind(part, tracker);
    }
  }

  /// The cells of the former region go with it; those that own something outside are deleted first.
  void ReplaceRegion(std::size_t number) {
    bool const owners = regions_[number]->HasOwners();
    regions_[number]->WorkingRelease(::Draw(50));
    for (std::size_t i = held_.size(); i-- != 0;) {
      if (held_[i].place == number) {
        if (owners || !held_[i].cell->GoesWithRegion()) {
          delete held_[i].cell;
        }
        held_.erase(held_.begin() + static_cast<std::ptrdiff_t>(i));
      }
    }
    regions_[number] = std::make_unique<OmMemoryRegion>(false);
  }

  /// Gives a composite a part, or a node below one of its parts.
  void AddPart() {
    auto const found = std::find_if(held_.rbegin(), held_.rend(), [](Held const& held) {
      return held.plain.kind == OmCellText::CompositeKind;
    });
    if (found == held_.rend()) {
      Make();
      return;
    }
    auto& composite = dynamic_cast<OmComposite&>(*found->cell);
    PlainCell& plain = found->plain;
    auto const [part, plainPart] = Pick();  // the composite itself, perhaps
    if (CountNodes(plain) + CountNodes(*plainPart) > kMostNodes) {
      return;
    }
    PlainCell copy = Cloned(*plainPart);
    copy.below.clear();
    if (::Draw(70)) {
      composite.AddPart(*part);
      plain.parts.push_back(std::move(copy));
    } else if (plain.parts.empty() || ::Draw(50)) {
      PartTree::AppendChild(composite.Parts().Root(), nullptr);
      plain.parts.emplace_back();
    } else {
      PartTree::AppendChild(composite.Parts().Root().Child(0), part->Clone(RegionOf(found->place)));
      plain.parts.front().below.push_back(std::move(copy));
    }
  }

  void Change(int action) {
    auto const [cell, plain] = Pick();
    if (action < 13) {
      SetMeta(*cell, *plain);
    } else if (action == 13) {
      OmLabelDisplay const display = DrawDisplay();
      cell->ContextDisplay(display);
      if (plain->context) {
        *plain->context = display;
      } else {
        plain->context = std::make_shared<OmLabelDisplay>(display);
      }
    } else if (action == 14) {
      auto const [other, otherPlain] = Pick();
      cell->ShareContext(*other);
      plain->context = otherPlain->context;
    } else if (action == 15) {
      if (auto* const labelled = dynamic_cast<OmLabelledCell*>(cell)) {
        plain->display = DrawDisplay();
        labelled->Display(*plain->display);
      }
    } else if (action < 19) {
      UseTracker(*cell, *plain);
    } else {
      auto const [other, otherPlain] = Pick();
      TakeValue(*cell, *plain, *other, *otherPlain);
    }
  }

  static void SetMeta(OmCellText& cell, PlainCell& plain) {
    plain.meta.reset();
    if (::Draw(70)) {
      plain.meta.emplace();
      for (int count = *rc::gen::inRange(0, 3); count != 0; --count) {
        plain.meta->addFootnote(static_cast<unsigned int>(*rc::gen::inRange(0, 5)));
      }
      plain.meta->setStyle(static_cast<unsigned short>(*rc::gen::inRange(0, 5)));
      plain.meta->setTotal(::Draw(50));
    }
    cell.setMeta(plain.meta ? &*plain.meta : nullptr);
  }

  void UseTracker(OmCellText& cell, PlainCell& plain) {
    std::optional<std::size_t> tracker;
    if (::Draw(70)) {
      tracker = static_cast<std::size_t>(*rc::gen::inRange(0, kTrackers));
    }
    cell.UseTracker(tracker ? trackers_[*tracker].get() : nullptr);
    if (plain.kind != OmCellText::NumberKind) {
      plain.tracker = tracker;
    }
  }

  /// Cells may decline; the only ones that do not are numbers, and of bare ones alone.
  static void TakeValue(OmCellText& cell, PlainCell& plain, OmCellText const& other,
                        PlainCell const& otherPlain) {
    if (cell.TakeValue(other)) {
      RC_ASSERT(plain.kind == OmCellText::NumberKind && otherPlain.kind == plain.kind);
      RC_ASSERT(!plain.context && !otherPlain.context && !otherPlain.meta);
      plain.number = otherPlain.number;
      plain.decimals = otherPlain.decimals;
    }
  }

  template <class Texts>
  void CheckCell(OmCellText& cell, PlainCell const& plain, Texts& texts) const {
    RC_ASSERT(cell.GetKind() == plain.kind);
    RC_ASSERT(KindOfVisit().Of(cell) == plain.kind);
    RC_ASSERT(cell.GetText() == PlainText(plain));
    RC_ASSERT(cell.hasContext() == (plain.context != nullptr));
    RC_ASSERT(cell.ContextDisplay() == ContextDisplay(plain));
    RC_ASSERT(cell.GetTracker() == (plain.tracker ? trackers_[*plain.tracker].get() : nullptr));
    CheckMeta(cell, plain);
    if (plain.tracker) {
      if (plain.kind != OmCellText::NumDataValueKind) {
        texts[*plain.tracker].insert(plain.text);
      }
      if (IsLabelled(plain)) {
        texts[*plain.tracker].insert(plain.label);
      }
    }
    CheckFields(cell, plain, texts);
  }

  static void CheckMeta(OmCellText const& cell, PlainCell const& plain) {
    RC_ASSERT(cell.hasMeta() == plain.meta.has_value());
    if (plain.meta) {
      RC_ASSERT(cell.getMeta()->getFootnotes() == plain.meta->getFootnotes());
      RC_ASSERT(cell.getMeta()->getStyle() == plain.meta->getStyle());
      RC_ASSERT(cell.getMeta()->isTotal() == plain.meta->isTotal());
    }
  }

  template <class Texts>
  void CheckFields(OmCellText& cell, PlainCell const& plain, Texts& texts) const {
    if (auto const* const number = dynamic_cast<OmNumber const*>(&cell)) {
      RC_ASSERT(PlainOrder(number->Value(), plain.number) == 0);
      RC_ASSERT(number->Decimals() == plain.decimals);
    } else if (auto const* const text = dynamic_cast<OmStringCell const*>(&cell)) {
      RC_ASSERT(text->IsTranslatable() == plain.translatable);
    } else if (auto const* const labelled = dynamic_cast<OmLabelledCell const*>(&cell)) {
      RC_ASSERT(labelled->Label() == plain.label);
      RC_ASSERT(labelled->Display() == plain.display.value_or(ContextDisplay(plain)));
    } else if (auto* const composite = dynamic_cast<OmComposite*>(&cell)) {
      RC_ASSERT(composite->Pattern() == plain.text);
      RC_ASSERT(composite->TextCost(SIZE_MAX) >= composite->GetText().size());
      CheckNodes(composite->Parts().Root(), plain.parts, texts);
    }
  }

  template <class Texts>
  void CheckNodes(PartTree::Node parent, std::vector<PlainCell> const& nodes, Texts& texts) const {
    RC_ASSERT(parent.NChildren() == nodes.size());
    for (std::size_t i = 0; i < nodes.size(); ++i) {
      PartTree::Node const node = parent.Child(i);
      RC_ASSERT((node.Value() == nullptr) == (nodes[i].kind == 0));
      if (node.Value() != nullptr) {
        CheckCell(*node.Value(), nodes[i], texts);
      }
      CheckNodes(node, nodes[i].below, texts);
    }
  }

  std::array<std::unique_ptr<icuTracker>, kTrackers> trackers_;
  std::array<std::unique_ptr<OmMemoryRegion>, kRegions> regions_;
  std::vector<Held> held_;
};

RANDOM_PROGRAM(CellsProperty, AnswerAsPlainCopiesAfterAnySequence) {
  Program program;
  for (int left = DrawStepCount(); left != 0; --left) {
    program.Step();
    program.Check();
    program.CheckOrder();
  }
}

}  // namespace
