#ifndef LAKRESVOS_REPORT_STYLE_STYLEPROPERTIES_H
#define LAKRESVOS_REPORT_STYLE_STYLEPROPERTIES_H

#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include <lakresvos/FormatArea.h>

namespace lakresvos::report {

/// A JSON value that a property may have; no state for null, which none may.
using StyleValue = std::variant<std::monostate, bool, double, std::string>;

/// One property that a style file can give an area.
struct StyleProperty {
  std::string_view name;       ///< as documents in JSON have it
  std::string_view shortName;  ///< read too; empty: there is none
  char const* expected;        ///< what its values are, for messages: "true or false"

  /// Stores the value; false, and nothing stored, when the property cannot have it.
  bool (*set)(FormatArea& format, StyleValue const& value);
};

/// The property with this name or short name, or null.
StyleProperty const* FindStyleProperty(std::string_view name);

/// The area with this name, or with this number from 0 to 8 as a text.
std::optional<FormatArea::Area> FindStyleArea(std::string_view name);

}  // namespace lakresvos::report

#endif
