#include "MarkdownText.h"

#include <algorithm>
#include <utf8proc.h>

#include "CleanText.h"
#include "CodePoint.h"

namespace lakresvos::render {

namespace {

constexpr std::string_view kMarkup = "\\`*_[]<>|~$!";
constexpr std::string_view kMarksAtStart = "#+-=:";

/// The length of the blank or line end that a text starts with; 0 when it starts with neither.
std::size_t BlankAt(std::string_view text) {
  CodePoint const point = FirstCodePoint(text);
  bool const blank = point.code == '\n' || point.code == '\t' ||
                     utf8proc_category(point.code) == UTF8PROC_CATEGORY_ZS;
  return blank ? point.length : 0;
}

/// A clean text from its first to its last character that can be seen.
std::string_view WithoutBlanksAround(std::string_view text) {
  std::size_t start = 0;
  std::size_t end = 0;
  for (std::size_t at = 0; at < text.size();) {
    std::size_t const blank = BlankAt(text.substr(at));
    start += start == at ? blank : 0;
    at += blank != 0 ? blank : FirstCodePoint(text.substr(at)).length;
    end = blank != 0 ? end : at;
  }
  return text.substr(start, end - std::min(start, end));
}

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

/// Where a list number at the start of the text ends in a '.' or ')', which would make a list.
std::size_t EndOfListNumber(std::string_view text) {
  auto const* const end = std::find_if_not(text.begin(), text.end(), IsDigit);
  bool const number = end != text.begin() && end != text.end() && (*end == '.' || *end == ')');
  return number ? static_cast<std::size_t>(end - text.begin()) : std::string_view::npos;
}

}  // namespace

std::string MarkdownText(std::string_view text) {
  std::string const clean = CleanText(text);
  std::string markdown;
  for (char const c : WithoutBlanksAround(clean)) {
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
  std::size_t const listNumber = EndOfListNumber(line);
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
