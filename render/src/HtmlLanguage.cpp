#include "HtmlLanguage.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace lakresvos::render {

namespace {

/// Languages that are written from right to left (ISO 639).
constexpr std::array<std::string_view, 12> kRightToLeft = {"ar", "arc", "ckb", "dv", "fa", "he",
                                                           "ks", "ps",  "sd",  "ug", "ur", "yi"};

bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

}  // namespace

std::string LanguageOf(std::string const& locale) {
  std::string_view const name = std::string_view(locale).substr(0, locale.find_first_of(".@"));
  std::size_t const dash = name.find_first_of("-_");
  std::string_view const language = name.substr(0, dash);
  bool const known = (language.size() == 2 || language.size() == 3) &&
                     std::all_of(language.begin(), language.end(), IsLetter);
  if (!known) {
    return {};
  }
  std::string tag(language);
  std::string_view const region = dash < name.size() ? name.substr(dash + 1) : "";
  bool const plain = (region.size() == 2 && std::all_of(region.begin(), region.end(), IsLetter)) ||
                     (region.size() == 3 && std::all_of(region.begin(), region.end(), [](char c) {
                        return c >= '0' && c <= '9';
                      }));
  return plain ? tag + "-" + std::string(region) : tag;
}

std::string LanguageAttributes(std::string const& language) {
  std::string_view const primary = std::string_view(language).substr(0, language.find('-'));
  bool const leftwards =
      std::find(kRightToLeft.begin(), kRightToLeft.end(), primary) != kRightToLeft.end();
  return " lang=\"" + language + "\" dir=\"" + (leftwards ? "rtl" : "ltr") + "\"";
}

}  // namespace lakresvos::render
