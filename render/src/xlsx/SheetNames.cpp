#include "xlsx/SheetNames.h"

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <new>
#include <string_view>
#include <utf8proc.h>

#include "unicode/CleanText.h"
#include "unicode/Utf16.h"

namespace lakresvos::render {

namespace {

// What spreadsheet programs accept in the name of a sheet.
constexpr std::size_t kMaxUnits = 31;
constexpr std::string_view kForbidden = "[]:*?/\\\n\t";
constexpr std::string_view kReserved = "history";

std::string_view Trim(std::string_view text) {
  std::size_t const first = text.find_first_not_of(" '");
  std::size_t const last = text.find_last_not_of(" '");
  return first == std::string_view::npos ? "" : text.substr(first, last - first + 1);
}

/// A text with single spaces for what a name cannot have, and no longer than leaves room for
/// `suffix`.
std::string MakeLegal(std::string const& text, std::string const& suffix) {
  std::string legal;
  for (char const c : CleanText(text)) {
    char const allowed = kForbidden.find(c) != std::string_view::npos ? ' ' : c;
    if (allowed != ' ' || legal.empty() || legal.back() != ' ') {
      legal += allowed;
    }
  }
  return std::string(Trim(Utf16Prefix(Trim(legal), kMaxUnits - suffix.size())));
}

std::string FoldCase(std::string const& name) {
  std::unique_ptr<utf8proc_uint8_t, decltype(&std::free)> const folded(
      utf8proc_NFKC_Casefold(reinterpret_cast<utf8proc_uint8_t const*>(name.c_str())), &std::free);
  if (folded == nullptr) {
    throw std::bad_alloc();
  }
  return reinterpret_cast<char const*>(folded.get());
}

}  // namespace

std::string SheetNames::Next(std::string const& text, std::string const& otherwise) {
  std::string base = MakeLegal(text, "");
  if (base.empty()) {
    base = otherwise;
  }
  std::string const key = FoldCase(base);
  if (key != kReserved && taken_.emplace(key, 1).second) {
    return base;
  }
  for (int& number = taken_.emplace(key, 1).first->second;;) {
    std::string const suffix = " (" + std::to_string(++number) + ")";
    std::string name = MakeLegal(base, suffix) + suffix;
    if (taken_.emplace(FoldCase(name), 1).second) {
      return name;
    }
  }
}

}  // namespace lakresvos::render
