#ifndef LAKRESVOS_RENDER_IO_OUTPUTBUFFER_H
#define LAKRESVOS_RENDER_IO_OUTPUTBUFFER_H

#include <cstddef>
#include <ostream>
#include <string>
#include <string_view>

namespace lakresvos::render {

/// Gathers small pieces of output and writes them to a stream in large ones: appending to a string
/// costs a fraction of a stream insertion.
class OutputBuffer {
 public:
  /// @param out must outlive the object.
  explicit OutputBuffer(std::ostream& out) : out_(out) {}
  OutputBuffer(OutputBuffer const&) = delete;
  OutputBuffer& operator=(OutputBuffer const&) = delete;

  OutputBuffer& operator<<(std::string_view text) {
    text_ += text;
    return *this;
  }
  OutputBuffer& operator<<(char c) {
    text_ += c;
    return *this;
  }
  OutputBuffer& operator<<(std::size_t number) { return *this << std::to_string(number); }
  OutputBuffer& operator<<(int number) { return *this << std::to_string(number); }

  /// Where to append piece by piece; call Drain() now and then.
  std::string& Text() { return text_; }

  /// Writes what there is once it is worth it.
  void Drain() {
    if (text_.size() >= kEnough) {
      Flush();
    }
  }

  /// Adds a large text and drains.
  void Append(std::string_view text) {
    if (text_.size() + text.size() > kEnough) {
      Flush();
    }
    text_ += text;
    Drain();
  }

  /// Writes all there is. What is not flushed is lost.
  void Flush() {
    out_.write(text_.data(), static_cast<std::streamsize>(text_.size()));
    text_.clear();
  }

 private:
  static constexpr std::size_t kEnough = 1U << 16;

  std::ostream& out_;
  std::string text_;
};

}  // namespace lakresvos::render

#endif
