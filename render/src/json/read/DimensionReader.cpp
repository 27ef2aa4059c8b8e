#include "json/read/DimensionReader.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "json/Names.h"
#include "json/read/AttributeReader.h"
#include "json/read/CellReader.h"

namespace lakresvos::render {

namespace {

using Node = OmDimension::Node;

bool SharesContext(OmCellText const* label, OmCellText const* above) {
  return label != nullptr && above != nullptr && label->hasContext() && above->hasContext() &&
         label->ContextDisplay() == above->ContextDisplay();
}

/// What a node says of its subscript.
unsigned long ReadSubscript(JsonValue const& value) {
  if (value.IsNull()) {
    return OmDimensionNode().subscript;
  }
  return value.Is(kRemovedSubscript) ? kRemoved : value.Integer<unsigned long>();
}

/// Reads the nodes of a dimension one by one, in preorder.
class NodeBuilder {
 public:
  explicit NodeBuilder(OmDimension& dimension) : dimension_(dimension) {}

  void Add(JsonValue const& value) {
    JsonObject object(value);
    std::size_t const number = count_++;
    JsonValue const id = object.At("id");
    if (id.Integer<std::size_t>() != number) {
      id.Fail("expected id " + std::to_string(number));
    }
    if (number == 0) {
      ReadRoot(object);
    } else {
      ReadChild(object, number);
    }
    object.Finish();
  }

 private:
  struct Level {
    std::size_t number;
    Node node;  // stays valid as long as the node gets no sibling
    bool ownIndex;
  };

  void ReadRoot(JsonObject& object) {
    OmDimensionNode& root = dimension_.value;
    root.group = false;
    root.subscript = OmDimensionNode().subscript;
    path_.push_back({0, dimension_.Root(), ReadFields(object, root)});
  }

  void ReadChild(JsonObject& object, std::size_t number) {
    Level& parent = FindParent(object.At("parent"));
    OmDimensionNode node(dimension_.children.region);
    bool const ownIndex = ReadFields(object, node);
    OmDimensionNode& above = parent.node.Value();
    if (SharesContext(node.label, above.label)) {
      node.label->ShareContext(*above.label);
    }
    if (!parent.ownIndex) {
      above.childIndex.push_back(static_cast<unsigned int>(above.childIndex.size()));
    }
    Node const child = OmDimension::AdoptChild(parent.node, node);
    path_.push_back({number, child, ownIndex});
  }

  /// Drops the levels from the path that the next node is not below.
  Level& FindParent(JsonValue const& parent) {
    auto const number = parent.Integer<std::size_t>();
    while (!path_.empty() && path_.back().number != number) {
      path_.pop_back();
    }
    if (path_.empty()) {
      parent.Fail("expected the previous node or one of its ancestors");
    }
    return path_.back();
  }

  /// Reads all of a node but its place and its parent's.
  /// @return whether the node says in which order its children are indexed.
  bool ReadFields(JsonObject& object, OmDimensionNode& node) {
    if (std::unique_ptr<OmCellText> const label = ReadCell(object, "label")) {
      node.label = label->Clone(dimension_.children.region);
    }
    if (std::optional<JsonValue> const subscript = object.Find("subscript")) {
      node.subscript = ReadSubscript(*subscript);
    }
    node.group = ReadFlag(object, "group");
    node.hide = ReadFlag(object, "hide");
    node.hideLabels = ReadFlag(object, "hideLabels");
    node.sort = ReadInteger(object, "sort", node.sort);
    std::optional<JsonValue> const index = object.Find("childIndex");
    for (std::size_t i = 0; index && i < index->Count(); ++i) {
      node.childIndex.push_back(index->Element(i).Integer<unsigned int>());
    }
    return index.has_value();
  }

  OmDimension& dimension_;
  std::size_t count_ = 0;
  std::vector<Level> path_;
};

}  // namespace

void ReadDimension(JsonValue const& value, OmPivotTable& table) {
  JsonObject object(value);
  JsonValue const size = object.At("size");
  JsonValue const nodes = object.At("nodes");
  object.Finish();
  if (nodes.Count() == 0) {
    nodes.Fail("missing root node");
  }
  OmDimension const empty(OmDimensionNode(nullptr), nullptr);
  OmDimension& dimension = table.AddDimension(empty);
  dimension.setCategoryCount(size.Integer<unsigned int>());
  NodeBuilder builder(dimension);
  for (std::size_t i = 0; i < nodes.Count(); ++i) {
    builder.Add(nodes.Element(i));
  }
}

}  // namespace lakresvos::render
