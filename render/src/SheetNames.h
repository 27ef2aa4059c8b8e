#ifndef LAKRESVOS_RENDER_SHEETNAMES_H
#define LAKRESVOS_RENDER_SHEETNAMES_H

#include <set>
#include <string>

namespace lakresvos::render {

/// Names for the sheets of a workbook: not empty, at most 31 UTF-16 units, without the characters
/// `[ ] : * ? / \`, without an apostrophe at either end, not the reserved "History", and each
/// different from all others whatever the case of its letters.
class SheetNames {
 public:
  /// A name that is as near to `wish` as can be.
  std::string Next(std::string const& wish);

 private:
  std::set<std::string> taken_;  // with cases folded
};

}  // namespace lakresvos::render

#endif
