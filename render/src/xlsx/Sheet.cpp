#include "xlsx/Sheet.h"

#include <algorithm>
#include <stdexcept>
#include <string_view>

#include "unicode/CleanText.h"
#include "unicode/CodePoint.h"
#include "unicode/TextWidth.h"
#include "unicode/Utf16.h"
#include "unicode/Wrap.h"

namespace lakresvos::render {

namespace {

// Beyond a limit of theirs, spreadsheet programs call a workbook damaged and repair it, which
// removes more than the excess, and the XLSX library checks only some limits. So all of them are
// checked here, before anything is written. What is too large as a whole, such as a table of too
// many rows, is refused; a detail that has no room, such as a long text, is replaced and counted as
// a loss, or looks plainer, as the cells after the last one that can be merged do.
//
// The limits of rows, columns and characters are those that spreadsheet programs publish; widths in
// characters follow ECMA-376, part 1, 18.3.1.13.

constexpr int kMaxRows = 1'048'576;
constexpr int kMaxColumns = 16'384;
constexpr std::size_t kMaxUnits = 32'767;
constexpr int kMaxMerged = 65'535;
constexpr int kMinWidth = 8;
constexpr int kMaxWidth = 60;
constexpr int kMargin = 2;
constexpr int kMinLineWidth = 88;  // of the columns under a text across a page
constexpr int kLineWidth = 82;     // of a text across a page, in characters
constexpr int kIndentWidth = 2;
constexpr std::size_t kMaxUnitsInLine = 1'000;  // which take at most 27 lines across a page
constexpr double kUsualSize = 11;               // of the workbook's own font, in points
constexpr double kMaxHeight = 409;              // of rows, in points
constexpr int kPixelsPerCharacter = 7;          // of the workbook's own font
constexpr int kPixelsPerCell = 5;               // around them
constexpr int kMaxLevels = 7;

bool IsHex(char c) {
  return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

/// Spreadsheets read "_x0041_" as the character with that code (ECMA-376, part 1, 22.9.2.19),
/// wherever it is.
std::string EscapeCodes(std::string const& text) {
  std::string escaped;
  std::size_t copied = 0;
  for (std::size_t at = text.find("_x"); at != std::string::npos; at = text.find("_x", at + 1)) {
    std::string_view const code = std::string_view(text).substr(at + 2, 5);
    if (code.size() == 5 && code[4] == '_' && std::all_of(code.begin(), code.end() - 1, IsHex)) {
      escaped.append(text, copied, at - copied);
      escaped += "_x005F";
      copied = at;
    }
  }
  return escaped.append(text, copied);
}

/// Whether there is room in a cell for a clean text and its marks, written as the library counts.
bool FitsCell(std::string const& text, std::string const& marks) {
  constexpr std::size_t kMaxGrowth = 2;  // of a code that is escaped
  return (text.size() + marks.size()) * kMaxGrowth <= kMaxUnits ||
         Utf16Length(EscapeCodes(text)) + Utf16Length(EscapeCodes(marks)) <= kMaxUnits;
}

/// How much larger than usual the font of a style is.
double FontScale(XlsxStyle const& style) {
  return style.size > 0 ? style.size / kUsualSize : 1;
}

/// How many lines a clean text across a page takes.
std::size_t CountLines(std::string const& text, XlsxStyle const& style) {
  double const room = (kLineWidth - style.indent * kIndentWidth) / FontScale(style);
  return Wrap(text, std::max(static_cast<int>(room), 1)).size();
}

/// The lines of a clean text, those that are too long for the highest row in several pieces.
std::vector<std::string_view> SplitLines(std::string_view text) {
  std::vector<std::string_view> pieces;
  while (true) {
    std::size_t const end = text.find('\n');
    std::string_view line = text.substr(0, end);
    do {
      pieces.push_back(Utf16Prefix(line, kMaxUnitsInLine));
      line.remove_prefix(pieces.back().size());
    } while (!line.empty());
    if (end == std::string_view::npos || end + 1 == text.size()) {
      return pieces;
    }
    text.remove_prefix(end + 1);
  }
}

}  // namespace

XlsxSheet::XlsxSheet(XlsxBook& book, std::string const& content, std::string const& otherwise)
    : book_(book),
      number_(book.Sheets()),
      name_(book.NewName(content, otherwise)),
      sheet_(book.AddSheet(name_)),
      content_(content) {}

void XlsxSheet::CheckPlace(int row, int column) const {
  if (row >= kMaxRows || column >= kMaxColumns) {
    throw std::length_error("'" + content_ + "' is too large for a sheet, which has " +
                            std::to_string(kMaxRows) + " rows and " + std::to_string(kMaxColumns) +
                            " columns");
  }
}

int XlsxSheet::Widen(int column, std::string const& text) {
  int width = 0;
  if (IsPlainAscii(text)) {
    width = static_cast<int>(text.size());
  } else {
    for (std::string const& line : PrintableLines(text)) {
      width = std::max(width, TextWidth(line));
    }
  }
  SetLeastWidth(column, std::min(width + kMargin, kMaxWidth));
  return width;
}

void XlsxSheet::SetLeastWidth(int column, int width) {
  auto const at = static_cast<std::size_t>(column);
  widths_.resize(std::max(widths_.size(), at + 1), kMinWidth);
  widths_[at] = std::max(widths_[at], width);
}

void XlsxSheet::WriteText(int row, int column, MarkedText const& text, XlsxStyle const& style,
                          bool wide) {
  CheckPlace(row, column);
  std::string clean = CleanText(text.text);
  std::string marks = CleanText(text.marks);
  if (!FitsCell(clean, marks)) {
    CountLoss(XlsxLoss::LongText, row, column);
    clean = "[A text of " + std::to_string(Utf16Length(clean + marks)) +
            " characters, too long for a cell]";
    if (!FitsCell(clean, marks)) {
      marks.clear();
    }
  }
  XlsxStyle wrapped = style;
  wrapped.wrap = style.wrap || clean.find('\n') != std::string::npos;
  if (wide && Widen(column, clean + marks) > kMaxWidth) {
    wrapped.wrap = true;
  }
  WriteMarked(row, column, clean, marks, wrapped);
}

bool XlsxSheet::WrapsAcrossPage(std::string const& text, XlsxStyle const& style) {
  std::string const clean = CleanText(text);
  std::vector<std::string_view> const lines = SplitLines(clean);
  return std::any_of(lines.begin(), lines.end(), [&](std::string_view line) {
    return CountLines(std::string(line), style) > 1;
  });
}

int XlsxSheet::WriteLines(int row, MarkedText const& text, XlsxStyle const& style) {
  std::string const clean = CleanText(text.text);
  if (clean.empty() && text.marks.empty()) {
    return row;
  }
  std::vector<std::string_view> const lines = SplitLines(clean);
  for (std::string_view const& line : lines) {
    bool const last = &line == &lines.back();
    WriteLine(row++, {std::string(line), last ? text.marks : ""}, style);
  }
  return row;
}

void XlsxSheet::WriteLine(int row, MarkedText const& text, XlsxStyle style) {
  std::size_t const lines = CountLines(text.text + text.marks, style);
  if (lines > 1) {
    CheckPlace(row, 0);
    style.wrap = true;
    double const height =
        std::min(static_cast<double>(lines) * LXW_DEF_ROW_HEIGHT * FontScale(style), kMaxHeight);
    book_.Check(worksheet_set_row(sheet_, static_cast<lxw_row_t>(row), height, nullptr));
    if (book_.Rows() == XlsxRows::InMemory) {
      wrappedRows_.push_back(row);
    } else {
      MergeAcrossPage(row);
    }
  }
  WriteText(row, 0, text, style, false);
}

void XlsxSheet::WriteMarked(int row, int column, std::string const& text, std::string const& marks,
                            XlsxStyle const& style) {
  auto const rowNumber = static_cast<lxw_row_t>(row);
  auto const columnNumber = static_cast<lxw_col_t>(column);
  if (text.empty() && marks.empty()) {
    FormatEmptyCell(row, column, style);
    return;
  }
  XlsxStyle raised = style;
  raised.raised = true;
  std::string escapedText = EscapeCodes(text);
  std::string escapedMarks = EscapeCodes(marks);
  if (text.empty() || marks.empty()) {
    book_.Check(worksheet_write_string(sheet_, rowNumber, columnNumber,
                                       (escapedText + escapedMarks).c_str(),
                                       book_.Format(text.empty() ? raised : style)));
    return;
  }
  lxw_rich_string_tuple textPart = {nullptr, escapedText.data()};
  lxw_rich_string_tuple marksPart = {book_.Format(raised), escapedMarks.data()};
  lxw_rich_string_tuple* parts[] = {&textPart, &marksPart, nullptr};
  lxw_error const error =
      worksheet_write_rich_string(sheet_, rowNumber, columnNumber, parts, book_.Format(style));
  if (error == LXW_ERROR_MAX_STRING_LENGTH_EXCEEDED) {  // the library counts its markup, too
    book_.Check(worksheet_write_string(sheet_, rowNumber, columnNumber,
                                       (escapedText + escapedMarks).c_str(), book_.Format(style)));
  } else {
    book_.Check(error);
  }
}

void XlsxSheet::WriteNumber(int row, int column, double value, std::string const& shown,
                            XlsxStyle const& style) {
  CheckPlace(row, column);
  Widen(column, shown);
  book_.Check(worksheet_write_number(sheet_, static_cast<lxw_row_t>(row),
                                     static_cast<lxw_col_t>(column), value, book_.Format(style)));
}

void XlsxSheet::FormatEmptyCell(int row, int column, XlsxStyle const& style) {
  CheckPlace(row, column);
  book_.Check(worksheet_write_blank(sheet_, static_cast<lxw_row_t>(row),
                                    static_cast<lxw_col_t>(column), book_.Format(style)));
}

void XlsxSheet::WriteLink(int row, std::string const& sheet, std::string const& text,
                          XlsxStyle const& style) {
  CheckPlace(row, 0);
  std::string const target = "internal:" + QuoteName(sheet) + "!A1";
  book_.Check(worksheet_write_url(sheet_, static_cast<lxw_row_t>(row), 0, target.c_str(),
                                  book_.Format(style)));
  WriteLine(row, {text, ""}, style);
}

// What the library would write into the range, a text and empty cells with a format, would end the
// present row. An empty text and no format leave nothing to write, so that only the range is noted.
bool XlsxSheet::Merge(int row, int column, int rows, int columns) {
  CheckPlace(row + rows - 1, column + columns - 1);
  if (merged_ >= kMaxMerged) {
    return false;
  }
  book_.Check(worksheet_merge_range(sheet_, static_cast<lxw_row_t>(row),
                                    static_cast<lxw_col_t>(column),
                                    static_cast<lxw_row_t>(row + rows - 1),
                                    static_cast<lxw_col_t>(column + columns - 1), "", nullptr));
  ++merged_;
  return true;
}

void XlsxSheet::CountLoss(XlsxLoss kind, int row, int column) {
  char cell[LXW_MAX_CELL_NAME_LENGTH];
  lxw_rowcol_to_cell(cell, static_cast<lxw_row_t>(row), static_cast<lxw_col_t>(column));
  book_.Losses().Add(kind, QuoteName(name_) + '!' + cell);
}

void XlsxSheet::SetRowLevel(int row, int level) {
  CheckPlace(row, 0);
  lxw_row_col_options options = {};
  options.level = static_cast<std::uint8_t>(std::min(level, kMaxLevels));
  book_.Check(worksheet_set_row_opt(sheet_, static_cast<lxw_row_t>(row), LXW_DEF_ROW_HEIGHT,
                                    nullptr, &options));
}

void XlsxSheet::SetColumnLevel(int column, int level) {
  auto const at = static_cast<std::size_t>(column);
  levels_.resize(std::max(levels_.size(), at + 1), 0);
  levels_[at] = std::min(level, kMaxLevels);
}

void XlsxSheet::MergeAcrossPage(int row) {
  int columns = 0;
  for (int width = 0; width < kMinLineWidth; ++columns) {
    SetLeastWidth(columns, kMinWidth);
    width += widths_[static_cast<std::size_t>(columns)];
  }
  if (columns > 1) {
    Merge(row, 0, 1, columns);
  }
}

void XlsxSheet::Finish() {
  for (int const row : wrappedRows_) {
    MergeAcrossPage(row);
  }
  widths_.resize(std::max(widths_.size(), levels_.size()), kMinWidth);
  levels_.resize(widths_.size(), 0);
  int pixels = 0;
  for (std::size_t column = 0; column < widths_.size(); ++column) {
    lxw_row_col_options options = {};
    options.level = static_cast<std::uint8_t>(levels_[column]);
    auto const number = static_cast<lxw_col_t>(column);
    int const width = widths_[column];
    book_.Check(worksheet_set_column_opt(sheet_, number, number, width, nullptr, &options));
    pixels += width * kPixelsPerCharacter + kPixelsPerCell;
  }
  SetUpPrinting(book_, sheet_, name_, number_, headings_, pixels);
}

}  // namespace lakresvos::render
