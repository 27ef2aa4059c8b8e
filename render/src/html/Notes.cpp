#include "html/Notes.h"

#include <utility>

#include "html/Text.h"

namespace lakresvos::render {

void HtmlNotes::AppendLabel(std::string& out, OmCellText const* label) {
  if (label != nullptr) {
    AppendHtml(out, Text(label));
    AppendMarks(out, *label);
  }
}

void HtmlNotes::AppendCell(std::string& out, OmCellText const* cell) {
  if (cell != nullptr) {
    AppendHtml(out, cell->GetText());
    AppendMarks(out, *cell);
  }
}

void HtmlNotes::AppendMarks(std::string& out, OmCellText const& label) {
  if (!NumbersMarks() || !label.hasMeta()) {
    return;
  }
  char const* before = "<sup>";
  for (std::size_t const footnote : footnotes_.Find(label)) {
    firstMarks_.emplace(footnote, ++marks_);
    out += std::exchange(before, ",");
    out += "<a role=\"doc-noteref\" id=\"" + prefix_ + "m" + std::to_string(marks_) +
           "\" href=\"#" + prefix_ + "n" + std::to_string(footnote + 1) + "\">";
    AppendHtml(out, footnotes_.Mark(footnote));
    out += "</a>";
  }
  if (*before == ',') {
    out += "</sup>";
  }
}

void HtmlNotes::AppendMarked(std::string& out, std::vector<bool>& listed) const {
  if (firstMarks_.empty()) {
    return;
  }
  out += "<ul class=\"notes\">";
  for (auto const& [footnote, firstMark] : firstMarks_) {
    AppendNote(out, footnote, firstMark);
    listed[footnote] = true;
  }
  out += "</ul>";
}

void HtmlNotes::AppendOthers(std::string& out, std::vector<bool> const& listed) const {
  char const* before = "<ul class=\"notes\">";
  for (std::size_t footnote = 0; footnote < listed.size(); ++footnote) {
    if (!listed[footnote]) {
      out += std::exchange(before, "");
      AppendNote(out, footnote, 0);
    }
  }
  if (*before == '\0') {
    out += "</ul>";
  }
}

void HtmlNotes::AppendNote(std::string& out, std::size_t footnote, std::size_t firstMark) const {
  std::string const mark = HtmlText(footnotes_.Mark(footnote));
  out += "<li id=\"" + prefix_ + "n" + std::to_string(footnote + 1) + "\"><sup>" + mark +
         "</sup> " + HtmlText(footnotes_.Text(footnote));
  if (firstMark != 0) {
    out += " <a role=\"doc-backlink\" href=\"#" + prefix_ + "m" + std::to_string(firstMark) +
           "\" aria-label=\"Back to mark " + mark + "\">\u21A9</a>";
  }
  out += "</li>";
}

}  // namespace lakresvos::render
