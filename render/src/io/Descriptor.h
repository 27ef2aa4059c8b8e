#ifndef LAKRESVOS_RENDER_IO_DESCRIPTOR_H
#define LAKRESVOS_RENDER_IO_DESCRIPTOR_H

#include <unistd.h>
#include <utility>

namespace lakresvos::render {

/// Owns a file descriptor and closes it; -1 when there is none.
class Descriptor {
 public:
  explicit Descriptor(int number = -1) : number_(number) {}
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }
  ~Descriptor() {
    if (number_ >= 0) {
      ::close(number_);
    }
  }

  bool IsOpen() const { return number_ >= 0; }
  int Number() const { return number_; }

 private:
  int number_;
};

}  // namespace lakresvos::render

#endif
