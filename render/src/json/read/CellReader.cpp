#include "json/read/CellReader.h"

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <cells/cells.h>

#include "json/Names.h"
#include "json/read/AttributeReader.h"

namespace lakresvos::render {

namespace {

using OwnedCell = std::unique_ptr<OmCellText>;

/// What a byte of a composite's text costs: it is measured, cleaned, escaped and shown repeatedly.
constexpr double kComposedByte = 64;

OmLabelDisplay Display(JsonValue const& value) {
  return static_cast<OmLabelDisplay>(value.Choice(kDisplayNames));
}

template <class Kind>
OwnedCell SetDisplay(JsonObject& object, std::unique_ptr<Kind> cell) {
  if (std::optional<JsonValue> const display = object.Find("display")) {
    cell->Display(Display(*display));
  }
  return cell;
}

template <class Kind, class Value>
OwnedCell ReadLabelled(JsonObject& object, Value const& value) {
  return SetDisplay(object, std::make_unique<Kind>(value, ReadText(object, "label")));
}

/// The cell without parts, metadata and context; null when the object has no value of a cell.
OwnedCell ReadValue(JsonObject& object) {
  if (auto const number = object.Find("number")) {
    return std::make_unique<OmNumber>(number->Number(), ReadInteger(object, "decimals", -1));
  }
  if (auto const text = object.Find("text")) {
    return std::make_unique<OmStringCell>(text->Text(), ReadFlag(object, "translatable"));
  }
  if (auto const text = object.Find("utf8")) {
    return std::make_unique<OmStringCellUTF8>(text->Text());
  }
  if (auto const name = object.Find("variable")) {
    return ReadLabelled<OmVariable>(object, name->Text());
  }
  if (auto const value = object.Find("numberValue")) {
    return ReadLabelled<OmNumDataValue>(object, value->Number());
  }
  if (auto const value = object.Find("textValue")) {
    return ReadLabelled<OmStringDataValue>(object, value->Text());
  }
  if (auto const pattern = object.Find("composite")) {
    return std::make_unique<OmComposite>(pattern->Text());
  }
  return nullptr;
}

OwnedCell ReadSimpleCell(JsonObject& object) {
  OwnedCell cell = ReadValue(object);
  if (cell == nullptr) {
    return nullptr;
  }
  auto const footnotes = object.Find("footnotes");
  auto const style = object.Find("style");
  auto const total = object.Find("total");
  if (footnotes || style || total) {
    OmCellMetaData meta;
    for (std::size_t i = 0; footnotes && i < footnotes->Count(); ++i) {
      meta.addFootnote(footnotes->Element(i).Integer<unsigned int>());
    }
    if (style) {
      meta.setStyle(style->Integer<unsigned short>());
    }
    meta.setTotal(total && total->Boolean());
    cell->setMeta(&meta);
  }
  if (auto const context = object.Find("context")) {
    cell->ContextDisplay(Display(*context));
  }
  return cell;
}

/// Puts the parts of a list where they belong.
class PartBuilder {
 public:
  explicit PartBuilder(OmComposite& composite) : composite_(composite) {}

  void Add(JsonObject& object) {
    Node const parent = Parent(object);
    OwnedCell cell = ReadSimpleCell(object);
    object.Finish();
    Node const node = Tree::AppendChild(parent, cell.get());
    path_.push_back({number_++, node, dynamic_cast<OmComposite*>(cell.release())});
  }

 private:
  using Tree = OmVectorTree<OmCellText*>;
  using Node = Tree::Node;

  struct Part {
    std::size_t number;
    Node node;               // stays valid as long as it gets no sibling
    OmComposite* composite;  // null when the part is something else
  };

  /// What the next part is below. Drops the parts from the path that it is not a part of.
  Node Parent(JsonObject& object) {
    auto const in = object.Find(kInPart);
    auto const below = object.Find(kBelowPart);
    if (!in && !below) {
      path_.clear();
      return composite_.Parts().Root();
    }
    if (in && below) {
      below->Fail("expected either 'in' or 'below', not both");
    }
    JsonValue const& relation = in ? *in : *below;
    auto const number = relation.Integer<std::size_t>();
    while (!path_.empty() && path_.back().number != number) {
      path_.pop_back();
    }
    if (path_.empty()) {
      relation.Fail("expected the previous part or one of its ancestors");
    }
    Part const& owner = path_.back();
    if (!in) {
      return owner.node;
    }
    if (owner.composite == nullptr) {
      relation.Fail("expected a part that is a composite");
    }
    return owner.composite->Parts().Root();
  }

  OmComposite& composite_;
  std::size_t number_ = 0;
  std::vector<Part> path_;
};

}  // namespace

OwnedCell ReadCellFields(JsonObject& object) {
  OwnedCell cell = ReadSimpleCell(object);
  if (cell == nullptr) {
    object.Value().Fail(
        "missing field 'number', 'text', 'utf8', 'variable', 'numberValue', 'textValue' or "
        "'composite'");
  }
  auto* const composite = dynamic_cast<OmComposite*>(cell.get());
  if (composite == nullptr) {
    return cell;
  }
  if (auto const parts = object.Find("parts")) {
    PartBuilder builder(*composite);
    for (std::size_t i = 0; i < parts->Count(); ++i) {
      JsonValue const part = parts->Element(i);
      JsonObject fields(part);
      builder.Add(fields);
    }
    auto const affordable = static_cast<std::size_t>(object.Value().Affordable() / kComposedByte);
    parts->Spend(kComposedByte * static_cast<double>(composite->TextCost(affordable)));
  }
  return cell;
}

OwnedCell ReadCell(JsonObject& object, std::string_view name) {
  std::optional<JsonValue> const field = object.Find(name);
  if (!field) {
    return nullptr;
  }
  JsonObject fields(*field);
  OwnedCell cell = ReadCellFields(fields);
  fields.Finish();
  return cell;
}

OwnedCell NeedCell(JsonObject& object, std::string_view name) {
  OwnedCell cell = ReadCell(object, name);
  if (cell == nullptr) {
    object.Value().Fail("missing field '" + std::string(name) + "'");
  }
  return cell;
}

}  // namespace lakresvos::render
