#include "html/Outline.h"

#include <algorithm>

#include "html/Text.h"

namespace lakresvos::render {

namespace {

constexpr int kMaxLevel = 6;

}  // namespace

void HtmlOutline::Add(std::string const& text, std::size_t part, int depth) {
  if (IsBlank(text)) {
    return;
  }
  int const level = std::min(depth, kMaxLevel);
  WritePending(level > depth_);
  while (!open_.empty() && open_.back() >= level) {
    out_ << "</ul></details></li>\n";
    open_.pop_back();
  }
  text_ = HtmlText(text);
  part_ = part;
  depth_ = level;
  out_.Drain();
}

void HtmlOutline::Finish() {
  WritePending(false);
  for (; !open_.empty(); open_.pop_back()) {
    out_ << "</ul></details></li>\n";
  }
}

void HtmlOutline::WritePending(bool withChildren) {
  if (text_.empty()) {
    return;
  }
  out_ << "<li><a href=\"#part-" << part_ << "\">" << text_ << "</a>";
  if (withChildren) {
    out_ << "<details open><summary><span class=\"spoken\">Below " << text_
         << "</span></summary><ul>\n";
    open_.push_back(depth_);
  } else {
    out_ << "</li>\n";
  }
  text_.clear();
}

}  // namespace lakresvos::render
