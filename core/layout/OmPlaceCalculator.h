#ifndef LAKRESVOS_CORE_LAYOUT_OMPLACECALCULATOR_H
#define LAKRESVOS_CORE_LAYOUT_OMPLACECALCULATOR_H

#include <vector>

#include <lakresvos/PuppetVector.h>

#include "layout/MultiBase.h"

/// The number system of one axis: one digit per axis entry, its radix the dimension's category
/// count. An entry that names no dimension of the table has radix 1.
struct OmPlaceCalculator {
  /// @param sizes the table's size vector.
  OmPlaceCalculator(PuppetVector<short> const& axis, std::vector<int> const& sizes);

  /// Writes the digits of `place`, as they are, into the slots of `index` that belong to this axis.
  void Fill(unsigned long long place, std::vector<int>& index) const;

  /// The number of places, modulo 2^64.
  unsigned long long Size() const;

  PuppetVector<short> dims;
  std::vector<int> positions;  ///< per digit, its slot in a full cell index
  MultiBase base;
};

#endif
