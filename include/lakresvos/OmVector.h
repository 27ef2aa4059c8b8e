#ifndef LAKRESVOS_OMVECTOR_H
#define LAKRESVOS_OMVECTOR_H

#include <cstddef>
#include <cstring>
#include <limits>
#include <new>
#include <utility>

#include <cells/OmMemoryRegion.h>

/// A growable array whose storage comes from an OmMemoryRegion.
///
/// Three rules set it apart from a std::vector:
/// - Elements are relocated bitwise: growing copies the live bytes into the new block, inserting
///   and erasing shift the later elements by a raw memory move. An element type must tolerate that.
/// - Elements are never destroyed by the vector. Whoever owns them destroys them before the vector
///   goes; the vector gives back its block only.
/// - A full vector grows to 4 elements, and from then on by doubling; reserve() is exact.
///
/// It is not copyable. Requires: the region outlives the vector. References, pointers and ranges
/// are valid until the vector grows, or until an element at or before their place is inserted or
/// erased.
///
/// Thread safety: none; one thread at a time uses a vector and its region.
///
/// @tparam Type the element; relocatable by a plain copy of its bytes, aligned to 16 bytes at most.
template <class Type>
class OmVector {
 public:
  /// The live elements of a vector, for range-based loops. Valid until the vector changes.
  /// @tparam Element the element, const where it may only be read.
  template <class Element>
  struct Range {
    Element* first;  ///< the first element
    Element* last;   ///< one past the last element

    /// The first element, for a range-based loop.
    Element* begin() const { return first; }
    /// The place after the last element, for a range-based loop.
    Element* end() const { return last; }
  };

  OmMemoryRegion*
      region;         ///< supplies the storage; not owned; null only after the owner let go of it
  Type* begin;        ///< first element; null while nothing was ever reserved
  Type* end;          ///< one past the last element
  Type* capacityEnd;  ///< one past the reserved storage

  /// Makes an empty vector without storage. Throws nothing.
  /// @param source the region that supplies storage; null means OmMemoryRegion::DefaultHeap().
  explicit OmVector(OmMemoryRegion* source = nullptr)
      : region(source != nullptr ? source : OmMemoryRegion::DefaultHeap()),
        begin(nullptr),
        end(nullptr),
        capacityEnd(nullptr) {}

  OmVector(OmVector const&) = delete;
  OmVector& operator=(OmVector const&) = delete;

  /// Gives the storage back to the region. The elements are not destroyed.
  ~OmVector() { Clear(); }

  /// The number of elements.
  std::size_t size() const { return static_cast<std::size_t>(end - begin); }

  /// The number of elements that the present storage can hold.
  std::size_t capacity() const { return static_cast<std::size_t>(capacityEnd - begin); }

  /// The element at `index`. Requires: `index < size()`. Constant time; throws nothing.
  Type& operator[](std::size_t index) { return begin[index]; }
  /// The element at `index`, to read. Requires: `index < size()`.
  Type const& operator[](std::size_t index) const { return begin[index]; }

  /// All elements in order, for range-based loops.
  Range<Type> Elements() { return {begin, end}; }
  /// All elements in order, to read.
  Range<Type const> Elements() const { return {begin, end}; }

  /// Makes room for exactly `count` elements; does nothing when there is that much room already.
  /// Linear in the number of elements where it moves them.
  /// @throws std::bad_alloc when the region cannot supply it; the vector is then unchanged.
  void reserve(std::size_t count) {
    if (count > capacity()) {
      Adopt(AllocateFor(count), count);
    }
  }

  /// Constructs an element at the end, in amortized constant time, and returns it.
  /// The arguments may refer to elements of this vector.
  /// @throws whatever the construction throws, or std::bad_alloc; the vector is then unchanged.
  template <class... Arguments>
  Type& emplace_back(Arguments&&... arguments) {
    if (end == capacityEnd) {
      return GrowAndEmplace(std::forward<Arguments>(arguments)...);
    }
    ::new (static_cast<void*>(end)) Type(std::forward<Arguments>(arguments)...);
    return *end++;
  }

  /// Appends a copy of `value`, which may be an element of this vector.
  /// @throws as emplace_back().
  void push_back(Type const& value) { emplace_back(value); }

  /// Inserts a copy of `value`, which may be an element of this vector, before position `index`;
  /// past the end it appends. Linear in the number of later elements.
  /// @throws as emplace_back().
  void insert(std::size_t index, Type const& value) {
    emplace_back(value);
    std::size_t const last = size() - 1;
    if (index < last) {
      alignas(Type) unsigned char moved[sizeof(Type)];
      std::memcpy(moved, Bytes(end - 1), sizeof(Type));
      std::memmove(Bytes(begin + index + 1), Bytes(begin + index), (last - index) * sizeof(Type));
      std::memcpy(Bytes(begin + index), moved, sizeof(Type));
    }
  }

  /// Drops the element at `index` without destroying it and moves the later ones down; past the end
  /// it drops the last element, and nothing when the vector is empty. The capacity stays. Linear in
  /// the number of later elements; throws nothing.
  void erase(std::size_t index) {
    if (begin == end) {
      return;
    }
    std::size_t const last = size() - 1;
    if (index < last) {
      std::memmove(Bytes(begin + index), Bytes(begin + index + 1), (last - index) * sizeof(Type));
    }
    --end;
  }

  /// Gives the storage back and leaves the vector empty. The elements are not destroyed.
  void Clear() {
    if (begin != nullptr) {
      OmMemoryRegion::Release(begin);
      begin = end = capacityEnd = nullptr;
    }
  }

  /// The capacity that a full vector of `size` elements grows to: 4, and from 4 elements on the
  /// smallest doubling of 4 that exceeds `size`.
  static std::size_t GrownCapacity(std::size_t size) {
    std::size_t grown = 4;
    while (grown <= size) {
      grown *= 2;
    }
    return grown;
  }

 private:
  static void* Bytes(Type* element) { return static_cast<void*>(element); }

  Type* AllocateFor(std::size_t count) const {
    static_assert(alignof(Type) <= 16, "regions align blocks to 16 bytes");
    if (count >
        static_cast<std::size_t>(std::numeric_limits<std::ptrdiff_t>::max()) / sizeof(Type)) {
      throw std::bad_alloc();
    }
    OmMemoryRegion* const source = region != nullptr ? region : OmMemoryRegion::DefaultHeap();
    return static_cast<Type*>(source->Allocate(count * sizeof(Type)));
  }

  /// Moves the live bytes into `block` and makes it the storage.
  void Adopt(Type* block, std::size_t count) {
    std::size_t const live = size();
    if (live != 0) {
      std::memcpy(Bytes(block), Bytes(begin), live * sizeof(Type));
    }
    if (begin != nullptr) {
      OmMemoryRegion::Release(begin);
    }
    begin = block;
    end = block + live;
    capacityEnd = block + count;
  }

  /// Constructs the new element before the old block goes, for the arguments may point into it.
  template <class... Arguments>
  Type& GrowAndEmplace(Arguments&&... arguments) {
    std::size_t const count = GrownCapacity(size());
    Type* block = AllocateFor(count);
    Type* slot = block + size();
    try {
      ::new (static_cast<void*>(slot)) Type(std::forward<Arguments>(arguments)...);
    } catch (...) {
      OmMemoryRegion::Release(block);
      throw;
    }
    Adopt(block, count);
    ++end;
    return *slot;
  }
};

#endif
