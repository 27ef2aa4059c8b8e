#ifndef TOOLS_REPORT_REPORTERROR_H
#define TOOLS_REPORT_REPORTERROR_H

#include <cstddef>
#include <stdexcept>
#include <string>

namespace lakresvos::report {

/// Something that the person who runs the program has to put right. The text says what and where.
class ReportError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;

  /// "FILE:LINE: what".
  ReportError(std::string const& file, std::size_t line, std::string const& what)
      : std::runtime_error(file + ":" + std::to_string(line) + ": " + what) {}
};

}  // namespace lakresvos::report

#endif
