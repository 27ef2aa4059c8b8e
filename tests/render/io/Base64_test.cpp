#include "io/Base64.h"

#include <gtest/gtest.h>
#include <optional>
#include <rapidcheck/gtest.h>
#include <string>

namespace {

using lakresvos::render::AppendBase64;
using lakresvos::render::DecodeBase64;

std::string Encoded(std::string const& bytes) {
  std::string text;
  AppendBase64(text, bytes);
  return text;
}

TEST(Base64, EncodesTheExamplesOfItsStandard) {
  EXPECT_EQ(Encoded(""), "");
  EXPECT_EQ(Encoded("f"), "Zg==");
  EXPECT_EQ(Encoded("fo"), "Zm8=");
  EXPECT_EQ(Encoded("foo"), "Zm9v");
  EXPECT_EQ(Encoded("foob"), "Zm9vYg==");
  EXPECT_EQ(Encoded("fooba"), "Zm9vYmE=");
  EXPECT_EQ(Encoded("foobar"), "Zm9vYmFy");
}

TEST(Base64, DecodesItsLastDigits) {
  EXPECT_EQ(DecodeBase64("+/+/"), "\xFB\xFF\xBF");
}

RC_GTEST_PROP(Base64Property, DecodesWhatItEncodes, (std::string const& bytes)) {
  RC_ASSERT(DecodeBase64(Encoded(bytes)) == bytes);
}

RC_GTEST_PROP(Base64Property, DecodesNothingButWhatItEncodes, ()) {
  auto const text = *rc::gen::container<std::string>(rc::gen::elementOf(std::string("AQgw/+9= ")));
  if (std::optional<std::string> const bytes = DecodeBase64(text)) {
    RC_ASSERT(Encoded(*bytes) == text);
  }
}

}  // namespace
