#include <utility>

#include "layout/OmDisplayLayerHeadingData.h"

namespace {

std::vector<unsigned int> BasesOf(PuppetVector<short> const& axis, std::vector<int> const& sizes) {
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

using Layout = OmDisplayLayerHeading::Data;

Layout::PlaceCalculator::PlaceCalculator(PuppetVector<short> const& axis,
                                         std::vector<int> const& sizes)
    : dims(axis), positions(axis.begin(), axis.end()), base(BasesOf(axis, sizes)) {}

void Layout::PlaceCalculator::Fill(unsigned long long place, std::vector<int>& index) const {
  std::vector<unsigned int> const digits = base.Digits(place);
  for (std::size_t i = 0; i < positions.size(); ++i) {
    auto const slot = static_cast<std::size_t>(positions[i]);
    if (slot < index.size()) {
      index[slot] = static_cast<int>(digits[i]);
    }
  }
}

unsigned long long Layout::PlaceCalculator::Size() const {
  unsigned long long size = 1;
  for (unsigned int const radix : base.Bases()) {
    size *= radix;
  }
  return size;
}

unsigned long long Layout::DisplayPosition(std::vector<int> const& index,
                                           PlaceCalculator const& calc) {
  if (calc.dims.empty()) {
    return 0;
  }
  std::vector<unsigned int> digits;
  for (short const dimension : calc.dims) {
    if (OmDimHeader const* const header = Header(dimension)) {
      auto const slot = static_cast<std::size_t>(dimension);
      digits.push_back(slot < index.size()
                           ? header->PositionOf(static_cast<unsigned long long>(index[slot]))
                           : OmDimHeader::kNoPosition);
    }
  }
  return calc.base.Value(digits);
}

void Layout::Fill(unsigned long long place, PlaceCalculator const& calc, std::vector<int>& index) {
  calc.base.Digits(place, digits_);
  index.resize(dimHeaders.size());
  for (std::size_t i = 0; i < digits_.size(); ++i) {
    short const dimension = calc.dims[static_cast<long long>(i)];
    OmDimHeader const* const header = Header(dimension);
    if (header != nullptr && digits_[i] < header->visibleCategories.size()) {
      index[static_cast<std::size_t>(dimension)] =
          static_cast<int>(header->visibleCategories[digits_[i]]);
    }
  }
}
