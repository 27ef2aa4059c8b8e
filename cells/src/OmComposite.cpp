#include <charconv>
#include <memory>
#include <optional>
#include <string_view>
#include <typeinfo>
#include <utility>
#include <vector>

#include <cells/OmComposite.h>

namespace {

using PartTree = OmVectorTree<OmCellText*>;

/// The composite that `cell` is, when it is one of exactly this class.
OmComposite* PlainComposite(OmCellText* cell) {
  return cell != nullptr && typeid(*cell) == typeid(OmComposite) ? static_cast<OmComposite*>(cell)
                                                                 : nullptr;
}

/// Deletes every cell below and at `root`. Works without memory of its own: a composite among the
/// cells is emptied before it is deleted by climbing into its parts, and the nodes that are going
/// away hold the way back and the position among the children.
void DeleteCells(PartTree::Element& root) {
  auto enter = [](PartTree::Element& node, PartTree::Element* from) {
    node.parent = from;
    node.children.capacityEnd = node.children.begin;
    return &node;
  };
  PartTree::Element* node = enter(root, nullptr);
  while (node != nullptr) {
    if (OmComposite* inner = dynamic_cast<OmComposite*>(node->value)) {
      PartTree::Element& parts = inner->Parts();
      if (parts.value != nullptr || parts.children.begin != nullptr) {
        node = enter(parts, node);
        continue;
      }
    }
    delete std::exchange(node->value, nullptr);
    if (PartTree::Element*& next = node->children.capacityEnd; next != node->children.end) {
      PartTree::Element& child = *next++;
      node = enter(child, node);
      continue;
    }
    node->children.Clear();
    node = std::exchange(node->parent, nullptr);
  }
}

/// A mark in a pattern: where it is, and the part that it names.
struct Mark {
  std::size_t begin;
  std::size_t end;
  OmCellText& part;
};

/// The first mark at or after `from` that names a part.
std::optional<Mark> FindMark(std::string_view pattern, std::size_t from,
                             PartTree::ConstNode parts) {
  for (std::size_t open = pattern.find('{', from); open != std::string_view::npos;
       open = pattern.find('{', open + 1)) {
    std::size_t number = 0;
    char const* const last = pattern.data() + pattern.size();
    auto const [end, error] = std::from_chars(pattern.data() + open + 1, last, number);
    OmCellText* const part = parts.Child(number).Value();
    if (error == std::errc() && end != last && *end == '}' && part != nullptr) {
      return Mark{open, static_cast<std::size_t>(end - pattern.data()) + 1, *part};
    }
  }
  return std::nullopt;
}

}  // namespace

OmComposite::OmComposite(std::string const& pattern) : pattern_(pattern, Home()), parts_(Home()) {}

OmComposite::OmComposite(OmComposite const& other, OmMemoryRegion* region, NoParts)
    : OmCellText(other), pattern_(other.pattern_.View(), Home(region)), parts_(Home(region)) {}

OmComposite::OmComposite(OmComposite const& other, OmMemoryRegion* region)
    : OmComposite(other, region, NoParts{}) {
  CloneParts(other, parts_.children.region);
}

OmComposite::~OmComposite() {
  DeleteCells(parts_);
}

OmCellText* OmComposite::Clone(OmMemoryRegion* region) const {
  return new (region) OmComposite(*this, region);
}

void OmComposite::CloneParts(OmComposite const& other, OmMemoryRegion* region) {
  std::vector<std::pair<PartTree::ConstNode, PartTree::Node>> pending{
      {other.parts_.Root(), parts_.Root()}};
  while (!pending.empty()) {
    auto const [source, copy] = pending.back();
    pending.pop_back();
    if (OmComposite const* inner = PlainComposite(source.Value())) {
      auto* const shell = new (region) OmComposite(*inner, region, NoParts{});
      copy.Value() = shell;
      pending.emplace_back(inner->parts_.Root(), shell->parts_.Root());
    } else if (source.Value() != nullptr) {
      copy.Value() = source.Value()->Clone(region);
    }
    copy.element->children.reserve(source.NChildren());
    for (std::size_t i = 0; i < source.NChildren(); ++i) {
      pending.emplace_back(source.Child(i), PartTree::AppendChild(copy, nullptr));
    }
  }
}

template <class Visit>
void OmComposite::VisitPieces(Visit visit) const {
  struct Frame {
    OmComposite const* composite;
    std::size_t position;
  };
  std::vector<Frame> open{{this, 0}};
  while (!open.empty()) {
    auto& [composite, position] = open.back();
    std::string_view const pattern = composite->pattern_.View();
    auto const mark = FindMark(pattern, position, composite->parts_.Root());
    if (!visit(pattern.substr(position, mark ? mark->begin - position : std::string_view::npos))) {
      return;
    }
    if (!mark) {
      open.pop_back();
      continue;
    }
    position = mark->end;
    if (OmComposite const* inner = PlainComposite(&mark->part)) {
      open.push_back({inner, 0});
    } else if (!visit(mark->part.GetText())) {
      return;
    }
  }
}

std::string OmComposite::GetText() const {
  std::string text;
  VisitPieces([&text](std::string_view piece) {
    text.append(piece);
    return true;
  });
  return text;
}

std::size_t OmComposite::TextCost(std::size_t limit) const {
  std::size_t cost = 0;
  VisitPieces([&cost, limit](std::string_view piece) {
    cost += piece.size() + 1;
    return cost <= limit;
  });
  return cost;
}

long OmComposite::GetKind() const {
  return CompositeKind;
}

short OmComposite::Compare(OmCellText const& other, bool ignoreCase) const {
  return CompareTexts(other, ignoreCase);
}

void OmComposite::Accept(Visitor& visitor) {
  visitor.Visit(*this);
}

void OmComposite::UseTracker(icuTracker* tracker) {
  if (!pattern_.IsBoundTo(tracker)) {
    pattern_ = pattern_.BoundTo(tracker);
  }
}

icuTracker* OmComposite::GetTracker() const {
  return pattern_.Tracker();
}

void OmComposite::AddPart(OmCellText const& part) {
  std::unique_ptr<OmCellText> copy(part.Clone(parts_.children.region));
  PartTree::AppendChild(parts_.Root(), copy.get());
  static_cast<void>(copy.release());
}
