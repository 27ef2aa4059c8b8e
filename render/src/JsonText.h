#ifndef LAKRESVOS_RENDER_JSONTEXT_H
#define LAKRESVOS_RENDER_JSONTEXT_H

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

namespace lakresvos::render {

/// The value that a JSON text is. It is nested no deeper than a document in JSON can be.
/// @throws JsonError for what is not JSON, for names that come twice in an object, and for values
///         that are nested deeper.
nlohmann::json ParseJson(std::string const& text);

/// Appends one step to a JSON Pointer.
void AppendStep(std::string& pointer, std::string_view name);

}  // namespace lakresvos::render

#endif
