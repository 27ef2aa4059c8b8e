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

void AppendBase64(std::string& out, std::string_view bytes) {
  static constexpr char kDigits[] =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    std::size_t const count = std::min<std::size_t>(3, bytes.size() - i);
    unsigned int three = 0;
    for (std::size_t k = 0; k < 3; ++k) {
      three = three << 8 | (k < count ? static_cast<unsigned char>(bytes[i + k]) : 0U);
    }
    for (std::size_t k = 0; k < 4; ++k) {
      out += k <= count ? kDigits[three >> (18 - 6 * k) & 63U] : '=';
    }
  }
}

}  // namespace lakresvos::render
