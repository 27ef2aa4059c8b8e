#include "unicode/Wrap.h"

#include <algorithm>

#include "unicode/CodePoint.h"
#include "unicode/TextWidth.h"

namespace lakresvos::render {

namespace {

/// Makes lines of the graphemes of one paragraph.
class LineBuilder {
 public:
  LineBuilder(std::vector<TextLine>& lines, int limit) : lines_(lines), limit_(limit) {}

  void Add(Grapheme const& grapheme) {
    bool const space = grapheme.bytes == " ";
    if (space && swallow_) {
      return;
    }
    swallow_ = false;
    while (line_.width + grapheme.width > limit_ && !line_.text.empty()) {
      if (space) {
        Emit(line_.text.size(), line_.text.size());
        swallow_ = true;
        return;
      }
      Break();
    }
    if (space && ink_) {
      breakAt_ = line_.text.size();
      widthAtBreak_ = line_.width;
    }
    ink_ = ink_ || !space;
    line_.text += grapheme.bytes;
    line_.width += grapheme.width;
  }

  void Finish() {
    if (!line_.text.empty() || !swallow_) {
      lines_.push_back(std::move(line_));
    }
  }

 private:
  /// Ends the line at its last space, or as it is when it has none after its first word.
  void Break() {
    if (breakAt_ != std::string::npos) {
      int const rest = line_.width - widthAtBreak_ - 1;
      Emit(breakAt_, breakAt_ + 1);
      line_.width = rest;
      ink_ = !line_.text.empty();
    } else {
      Emit(line_.text.size(), line_.text.size());
    }
  }

  /// Ends the line before byte `end`, without its trailing spaces, and starts the next at
  /// `restart`.
  void Emit(std::size_t end, std::size_t restart) {
    std::string_view const kept(line_.text.data(), end);
    std::size_t const ink = kept.find_last_not_of(' ') + 1;
    TextLine next{line_.text.substr(restart), 0};
    line_.text.resize(ink);
    lines_.push_back({std::move(line_.text), 0});
    lines_.back().width = TextWidth(lines_.back().text);
    line_ = std::move(next);
    breakAt_ = std::string::npos;
    ink_ = false;
  }

  std::vector<TextLine>& lines_;
  int limit_;
  TextLine line_{{}, 0};
  std::size_t breakAt_ = std::string::npos;  // the last space after a word of the line
  int widthAtBreak_ = 0;
  bool ink_ = false;      // whether the line has anything but spaces
  bool swallow_ = false;  // whether the line starts after a break at a space
};

}  // namespace

void Wrap(std::string_view text, int limit, std::vector<TextLine>& lines) {
  if (text.size() <= static_cast<std::size_t>(limit) && IsPlainAscii(text)) {
    lines.resize(1);
    lines.front().text = text;
    lines.front().width = static_cast<int>(text.size());
    return;
  }
  lines.clear();
  for (std::string const& paragraph : PrintableLines(text)) {
    LineBuilder builder(lines, limit);
    for (std::string_view rest = paragraph; !rest.empty();) {
      builder.Add(SplitGrapheme(rest));
    }
    builder.Finish();
  }
}

std::vector<TextLine> Wrap(std::string_view text, int limit) {
  std::vector<TextLine> lines;
  Wrap(text, limit, lines);
  return lines;
}

int MeasureWidestLine(std::vector<TextLine> const& lines) {
  int widest = 0;
  for (TextLine const& line : lines) {
    widest = std::max(widest, line.width);
  }
  return widest;
}

}  // namespace lakresvos::render
