#ifndef LAKRESVOS_TABULATE_SCANNER_H
#define LAKRESVOS_TABULATE_SCANNER_H

#include <cstddef>
#include <string>
#include <string_view>

namespace lakresvos::tabulate {

/// A name that an option's value has, mostly that of a column.
struct NamedColumn {
  std::string name;
  std::size_t position;  ///< where the name starts, in characters from 1
};

/// Reads the value of an option from left to right and says where it went wrong.
class Scanner {
 public:
  /// @param option what the text is the value of: "--table".
  /// @param text   has to outlive the scanner.
  Scanner(char const* option, std::string_view text) : option_(option), text_(text) {}

  /// Skips blanks and tells whether anything is left.
  bool AtEnd();

  /// Skips blanks, and then `c` if it comes next; tells whether it did.
  bool Take(char c);

  /// Skips blanks and reads a name: either everything up to a blank or one of the characters of
  /// `stops`, or, in back-quotes, everything up to the next back-quote; two of these stand for one.
  /// @param what what is missing when there is none, for the message.
  NamedColumn Name(std::string_view stops, char const* what);

  /// Skips blanks and gives the present position, in characters from 1.
  std::size_t Position();

  /// "OPTION 'TEXT': position N: what", thrown as a InputError.
  [[noreturn]] void Fail(std::size_t position, std::string const& what) const;

 private:
  std::string BackQuoted(std::size_t start);

  char const* option_;
  std::string_view text_;
  std::size_t at_ = 0;  // in bytes
};

}  // namespace lakresvos::tabulate

#endif
