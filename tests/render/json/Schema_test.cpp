#include <cstdlib>
#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <string>

#include <lakresvos/render/JsonRenderer.h>

#include "render/json/Documents.h"
#include "render/support/RandomDocument.h"
#include "support/TemporaryDirectory.h"

namespace {

using json_documents::Written;

/// Whether the schema takes all of these files.
bool IsValid(std::string const& files) {
  return std::system(
             ("python3 " LAKRESVOS_VALIDATE_JSON " " LAKRESVOS_SCHEMA " " + files).c_str()) == 0;
}

TEST(JsonSchema, TakesWhatIsWritten) {
  TemporaryDirectory const directory;
  int count = 0;
  bool const generated = rc::check([&] {
    OmOutputTree tree;
    MakeRandomDocument(tree);
    lakresvos::render::JsonOptions options;
    options.layout = ++count % 8 == 0;
    if (count % 4 == 0) {  // the validator takes its time
      directory.Write(std::to_string(count) + ".json", Written(tree, options));
    }
  });
  ASSERT_TRUE(generated);
  ASSERT_EQ(directory.Entries(), static_cast<std::size_t>(count / 4));
  EXPECT_TRUE(IsValid(directory.Path("*.json")));
}

TEST(JsonSchema, RefusesWhatTheReaderRefuses) {
  TemporaryDirectory const directory;
  std::string const start = R"({"format":"lakresvos-document","version":1,"parts":[)";
  std::string const texts[] = {
      R"({"format":"lakresvos-document","version":2,"parts":[]})",
      start + R"({"depth":0,"type":"song"}]})",
      start + R"({"depth":0,"type":"pageTitle","text":"","extra":1}]})",
      start + R"({"depth":0,"type":"heading","label":{}}]})",
      start + R"({"depth":0,"type":"heading","label":{"number":1,"text":""}}]})",
      start + R"({"depth":0,"type":"heading","label":{"text":{"base64":"A"}}}]})",
      start + R"({"depth":0,"type":"heading","label":{"number":1,"label":""}}]})",
  };
  for (std::string const& text : texts) {
    EXPECT_NE(json_documents::ErrorOf(text), "no error") << text;
    EXPECT_FALSE(IsValid(directory.Write("wrong.json", text))) << text;
  }
}

}  // namespace
