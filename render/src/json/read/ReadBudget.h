#ifndef LAKRESVOS_RENDER_JSON_READ_READBUDGET_H
#define LAKRESVOS_RENDER_JSON_READ_READBUDGET_H

#include <cstddef>

namespace lakresvos::render {

/// What a document may still cost beyond its own text, in bytes.
///
/// A document comes from anywhere, and a few words of it can ask for more memory than there is: a
/// composite whose parts name the one before twice for a text that doubles with each, an axis with
/// a dimension twenty times over for a grid of more rows than atoms. A fixed limit on any of these
/// would refuse legitimate tables, which may be of any size. What tells them apart is the text: a
/// legitimate document says each thing that it holds, so that what it takes is in proportion to its
/// length. So there is one budget for the whole text, a fixed amount for the small documents and an
/// amount for each byte; a reader spends the estimated cost before it allocates more than the
/// text's own length, and what the budget does not cover is refused. Costs are estimates from above
/// of the memory while reading and while showing the document without empty rows and columns; what
/// costs no more than its own text is free.
class ReadBudget {
 public:
  /// @param length the number of bytes of the document's text.
  explicit ReadBudget(std::size_t length)
      : left_(kForEveryDocument + kForEachByte * static_cast<double>(length)) {}

  /// @param bytes a double, for estimates may be beyond all integers.
  /// @return whether there was as much left.
  bool Spend(double bytes) {
    bool const enough = bytes <= left_;
    left_ -= enough ? bytes : 0;
    return enough;
  }

  double Left() const { return left_; }

 private:
  static constexpr double kForEveryDocument = 1U << 24U;
  static constexpr double kForEachByte = 256;

  double left_;
};

}  // namespace lakresvos::render

#endif
