#include "FootnoteMarks.h"

#include <algorithm>
#include <array>
#include <set>
#include <string_view>

namespace lakresvos::render {

namespace {

std::string MarkerOf(OmFootnote const& footnote) {
  return footnote.marker != nullptr ? footnote.marker->GetText() : std::string();
}

/// 0 is a, 25 is z, 26 is aa, ...
std::string Letters(std::size_t number) {
  std::string letters;
  for (std::size_t rest = number + 1; rest != 0; rest = (rest - 1) / 26) {
    letters.insert(letters.begin(), static_cast<char>('a' + (rest - 1) % 26));
  }
  return letters;
}

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

FootnoteMarks::FootnoteMarks(OmPivotTable const& table, bool ascii) : table_(table), ascii_(ascii) {
  std::set<std::string> taken;
  for (OmFootnote const& footnote : table.Footnotes().Elements()) {
    taken.insert(MarkerOf(footnote));
  }
  std::size_t next = 0;
  for (OmFootnote const& footnote : table.Footnotes().Elements()) {
    std::string mark = MarkerOf(footnote);
    while (mark.empty()) {
      std::string letters = Letters(next++);
      if (taken.count(letters) == 0) {
        mark = std::move(letters);
      }
    }
    marks_.push_back(std::move(mark));
  }
}

std::string FootnoteMarks::Of(OmCellText const& text) const {
  std::string joined;
  if (OmCellMetaData const* meta = text.getMeta()) {
    for (unsigned int const number : meta->getFootnotes()) {
      if (number < marks_.size()) {
        joined += (joined.empty() ? "" : ",") + marks_[number];
      }
    }
  }
  return joined.empty() ? joined : Shown(joined);
}

std::vector<std::string> FootnoteMarks::Notes() const {
  std::vector<std::string> notes;
  for (std::size_t i = 0; i < marks_.size(); ++i) {
    OmCellText const* const text = table_.Footnotes()[i].text;
    notes.push_back(Shown(marks_[i]) + ' ' + (text != nullptr ? text->GetText() : std::string()));
  }
  return notes;
}

std::string FootnoteMarks::Shown(std::string const& mark) const {
  std::string const raised = ascii_ ? std::string() : Raised(mark);
  return raised.empty() ? '[' + mark + ']' : raised;
}

}  // namespace lakresvos::render
