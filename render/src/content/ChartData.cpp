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

}  // namespace

std::string WriteChartData(ChartData const& data) {
  nlohmann::ordered_json json;
  json["categories"] = data.categories;
  json["series"] = nlohmann::ordered_json::array();
  for (ChartData::Series const& series : data.series) {
    json["series"].push_back({{"name", series.name}, {"values", series.values}});
  }
  for (auto const& [name, title] : kTitles) {
    if (!(data.*title).empty()) {
      json[name] = data.*title;
    }
  }
  return json.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace);
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
