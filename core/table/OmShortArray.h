#ifndef LAKRESVOS_CORE_TABLE_OMSHORTARRAY_H
#define LAKRESVOS_CORE_TABLE_OMSHORTARRAY_H

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>

/// An array whose length is known when it is made, and which allocates only beyond `kInPlace`
/// elements. All elements are value-initialized at first.
template <class Type, std::size_t kInPlace>
class OmShortArray {
 public:
  explicit OmShortArray(std::size_t size = 0)
      : size_(size), more_(size > kInPlace ? std::make_unique<Type[]>(size) : nullptr) {}
  OmShortArray(OmShortArray const& other) : OmShortArray(other.size_) {
    std::copy(other.begin(), other.end(), begin());
  }
  OmShortArray& operator=(OmShortArray const&) = delete;
  ~OmShortArray() = default;

  std::size_t size() const { return size_; }
  bool empty() const { return size_ == 0; }
  Type* begin() { return more_ != nullptr ? more_.get() : elements_.data(); }
  Type const* begin() const { return more_ != nullptr ? more_.get() : elements_.data(); }
  Type* end() { return begin() + size_; }
  Type const* end() const { return begin() + size_; }
  Type& operator[](std::size_t i) { return begin()[i]; }
  Type const& operator[](std::size_t i) const { return begin()[i]; }

 private:
  std::size_t size_;
  std::unique_ptr<Type[]> more_;
  std::array<Type, kInPlace> elements_{};
};

#endif
