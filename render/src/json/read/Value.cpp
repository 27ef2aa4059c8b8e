#include "json/read/Value.h"

#include <algorithm>
#include <cmath>

#include <lakresvos/render/JsonReader.h>

#include "io/Base64.h"

namespace lakresvos::render {

void JsonValue::Fail(std::string const& problem) const {
  throw JsonError(Pointer(), problem);
}

void JsonValue::Spend(double bytes) const {
  if (!budget_->Spend(bytes)) {
    Fail("needs too much memory for the size of the document");
  }
}

std::string JsonValue::Pointer() const {
  std::vector<JsonValue const*> path;
  for (JsonValue const* at = this; at->in_ != nullptr; at = at->in_) {
    path.push_back(at);
  }
  std::string pointer;
  for (auto at = path.rbegin(); at != path.rend(); ++at) {
    AppendStep(pointer, (*at)->position_ ? std::to_string(*(*at)->position_) : (*at)->name_);
  }
  return pointer;
}

bool JsonValue::Boolean() const {
  if (auto const* const flag = std::get_if<bool>(&data_)) {
    return *flag;
  }
  Fail("expected true or false");
}

double JsonValue::Number() const {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  if (auto const* const number = std::get_if<double>(&data_)) {
    return *number;
  }
  if (auto const* const number = std::get_if<std::uint64_t>(&data_)) {
    return static_cast<double>(*number);
  }
  if (auto const* const number = std::get_if<std::int64_t>(&data_)) {
    return static_cast<double>(*number);
  }
  if (auto const* const text = std::get_if<std::string>(&data_)) {
    if (*text == "NaN") {
      return std::numeric_limits<double>::quiet_NaN();
    }
    if (*text == "Infinity" || *text == "-Infinity") {
      return text->front() == '-' ? -kInfinity : kInfinity;
    }
  }
  Fail(R"(expected a number, "NaN", "Infinity" or "-Infinity")");
}

float JsonValue::Single() const {
  double const number = Number();
  if (std::isfinite(number) && std::abs(number) > std::numeric_limits<float>::max()) {
    Fail("number out of range");
  }
  return static_cast<float>(number);
}

std::string const& JsonValue::Plain() const {
  if (auto const* const text = std::get_if<std::string>(&data_)) {
    return *text;
  }
  Fail("expected a string");
}

bool JsonValue::Is(std::string_view text) const {
  auto const* const own = std::get_if<std::string>(&data_);
  return own != nullptr && *own == text;
}

std::string JsonValue::Text() const {
  if (!std::holds_alternative<JsonData::Object>(data_)) {
    return Plain();
  }
  JsonObject object(*this);
  std::string bytes = object.At("base64").Bytes();
  object.Finish();
  return bytes;
}

std::string JsonValue::Bytes() const {
  std::optional<std::string> bytes = DecodeBase64(Plain());
  if (!bytes) {
    Fail("invalid base64");
  }
  return *std::move(bytes);
}

std::size_t JsonValue::Count() const {
  if (auto const* const elements = std::get_if<JsonData::Array>(&data_)) {
    return elements->size();
  }
  Fail("expected an array");
}

JsonData::Object const& JsonValue::Fields() const {
  if (auto const* const fields = std::get_if<JsonData::Object>(&data_)) {
    return *fields;
  }
  Fail("expected an object");
}

std::optional<JsonValue> JsonObject::Find(std::string_view name) {
  auto const field = std::find_if(fields_.begin(), fields_.end(),
                                  [&](JsonData::Field const& each) { return each.name == name; });
  if (field == fields_.end()) {
    return std::nullopt;
  }
  known_.push_back(name);
  return JsonValue(field->data, value_, name);
}

JsonValue JsonObject::At(std::string_view name) {
  std::optional<JsonValue> const field = Find(name);
  if (!field) {
    value_.Fail("missing field '" + std::string(name) + "'");
  }
  return *field;
}

void JsonObject::Finish() const {
  if (known_.size() == fields_.size()) {
    return;
  }
  for (auto const& [name, data] : fields_) {
    if (std::find(known_.begin(), known_.end(), name) == known_.end()) {
      JsonValue(data, value_, name).Fail("unknown field");
    }
  }
}

}  // namespace lakresvos::render
