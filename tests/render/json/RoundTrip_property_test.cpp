#include <gtest/gtest.h>
#include <sstream>
#include <string>

#include <lakresvos/render/TextRenderer.h>

#include "render/json/Documents.h"
#include "render/support/RandomDocument.h"
#include "support/Property.h"

namespace {

using json_documents::Read;
using json_documents::Written;

std::string Shown(OmOutputTree const& tree) {
  std::ostringstream out;
  lakresvos::render::RenderText(tree, out);
  return out.str();
}

PROPERTY(JsonProperty, ADocumentThatIsReadIsWrittenAsItWas) {
  OmOutputTree tree;
  MakeRandomDocument(tree);
  std::string const text = Written(tree);
  RC_LOG() << text;
  RC_ASSERT(Written(*Read(text)) == text);
}

PROPERTY(JsonProperty, ADocumentThatIsReadLooksAsItDid) {
  OmOutputTree tree;
  MakeRandomDocument(tree);
  std::string const text = Written(tree);
  RC_LOG() << text;
  RC_ASSERT(Shown(*Read(text)) == Shown(tree));
}

PROPERTY(JsonProperty, ALayoutChangesNothingOfTheDocument) {
  OmOutputTree tree;
  MakeRandomDocument(tree);
  lakresvos::render::JsonOptions options;
  options.layout = true;
  RC_ASSERT(Written(*Read(Written(tree, options))) == Written(tree));
}

}  // namespace
