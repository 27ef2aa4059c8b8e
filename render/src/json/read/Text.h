#ifndef LAKRESVOS_RENDER_JSON_READ_TEXT_H
#define LAKRESVOS_RENDER_JSON_READ_TEXT_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace lakresvos::render {

/// What a JSON text says.
struct JsonData {
  struct Field;
  using Array = std::vector<JsonData>;
  using Object = std::vector<Field>;

  std::variant<std::nullptr_t, bool, std::int64_t, std::uint64_t, double, std::string, Array,
               Object>
      value;
};

struct JsonData::Field {
  std::string name;
  JsonData data;
};

/// The value that a JSON text (RFC 8259) is. Nothing in it is larger than in a document in JSON:
/// values are nested no deeper, objects have no more fields, and no two of one name.
/// @throws JsonError for what is not JSON, and for anything larger.
JsonData ParseJson(std::string const& text);

/// Appends one step to a JSON Pointer (RFC 6901): "~" and "/" in a name become "~0" and "~1".
void AppendStep(std::string& pointer, std::string_view name);

}  // namespace lakresvos::render

#endif
