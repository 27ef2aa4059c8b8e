#include "JsonText.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

#include <lakresvos/render/JsonReader.h>

namespace lakresvos::render {

namespace {

using Json = nlohmann::json;

/// The bytes of a text in a part of a composite in the label of a node stand deepest.
constexpr std::size_t kDeepest = 12;

/// Builds the value event by event; what a hostile text could do to a parser that takes everything
/// is refused as it comes.
class ValueBuilder : public nlohmann::json_sax<Json> {
 public:
  explicit ValueBuilder(std::string const& text) : text_(text) {}

  Json Result() { return std::move(result_); }

  bool null() override { return Add(nullptr); }
  bool boolean(bool value) override { return Add(value); }
  bool number_integer(number_integer_t value) override { return Add(value); }
  bool number_unsigned(number_unsigned_t value) override { return Add(value); }
  bool number_float(number_float_t value, string_t const& /*text*/) override { return Add(value); }
  bool string(string_t& value) override { return Add(std::move(value)); }
  bool binary(binary_t& value) override { return Add(std::move(value)); }
  bool start_object(std::size_t /*size*/) override { return Open(Json::object()); }
  bool start_array(std::size_t /*size*/) override { return Open(Json::array()); }
  bool end_object() override { return Close(); }
  bool end_array() override { return Close(); }

  bool key(string_t& name) override {
    auto const [field, fresh] = open_.back()->get_ref<Json::object_t&>().emplace(name, nullptr);
    names_.back() = name;
    if (!fresh) {
      throw JsonError(Pointer(), "the field comes twice");
    }
    field_ = &field->second;
    return true;
  }

  bool parse_error(std::size_t position, std::string const& /*token*/,
                   nlohmann::detail::exception const& error) override {
    std::string_view const read =
        std::string_view(text_).substr(0, std::min(position == 0 ? 0 : position - 1, text_.size()));
    auto const line = std::count(read.begin(), read.end(), '\n') + 1;
    std::string_view const before = read.substr(read.rfind('\n') + 1);
    auto const column = std::count_if(before.begin(), before.end(), [](char c) {
      return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;  // the first byte of a character
    });
    throw JsonError(std::to_string(line) + ":" + std::to_string(column + 1), Reason(error));
  }

 private:
  /// What the parser has against the text, without its own idea of the place and without what it
  /// read, which may be long.
  static std::string Reason(nlohmann::detail::exception const& error) {
    std::string_view what = error.what();
    if (dynamic_cast<nlohmann::detail::out_of_range const*>(&error) != nullptr) {
      return "the number is too large";
    }
    what.remove_prefix(std::min(what.find(" - ") + 3, what.size()));
    return "this is not JSON: " + std::string(what.substr(0, what.find("; last read")));
  }

  Json& Place(Json&& value) {
    if (open_.empty()) {
      return result_ = std::move(value);
    }
    if (open_.back()->is_object()) {
      return *field_ = std::move(value);
    }
    auto& elements = open_.back()->get_ref<Json::array_t&>();
    elements.push_back(std::move(value));
    return elements.back();
  }

  bool Add(Json&& value) {
    Place(std::move(value));
    return true;
  }

  bool Open(Json&& value) {
    Json& placed = Place(std::move(value));
    if (open_.size() == kDeepest) {
      throw JsonError(Pointer(), "nothing in a document is nested as deep as this");
    }
    open_.push_back(&placed);
    names_.emplace_back();
    return true;
  }

  bool Close() {
    open_.pop_back();
    names_.pop_back();
    return true;
  }

  /// Where the value stands that was placed last, or that a name was read for.
  std::string Pointer() const {
    std::string pointer;
    for (std::size_t i = 0; i < open_.size(); ++i) {
      AppendStep(pointer, open_[i]->is_object() ? names_[i] : std::to_string(open_[i]->size() - 1));
    }
    return pointer;
  }

  std::string const& text_;
  Json result_;
  std::vector<Json*> open_;         // the objects and arrays around the next value
  std::vector<std::string> names_;  // for each that is an object, the name that came last
  Json* field_ = nullptr;           // where the next value goes when it goes into an object
};

}  // namespace

Json ParseJson(std::string const& text) {
  ValueBuilder builder(text);
  Json::sax_parse(text, &builder);
  return builder.Result();
}

void AppendStep(std::string& pointer, std::string_view name) {
  pointer += '/';
  for (char const c : name) {
    if (c == '~') {
      pointer += "~0";
    } else if (c == '/') {
      pointer += "~1";
    } else {
      pointer += c;
    }
  }
}

}  // namespace lakresvos::render
