#include "xlsx/Contents.h"

#include <algorithm>

namespace lakresvos::render {

namespace {

constexpr int kMaxIndent = 15;

XlsxStyle LinkStyle() {
  XlsxStyle style;
  style.underline = true;
  style.color = "#0563c1";
  return style;
}

}  // namespace

void XlsxContents::Add(std::string const& text, bool bold) {
  XlsxStyle style;
  style.bold = bold;
  rows_ = sheet_.WriteLines(rows_, {text, ""}, Indented(style));
}

std::unique_ptr<XlsxSheet> XlsxContents::AddSheet(std::string const& entry,
                                                  std::string const& content,
                                                  std::string const& otherwise) {
  auto sheet = std::make_unique<XlsxSheet>(book_, content, otherwise);
  sheet->WriteLink(0, sheet_.Name(), sheet_.Name(), LinkStyle());
  sheet_.WriteLink(rows_++, sheet->Name(), entry.empty() ? sheet->Name() : entry,
                   Indented(LinkStyle()));
  return sheet;
}

XlsxStyle XlsxContents::Indented(XlsxStyle style) const {
  style.indent = std::clamp(depth_, 0, kMaxIndent);
  style.wrap = true;
  return style;
}

}  // namespace lakresvos::render
