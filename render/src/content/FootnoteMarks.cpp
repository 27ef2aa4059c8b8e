#include "content/FootnoteMarks.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace lakresvos::render {

namespace {

bool IsLetter(char c) {
  return c >= 'a' && c <= 'z';
}

/// The raised form of an ASCII character, empty when it has none.
std::string_view RaiseCharacter(char c) {
  static constexpr std::array<std::string_view, 26> kLetters = {
      "ᵃ", "ᵇ", "ᶜ", "ᵈ", "ᵉ", "ᶠ", "ᵍ", "ʰ", "ⁱ", "ʲ", "ᵏ", "ˡ", "ᵐ",
      "ⁿ", "ᵒ", "ᵖ", "",  "ʳ", "ˢ", "ᵗ", "ᵘ", "ᵛ", "ʷ", "ˣ", "ʸ", "ᶻ"};
  static constexpr std::array<std::string_view, 10> kDigits = {"⁰", "¹", "²", "³", "⁴",
                                                               "⁵", "⁶", "⁷", "⁸", "⁹"};
  if (IsLetter(c)) {
    return kLetters[static_cast<std::size_t>(c - 'a')];
  }
  if (c >= '0' && c <= '9') {
    return kDigits[static_cast<std::size_t>(c - '0')];
  }
  return c == '*' ? "*" : c == ',' ? "," : "";
}

/// The raised form of a mark; empty when some character has none, and for several letters, which
/// would be hard to read and of which some could not be raised.
std::string RaiseMark(std::string const& mark) {
  std::string raised;
  for (char const c : mark) {
    bool const ascii = static_cast<unsigned char>(c) < 0x80;
    std::string_view const form = ascii ? RaiseCharacter(c) : std::string_view(&c, 1);
    if (form.empty()) {
      return {};
    }
    raised += form;
  }
  return std::count_if(mark.begin(), mark.end(), IsLetter) > 1 ? std::string() : raised;
}

}  // namespace

FootnoteMarks::FootnoteMarks(OmPivotTable const& table, LabelTexts& labels, bool ascii)
    : footnotes_(table, labels), ascii_(ascii) {}

std::string FootnoteMarks::Find(OmCellText const& text) const {
  std::string shown;
  if (!text.hasMeta()) {
    return shown;
  }
  bool open = false;  // whether a bracket is
  for (std::size_t const footnote : footnotes_.Find(text)) {
    std::string const& mark = footnotes_.Mark(footnote);
    std::string const raised = FindRaisedForm(mark);
    shown += open && !raised.empty() ? "]" : "";
    shown += shown.empty() ? "" : ",";
    shown += !open && raised.empty() ? "[" : "";
    shown += raised.empty() ? mark : raised;
    open = raised.empty();
  }
  return shown + (open ? "]" : "");
}

std::string FootnoteMarks::Note(std::size_t footnote) const {
  std::string const& mark = footnotes_.Mark(footnote);
  std::string const raised = FindRaisedForm(mark);
  return (raised.empty() ? '[' + mark + ']' : raised) + ' ' + footnotes_.Text(footnote);
}

std::vector<std::string> FootnoteMarks::Notes() const {
  std::vector<std::string> notes;
  for (std::size_t i = 0; i < footnotes_.Count(); ++i) {
    notes.push_back(Note(i));
  }
  return notes;
}

std::string FootnoteMarks::FindRaisedForm(std::string const& mark) const {
  return ascii_ ? std::string() : RaiseMark(mark);
}

}  // namespace lakresvos::render
