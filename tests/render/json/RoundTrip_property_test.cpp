#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <sstream>
#include <string>

#include <lakresvos/render/TextRenderer.h>

#include "render/json/Documents.h"
#include "render/support/RandomDocument.h"

namespace {

using json_documents::Read;
using json_documents::Written;

std::string Shown(OmOutputTree const& tree) {
  std::ostringstream out;
  lakresvos::render::RenderText(tree, out);
  return out.str();
}

RC_GTEST_PROP(JsonProperty, ADocumentThatIsReadIsWrittenAsItWas, ()) {
  OmOutputTree tree;
  MakeRandomDocument(tree);
  std::string const text = Written(tree);
  RC_LOG() << text;
  RC_ASSERT(Written(*Read(text)) == text);
}

RC_GTEST_PROP(JsonProperty, ADocumentThatIsReadLooksAsItDid, ()) {
  OmOutputTree tree;
  MakeRandomDocument(tree);
  std::string const text = Written(tree);
  RC_LOG() << text;
  RC_ASSERT(Shown(*Read(text)) == Shown(tree));
}

RC_GTEST_PROP(JsonProperty, ALayoutChangesNothingOfTheDocument, ()) {
  OmOutputTree tree;
  MakeRandomDocument(tree);
  lakresvos::render::JsonOptions options;
  options.layout = true;
  RC_ASSERT(Written(*Read(Written(tree, options))) == Written(tree));
}

}  // namespace
