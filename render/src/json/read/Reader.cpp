#include <array>
#include <cstddef>
#include <ios>
#include <string>
#include <utility>

#include <lakresvos/render/JsonReader.h>

#include "json/Names.h"
#include "json/read/ItemReader.h"
#include "json/read/Text.h"

namespace lakresvos::render {

namespace {

std::string ReadAll(std::istream& in) {
  std::string text;
  std::array<char, 1U << 16U> buffer;
  while (in) {
    in.read(buffer.data(), buffer.size());
    text.append(buffer.data(), static_cast<std::size_t>(in.gcount()));
  }
  if (!in.eof() || in.bad()) {
    throw JsonError("", "the text cannot be read");
  }
  return text;
}

void CheckFormat(JsonObject& document) {
  JsonValue const format = document.At("format");
  if (format.Plain() != kDocumentFormat) {
    format.Fail("this is not \"" + std::string(kDocumentFormat) + "\"");
  }
  JsonValue const version = document.At("version");
  if (version.Integer<int>() != kDocumentVersion) {
    version.Fail("only version " + std::to_string(kDocumentVersion) + " can be read");
  }
}

/// Appends items to a tree whose structure their depths tell.
class TreeBuilder {
 public:
  explicit TreeBuilder(OmOutputTree& tree) : tree_(tree) {}

  void Add(JsonValue const& value) {
    JsonObject object(value);
    JsonValue const field = object.At("depth");
    int const deepest = last_.AtEnd() ? 0 : last_.depth + 1;
    int const depth = field.Integer<int>(0, deepest);
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
  std::string text = ReadAll(in);
  ReadBudget budget(text.size());
  JsonData const data = ParseJson(std::exchange(text, {}));
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
