#include <cstddef>
#include <optional>
#include <string>
#include <utility>

#include <lakresvos/render/JsonReader.h>

#include "io/ReadAll.h"
#include "json/Names.h"
#include "json/read/ItemReader.h"
#include "json/read/Text.h"

namespace lakresvos::render {

namespace {

void CheckFormat(JsonObject& document) {
  JsonValue const format = document.At("format");
  if (format.Plain() != kDocumentFormat) {
    format.Fail("expected \"" + std::string(kDocumentFormat) + "\"");
  }
  JsonValue const version = document.At("version");
  if (version.Integer<int>() != kDocumentVersion) {
    version.Fail("unsupported version; expected " + std::to_string(kDocumentVersion));
  }
}

/// Appends items to a tree whose structure their depths tell.
class TreeBuilder {
 public:
  explicit TreeBuilder(OmOutputTree& tree) : tree_(tree) {}

  void Add(JsonValue const& value) {
    JsonObject object(value);
    JsonValue const field = object.At("depth");
    int const maxDepth = last_.AtEnd() ? 0 : last_.depth + 1;
    int const depth = field.Integer<int>(0, maxDepth);
    std::unique_ptr<OmOutputPart> item = ReadItem(object);
    object.Finish();
    OmOutputTree::Node above = last_;
    above.depth = depth - 1;
    last_ = depth == 0 ? tree_.Append(item.get()) : above.AppendChild(item.get());
    (void)item.release();
  }

 private:
  OmOutputTree& tree_;
  OmOutputTree::Node last_;
};

}  // namespace

JsonError::JsonError(std::string const& place, std::string const& problem)
    : std::runtime_error(place.empty() ? problem : place + ": " + problem), place_(place) {}

JsonError::~JsonError() = default;

std::unique_ptr<OmOutputTree> ReadJson(std::istream& in) {
  std::optional<std::string> text = ReadAll(in);
  if (!text) {
    throw JsonError("", "cannot read the input");
  }
  ReadBudget budget(text->size());
  JsonData const data = ParseJson(std::exchange(*text, {}));
  JsonValue const root(data, budget);
  JsonObject document(root);
  CheckFormat(document);
  JsonValue const parts = document.At("parts");
  (void)document.Find("layout");
  document.Finish();
  auto tree = std::make_unique<OmOutputTree>();
  OmOutputTree::Node first = tree->begin();
  tree->Erase(first);  // the document brings its own root
  TreeBuilder builder(*tree);
  for (std::size_t i = 0; i < parts.Count(); ++i) {
    builder.Add(parts.Element(i));
  }
  return tree;
}

}  // namespace lakresvos::render
