#include "data/ValueFormat.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace lakresvos::tabulate {

namespace {

constexpr std::size_t kGroup = 3;  // digits

/// A space between digits is often one at which no line breaks.
std::vector<std::string> ListGroupMarks(std::string const& thousands) {
  if (thousands == " ") {
    return {" ", "\xC2\xA0", "\xE2\x80\xAF"};
  }
  return thousands.empty() ? std::vector<std::string>{} : std::vector<std::string>{thousands};
}

/// How many digits the text starts with.
std::size_t CountDigits(std::string_view text) {
  auto const isDigit = [](char c) { return c >= '0' && c <= '9'; };
  return static_cast<std::size_t>(std::ranges::find_if_not(text, isDigit) - text.begin());
}

}  // namespace

ValueFormat::ValueFormat(TextFormat const& format)
    : missing_(format.missing),
      decimal_(format.decimal),
      groupMarks_(ListGroupMarks(format.thousands)) {}

std::shared_ptr<ValueFormat const> ValueFormat::MakeUnlessUsual(TextFormat const& format) {
  auto made = std::make_shared<ValueFormat const>(format);
  bool const usual = made->HasPlainNumbers() && format.missing == TextFormat().missing;
  return usual ? nullptr : std::move(made);
}

bool ValueFormat::IsMissing(std::string_view value) const {
  return std::ranges::any_of(missing_, [&](std::string const& one) { return value == one; });
}

/// The length of the group mark that the text starts with; 0 for none.
std::size_t ValueFormat::FindGroupMark(std::string_view text) const {
  auto const mark = std::ranges::find_if(
      groupMarks_, [&](std::string const& one) { return text.starts_with(one); });
  return mark != groupMarks_.end() ? mark->size() : 0;
}

std::string ValueFormat::ToPlainNumber(std::string_view text) const {
  if (HasPlainNumbers()) {
    return std::string(text);
  }
  std::string plain;
  if (text.starts_with('-') || text.starts_with('+')) {
    plain += text.front();
    text.remove_prefix(1);
  }
  std::size_t digits = CountDigits(text);
  bool grouped = digits >= 1 && digits <= kGroup;
  plain += text.substr(0, digits);
  text.remove_prefix(digits);
  for (std::size_t mark = FindGroupMark(text); grouped && mark != 0; mark = FindGroupMark(text)) {
    digits = CountDigits(text.substr(mark));
    grouped = digits == kGroup;
    if (grouped) {
      plain += text.substr(mark, digits);
      text.remove_prefix(mark + digits);
    }
  }
  if (text.starts_with(decimal_)) {
    plain += '.';
    text.remove_prefix(1);
    plain += text.substr(0, CountDigits(text));
    text.remove_prefix(CountDigits(text));
  }
  bool const exponent = text.starts_with('e') || text.starts_with('E');
  bool const rest = !text.empty() && !exponent;
  return rest || text.find('.') != std::string_view::npos ? std::string() : plain.append(text);
}

}  // namespace lakresvos::tabulate
