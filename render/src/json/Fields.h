#ifndef LAKRESVOS_RENDER_JSON_FIELDS_H
#define LAKRESVOS_RENDER_JSON_FIELDS_H

#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>

#include "json/Attributes.h"
#include "json/write/Stream.h"

namespace lakresvos::render {

// Fields of the object that a stream is in. Each leaves out what has its initial value.

inline void WriteText(JsonStream& json, std::string_view name, std::string_view text) {
  if (!text.empty()) {
    json.Name(name).Text(text);
  }
}

inline void WriteBytes(JsonStream& json, std::string_view name, std::string_view bytes) {
  if (!bytes.empty()) {
    json.Name(name).Bytes(bytes);
  }
}

template <class Number>
void WriteNumber(JsonStream& json, std::string_view name, Number number, Number initial) {
  if (number != initial) {
    json.Name(name).Number(number);
  }
}

inline void WriteFlag(JsonStream& json, std::string_view name, bool flag, bool initial = false) {
  if (flag != initial) {
    json.Name(name).Boolean(flag);
  }
}

/// An array of numbers, left out when it is empty.
template <class Numbers>
void WriteNumbers(JsonStream& json, std::string_view name, Numbers const& numbers) {
  if (std::begin(numbers) == std::end(numbers)) {
    return;
  }
  json.Name(name).BeginArray();
  for (auto const number : numbers) {
    json.Number(number);
  }
  json.End();
}

template <class Owner, class Object, class Value>
void WriteAttribute(JsonStream& json, Owner const& owner, Attribute<Object, Value> const& field) {
  Value const value = (owner.*field.get)();
  if constexpr (std::is_same_v<Value, bool>) {
    WriteFlag(json, field.name, value, field.initial);
  } else {
    WriteNumber(json, field.name, value, field.initial);
  }
}

template <class Owner, class Object>
void WriteAttribute(JsonStream& json, Owner const& owner, TextAttribute<Object> const& field) {
  WriteText(json, field.name, (owner.*field.get)());
}

template <class Owner, class Fields>
void WriteAttributes(JsonStream& json, Owner const& owner, Fields const& fields) {
  std::apply([&](auto const&... field) { (WriteAttribute(json, owner, field), ...); }, fields);
}

}  // namespace lakresvos::render

#endif
