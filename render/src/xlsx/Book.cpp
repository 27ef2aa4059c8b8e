#include "xlsx/Book.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <stdexcept>
#include <system_error>
#include <unistd.h>
#include <utility>
#include <vector>

#include "io/LibraryCall.h"

namespace lakresvos::render {

namespace {

constexpr int kMostSheets = 65'000;  // each takes one of the 65,530 links of the contents
constexpr lxw_color_t kGroupRuleColour = 0xB4BBC5;
constexpr std::size_t kMostFormats = 64'000;
// Spreadsheets open workbooks with some 200 number formats; those without marks take up to 31.
constexpr std::size_t kMostMarkedNumberFormats = 160;

constexpr char kFailure[] = "the workbook cannot be written";

[[noreturn]] void Fail(std::string const& why) {
  throw std::runtime_error(std::string(kFailure) + ": " + why);
}

[[noreturn]] void Fail(int error) {
  throw std::system_error(error, std::generic_category(), kFailure);
}

/// The library takes 0 for no colour.
lxw_color_t ColourOf(std::string const& colour) {
  auto const number = static_cast<lxw_color_t>(std::strtoul(colour.c_str() + 1, nullptr, 16));
  return number != 0 ? number : static_cast<lxw_color_t>(LXW_COLOR_BLACK);
}

void SetAlignments(lxw_format* format, XlsxStyle const& style) {
  switch (style.horizontal) {
    case HorizontalAlignment::Left:
      format_set_align(format, LXW_ALIGN_LEFT);
      break;
    case HorizontalAlignment::Center:
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
  if (style.raised) {
    format_set_font_script(format, LXW_FONT_SUPERSCRIPT);
  }
  if (!style.colour.empty()) {
    format_set_font_color(format, ColourOf(style.colour));
  }
}

}  // namespace

std::string Quoted(std::string const& sheet) {
  std::string quoted = "'";
  for (char const c : sheet) {
    quoted += c == '\'' ? "''" : std::string(1, c);
  }
  return quoted + '\'';
}

void Check(lxw_error error) {
  if (error == LXW_ERROR_MEMORY_MALLOC_FAILED) {
    throw std::bad_alloc();
  }
  if (error != LXW_NO_ERROR) {
    Fail("a part of it is refused with error " + std::to_string(error));
  }
}

XlsxBook::XlsxBook() {
  lxw_workbook_options options = {};
  options.constant_memory = LXW_TRUE;
  book_ = workbook_new_opt(file_.Path().c_str(), &options);
  if (book_ == nullptr) {
    throw std::bad_alloc();
  }
}

XlsxBook::~XlsxBook() {
  if (book_ != nullptr) {
    lxw_workbook_free(book_);
  }
}

lxw_worksheet* XlsxBook::AddSheet(std::string const& name) {
  if (sheets_ >= kMostSheets) {
    throw std::length_error("the document takes more than " + std::to_string(kMostSheets) +
                            " sheets");
  }
  std::FILE* const rows = rows_.Open();
  LibraryCall const call;
  lxw_worksheet* const sheet = workbook_add_worksheet(book_, name.c_str());
  if (sheet == nullptr) {
    Fail("there can be no further sheet");
  }
  // The library opens a file for each sheet, of which a process can have a few hundred only.
  std::fclose(sheet->optimize_tmpfile);
  sheet->file = rows;
  sheet->optimize_tmpfile = rows;
  ++sheets_;
  return sheet;
}

void XlsxBook::DefineName(std::string const& name, std::string const& reference) {
  Check(workbook_define_name(book_, name.c_str(), reference.c_str()));
}

bool XlsxBook::HasRoomFor(std::string const& markedNumberFormat) {
  if (markedNumberFormats_.size() < kMostMarkedNumberFormats) {
    markedNumberFormats_.insert(markedNumberFormat);
  }
  return markedNumberFormats_.count(markedNumberFormat) != 0;
}

lxw_format* XlsxBook::Format(XlsxStyle const& style) {
  auto const known = formats_.find(style);
  if (known != formats_.end()) {
    return known->second;
  }
  if (formats_.size() >= kMostFormats) {
    return nullptr;
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
  if (style.groupRule) {
    format_set_top(format, LXW_BORDER_THIN);
    format_set_top_color(format, kGroupRuleColour);
  }
  if (style.wrap) {
    format_set_text_wrap(format);
  }
  formats_.emplace(style, format);
  return format;
}

void XlsxBook::Close() {
  LibraryCall const call;
  errno = 0;
  lxw_error const error = workbook_close(std::exchange(book_, nullptr));
  if (error == LXW_ERROR_MEMORY_MALLOC_FAILED) {
    throw std::bad_alloc();
  }
  int const reason = rows_.Error() != 0 ? rows_.Error() : errno;
  if (error != LXW_NO_ERROR || rows_.Error() != 0) {
    Fail(reason != 0 ? reason : EIO);
  }
}

void XlsxBook::Write(std::ostream& out) {
  Close();
  std::vector<char> piece(1 << 16);
  while (ssize_t const count = read(file_.Descriptor(), piece.data(), piece.size())) {
    if (count < 0) {
      Fail(errno);
    }
    out.write(piece.data(), count);
  }
}

}  // namespace lakresvos::render
