#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <nlohmann/json.hpp>
#include <string_view>
#include <utility>
#include <variant>

#include <lakresvos/render/ChartData.h>
#include <lakresvos/render/JsonReader.h>

#include "json/read/Text.h"

namespace lakresvos::render {

namespace {

// What is of another type than wanted throws std::bad_variant_access.

/// Null when there is none.
JsonData const* FindField(JsonData const& object, std::string_view name) {
  auto const& fields = std::get<JsonData::Object>(object.value);
  auto const field = std::find_if(fields.begin(), fields.end(),
                                  [name](auto const& one) { return one.name == name; });
  return field == fields.end() ? nullptr : &field->data;
}

JsonData const& Field(JsonData const& object, std::string_view name) {
  if (JsonData const* const field = FindField(object, name)) {
    return *field;
  }
  throw JsonError("", "missing field");
}

double ReadValue(JsonData const& number) {
  auto const& value = number.value;
  if (std::holds_alternative<std::nullptr_t>(value)) {
    return std::numeric_limits<double>::quiet_NaN();
  }
  if (auto const* const positive = std::get_if<std::uint64_t>(&value)) {
    return static_cast<double>(*positive);
  }
  if (auto const* const negative = std::get_if<std::int64_t>(&value)) {
    return static_cast<double>(*negative);
  }
  return std::get<double>(value);
}

// The fields of the titles.
constexpr std::array<std::pair<char const*, std::string ChartData::*>, 3> kTitles = {
    {{"categoryTitle", &ChartData::categoryTitle},
     {"seriesTitle", &ChartData::seriesTitle},
     {"valueTitle", &ChartData::valueTitle}}};

ChartData ReadData(JsonData const& json) {
  ChartData data;
  for (auto const& [name, title] : kTitles) {
    if (JsonData const* const field = FindField(json, name)) {
      data.*title = std::get<std::string>(field->value);
    }
  }
  for (JsonData const& category : std::get<JsonData::Array>(Field(json, "categories").value)) {
    data.categories.push_back(std::get<std::string>(category.value));
  }
  for (JsonData const& one : std::get<JsonData::Array>(Field(json, "series").value)) {
    ChartData::Series series{std::get<std::string>(Field(one, "name").value), {}};
    for (JsonData const& value : std::get<JsonData::Array>(Field(one, "values").value)) {
      series.values.push_back(ReadValue(value));
    }
    if (series.values.size() != data.categories.size()) {
      throw JsonError("", "expected a value for each category");
    }
    data.series.push_back(std::move(series));
  }
  return data;
}

/// A text or a number as JSON. There is no nlohmann::json of more than one value: to be destroyed it
/// would need memory.
template <class Value>
std::string ToJson(Value const& value) {
  return nlohmann::json(value).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

/// Appends an array of what `append` appends for each element.
template <class Elements, class Append>
void AppendArray(std::string& json, Elements const& elements, Append append) {
  char const* separator = "[";
  for (auto const& element : elements) {
    json += std::exchange(separator, ",");
    append(element);
  }
  json += elements.empty() ? "[]" : "]";
}

template <class Value>
void AppendArray(std::string& json, std::vector<Value> const& values) {
  AppendArray(json, values, [&](Value const& value) { json += ToJson(value); });
}

}  // namespace

std::string WriteChartData(ChartData const& data) {
  std::string json = R"({"categories":)";
  AppendArray(json, data.categories);
  json += R"(,"series":)";
  AppendArray(json, data.series, [&](ChartData::Series const& series) {
    json += R"({"name":)" + ToJson(series.name) + R"(,"values":)";
    AppendArray(json, series.values);
    json += '}';
  });
  for (auto const& [name, title] : kTitles) {
    if (!(data.*title).empty()) {
      json += ',' + ToJson(name) + ':' + ToJson(data.*title);
    }
  }
  json += '}';
  return json;
}

std::optional<ChartData> ReadChartData(std::string const& json) {
  try {
    return ReadData(ParseJson(json));
  } catch (JsonError const&) {
  } catch (std::bad_variant_access const&) {
  }
  return std::nullopt;
}

}  // namespace lakresvos::render
