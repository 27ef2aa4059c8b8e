#ifndef TESTS_RENDER_SUPPORT_COLLECTOR_H
#define TESTS_RENDER_SUPPORT_COLLECTOR_H

#include <streambuf>
#include <string>

/// Keeps what is written, up to a mebibyte, without asking for memory.
class Collector : public std::streambuf {
 public:
  Collector() { text_.reserve(std::size_t{1} << 20U); }

  /// What was written since the last Clear().
  std::string const& Text() const { return text_; }

  void Clear() { text_.clear(); }

 protected:
  int_type overflow(int_type c) override {
    char const one = traits_type::to_char_type(c);
    return xsputn(&one, 1) == 1 ? traits_type::not_eof(c) : traits_type::eof();
  }
  std::streamsize xsputn(char const* text, std::streamsize count) override {
    auto const size = static_cast<std::size_t>(count);
    if (text_.capacity() - text_.size() < size) {
      return 0;
    }
    text_.append(text, size);
    return count;
  }

 private:
  std::string text_;
};

#endif
