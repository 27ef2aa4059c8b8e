#ifndef LAKRESVOS_RENDER_MARKDOWN_TEXT_H
#define LAKRESVOS_RENDER_MARKDOWN_TEXT_H

#include <string>
#include <string_view>

namespace lakresvos::render {

/// Any text as Markdown that shows it on one line: markup escaped, line ends as `<br>`, spaces and
/// line ends around it left out.
std::string MarkdownText(std::string_view text);

/// The same text at the start of a line, where it must not become a heading or a list.
std::string AtLineStart(std::string const& markdown);

/// The same text after the marks of a heading, where '#' at the end would be taken for more marks.
std::string InHeading(std::string const& markdown);

/// Any text as a code block, after a fence that is longer than any in the text.
std::string MarkdownCode(std::string_view text);

}  // namespace lakresvos::render

#endif
