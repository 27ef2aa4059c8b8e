#ifndef LAKRESVOS_RENDER_HTML_TEXT_H
#define LAKRESVOS_RENDER_HTML_TEXT_H

#include <string>
#include <string_view>

namespace lakresvos::render {

/// Appends any text, cleaned and escaped so that it can be in an element and in an attribute in
/// double quotes.
void AppendHtml(std::string& out, std::string_view text);

std::string HtmlText(std::string_view text);

/// Whether a text shows nothing, so that it cannot name anything.
bool IsBlank(std::string_view text);

/// Whether a text has a word that is too long for a narrow column and too short to be broken.
bool HasWideWord(std::string_view text);

}  // namespace lakresvos::render

#endif
