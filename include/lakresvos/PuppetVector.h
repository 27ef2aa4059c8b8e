#ifndef LAKRESVOS_PUPPETVECTOR_H
#define LAKRESVOS_PUPPETVECTOR_H

#include <cstddef>
#include <vector>

/// A vector with a stand-in: reading past its end gives the puppet.
///
/// The axes of a pivot table are PuppetVector<short> of dimension numbers.
///
/// Thread safety: as std::vector. The growing index operator changes the vector.
template <class T>
class PuppetVector {
 public:
  std::vector<T> elements;  ///< the values, in order
  T puppet;                 ///< what stands for every element past the end

  explicit PuppetVector(T standIn = T()) : puppet(standIn) {}

  std::size_t size() const { return elements.size(); }
  bool empty() const { return elements.empty(); }
  void push_back(T const& value) { elements.push_back(value); }

  typename std::vector<T>::iterator begin() { return elements.begin(); }
  typename std::vector<T>::iterator end() { return elements.end(); }
  typename std::vector<T>::const_iterator begin() const { return elements.begin(); }
  typename std::vector<T>::const_iterator end() const { return elements.end(); }

  /// Element `index`, or the puppet for a negative index or one past the end.
  T const& operator[](long long index) const { return Holds(index) ? At(index) : puppet; }

  /// Element `index`; an index past the end first appends copies of the puppet until the element
  /// exists. A negative index gives the puppet itself and appends nothing.
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
