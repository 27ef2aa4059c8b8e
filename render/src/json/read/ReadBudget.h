#ifndef LAKRESVOS_RENDER_JSON_READ_READBUDGET_H
#define LAKRESVOS_RENDER_JSON_READ_READBUDGET_H

#include <cstddef>

namespace lakresvos::render {

/// What a document may still cost beyond its own text, in bytes. A few words of a text can ask for a
/// lot: by a large subscript, by parts that are named again and again, or by dimensions that are
/// shown several times over. Whoever follows such words takes the cost first.
///
/// What there is grows with the length of the text, so that a document may be as large as one likes
/// as long as its text says it all.
class ReadBudget {
 public:
  /// @param length the number of bytes of the document's text.
  explicit ReadBudget(std::size_t length)
      : left_(kForEveryDocument + kForEachByte * static_cast<double>(length)) {}

  /// @param bytes a double, for estimates may be beyond all integers.
  /// @return whether there was as much left.
  bool Take(double bytes) {
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
