#include "HtmlNotes.h"

#include <utility>

#include "CellText.h"
#include "HtmlText.h"

namespace lakresvos::render {

namespace {

/// More links back would bury a note that thousands of cells refer to.
constexpr std::size_t kMostLinksBack = 20;

}  // namespace

HtmlNotes::HtmlNotes(TableFootnotes const& footnotes, std::string const& prefix)
    : footnotes_(footnotes), prefix_(prefix), markedBy_(footnotes.Count()) {}

void HtmlNotes::Append(std::string& out, OmCellText const* label) {
  if (label == nullptr) {
    return;
  }
  AppendHtml(out, label->GetText());
  if (markedBy_.empty() || !label->hasMeta()) {
    return;
  }
  char const* before = "<sup>";
  for (std::size_t const footnote : footnotes_.Of(*label)) {
    std::size_t const mark = ++marks_;
    if (markedBy_[footnote].size() < kMostLinksBack) {
      markedBy_[footnote].push_back(mark);
    }
    out += std::exchange(before, ",");
    out += "<a role=\"doc-noteref\" id=\"" + prefix_ + "m" + std::to_string(mark) + "\" href=\"#" +
           prefix_ + "n" + std::to_string(footnote + 1) + "\">";
    AppendHtml(out, footnotes_.Mark(footnote));
    out += "</a>";
  }
  if (*before == ',') {
    out += "</sup>";
  }
}

void HtmlNotes::AppendNotes(std::string& out) const {
  if (markedBy_.empty()) {
    return;
  }
  out += "<ul class=\"notes\">";
  for (std::size_t footnote = 0; footnote < markedBy_.size(); ++footnote) {
    std::string const mark = HtmlText(footnotes_.Mark(footnote));
    out += "<li id=\"" + prefix_ + "n" + std::to_string(footnote + 1) + "\"><sup>" + mark +
           "</sup> " + HtmlText(footnotes_.Text(footnote));
    std::size_t number = 0;
    for (std::size_t const source : markedBy_[footnote]) {
      out += " <a role=\"doc-backlink\" href=\"#" + prefix_ + "m" + std::to_string(source) +
             "\" aria-label=\"Back to mark " + mark + ", place " + std::to_string(++number) +
             "\">\u21A9</a>";
    }
    out += "</li>";
  }
  out += "</ul>";
}

}  // namespace lakresvos::render
