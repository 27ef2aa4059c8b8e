#include "csv/Label.h"

#include <algorithm>
#include <charconv>
#include <string_view>
#include <system_error>

#include "content/NumberCell.h"

namespace lakresvos::render {

namespace {

/// Whether all of it is a number in digits, which may have a sign, a decimal point and an exponent.
bool IsPlainNumber(std::string_view text) {
  text.remove_prefix(text.starts_with('-') || text.starts_with('+') ? 1 : 0);
  bool const isDecimal = std::all_of(text.begin(), text.end(), [](char c) {
    return std::string_view("0123456789.eE+-").find(c) != std::string_view::npos;
  });
  double value = 0;
  auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  return isDecimal && !text.starts_with('-') && error != std::errc::invalid_argument &&
         end == text.data() + text.size();
}

}  // namespace

std::string EncodeLabel(CsvRecord const& record, OmCellText const* label, std::string const& text) {
  bool const isNumber = label != nullptr && IsNumeric(*label) && IsPlainNumber(text);
  return isNumber ? text : record.EncodeField(text);
}

}  // namespace lakresvos::render
