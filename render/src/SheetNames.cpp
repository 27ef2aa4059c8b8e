#include "SheetNames.h"

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <utf8proc.h>

#include "CleanText.h"
#include "CodePoint.h"

namespace lakresvos::render {

namespace {

constexpr std::size_t kMostUnits = 31;
constexpr std::string_view kForbidden = "[]:*?/\\\n\t";

/// The start of the text that fits into so many UTF-16 units.
std::string_view Cut(std::string_view text, std::size_t units) {
  std::string_view rest = text;
  while (!rest.empty()) {
    CodePoint const point = FirstCodePoint(rest);
    std::size_t const taken = point.code >= 0x10000 ? 2 : 1;
    if (taken > units) {
      break;
    }
    units -= taken;
    rest.remove_prefix(point.length);
  }
  return text.substr(0, text.size() - rest.size());
}

std::string_view Trimmed(std::string_view text) {
  std::size_t const first = text.find_first_not_of(" '");
  std::size_t const last = text.find_last_not_of(" '");
  return first == std::string_view::npos ? "" : text.substr(first, last - first + 1);
}

/// The text with one blank for each run of forbidden characters and blanks.
std::string WithoutForbidden(std::string_view text) {
  std::string clean;
  for (char const c : text) {
    bool const blank = c == ' ' || kForbidden.find(c) != std::string_view::npos;
    if (!blank || clean.empty() || clean.back() != ' ') {
      clean += blank ? ' ' : c;
    }
  }
  return clean;
}

std::string Folded(std::string const& name) {
  std::unique_ptr<utf8proc_uint8_t, decltype(&std::free)> const folded(
      utf8proc_NFKC_Casefold(reinterpret_cast<utf8proc_uint8_t const*>(name.c_str())), &std::free);
  return folded != nullptr ? reinterpret_cast<char const*>(folded.get()) : name;
}

}  // namespace

std::string SheetNames::Next(std::string const& wish) {
  std::string const base(Trimmed(WithoutForbidden(CleanText(wish))));
  std::string name(Trimmed(Cut(base, kMostUnits)));
  for (int number = 2; name.empty() || Folded(name) == "history" || taken_.count(Folded(name)) != 0;
       ++number) {
    std::string const suffix = base.empty() ? "Table" : " (" + std::to_string(number) + ")";
    name = base.empty() && number == 2 ? suffix
           : base.empty()              ? suffix + " " + std::to_string(number - 1)
                          : std::string(Cut(base, kMostUnits - suffix.size())) + suffix;
  }
  taken_.insert(Folded(name));
  return name;
}

}  // namespace lakresvos::render
