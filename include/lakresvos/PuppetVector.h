#ifndef LAKRESVOS_PUPPETVECTOR_H
#define LAKRESVOS_PUPPETVECTOR_H

#include <cstddef>
#include <vector>

/// A vector with a fallback element, the puppet, that answers for every element past its end.
///
/// The axes of a pivot table are PuppetVector<short> of dimension numbers with the puppet -1.
///
/// Caveat: on a vector that is not const, `axis[i]` past the end makes the vector longer, even
/// where the result is only read. Read through a const reference, or through `elements` with the
/// size checked, to leave the vector as it is.
///
/// References and iterators are valid until the vector grows, as those of std::vector are.
///
/// Thread safety: readers; several threads may read a vector that none changes. The growing index
/// operator changes it.
///
/// @tparam T the element; copyable.
template <class T>
class PuppetVector {
 public:
  std::vector<T> elements;  ///< the values, in order
  T puppet;                 ///< the value of every element past the end

  /// An empty vector.
  /// @param fallback the puppet.
  explicit PuppetVector(T fallback = T()) : puppet(fallback) {}

  /// The number of elements; the puppet does not count.
  std::size_t size() const { return elements.size(); }

  /// Whether there are no elements.
  bool empty() const { return elements.empty(); }

  /// Appends a copy of `value`, in amortized constant time.
  /// @throws whatever copying throws, or std::bad_alloc; the vector is then unchanged.
  void push_back(T const& value) { elements.push_back(value); }

  /// The first element, or the end.
  typename std::vector<T>::iterator begin() { return elements.begin(); }
  /// The place after the last element.
  typename std::vector<T>::iterator end() { return elements.end(); }
  /// The first element, or the end, to read.
  typename std::vector<T>::const_iterator begin() const { return elements.begin(); }
  /// The place after the last element, to read.
  typename std::vector<T>::const_iterator end() const { return elements.end(); }

  /// Element `index`, or the puppet for a negative index or one past the end. Never grows the
  /// vector. Constant time; throws nothing.
  T const& operator[](long long index) const { return Holds(index) ? At(index) : puppet; }

  /// Element `index`; an index past the end first appends copies of the puppet until the element
  /// exists. A negative index gives the puppet itself and appends nothing. Constant time within the
  /// vector, linear in the copies beyond.
  /// @throws std::bad_alloc or std::length_error; the vector is then unchanged.
  T& operator[](long long index) {
    if (index < 0) {
      return puppet;
    }
    if (!Holds(index)) {
      elements.resize(static_cast<std::size_t>(index) + 1, puppet);
    }
    return elements[static_cast<std::size_t>(index)];
  }

 private:
  bool Holds(long long index) const {
    return index >= 0 && static_cast<std::size_t>(index) < elements.size();
  }
  T const& At(long long index) const { return elements[static_cast<std::size_t>(index)]; }
};

#endif
