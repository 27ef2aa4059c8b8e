#include "layout/OmPlaceCalculator.h"

#include <cstddef>

namespace {

std::vector<unsigned int> CollectBases(PuppetVector<short> const& axis,
                                       std::vector<int> const& sizes) {
  std::vector<unsigned int> bases;
  bases.reserve(axis.size());
  for (short const dimension : axis) {
    bool const known = dimension >= 0 && static_cast<std::size_t>(dimension) < sizes.size();
    bases.push_back(known ? static_cast<unsigned int>(sizes[static_cast<std::size_t>(dimension)])
                          : 1U);
  }
  return bases;
}

}  // namespace

OmPlaceCalculator::OmPlaceCalculator(PuppetVector<short> const& axis, std::vector<int> const& sizes)
    : dims(axis), positions(axis.begin(), axis.end()), base(CollectBases(axis, sizes)) {}

void OmPlaceCalculator::Fill(unsigned long long place, std::vector<int>& index) const {
  std::vector<unsigned int> const digits = base.Digits(place);
  for (std::size_t i = 0; i < positions.size(); ++i) {
    auto const slot = static_cast<std::size_t>(positions[i]);
    if (slot < index.size()) {
      index[slot] = static_cast<int>(digits[i]);
    }
  }
}

unsigned long long OmPlaceCalculator::Size() const {
  unsigned long long size = 1;
  for (unsigned int const radix : base.Bases()) {
    size *= radix;
  }
  return size;
}
