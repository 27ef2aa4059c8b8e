#ifndef LAKRESVOS_TABULATE_REQUEST_SCANNER_H
#define LAKRESVOS_TABULATE_REQUEST_SCANNER_H

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include <lakresvos/tabulate/NameToken.h>

namespace lakresvos::tabulate {

/// Reads a text of the user's from left to right and says where it went wrong.
class Scanner {
 public:
  /// @param source what messages call the text: "formula".
  /// @param text   has to outlive the scanner.
  Scanner(std::string source, std::string_view text) : source_(std::move(source)), text_(text) {}

  /// Skips spaces and tells whether anything is left.
  bool AtEnd();

  /// Skips spaces, and then `c` if it comes next; tells whether it did.
  bool Accept(char c);

  /// Skips spaces and `c`.
  /// @param what was expected, for the message.
  /// @throws InputError when something else comes next.
  void Expect(char c, char const* what);

  /// Skips spaces.
  /// @param what was expected, for the message.
  /// @throws InputError when anything is left.
  void ExpectEnd(char const* what);

  /// Skips spaces and reads a name: either everything up to a space or one of the characters of
  /// `stops`, or, in backquotes, everything up to the next backquote; two of these make one.
  /// @param what was expected, for the message.
  /// @throws InputError when there is no name.
  NameToken ReadName(std::string_view stops, char const* what);

  /// Skips spaces and returns the present position, in characters from 1.
  std::size_t Position();

  /// @throws InputError always: "SOURCE 'TEXT': what at position N".
  [[noreturn]] void Fail(std::size_t position, std::string const& what) const;

 private:
  std::string ReadBackQuoted(std::size_t start);

  std::string source_;
  std::string_view text_;
  std::size_t at_ = 0;  // in bytes
};

}  // namespace lakresvos::tabulate

#endif
