#include "xlsx/Book.h"

#include <cerrno>
#include <cstdlib>
#include <new>
#include <stdexcept>
#include <string_view>
#include <sys/mman.h>
#include <sys/stat.h>
#include <system_error>
#include <utility>

#include "io/LibraryCall.h"
#include "xlsx/Archive.h"

namespace lakresvos::render {

namespace {

constexpr int kMaxSheets = 65'000;  // each takes one of the 65,530 links of the contents
constexpr lxw_color_t kGroupRuleColor = 0xB4BBC5;
constexpr std::size_t kMaxFormats = 64'000;
// Spreadsheets open workbooks with some 200 number formats; those without marks take up to 31.
constexpr std::size_t kMaxMarkedNumberFormats = 160;

constexpr char kFailure[] = "cannot write the workbook";

[[noreturn]] void Fail(std::string const& why) {
  throw std::runtime_error(std::string(kFailure) + ": " + why);
}

[[noreturn]] void Fail(int error) {
  throw std::system_error(error, std::generic_category(), kFailure);
}

/// Whether an error is one of writing, which the library does not always tell of.
bool IsWriteError(int error) {
  return error == ENOSPC || error == EFBIG || error == EDQUOT || error == EIO;
}

/// The bytes of a file in the address space.
class FileView {
 public:
  explicit FileView(TemporaryFile const& file) {
    struct stat status {};
    if (fstat(file.Descriptor(), &status) != 0) {
      Fail(errno);
    }
    size_ = static_cast<std::size_t>(status.st_size);
    bytes_ = mmap(nullptr, size_, PROT_READ, MAP_PRIVATE, file.Descriptor(), 0);
    if (bytes_ == MAP_FAILED) {
      Fail(errno);
    }
  }
  FileView(FileView const&) = delete;
  FileView& operator=(FileView const&) = delete;
  ~FileView() { munmap(bytes_, size_); }

  std::string_view Bytes() const { return {static_cast<char const*>(bytes_), size_}; }

 private:
  void* bytes_;
  std::size_t size_;
};

/// The library takes 0 for no color.
lxw_color_t ParseColor(std::string const& color) {
  auto const number = static_cast<lxw_color_t>(std::strtoul(color.c_str() + 1, nullptr, 16));
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
  if (!style.color.empty()) {
    format_set_font_color(format, ParseColor(style.color));
  }
}

}  // namespace

std::string QuoteName(std::string const& sheet) {
  std::string quoted = "'";
  for (char const c : sheet) {
    quoted += c == '\'' ? "''" : std::string(1, c);
  }
  return quoted + '\'';
}

// The library gives a workbook without sheets one of its own when it is closed, with a file that
// stays open; so there is no workbook before there is a sheet.
void XlsxBook::Open() {
  lxw_workbook_options options = {};
  options.constant_memory = rows_ == XlsxRows::InFiles ? LXW_TRUE : LXW_FALSE;
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
  if (sheets_ >= kMaxSheets) {
    throw std::length_error("the document needs more than " + std::to_string(kMaxSheets) +
                            " sheets");
  }
  if (book_ == nullptr) {
    Open();
  }
  LibraryCall const call;
  errno = 0;
  lxw_worksheet* const sheet = workbook_add_worksheet(book_, name.c_str());
  if (sheet == nullptr) {
    CheckParts();
    Fail(errno != 0 ? errno : EIO);
  }
  ++sheets_;
  // The file of a sheet without rows would stay open, too.
  Check(worksheet_set_row(sheet, 0, LXW_DEF_ROW_HEIGHT, nullptr));
  return sheet;
}

void XlsxBook::DefineName(std::string const& name, std::string const& reference) {
  Check(workbook_define_name(book_, name.c_str(), reference.c_str()));
}

bool XlsxBook::HasRoomFor(std::string const& markedNumberFormat) {
  if (markedNumberFormats_.size() < kMaxMarkedNumberFormats) {
    markedNumberFormats_.insert(markedNumberFormat);
  }
  return markedNumberFormats_.count(markedNumberFormat) != 0;
}

lxw_format* XlsxBook::Format(XlsxStyle const& style) {
  auto const known = formats_.find(style);
  if (known != formats_.end()) {
    return known->second;
  }
  if (formats_.size() >= kMaxFormats) {
    return nullptr;
  }
  lxw_format* const format = workbook_add_format(book_);
  if (format == nullptr) {
    throw std::bad_alloc();
  }
  SetFont(format, style);
  SetAlignments(format, style);
  if (!style.background.empty()) {
    format_set_bg_color(format, ParseColor(style.background));
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
    format_set_top_color(format, kGroupRuleColor);
  }
  if (style.wrap) {
    format_set_text_wrap(format);
  }
  formats_.emplace(style, format);
  return format;
}

void XlsxBook::CheckParts() const {
  if (parts_.Error() == ENOMEM) {
    throw std::bad_alloc();
  }
  if (parts_.Error() != 0) {
    Fail(parts_.Error());
  }
}

void XlsxBook::Check(lxw_error error) const {
  if (error == LXW_ERROR_MEMORY_MALLOC_FAILED) {
    throw std::bad_alloc();
  }
  CheckParts();
  if (error != LXW_NO_ERROR) {
    Fail("error " + std::to_string(error) + " of the XLSX library");
  }
}

void XlsxBook::Close() {
  LibraryCall const call;
  errno = 0;
  lxw_error const error = workbook_close(std::exchange(book_, nullptr));
  if (error == LXW_ERROR_MEMORY_MALLOC_FAILED) {
    throw std::bad_alloc();
  }
  CheckParts();
  if (error != LXW_NO_ERROR || IsWriteError(errno)) {
    Fail(errno != 0 ? errno : EIO);
  }
  if (!parts_.HasMade()) {
    Fail(
        "the process had loaded libxlsxwriter before, which does not tell then when a disk is "
        "full");
  }
}

void XlsxBook::Write(std::ostream& out) {
  Close();
  FileView const file(file_);
  if (!HasWholeParts(file.Bytes())) {
    Fail(EIO);
  }
  out.write(file.Bytes().data(), static_cast<std::streamsize>(file.Bytes().size()));
}

}  // namespace lakresvos::render
