#include <algorithm>

#include "layout/OmDisplayLayerHeadingData.h"
#include "layout/OmOccupiedPlaces.h"
#include "layout/OmPlaceSet.h"
#include "table/OmPivotTableData.h"

// The search for the places that hold a cell, and for the heading levels that these need.
//
// Why two methods: going through the stored cells costs as much as there are cells, trying the
// combinations as much as there are places; the store's fullness decides which is cheaper. They are
// not two ways to one answer. The sparse one counts a cell wherever it is, in any layer and past
// any size; the dense one counts those that a heading can show in the current layer. Which rows a
// heading keeps therefore depends on how full the table is, and clients see that, so neither may be
// put in the other's place.

using Layout = OmDisplayLayerHeading::Data;

bool Layout::IsSparse(OmPivotTable const& table) {
  unsigned long long total = 1;
  for (int const size : table.SizeVector()) {
    total *= static_cast<unsigned long long>(size);
  }
  unsigned long long const threshold = (total + 50) / 100;
  unsigned long long counted = 0;
  // A bottom node knows how many cells it has.
  OmPivotTable::Iterator::Data walk(*table._my);
  for (; counted < threshold && walk.current != nullptr; walk.Skip(1)) {
    counted += walk.levels[0].node->CountFilled();
  }
  return counted < threshold;
}

void Layout::FindNonEmptyHeaders(PuppetVector<short> const& heads,
                                 PuppetVector<short> const& others, Places& result) {
  if (sparse) {
    FindNonEmptyHeadersSparse(heads, others, result);
  } else {
    FindNonEmptyHeadersDense(heads, others, result);
  }
}

void Layout::FindNonEmptyHeadersSparse(PuppetVector<short> const& heads, PuppetVector<short> const&,
                                       Places& result) {
  PlaceCalculator const calc(heads, table->SizeVector());
  OmPlaceSet places(calc.Size());
  std::vector<unsigned int> digits(heads.size());
  // Cells that differ in lower dimensions only are in the same place.
  auto lowest = static_cast<unsigned long>(table->NDimensions());
  for (short const dimension : heads) {
    if (FindHeader(dimension) != nullptr) {
      lowest = std::min(lowest, static_cast<unsigned long>(dimension));
    }
  }
  OmPivotTable::Iterator::Data walk(*GetTableData());
  for (; walk.current != nullptr; walk.Skip(lowest)) {
    for (std::size_t i = 0; i < digits.size(); ++i) {
      short const dimension = heads.elements[i];
      OmDimHeader const* const header = FindHeader(dimension);
      digits[i] = header != nullptr
                      ? header->FindPosition(walk.levels[static_cast<std::size_t>(dimension)].index)
                      : 0;
    }
    places.Insert(calc.base.Value(digits));
  }
  places.AppendTo(result);
}

void Layout::FindNonEmptyHeadersDense(PuppetVector<short> const& heads,
                                      PuppetVector<short> const& others, Places& result) {
  result.clear();
  OmOccupiedPlaces(*this, GetTableData()->cells, heads, others).AppendTo(result);
}

void Layout::FindVisibleLevels(Places const& places, PlaceCalculator& calc,
                               std::vector<unsigned short>& levels) {
  std::size_t const count = calc.dims.size();
  // Per digit, which display positions occur.
  std::vector<std::vector<bool>> occurs(count);
  for (std::size_t i = 0; i < count && !places.empty(); ++i) {
    OmDimHeader const* const header = FindHeader(calc.dims.elements[i]);
    occurs[i].resize(header != nullptr ? header->levelCounts.size() : 0);
  }
  std::vector<unsigned int> digits;
  for (unsigned long long const place : places) {
    calc.base.Digits(place, digits);
    for (std::size_t i = 0; i < count; ++i) {
      if (digits[i] < occurs[i].size()) {
        occurs[i][digits[i]] = true;
      }
    }
  }
  for (std::size_t i = 0; i < count; ++i) {
    OmDimHeader const* const header = FindHeader(calc.dims.elements[i]);
    if (header == nullptr) {
      continue;
    }
    int level = places.empty() ? header->maxLevels : 0;
    for (std::size_t k = 0; k < occurs[i].size() && level < header->maxLevels; ++k) {
      if (occurs[i][k]) {
        level = std::max<int>(level, header->levelCounts[k]);
      }
    }
    levels.push_back(static_cast<unsigned short>(level));
  }
}
