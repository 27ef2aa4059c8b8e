#ifndef LAKRESVOS_RENDER_JSONSYNTAX_H
#define LAKRESVOS_RENDER_JSONSYNTAX_H

#include <cstddef>
#include <string_view>

#include <lakresvos/render/Export.h>
#include <lakresvos/render/JsonReader.h>

namespace lakresvos::render {

/// Makes the error for a text that is not JSON: where it stops to be, and why in few words, such as
/// "2:7: invalid JSON: unexpected end". For programs that read JSON of their own beside documents
/// with the same parser, nlohmann::json, so that all their messages read alike.
///
/// Takes time linear in the text.
///
/// @param text all that was parsed.
/// @param position how many bytes were read when the error showed, the offending one included, as
///        the parser tells json_sax::parse_error(); 0 counts as the start.
/// @param message what() of the exception that the parser tells it.
LAKRESVOS_RENDER_EXPORT JsonError MakeSyntaxError(std::string_view text, std::size_t position,
                                                  std::string_view message);

}  // namespace lakresvos::render

#endif
