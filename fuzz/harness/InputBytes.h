#ifndef FUZZ_HARNESS_INPUTBYTES_H
#define FUZZ_HARNESS_INPUTBYTES_H

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>

/// An input, taken piece by piece from its start. After its end there are zeros and empty texts.
class InputBytes {
 public:
  explicit InputBytes(std::string_view input) : left_(input) {}

  bool AtEnd() const { return left_.empty(); }

  /// A number in the machine's form.
  template <class Number>
  Number Take() {
    std::string const bytes = TakeText(sizeof(Number));
    Number number = 0;
    std::memcpy(&number, bytes.data(), bytes.size());
    return number;
  }

  /// At most so many bytes.
  std::string TakeText(std::size_t size) {
    std::string const text(left_.substr(0, size));
    left_.remove_prefix(text.size());
    return text;
  }

  /// A byte says how many come.
  std::string TakeText() { return TakeText(Take<unsigned char>()); }

  /// All that is left.
  std::string TakeRest() { return TakeText(left_.size()); }

 private:
  std::string_view left_;
};

#endif
