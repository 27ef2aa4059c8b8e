#include "html/Text.h"

#include <algorithm>
#include <cstddef>

#include "unicode/CleanText.h"

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
  constexpr std::ptrdiff_t kMaxNarrow = 12;  // in characters, as what page.css has room for
  constexpr std::ptrdiff_t kMaxWhole = 24;
  auto const starts = [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; };
  while (!text.empty()) {
    std::string_view const word = text.substr(0, text.find_first_of(kSpaces));
    auto const length = std::count_if(word.begin(), word.end(), starts);
    if (length > kMaxNarrow && length <= kMaxWhole) {
      return true;
    }
    text.remove_prefix(std::min(word.size() + 1, text.size()));
  }
  return false;
}

}  // namespace lakresvos::render
