#ifndef LAKRESVOS_RENDER_JSON_READ_ATTRIBUTEREADER_H
#define LAKRESVOS_RENDER_JSON_READ_ATTRIBUTEREADER_H

#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <vector>

#include "json/Attributes.h"
#include "json/read/Value.h"

namespace lakresvos::render {

// The counterparts of Fields.h: a field that is not there has its initial value.

inline std::string ReadText(JsonObject& object, std::string_view name) {
  std::optional<JsonValue> const field = object.Find(name);
  return field ? field->Text() : std::string();
}

inline bool ReadFlag(JsonObject& object, std::string_view name) {
  std::optional<JsonValue> const field = object.Find(name);
  return field && field->Boolean();
}

template <class Number>
Number ReadInteger(JsonObject& object, std::string_view name, Number initial) {
  std::optional<JsonValue> const field = object.Find(name);
  return field ? field->Integer<Number>() : initial;
}

/// An array of whole numbers.
template <class Number>
std::vector<Number> ReadIntegers(JsonObject& object, std::string_view name) {
  std::vector<Number> numbers;
  if (std::optional<JsonValue> const field = object.Find(name)) {
    for (std::size_t i = 0; i < field->Count(); ++i) {
      numbers.push_back(field->Element(i).Integer<Number>());
    }
  }
  return numbers;
}

template <class Owner, class Object, class Value>
void ReadAttribute(JsonObject& from, Owner& owner, Attribute<Object, Value> const& attribute) {
  std::optional<JsonValue> const field = from.Find(attribute.name);
  Value value = attribute.initial;
  if constexpr (std::is_same_v<Value, bool>) {
    value = field ? field->Boolean() : value;
  } else if constexpr (std::is_same_v<Value, float>) {
    value = field ? field->Single() : value;
  } else {
    value = field ? field->template Integer<Value>() : value;
  }
  (owner.*attribute.set)(value);
}

template <class Owner, class Object>
void ReadAttribute(JsonObject& from, Owner& owner, NamedAttribute<Object> const& attribute) {
  std::optional<JsonValue> const field = from.Find(attribute.name);
  int value = attribute.initial;
  if (field && field->IsText()) {
    std::optional<int> const number = attribute.find(field->Plain());
    if (!number) {
      field->Fail("unknown name");
    }
    value = *number;
  } else if (field) {
    value = field->template Integer<int>();
  }
  (owner.*attribute.set)(value);
}

template <class Owner, class Object>
void ReadAttribute(JsonObject& from, Owner& owner, TextAttribute<Object> const& attribute) {
  if (std::optional<JsonValue> const field = from.Find(attribute.name)) {
    (owner.*attribute.set)(field->Text());
  }
}

template <class Owner, class Attributes>
void ReadAttributes(JsonObject& from, Owner& owner, Attributes const& attributes) {
  std::apply([&](auto const&... each) { (ReadAttribute(from, owner, each), ...); }, attributes);
}

}  // namespace lakresvos::render

#endif
