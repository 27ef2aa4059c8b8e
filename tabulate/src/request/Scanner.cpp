#include "request/Scanner.h"

#include <algorithm>

#include <lakresvos/tabulate/InputError.h>

#include "text/Utf8.h"

namespace lakresvos::tabulate {

namespace {

constexpr std::string_view kSpaces = " \t\r\n";

}  // namespace

bool Scanner::AtEnd() {
  at_ = std::min(text_.find_first_not_of(kSpaces, at_), text_.size());
  return at_ == text_.size();
}

bool Scanner::Accept(char c) {
  if (AtEnd() || text_[at_] != c) {
    return false;
  }
  ++at_;
  return true;
}

void Scanner::Expect(char c, char const* what) {
  if (!Accept(c)) {
    Fail(Position(), std::string("expected ") + what);
  }
}

void Scanner::ExpectEnd(char const* what) {
  if (!AtEnd()) {
    Fail(Position(), std::string("expected ") + what);
  }
}

NameToken Scanner::ReadName(std::string_view stops, char const* what) {
  std::size_t const position = Position();
  if (Accept('`')) {
    return {ReadBackQuoted(position), position};
  }
  std::size_t const start = at_;
  while (at_ < text_.size() && kSpaces.find(text_[at_]) == std::string_view::npos &&
         stops.find(text_[at_]) == std::string_view::npos && text_[at_] != '`') {
    ++at_;
  }
  if (at_ == start) {
    Fail(position, std::string("expected ") + what);
  }
  return {std::string(text_.substr(start, at_ - start)), position};
}

std::string Scanner::ReadBackQuoted(std::size_t start) {
  std::string name;
  for (;;) {
    std::size_t const end = text_.find('`', at_);
    if (end == std::string_view::npos) {
      Fail(start, "unclosed backquote");
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
  return CountCharacters(text_.substr(0, at_)) + 1;
}

void Scanner::Fail(std::size_t position, std::string const& what) const {
  throw InputError(source_ + " '" + std::string(text_) + "': " + what + " at position " +
                   std::to_string(position));
}

}  // namespace lakresvos::tabulate
