#include "JsonValue.h"

#include <algorithm>
#include <cmath>

#include <lakresvos/render/JsonReader.h>

#include "Base64.h"
#include "JsonText.h"

namespace lakresvos::render {

using Json = nlohmann::json;

void JsonValue::Fail(std::string const& problem) const {
  throw JsonError(Pointer(), problem);
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
  if (!json_.is_boolean()) {
    Fail("there should be true or false");
  }
  return json_.get<bool>();
}

double JsonValue::Number() const {
  if (json_.is_number()) {
    return json_.get<double>();
  }
  if (json_.is_string()) {
    auto const& text = json_.get_ref<std::string const&>();
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    if (text == "NaN") {
      return std::numeric_limits<double>::quiet_NaN();
    }
    if (text == "Infinity") {
      return kInfinity;
    }
    if (text == "-Infinity") {
      return -kInfinity;
    }
  }
  Fail(R"(there should be a number, "NaN", "Infinity" or "-Infinity")");
}

float JsonValue::Single() const {
  double const number = Number();
  if (std::isfinite(number) && std::abs(number) > std::numeric_limits<float>::max()) {
    Fail("the number is too large");
  }
  return static_cast<float>(number);
}

std::string const& JsonValue::Plain() const {
  if (!json_.is_string()) {
    Fail("there should be a text");
  }
  return json_.get_ref<std::string const&>();
}

std::string JsonValue::Text() const {
  if (!json_.is_object()) {
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
    Fail("this is not base64");
  }
  return *std::move(bytes);
}

std::size_t JsonValue::Count() const {
  if (!json_.is_array()) {
    Fail("there should be an array");
  }
  return json_.size();
}

Json::object_t const& JsonValue::Fields() const {
  if (!json_.is_object()) {
    Fail("there should be an object");
  }
  return json_.get_ref<Json::object_t const&>();
}

std::optional<JsonValue> JsonObject::Find(std::string_view name) {
  auto const field = fields_.find(name);
  if (field == fields_.end()) {
    return std::nullopt;
  }
  known_.push_back(name);
  return JsonValue(field->second, value_, name);
}

JsonValue JsonObject::At(std::string_view name) {
  std::optional<JsonValue> const field = Find(name);
  if (!field) {
    value_.Fail("the field \"" + std::string(name) + "\" is missing");
  }
  return *field;
}

void JsonObject::Finish() const {
  if (known_.size() == fields_.size()) {
    return;
  }
  for (auto const& [name, field] : fields_) {
    if (std::find(known_.begin(), known_.end(), name) == known_.end()) {
      JsonValue(field, value_, name).Fail("there is no such field");
    }
  }
}

}  // namespace lakresvos::render
