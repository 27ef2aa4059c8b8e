#include "content/ChartNumbers.h"

#include <algorithm>
#include <string_view>
#include <variant>

#include <cells/OmNumber.h>
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
  throw JsonError("", "a field is missing");
}

std::string TextOf(JsonData const& number) {
  auto const& value = number.value;
  if (std::holds_alternative<std::nullptr_t>(value)) {
    return {};
  }
  if (auto const* const positive = std::get_if<std::uint64_t>(&value)) {
    return std::to_string(*positive);
  }
  if (auto const* const negative = std::get_if<std::int64_t>(&value)) {
    return std::to_string(*negative);
  }
  return OmNumber(std::get<double>(value)).GetText();
}

ChartNumbers NumbersOf(JsonData const& data) {
  ChartNumbers numbers;
  if (JsonData const* const title = FindField(data, "categoryTitle")) {
    numbers.categoryTitle = std::get<std::string>(title->value);
  }
  for (JsonData const& category : std::get<JsonData::Array>(Field(data, "categories").value)) {
    numbers.categories.push_back(std::get<std::string>(category.value));
  }
  for (JsonData const& one : std::get<JsonData::Array>(Field(data, "series").value)) {
    ChartNumbers::Series series{std::get<std::string>(Field(one, "name").value), {}};
    for (JsonData const& value : std::get<JsonData::Array>(Field(one, "values").value)) {
      series.values.push_back(TextOf(value));
    }
    if (series.values.size() != numbers.categories.size()) {
      throw JsonError("", "there should be a value for each category");
    }
    numbers.series.push_back(std::move(series));
  }
  return numbers;
}

}  // namespace

std::optional<ChartNumbers> ReadChartNumbers(std::string const& json) {
  try {
    return NumbersOf(ParseJson(json));
  } catch (JsonError const&) {
  } catch (std::bad_variant_access const&) {
  }
  return std::nullopt;
}

}  // namespace lakresvos::render
