#include "markdown/Text.h"

#include <algorithm>
#include <utf8proc.h>

#include "unicode/CleanText.h"
#include "unicode/CodePoint.h"

namespace lakresvos::render {

namespace {

constexpr std::string_view kMarkup = "\\`*_[]<>|~$!";
constexpr std::string_view kMarksAtStart = "#+-=:";

/// Whether a text starts with a space or a line end.
bool StartsWithSpace(std::string_view text) {
  std::int32_t const code = DecodeFirst(text).code;
  return code == '\n' || code == '\t' || utf8proc_category(code) == UTF8PROC_CATEGORY_ZS;
}

/// Where the last character of a text in UTF-8 starts. Requires: the text is not empty.
std::size_t FindLastCharacter(std::string_view text) {
  std::size_t at = text.size() - 1;
  while (at > 0 && !StartsCodePoint(text[at])) {
    --at;
  }
  return at;
}

std::string_view TrimSpaces(std::string_view text) {
  while (!text.empty() && StartsWithSpace(text)) {
    text.remove_prefix(DecodeFirst(text).length);
  }
  while (!text.empty() && StartsWithSpace(text.substr(FindLastCharacter(text)))) {
    text = text.substr(0, FindLastCharacter(text));
  }
  return text;
}

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

/// Where a list number at the start of the text ends in a '.' or ')', which would make a list.
std::size_t FindListNumberEnd(std::string_view text) {
  auto const* const end = std::find_if_not(text.begin(), text.end(), IsDigit);
  bool const number = end != text.begin() && end != text.end() && (*end == '.' || *end == ')');
  return number ? static_cast<std::size_t>(end - text.begin()) : std::string_view::npos;
}

}  // namespace

std::string MarkdownText(std::string_view text) {
  std::string const clean = CleanText(text);
  std::string markdown;
  for (char const c : TrimSpaces(clean)) {
    if (c == '\n') {
      markdown += "<br>";
    } else if (c == '&') {
      markdown += "&amp;";
    } else {
      markdown += kMarkup.find(c) != std::string_view::npos ? "\\" : "";
      markdown += c;
    }
  }
  return markdown;
}

std::string AtLineStart(std::string const& markdown) {
  std::string line = markdown;
  std::size_t const listNumber = FindListNumberEnd(line);
  if (listNumber != std::string::npos) {
    line.insert(listNumber, "\\");
  } else if (!line.empty() && kMarksAtStart.find(line.front()) != std::string_view::npos) {
    line.insert(0, "\\");
  }
  return line;
}

std::string InHeading(std::string const& markdown) {
  std::string heading = markdown;
  if (!heading.empty() && heading.back() == '#') {
    heading.insert(heading.size() - 1, "\\");
  }
  return heading;
}

std::string MarkdownCode(std::string_view text) {
  std::string const clean = CleanText(text);
  std::size_t longest = 2;
  std::size_t run = 0;
  for (char const c : clean) {
    run = c == '`' ? run + 1 : 0;
    longest = std::max(longest, run);
  }
  std::string const fence(longest + 1, '`');
  bool const open = clean.empty() || clean.back() != '\n';
  return fence + "\n" + clean + (open ? "\n" : "") + fence;
}

}  // namespace lakresvos::render
