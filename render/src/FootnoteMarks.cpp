#include "FootnoteMarks.h"

#include <array>
#include <string_view>

namespace lakresvos::render {

namespace {

/// The raised form of an ASCII character, empty when it has none.
std::string_view Raised(char c) {
  static constexpr std::array<std::string_view, 26> kLetters = {
      "ᵃ", "ᵇ", "ᶜ", "ᵈ", "ᵉ", "ᶠ", "ᵍ", "ʰ", "ⁱ", "ʲ", "ᵏ", "ˡ", "ᵐ",
      "ⁿ", "ᵒ", "ᵖ", "",  "ʳ", "ˢ", "ᵗ", "ᵘ", "ᵛ", "ʷ", "ˣ", "ʸ", "ᶻ"};
  static constexpr std::array<std::string_view, 10> kDigits = {"⁰", "¹", "²", "³", "⁴",
                                                               "⁵", "⁶", "⁷", "⁸", "⁹"};
  if (c >= 'a' && c <= 'z') {
    return kLetters[static_cast<std::size_t>(c - 'a')];
  }
  if (c >= '0' && c <= '9') {
    return kDigits[static_cast<std::size_t>(c - '0')];
  }
  return c == '*' ? "*" : c == ',' ? "," : "";
}

/// The raised form of a text, empty when some character has none.
std::string Raised(std::string const& text) {
  std::string raised;
  for (char const c : text) {
    bool const ascii = static_cast<unsigned char>(c) < 0x80;
    std::string_view const form = ascii ? Raised(c) : std::string_view(&c, 1);
    if (form.empty()) {
      return {};
    }
    raised += form;
  }
  return raised;
}

}  // namespace

FootnoteMarks::FootnoteMarks(OmPivotTable const& table, bool ascii)
    : footnotes_(table), ascii_(ascii) {}

std::string FootnoteMarks::Of(OmCellText const& text) const {
  std::string const joined = footnotes_.Marks(text);
  return joined.empty() ? std::string() : Shown(joined);
}

std::vector<std::string> FootnoteMarks::Notes() const {
  std::vector<std::string> notes;
  for (std::size_t i = 0; i < footnotes_.Count(); ++i) {
    notes.push_back(Shown(footnotes_.Mark(i)) + ' ' + footnotes_.Text(i));
  }
  return notes;
}

std::string FootnoteMarks::Shown(std::string const& mark) const {
  std::string const raised = ascii_ ? std::string() : Raised(mark);
  return raised.empty() ? '[' + mark + ']' : raised;
}

}  // namespace lakresvos::render
