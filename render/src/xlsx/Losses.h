#ifndef LAKRESVOS_RENDER_XLSX_LOSSES_H
#define LAKRESVOS_RENDER_XLSX_LOSSES_H

#include <array>
#include <cstddef>
#include <string>
#include <vector>

namespace lakresvos::render {

/// What a workbook cannot hold as the document has it.
enum class XlsxLoss {
  LongText,      ///< a text that no cell has room for
  BadPicture,    ///< a picture that is damaged or of an unknown kind
  MarkedNumber,  ///< a number that is written as text because of its footnote marks
};

/// Counts losses by kind.
class XlsxLosses {
 public:
  /// @param place where the loss is: a cell, as formulas name it.
  void Add(XlsxLoss kind, std::string const& place);

  /// A line for each kind of loss: how many, and where the first one is.
  std::vector<std::string> Lines() const;

 private:
  struct Count {
    std::size_t count = 0;
    std::string first;
  };

  std::array<Count, 3> counts_;
};

}  // namespace lakresvos::render

#endif
