#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <string>

#include <lakresvos/render/JsonSyntax.h>

using lakresvos::render::MakeSyntaxError;

namespace {

/// Passes over everything up to the error, and keeps that.
class ErrorSink : public nlohmann::json_sax<nlohmann::json> {
 public:
  explicit ErrorSink(std::string const& text) : text_(text) {
    nlohmann::json::sax_parse(text, this);
  }

  std::string const& Message() const { return message_; }

  bool null() override { return true; }
  bool boolean(bool /*value*/) override { return true; }
  bool number_integer(number_integer_t /*value*/) override { return true; }
  bool number_unsigned(number_unsigned_t /*value*/) override { return true; }
  bool number_float(number_float_t /*value*/, string_t const& /*text*/) override { return true; }
  bool string(string_t& /*value*/) override { return true; }
  bool binary(binary_t& /*value*/) override { return true; }
  bool start_object(std::size_t /*size*/) override { return true; }
  bool start_array(std::size_t /*size*/) override { return true; }
  bool key(string_t& /*name*/) override { return true; }
  bool end_object() override { return true; }
  bool end_array() override { return true; }

  bool parse_error(std::size_t position, std::string const& /*token*/,
                   nlohmann::detail::exception const& error) override {
    message_ = MakeSyntaxError(text_, position, error.what()).what();
    return false;
  }

 private:
  std::string const& text_;
  std::string message_ = "none";
};

std::string FindError(std::string const& text) {
  return ErrorSink(text).Message();
}

}  // namespace

TEST(JsonSyntax, SaysWhereAndWhy) {
  EXPECT_EQ(FindError("[1, 2]"), "none");
  EXPECT_EQ(FindError("[1, x]"), "1:5: invalid JSON");
  EXPECT_EQ(FindError("[1,\n\"\xC3\xA9\" 2]"), "2:5: invalid JSON");
  EXPECT_EQ(FindError(""), "1:1: invalid JSON: unexpected end");
  EXPECT_EQ(FindError("[1,\n"), "2:1: invalid JSON: unexpected end");
  EXPECT_EQ(FindError("[\"\xFF\"]"), "1:3: invalid UTF-8");
  EXPECT_EQ(FindError("[1e999]"), "1:6: number out of range");
}

// The parser's message quotes the text, which may itself speak of UTF-8.
TEST(JsonSyntax, ReasonIsNotReadOutOfTheText) {
  EXPECT_EQ(FindError("[\"UTF-8\n\"]"), "1:8: invalid JSON");
}
