#include "json/write/Stream.h"

#include <algorithm>
#include <cmath>

#include "io/Base64.h"
#include "unicode/CodePoint.h"

namespace lakresvos::render {

namespace {

void AppendEscaped(std::string& out, char c) {
  constexpr std::string_view kHex = "0123456789abcdef";
  switch (c) {
    case '"':
    case '\\':
      out += '\\';
      out += c;
      break;
    case '\n':
      out += "\\n";
      break;
    case '\t':
      out += "\\t";
      break;
    default:
      out += "\\u00";
      out += kHex[static_cast<unsigned char>(c) >> 4U];
      out += kHex[static_cast<unsigned char>(c) & 15U];
  }
}

}  // namespace

void JsonStream::Open(char begin, char end, bool lines) {
  StartValue();
  out_ << begin;
  levels_.push_back({end, lines, true});
}

void JsonStream::End() {
  Level const level = levels_.back();
  levels_.pop_back();
  if (level.lines && !level.empty) {
    out_ << '\n';
  }
  out_ << level.end;
  out_.Drain();
}

JsonStream& JsonStream::Name(std::string_view name) {
  StartValue();
  Quoted(name);
  out_ << ':';
  named_ = true;
  return *this;
}

void JsonStream::StartValue() {
  if (named_ || levels_.empty()) {
    named_ = false;
    return;
  }
  Level& level = levels_.back();
  if (!level.empty) {
    out_ << ',';
  }
  if (level.lines) {
    out_ << '\n';
  }
  level.empty = false;
}

void JsonStream::Raw(std::string_view text) {
  StartValue();
  out_ << text;
}

template <class Value>
void JsonStream::Floating(Value value) {
  if (std::isnan(value)) {
    return Raw("\"NaN\"");
  }
  if (std::isinf(value)) {
    return Raw(value > 0 ? "\"Infinity\"" : "\"-Infinity\"");
  }
  StartValue();
  AppendNumber(out_.Text(), value);
  if (value == 0 && std::signbit(value)) {
    out_ << ".0";  // an integer has no negative zero
  }
}

template void JsonStream::Floating(float value);
template void JsonStream::Floating(double value);

void JsonStream::Text(std::string_view text) {
  if (IsUtf8(text)) {
    StartValue();
    Quoted(text);
    return;
  }
  BeginObject();
  Name("base64").Bytes(text);
  End();
}

void JsonStream::Quoted(std::string_view text) {
  std::string& out = out_.Text();
  out += '"';
  for (char const c : text) {
    if (c == '"' || c == '\\' || static_cast<unsigned char>(c) < ' ') {
      AppendEscaped(out, c);
    } else {
      out += c;
    }
  }
  out += '"';
}

void JsonStream::Bytes(std::string_view bytes) {
  constexpr std::size_t kPiece = 3U << 14U;  // a multiple of 3 needs no padding
  StartValue();
  out_ << '"';
  while (!bytes.empty()) {
    std::string_view const piece = bytes.substr(0, kPiece);
    AppendBase64(out_.Text(), piece);
    out_.Drain();
    bytes.remove_prefix(piece.size());
  }
  out_ << '"';
}

}  // namespace lakresvos::render
