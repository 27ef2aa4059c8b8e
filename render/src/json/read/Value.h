#ifndef LAKRESVOS_RENDER_JSON_READ_VALUE_H
#define LAKRESVOS_RENDER_JSON_READ_VALUE_H

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <variant>
#include <vector>

#include "json/Names.h"
#include "json/read/ReadBudget.h"
#include "json/read/Text.h"

namespace lakresvos::render {

/// A value of a JSON text that knows where it is. Each operation wants one type of value and
/// throws a JsonError with the place for any other.
///
/// A value refers to the one that it is in, which must outlive it.
class JsonValue {
 public:
  /// @param budget what all values of the text may cost together; must outlive them.
  JsonValue(JsonData const& root, ReadBudget& budget) : data_(root.value), budget_(&budget) {}
  JsonValue(JsonData const& data, JsonValue const& in, std::string_view name)
      : data_(data.value), budget_(in.budget_), in_(&in), name_(name) {}
  JsonValue(JsonData const& data, JsonValue const& in, std::size_t position)
      : data_(data.value), budget_(in.budget_), in_(&in), position_(position) {}

  [[noreturn]] void Fail(std::string const& problem) const;

  /// Spends from the budget what it costs to do as the value says, or fails.
  void Spend(double bytes) const;

  /// What is left of the budget.
  double Affordable() const { return budget_->Left(); }

  bool Boolean() const;
  double Number() const;

  /// A number that a float can hold.
  float Single() const;

  bool IsNull() const { return std::holds_alternative<std::nullptr_t>(data_); }

  bool IsText() const { return std::holds_alternative<std::string>(data_); }

  /// Whether this is the text `text`.
  bool Is(std::string_view text) const;

  /// An integer between the two limits, which default to all that the type can hold. One that not
  /// every reader takes as it is may be a text of its digits.
  template <class Type>
  Type Integer(Type least = std::numeric_limits<Type>::min(),
               Type most = std::numeric_limits<Type>::max()) const {
    if (auto const* const number = std::get_if<std::uint64_t>(&data_)) {
      bool const fits = most >= 0 && *number <= static_cast<std::uint64_t>(most) &&
                        (least <= 0 || *number >= static_cast<std::uint64_t>(least));
      if (fits) {
        return static_cast<Type>(*number);
      }
    } else if (auto const* const negative = std::get_if<std::int64_t>(&data_)) {
      if (least < 0 && *negative >= static_cast<std::int64_t>(least)) {
        return static_cast<Type>(*negative);
      }
    }
    if constexpr (!IsExactInDouble(std::numeric_limits<Type>::max())) {
      Type number{};
      if (ReadDigits(number) && least <= number && number <= most && !IsExactInDouble(number)) {
        return number;
      }
    }
    Fail("expected a whole number from " + std::to_string(least) + " to " + std::to_string(most));
  }

  /// A text, or an object with bytes in base64.
  std::string Text() const;

  /// The bytes of a text in base64.
  std::string Bytes() const;

  /// A text that has no other form.
  std::string const& Plain() const;

  /// The position among some names.
  template <class Names>
  std::size_t Choice(Names const& names) const {
    std::string const& text = Plain();
    std::string quoted;
    for (std::size_t i = 0; i < names.size(); ++i) {
      if (text == names[i]) {
        return i;
      }
      quoted += (i != 0 ? ", \"" : "\"") + std::string(names[i]) + '"';
    }
    Fail("expected one of " + quoted);
  }

  /// The number of elements of an array.
  std::size_t Count() const;

  /// An element of an array. Requires: `position` is below Count().
  JsonValue Element(std::size_t position) const {
    return {std::get<JsonData::Array>(data_)[position], *this, position};
  }

  /// The fields of an object.
  JsonData::Object const& Fields() const;

  std::string Pointer() const;

 private:
  /// Reads a text that is a number and nothing else; whether this is one.
  template <class Type>
  bool ReadDigits(Type& number) const {
    auto const* const text = std::get_if<std::string>(&data_);
    if (text == nullptr) {
      return false;
    }
    char const* const end = text->data() + text->size();
    auto const [last, error] = std::from_chars(text->data(), end, number);
    return error == std::errc() && last == end;
  }

  decltype(JsonData::value) const& data_;
  ReadBudget* budget_;
  JsonValue const* in_ = nullptr;
  std::string_view name_;
  std::optional<std::size_t> position_;
};

/// The fields of an object, asked for by name. All that were not asked for are errors in the end.
class JsonObject {
 public:
  /// @param value must outlive the object.
  explicit JsonObject(JsonValue const& value) : value_(value), fields_(value.Fields()) {}

  JsonValue const& Value() const { return value_; }

  /// A field, if there is one of the name.
  /// Requires: `name` outlives the object and is asked for once.
  std::optional<JsonValue> Find(std::string_view name);

  /// A field that must be there. Requires: as Find().
  JsonValue At(std::string_view name);

  /// Refuses fields that were not asked for.
  void Finish() const;

 private:
  JsonValue const& value_;
  JsonData::Object const& fields_;
  std::vector<std::string_view> known_;  // of those that are there
};

}  // namespace lakresvos::render

#endif
