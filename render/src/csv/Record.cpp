#include "csv/Record.h"

#include <algorithm>

#include "unicode/CleanText.h"
#include "unicode/CodePoint.h"

namespace lakresvos::render {

namespace {

/// Whether a spreadsheet takes a text that starts like this for a formula (OWASP, "CSV Injection"):
/// some skip spaces, some remove quotes, and some know full-width forms of the signs.
bool StartsFormula(std::string_view text) {
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

/// The length of what a spreadsheet may take for the end of a field, quoted or not, at the start of
/// the text: some split at other characters than commas, and then know nothing of the quotes.
std::size_t MatchFieldEnd(std::string_view text) {
  // The last one is where the line end U+0085 was.
  for (std::string_view const end :
       {std::string_view(","), std::string_view(";"), std::string_view("|"), std::string_view("\t"),
        std::string_view("\n"), std::string_view("\u00A0"), std::string_view("\u2028"),
        std::string_view("\u2029"), kReplacement}) {
    if (text.starts_with(end)) {
      return end.size();
    }
  }
  return 0;
}

/// The text with an apostrophe wherever a formula would start.
std::string GuardFormulas(std::string_view text) {
  bool const startsWithControl = !text.empty() && (text.front() == '\t' || text.front() == '\n');
  std::string guarded = startsWithControl || StartsFormula(text) ? "'" : "";
  while (!text.empty()) {
    std::size_t const end = MatchFieldEnd(text);
    std::size_t const length = std::max<std::size_t>(end, 1);
    guarded += text.substr(0, length);
    text.remove_prefix(length);
    if (end != 0 && StartsFormula(text)) {
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

std::string CsvRecord::CleanField(std::string_view text) const {
  std::string clean = CleanText(text);
  return safe_ ? GuardFormulas(clean) : clean;
}

std::string CsvRecord::EncodeField(std::string_view text) const {
  std::string shown = CleanField(text);
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
    out_ += ',';
  } else {
    out_ += lead_;
  }
  empty_ = empty_ && encoded.empty();
  out_ += encoded;
}

void CsvRecord::End() {
  out_ += lead_.empty() && fields_ == 1 && empty_ ? "\"\"\r\n" : "\r\n";
  fields_ = 0;
  empty_ = true;
}

}  // namespace lakresvos::render
