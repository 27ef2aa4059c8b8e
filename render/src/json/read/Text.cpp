#include "json/read/Text.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <utility>

#include <lakresvos/render/JsonReader.h>
#include <lakresvos/render/JsonSyntax.h>

namespace lakresvos::render {

namespace {

/// The bytes of a text in a part of a composite in the label of a node are deepest.
constexpr std::size_t kMaxDepth = 12;

/// More than the fields of a table, which has most.
constexpr std::size_t kMaxFields = 64;

/// Builds the value event by event; what a hostile text could do to a parser that takes everything
/// is refused as it comes.
class ValueBuilder : public nlohmann::json_sax<nlohmann::json> {
 public:
  explicit ValueBuilder(std::string const& text) : text_(text) {}

  JsonData Result() { return std::move(result_); }

  bool null() override { return Add(nullptr); }
  bool boolean(bool value) override { return Add(value); }
  bool number_integer(number_integer_t value) override { return Add(std::int64_t{value}); }
  bool number_unsigned(number_unsigned_t value) override { return Add(std::uint64_t{value}); }
  bool number_float(number_float_t value, string_t const& /*text*/) override { return Add(value); }
  bool string(string_t& value) override { return Add(std::move(value)); }
  bool binary(binary_t& /*value*/) override { return Add(nullptr); }  // no JSON text has any
  bool start_object(std::size_t /*size*/) override { return Open(JsonData::Object()); }
  bool start_array(std::size_t /*size*/) override { return Open(JsonData::Array()); }
  bool end_object() override { return Close(); }
  bool end_array() override { return Close(); }

  bool key(string_t& name) override {
    auto& fields = std::get<JsonData::Object>(open_.back()->value);
    bool const fresh =
        std::none_of(fields.begin(), fields.end(),
                     [&](JsonData::Field const& field) { return field.name == name; });
    if (fields.size() == kMaxFields) {
      throw JsonError(Pointer(), "too many fields (at most " + std::to_string(kMaxFields) + ")");
    }
    fields.push_back({std::move(name), {}});
    if (!fresh) {
      throw JsonError(Pointer(), "duplicate field");
    }
    return true;
  }

  bool parse_error(std::size_t position, std::string const& /*token*/,
                   nlohmann::detail::exception const& error) override {
    throw MakeSyntaxError(text_, position, error.what());
  }

 private:
  template <class Value>
  JsonData& Place(Value&& value) {
    JsonData& place = Next();
    place.value = std::forward<Value>(value);
    return place;
  }

  /// Where the next value goes.
  JsonData& Next() {
    if (open_.empty()) {
      return result_;
    }
    auto& around = open_.back()->value;
    if (auto* const fields = std::get_if<JsonData::Object>(&around)) {
      return fields->back().data;
    }
    return std::get<JsonData::Array>(around).emplace_back();
  }

  template <class Value>
  bool Add(Value&& value) {
    Place(std::forward<Value>(value));
    return true;
  }

  template <class Value>
  bool Open(Value&& value) {
    JsonData& place = Place(std::forward<Value>(value));
    if (open_.size() == kMaxDepth) {
      throw JsonError(Pointer(),
                      "nested too deeply (at most " + std::to_string(kMaxDepth) + " levels)");
    }
    open_.push_back(&place);
    return true;
  }

  bool Close() {
    open_.pop_back();
    return true;
  }

  /// Where the value is that was placed last, or that a name was read for.
  std::string Pointer() const {
    std::string pointer;
    for (JsonData const* const around : open_) {
      if (auto const* const fields = std::get_if<JsonData::Object>(&around->value)) {
        AppendStep(pointer, fields->back().name);
      } else {
        AppendStep(pointer, std::to_string(std::get<JsonData::Array>(around->value).size() - 1));
      }
    }
    return pointer;
  }

  std::string const& text_;
  JsonData result_;
  std::vector<JsonData*> open_;  // the objects and arrays around the next value
};

}  // namespace

JsonData ParseJson(std::string const& text) {
  ValueBuilder builder(text);
  nlohmann::json::sax_parse(text, &builder);
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
