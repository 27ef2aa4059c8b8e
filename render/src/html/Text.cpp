#include "html/Text.h"

#include <algorithm>
#include <cstddef>

#include "unicode/CleanText.h"
#include "unicode/CodePoint.h"

namespace lakresvos::render {

namespace {

constexpr char kSpaces[] = " \t\r\n";

bool IsPlain(char c) {
  return c >= ' ' && c <= '~' && c != '&' && c != '<' && c != '>' && c != '"' && c != '\'';
}

void AppendEscaped(std::string& out, char c) {
  switch (c) {
    case '&':
      out += "&amp;";
      break;
    case '<':
      out += "&lt;";
      break;
    case '>':
      out += "&gt;";
      break;
    case '"':
      out += "&quot;";
      break;
    case '\'':
      out += "&#39;";
      break;
    default:
      out += c;
  }
}

}  // namespace

void AppendHtml(std::string& out, std::string_view text) {
  if (std::all_of(text.begin(), text.end(), IsPlain)) {
    out += text;
    return;
  }
  for (char const c : CleanText(text)) {
    AppendEscaped(out, c);
  }
}

std::string HtmlText(std::string_view text) {
  std::string html;
  AppendHtml(html, text);
  return html;
}

bool IsBlank(std::string_view text) {
  return text.find_first_not_of(kSpaces) == std::string_view::npos;
}

bool HasWideWord(std::string_view text) {
  constexpr std::size_t kMaxNarrow = 12;  // in characters, as what page.css has room for
  constexpr std::size_t kMaxWhole = 24;
  while (!text.empty()) {
    std::string_view const word = text.substr(0, text.find_first_of(kSpaces));
    std::size_t const length = CountCodePoints(word);
    if (length > kMaxNarrow && length <= kMaxWhole) {
      return true;
    }
    text.remove_prefix(std::min(word.size() + 1, text.size()));
  }
  return false;
}

}  // namespace lakresvos::render
