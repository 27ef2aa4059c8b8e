#include "html/Language.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace lakresvos::render {

namespace {

/// Languages that are written from right to left unless a script is named (ISO 639).
constexpr std::array<std::string_view, 14> kRightToLeft = {
    "ar", "arc", "ckb", "dv", "fa", "he", "iw", "ji", "ks", "ps", "sd", "ug", "ur", "yi"};

/// Scripts that run from right to left (ISO 15924).
constexpr std::array<std::string_view, 6> kRightToLeftScripts = {"Adlm", "Arab", "Hebr",
                                                                 "Nkoo", "Syrc", "Thaa"};

bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

bool IsWord(std::string_view text, std::size_t length) {
  return text.size() == length && std::all_of(text.begin(), text.end(), IsLetter);
}

bool IsRegion(std::string_view text) {
  return IsWord(text, 2) || (text.size() == 3 && std::all_of(text.begin(), text.end(), IsDigit));
}

/// Cuts off what is before the first separator.
std::string_view CutPart(std::string_view& text) {
  std::string_view const part = text.substr(0, text.find_first_of("-_"));
  text.remove_prefix(std::min(text.size(), part.size() + 1));
  return part;
}

/// In lower case from the letter at `first` on, in upper case before it.
std::string FixCase(std::string_view word, std::size_t first) {
  std::string cased(word);
  for (std::size_t i = 0; i < cased.size(); ++i) {
    auto const letter = static_cast<unsigned char>(cased[i]);
    if (IsLetter(cased[i])) {
      cased[i] = static_cast<char>(i < first ? letter & ~0x20U : letter | 0x20U);
    }
  }
  return cased;
}

bool RunsLeft(std::string_view language, std::string_view next) {
  auto const holds = [](auto const& list, std::string_view name) {
    return std::find(list.begin(), list.end(), name) != list.end();
  };
  return next.size() == 4 ? holds(kRightToLeftScripts, next) : holds(kRightToLeft, language);
}

}  // namespace

std::string FindLanguage(std::string const& locale) {
  std::string_view rest = std::string_view(locale).substr(0, locale.find_first_of(".@"));
  std::string_view part = CutPart(rest);
  if (!IsWord(part, 2) && !IsWord(part, 3)) {
    return {};
  }
  std::string tag = FixCase(part, 0);
  part = CutPart(rest);
  if (IsWord(part, 4)) {
    tag += "-" + FixCase(part, 1);
    part = CutPart(rest);
  }
  return IsRegion(part) ? tag + "-" + FixCase(part, 2) : tag;
}

std::string LanguageAttributes(std::string const& language) {
  std::string_view rest = language;
  std::string_view const primary = CutPart(rest);
  return " lang=\"" + language + "\" dir=\"" + (RunsLeft(primary, CutPart(rest)) ? "rtl" : "ltr") +
         "\"";
}

}  // namespace lakresvos::render
