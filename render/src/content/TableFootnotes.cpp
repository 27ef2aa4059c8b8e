#include "content/TableFootnotes.h"

#include <set>
#include <utility>

namespace lakresvos::render {

namespace {

/// 0 is a, 25 is z, 26 is aa, ...
std::string MakeLetters(std::size_t number) {
  std::string letters;
  for (std::size_t rest = number + 1; rest != 0; rest = (rest - 1) / 26) {
    letters.insert(letters.begin(), static_cast<char>('a' + (rest - 1) % 26));
  }
  return letters;
}

}  // namespace

TableFootnotes::TableFootnotes(OmPivotTable const& table, LabelTexts& labels)
    : table_(table), labels_(labels) {
  std::set<std::string> taken;
  for (OmFootnote const& footnote : table.Footnotes().Elements()) {
    taken.insert(labels.Text(footnote.marker));
  }
  std::size_t next = 0;
  for (OmFootnote const& footnote : table.Footnotes().Elements()) {
    std::string mark = labels.Text(footnote.marker);
    while (mark.empty()) {
      std::string letters = MakeLetters(next++);
      if (taken.count(letters) == 0) {
        mark = std::move(letters);
      }
    }
    marks_.push_back(std::move(mark));
  }
}

std::string const& TableFootnotes::Text(std::size_t footnote) const {
  return labels_.Text(table_.Footnotes()[footnote].text);
}

std::vector<std::size_t> TableFootnotes::Find(OmCellText const& text) const {
  std::vector<std::size_t> footnotes;
  if (OmCellMetaData const* meta = text.getMeta()) {
    for (unsigned int const number : meta->getFootnotes()) {
      if (number < marks_.size()) {
        footnotes.push_back(number);
      }
    }
  }
  return footnotes;
}

std::string TableFootnotes::Marks(OmCellText const& text) const {
  std::string marks;
  for (std::size_t const footnote : Find(text)) {
    marks += (marks.empty() ? "" : ",") + Mark(footnote);
  }
  return marks;
}

}  // namespace lakresvos::render
