#include "xlsx/Print.h"

#include <algorithm>
#include <cctype>

namespace lakresvos::render {

namespace {

constexpr int kMinPercent = 50;
constexpr int kPortraitPixels = 659;   // between the margins of an A4 page, narrower than Letter
constexpr int kLandscapePixels = 921;  // of a Letter page, narrower than A4
constexpr int kMaxNumber = 32'767;     // of a sheet, in the names that the library defines
constexpr std::size_t kMaxReference = LXW_DEFINED_NAME_LENGTH - 1;

bool Fits(int pixels, int page) {
  return pixels <= page * 100 / kMinPercent;
}

/// What the library writes to repeat headings.
std::string Reference(std::string const& sheet, XlsxHeadings const& headings) {
  std::string reference;
  if (headings.columns > 0) {
    char last[LXW_MAX_COL_NAME_LENGTH];
    lxw_col_to_name(last, static_cast<lxw_col_t>(headings.columns - 1), LXW_TRUE);
    reference = QuoteName(sheet) + "!$A:" + last;
  }
  if (headings.rows > 0) {
    reference += (reference.empty() ? "" : ",") + QuoteName(sheet) + "!$" +
                 std::to_string(headings.firstRow + 1) + ":$" +
                 std::to_string(headings.firstRow + headings.rows);
  }
  return reference;
}

/// Whether the library leaves a sheet's name without quotes, also where it reads as a number or as
/// the name of a cell.
bool IsLeftPlain(std::string const& sheet) {
  return std::all_of(sheet.begin(), sheet.end(), [](unsigned char c) {
    return c < 0x80 && (std::isalnum(c) != 0 || c == '_' || c == '.');
  });
}

void Repeat(XlsxBook& book, lxw_worksheet* sheet, std::string const& name,
            XlsxHeadings const& headings) {
  if (IsLeftPlain(name)) {
    std::string const reference = Reference(name, headings);
    if (!reference.empty()) {
      book.DefineName(QuoteName(name) + "!_xlnm.Print_Titles", reference);
    }
    return;
  }
  if (headings.rows > 0) {
    auto const first = static_cast<lxw_row_t>(headings.firstRow);
    auto const rows = static_cast<lxw_row_t>(headings.rows);
    book.Check(worksheet_repeat_rows(sheet, first, first + rows - 1));
  }
  if (headings.columns > 0) {
    book.Check(worksheet_repeat_columns(sheet, 0, static_cast<lxw_col_t>(headings.columns - 1)));
  }
}

}  // namespace

void SetUpPrinting(XlsxBook& book, lxw_worksheet* sheet, std::string const& name, int number,
                   XlsxHeadings const& headings, int pixels) {
  bool const landscape = !Fits(pixels, kPortraitPixels);
  bool const onePage = Fits(pixels, landscape ? kLandscapePixels : kPortraitPixels);
  if (landscape) {
    worksheet_set_landscape(sheet);
  }
  if (onePage) {
    worksheet_fit_to_pages(sheet, 1, 0);
  } else {
    worksheet_set_print_scale(sheet, kMinPercent);
  }
  XlsxHeadings repeated = headings;
  if (Reference(name, repeated).size() > kMaxReference) {
    (onePage ? repeated.columns : repeated.rows) = 0;
  }
  if (number <= kMaxNumber) {
    Repeat(book, sheet, name, repeated);
  }
}

}  // namespace lakresvos::render
