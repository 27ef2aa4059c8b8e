#include <lakresvos/tabulate/InputError.h>
#include <lakresvos/tabulate/Quoting.h>
#include <lakresvos/tabulate/Scanner.h>

#include "Utf8.h"

namespace lakresvos::tabulate {

namespace {

constexpr std::string_view kBlanks = " \t\r\n";

}  // namespace

bool Scanner::AtEnd() {
  at_ = std::min(text_.find_first_not_of(kBlanks, at_), text_.size());
  return at_ == text_.size();
}

bool Scanner::Take(char c) {
  if (AtEnd() || text_[at_] != c) {
    return false;
  }
  ++at_;
  return true;
}

NamedColumn Scanner::Name(std::string_view stops, char const* what) {
  std::size_t const position = Position();
  if (Take('`')) {
    return {BackQuoted(position), position};
  }
  std::size_t const start = at_;
  while (at_ < text_.size() && kBlanks.find(text_[at_]) == std::string_view::npos &&
         stops.find(text_[at_]) == std::string_view::npos && text_[at_] != '`') {
    ++at_;
  }
  if (at_ == start) {
    Fail(position, std::string("there should be ") + what);
  }
  return {std::string(text_.substr(start, at_ - start)), position};
}

std::string Scanner::BackQuoted(std::size_t start) {
  std::string name;
  for (;;) {
    std::size_t const end = text_.find('`', at_);
    if (end == std::string_view::npos) {
      Fail(start, "the back-quote that opens here is never closed");
    }
    name += text_.substr(at_, end - at_);
    at_ = end + 1;
    if (!text_.substr(at_).starts_with('`')) {
      return name;
    }
    name += '`';
    ++at_;
  }
}

std::size_t Scanner::Position() {
  AtEnd();
  return CharacterCount(text_.substr(0, at_)) + 1;
}

void Scanner::Fail(std::size_t position, std::string const& what) const {
  throw InputError(std::string(option_) + " '" + std::string(text_) + "': position " +
                   std::to_string(position) + ": " + what);
}

}  // namespace lakresvos::tabulate
