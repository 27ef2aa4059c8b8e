#include "XlsxBook.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <system_error>
#include <unistd.h>

namespace lakresvos::render {

namespace {

lxw_color_t ColourOf(std::string const& colour) {
  return static_cast<lxw_color_t>(std::strtoul(colour.c_str() + 1, nullptr, 16));
}

void SetAlignments(lxw_format* format, XlsxStyle const& style) {
  switch (style.horizontal) {
    case HorizontalAlignment::Left:
      format_set_align(format, LXW_ALIGN_LEFT);
      break;
    case HorizontalAlignment::Centre:
      format_set_align(format, LXW_ALIGN_CENTER);
      break;
    case HorizontalAlignment::Right:
      format_set_align(format, LXW_ALIGN_RIGHT);
      break;
    case HorizontalAlignment::Any:
      break;
  }
  switch (style.vertical) {
    case VerticalAlignment::Middle:
      format_set_align(format, LXW_ALIGN_VERTICAL_CENTER);
      break;
    case VerticalAlignment::Bottom:
      format_set_align(format, LXW_ALIGN_VERTICAL_BOTTOM);
      break;
    case VerticalAlignment::Top:
    case VerticalAlignment::Any:
      format_set_align(format, LXW_ALIGN_VERTICAL_TOP);
      break;
  }
}

void SetFont(lxw_format* format, XlsxStyle const& style) {
  if (!style.font.empty()) {
    format_set_font_name(format, style.font.c_str());
  }
  if (style.size > 0) {
    format_set_font_size(format, style.size);
  }
  if (style.bold) {
    format_set_bold(format);
  }
  if (style.italic) {
    format_set_italic(format);
  }
  if (style.underline) {
    format_set_underline(format, LXW_UNDERLINE_SINGLE);
  }
  if (!style.colour.empty()) {
    format_set_font_color(format, ColourOf(style.colour));
  }
}

}  // namespace

void Check(lxw_error error) {
  if (error != LXW_NO_ERROR) {
    throw std::runtime_error(std::string("the workbook cannot be written: ") + lxw_strerror(error));
  }
}

XlsxBook::XlsxBook() {
  file_ = (std::filesystem::temp_directory_path() / "lakresvos-XXXXXX").string();
  int const draft = mkstemp(file_.data());
  if (draft < 0) {
    throw std::runtime_error("the workbook cannot be written: " +
                             std::generic_category().message(errno));
  }
  close(draft);
  lxw_workbook_options options = {};
  options.constant_memory = LXW_TRUE;
  book_ = workbook_new_opt(file_.c_str(), &options);
  if (book_ == nullptr) {
    std::filesystem::remove(file_);
    throw std::bad_alloc();
  }
}

XlsxBook::~XlsxBook() {
  if (book_ != nullptr) {
    lxw_workbook_free(book_);
  }
  std::error_code ignored;
  std::filesystem::remove(file_, ignored);
}

lxw_worksheet* XlsxBook::AddSheet(std::string const& wish) {
  lxw_worksheet* const sheet = workbook_add_worksheet(book_, names_.Next(wish).c_str());
  if (sheet == nullptr) {
    throw std::bad_alloc();
  }
  return sheet;
}

lxw_format* XlsxBook::Format(XlsxStyle const& style) {
  auto const known = formats_.find(style);
  if (known != formats_.end()) {
    return known->second;
  }
  lxw_format* const format = workbook_add_format(book_);
  if (format == nullptr) {
    throw std::bad_alloc();
  }
  SetFont(format, style);
  SetAlignments(format, style);
  if (!style.background.empty()) {
    format_set_bg_color(format, ColourOf(style.background));
  }
  if (!style.numberFormat.empty()) {
    format_set_num_format(format, style.numberFormat.c_str());
  }
  if (style.indent > 0) {
    format_set_indent(format, static_cast<std::uint8_t>(style.indent));
  }
  if (style.rule) {
    format_set_bottom(format, LXW_BORDER_THIN);
  }
  if (style.wrap) {
    format_set_text_wrap(format);
  }
  formats_.emplace(style, format);
  return format;
}

void XlsxBook::Write(std::ostream& out) {
  lxw_workbook* const book = std::exchange(book_, nullptr);
  Check(workbook_close(book));
  std::ifstream file(file_, std::ios::binary);
  if (!(out << file.rdbuf()) && !file) {
    throw std::runtime_error("the workbook cannot be read back");
  }
}

}  // namespace lakresvos::render
