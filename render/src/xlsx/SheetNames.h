#ifndef LAKRESVOS_RENDER_XLSX_SHEETNAMES_H
#define LAKRESVOS_RENDER_XLSX_SHEETNAMES_H

#include <map>
#include <string>

namespace lakresvos::render {

/// Names for the sheets of a workbook, as spreadsheets take them (ECMA-376, part 1, 18.2.19, and
/// the limits that they add): not empty, at most 31 UTF-16 units, without the characters
/// `[ ] : * ? / \`, without an apostrophe at either end, not the reserved "History", and each
/// different from all others whatever the case of its letters.
class SheetNames {
 public:
  /// A name that is as near to `text` as can be; with a number after it when it is taken.
  /// @param otherwise the name to start from when nothing of `text` can be used; a legal name.
  std::string Next(std::string const& text, std::string const& otherwise);

 private:
  std::map<std::string, int> taken_;  // by name with cases folded, the last number put after it
};

}  // namespace lakresvos::render

#endif
