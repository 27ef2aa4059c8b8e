#include "XlsxSheet.h"

#include <algorithm>
#include <cstdlib>
#include <new>
#include <stdexcept>

#include "CleanText.h"
#include "CodePoint.h"
#include "TextWidth.h"

namespace lakresvos::render {

namespace {

constexpr int kMostRows = 1'048'576;
constexpr int kMostColumns = 16'384;
constexpr std::size_t kMostCharacters = 32'767;
constexpr std::uint16_t kMostMerged = 65'535;
constexpr int kWidest = 60;
constexpr int kMostLevels = 7;

std::size_t CharacterCount(std::string_view text) {
  std::size_t count = 0;
  for (; !text.empty(); ++count) {
    text.remove_prefix(FirstCodePoint(text).length);
  }
  return count;
}

}  // namespace

XlsxSheet::XlsxSheet(XlsxBook& book, std::string const& wish, std::string const& name)
    : book_(book), sheet_(book.AddSheet(wish)), name_(name) {}

void XlsxSheet::CheckPlace(int row, int column) const {
  if (row >= kMostRows || column >= kMostColumns) {
    throw std::length_error("'" + name_ + "' is too large for a sheet, which has " +
                            std::to_string(kMostRows) + " rows and " +
                            std::to_string(kMostColumns) + " columns");
  }
}

void XlsxSheet::Widen(int column, std::string const& text) {
  auto const at = static_cast<std::size_t>(column);
  widths_.resize(std::max(widths_.size(), at + 1), 0);
  for (std::string const& line : PrintableLines(text)) {
    widths_[at] = std::max(widths_[at], TextWidth(line));
  }
}

void XlsxSheet::Text(int row, int column, std::string const& text, XlsxStyle const& style,
                     bool wide) {
  CheckPlace(row, column);
  std::string const clean = CleanText(text);
  if (clean.size() > kMostCharacters && CharacterCount(clean) > kMostCharacters) {
    throw std::length_error("'" + name_ + "' has a text that is too long for a cell, which has " +
                            std::to_string(kMostCharacters) + " characters");
  }
  if (wide) {
    Widen(column, clean);
  }
  if (clean.empty()) {
    Blank(row, column, style);
    return;
  }
  XlsxStyle wrapped = style;
  wrapped.wrap = style.wrap || clean.find('\n') != std::string::npos;
  Check(worksheet_write_string(sheet_, static_cast<lxw_row_t>(row), static_cast<lxw_col_t>(column),
                               clean.c_str(), book_.Format(wrapped)));
}

void XlsxSheet::Number(int row, int column, double value, std::string const& shown,
                       XlsxStyle const& style) {
  CheckPlace(row, column);
  Widen(column, shown);
  Check(worksheet_write_number(sheet_, static_cast<lxw_row_t>(row), static_cast<lxw_col_t>(column),
                               value, book_.Format(style)));
}

void XlsxSheet::Blank(int row, int column, XlsxStyle const& style) {
  CheckPlace(row, column);
  Check(worksheet_write_blank(sheet_, static_cast<lxw_row_t>(row), static_cast<lxw_col_t>(column),
                              book_.Format(style)));
}

void XlsxSheet::Link(int row, int column, std::string const& sheet, std::string const& text,
                     XlsxStyle const& style) {
  CheckPlace(row, column);
  std::string target = "internal:'";
  for (char const c : sheet) {
    target += c == '\'' ? "''" : std::string(1, c);
  }
  auto const rowNumber = static_cast<lxw_row_t>(row);
  auto const columnNumber = static_cast<lxw_col_t>(column);
  lxw_format* const format = book_.Format(style);
  Check(worksheet_write_url(sheet_, rowNumber, columnNumber, (target + "'!A1").c_str(), format));
  Check(worksheet_write_string(sheet_, rowNumber, columnNumber, CleanText(text).c_str(), format));
}

// The library's own merging writes all cells of the range at once, which sheets that are written
// row by row do not bear; so the range goes into its list directly.
bool XlsxSheet::Merge(int row, int column, int rows, int columns) {
  CheckPlace(row + rows - 1, column + columns - 1);
  if (sheet_->merged_range_count >= kMostMerged) {
    return false;
  }
  auto* const range = static_cast<lxw_merged_range*>(std::calloc(1, sizeof(lxw_merged_range)));
  if (range == nullptr) {
    throw std::bad_alloc();
  }
  range->first_row = static_cast<lxw_row_t>(row);
  range->last_row = static_cast<lxw_row_t>(row + rows - 1);
  range->first_col = static_cast<lxw_col_t>(column);
  range->last_col = static_cast<lxw_col_t>(column + columns - 1);
  STAILQ_INSERT_TAIL(sheet_->merged_ranges, range, list_pointers);
  ++sheet_->merged_range_count;
  return true;
}

void XlsxSheet::RowLevel(int row, int level) {
  CheckPlace(row, 0);
  lxw_row_col_options options = {};
  options.level = static_cast<std::uint8_t>(std::min(level, kMostLevels));
  Check(worksheet_set_row_opt(sheet_, static_cast<lxw_row_t>(row), LXW_DEF_ROW_HEIGHT, nullptr,
                              &options));
}

void XlsxSheet::ColumnLevel(int column, int level) {
  auto const at = static_cast<std::size_t>(column);
  levels_.resize(std::max(levels_.size(), at + 1), 0);
  levels_[at] = std::min(level, kMostLevels);
}

void XlsxSheet::Finish() {
  widths_.resize(std::max(widths_.size(), levels_.size()), 0);
  levels_.resize(widths_.size(), 0);
  for (std::size_t column = 0; column < widths_.size(); ++column) {
    constexpr int kMargin = 2;
    constexpr int kNarrowest = 8;
    lxw_row_col_options options = {};
    options.level = static_cast<std::uint8_t>(levels_[column]);
    auto const number = static_cast<lxw_col_t>(column);
    int const width = std::clamp(widths_[column] + kMargin, kNarrowest, kWidest);
    Check(worksheet_set_column_opt(sheet_, number, number, width, nullptr, &options));
  }
}

}  // namespace lakresvos::render
