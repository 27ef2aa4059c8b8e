#ifndef CELLS_CASEFOLDING_H
#define CELLS_CASEFOLDING_H

#include <cstddef>
#include <string>
#include <string_view>

/// The bytes of a UTF-8 text with every character replaced by its simple case folding, which is one
/// character again and does not depend on the locale. Bytes that are not part of well-formed UTF-8
/// stay. The text is folded as it is read and copied nowhere; it must outlive the reader.
class FoldedBytes {
 public:
  static constexpr int kEnd = -1;

  explicit FoldedBytes(std::string_view text) : rest_(text) {}

  /// The next byte, or kEnd after the last one.
  int Next() {
    if (next_ == folded_.size()) {
      if (rest_.empty()) {
        return kEnd;
      }
      FoldFirst();
    }
    return static_cast<unsigned char>(folded_[next_++]);
  }

 private:
  /// Takes the first character, or byte that belongs to none, from the rest.
  void FoldFirst();

  std::string_view rest_;
  std::string folded_;  // one character, for which a string needs no memory
  std::size_t next_ = 0;
};

#endif
