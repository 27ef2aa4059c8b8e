#include "HtmlText.h"

#include <algorithm>

#include "CleanText.h"

namespace lakresvos::render {

namespace {

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
  return text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

}  // namespace lakresvos::render
