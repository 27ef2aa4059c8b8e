#include "CsvRecord.h"

#include <algorithm>

#include "CleanText.h"

namespace lakresvos::render {

namespace {

/// Whether a spreadsheet takes a text that starts like this for a formula: some skip spaces, some
/// take quotes away, and some know full-width forms of the signs.
bool StartsAFormula(std::string_view text) {
  std::size_t const start = text.find_first_not_of(" \"");
  std::string_view const rest = start == std::string_view::npos ? "" : text.substr(start);
  if (!rest.empty() && std::string_view("=+-@").find(rest.front()) != std::string_view::npos) {
    return true;
  }
  for (char const* sign : {"\xEF\xBC\x9D", "\xEF\xBC\x8B", "\xEF\xBC\x8D", "\xEF\xBC\xA0"}) {
    if (rest.substr(0, 3) == sign) {
      return true;
    }
  }
  return false;
}

/// Whether a spreadsheet may take this for the end of a field, quoted or not: some split at other
/// characters than commas, and then know nothing of the quotes.
bool MayEndAField(char c) {
  return std::string_view(",;|\t\n").find(c) != std::string_view::npos;
}

/// The text with an apostrophe wherever a formula would start.
std::string Guarded(std::string_view text) {
  bool const startsWithControl = !text.empty() && (text.front() == '\t' || text.front() == '\n');
  std::string guarded = startsWithControl || StartsAFormula(text) ? "'" : "";
  while (!text.empty()) {
    char const c = text.front();
    text.remove_prefix(1);
    guarded += c;
    if (MayEndAField(c) && StartsAFormula(text)) {
      guarded += '\'';
    }
  }
  return guarded;
}

bool NeedsQuotes(std::string_view text) {
  auto const isSpecial = [](char c) { return c == ',' || c == '"' || c == '\r' || c == '\n'; };
  return !text.empty() && (text.front() == ' ' || text.back() == ' ' ||
                           std::any_of(text.begin(), text.end(), isSpecial));
}

}  // namespace

std::string CsvRecord::Shown(std::string_view text) const {
  std::string clean = CleanText(text);
  return safe_ ? Guarded(clean) : clean;
}

std::string CsvRecord::Encoded(std::string_view text) const {
  std::string shown = Shown(text);
  if (!NeedsQuotes(shown)) {
    return shown;
  }
  std::string quoted = "\"";
  for (char const c : shown) {
    quoted.append(c == '"' ? 2 : 1, c);
  }
  return quoted + '"';
}

void CsvRecord::Add(std::string_view encoded) {
  if (fields_++ != 0) {
    out_ << ',';
  } else {
    out_ << lead_;
  }
  blank_ = blank_ && encoded.empty();
  out_ << encoded;
}

void CsvRecord::End() {
  out_ << (lead_.empty() && fields_ == 1 && blank_ ? "\"\"\r\n" : "\r\n");
  out_.Drain();
  fields_ = 0;
  blank_ = true;
}

}  // namespace lakresvos::render
