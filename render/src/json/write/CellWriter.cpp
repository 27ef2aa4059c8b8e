#include "json/write/CellWriter.h"

#include <cstddef>
#include <optional>
#include <vector>

#include <cells/cells.h>

#include "json/Fields.h"
#include "json/Names.h"

namespace lakresvos::render {

namespace {

/// Writes the value of one cell, without the parts of a composite.
class ValueWriter : public OmCellText::Visitor {
 public:
  explicit ValueWriter(JsonStream& json) : json_(json) {}

  void Write(OmCellText& cell) {
    known_ = false;
    composite_ = nullptr;
    cell.Accept(*this);
    if (!known_) {
      json_.Name("utf8").Text(cell.GetText());
    }
    WriteMeta(cell);
    if (cell.hasContext()) {
      json_.Name("context").Text(DisplayName(cell.ContextDisplay()));
    }
  }

  /// The composite that was written last, if it was one.
  OmComposite* Composite() const { return composite_; }

  void Visit(OmNumber& cell) override {
    Start("number").Number(cell.Value());
    WriteNumber(json_, "decimals", cell.Decimals(), -1);
  }
  void Visit(OmStringCell& cell) override {
    Start("text").Text(cell.GetText());
    WriteFlag(json_, "translatable", cell.IsTranslatable());
  }
  void Visit(OmStringCellUTF8& cell) override { Start("utf8").Text(cell.GetText()); }
  void Visit(OmVariable& cell) override {
    Start("variable").Text(cell.Name());
    WriteLabel(cell);
  }
  void Visit(OmNumDataValue& cell) override {
    Start("numberValue").Number(cell.Value());
    WriteLabel(cell);
  }
  void Visit(OmStringDataValue& cell) override {
    Start("textValue").Text(cell.Value());
    WriteLabel(cell);
  }
  void Visit(OmComposite& cell) override {
    Start("composite").Text(cell.Pattern());
    composite_ = &cell;
  }

 private:
  JsonStream& Start(std::string_view kind) {
    known_ = true;
    return json_.Name(kind);
  }

  void WriteLabel(OmLabelledCell const& cell) {
    WriteText(json_, "label", cell.Label());
    if (cell.Display() != cell.ContextDisplay()) {
      json_.Name("display").Text(DisplayName(cell.Display()));
    }
  }

  void WriteMeta(OmCellText const& cell) {
    if (OmCellMetaData const* const meta = cell.getMeta()) {
      WriteNumbers(json_, "footnotes", meta->getFootnotes());
      if (meta->isTotal()) {
        json_.Name("total").Boolean(true);
      }
      if (meta->getStyle() != 0 || (meta->getFootnotes().empty() && !meta->isTotal())) {
        json_.Name("style").Number(meta->getStyle());
      }
    }
  }

  JsonStream& json_;
  bool known_ = false;
  OmComposite* composite_ = nullptr;
};

using PartNode = OmVectorTree<OmCellText*>::ConstNode;

/// A part that is still to be written, and where it belongs.
struct PendingPart {
  PartNode node;
  char const* relation;  ///< to the part with number `owner`; null for the outermost composite's
  std::size_t owner;
};

void Push(std::vector<PendingPart>& pending, PartNode parent, char const* relation,
          std::size_t owner) {
  for (std::size_t i = parent.NChildren(); i != 0; --i) {
    pending.push_back({parent.Child(i - 1), relation, owner});
  }
}

/// The parts of a composite, with all parts of parts, as one list in preorder.
void WriteParts(JsonStream& json, ValueWriter& value, OmComposite const& composite) {
  std::vector<PendingPart> pending;
  Push(pending, composite.Parts().Root(), nullptr, 0);
  if (pending.empty()) {
    return;
  }
  json.Name("parts").BeginArray();
  for (std::size_t number = 0; !pending.empty(); ++number) {
    PendingPart const part = pending.back();
    pending.pop_back();
    json.BeginObject();
    if (part.relation != nullptr) {
      json.Name(part.relation).Number(part.owner);
    }
    OmComposite* inner = nullptr;
    if (OmCellText* const cell = part.node.Value()) {
      value.Write(*cell);
      inner = value.Composite();
    }
    json.End();
    Push(pending, part.node, kBelowPart, number);
    if (inner != nullptr) {
      Push(pending, std::as_const(*inner).Parts().Root(), kInPart, number);
    }
  }
  json.End();
}

}  // namespace

void WriteCellFields(JsonStream& json, OmCellText& cell) {
  ValueWriter value(json);
  value.Write(cell);
  if (OmComposite const* const composite = value.Composite()) {
    WriteParts(json, value, *composite);
  }
}

void WriteCell(JsonStream& json, std::string_view name, OmCellText const* cell) {
  if (cell == nullptr) {
    return;
  }
  json.Name(name).BeginObject();
  // Visitors take cells that may change; this one changes none.
  WriteCellFields(json, *const_cast<OmCellText*>(cell));
  json.End();
}

}  // namespace lakresvos::render
