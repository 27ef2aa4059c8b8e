#include "layout/OmDisplayLayerHeadingData.h"

#include <algorithm>
#include <new>

using Layout = OmDisplayLayerHeading::Data;

// Construction and destruction

PuppetVector<short> Layout::ReverseAxis(PuppetVector<short> axis) {
  std::reverse(axis.begin(), axis.end());
  return axis;
}

Layout::Data(OmPivotTable& owner, bool skip, Unfilled)
    : OmMemoryRegion(false),
      table(&owner),
      skipEmpty(skip),
      cellIndex(static_cast<std::size_t>(owner.NDimensions()), 0),
      dimHeaders(this),
      layers(ReverseAxis(owner.Layers())),
      sparse(IsSparse(owner)),
      layerCalc(layers, owner.SizeVector()) {}

Layout::Data(OmPivotTable& owner, bool skip) : Data(owner, skip, Unfilled()) {
  CollectHeaderInfo();
  nLayers = layerCalc.Size();
  if (skipEmpty) {
    FindNonEmptyLayers();
    nLayers = nonEmptyLayers.size();
  }
}

Layout::~Data() {
  WorkingRelease(false);
  for (OmDimHeader* header : dimHeaders.Elements()) {
    header->~OmDimHeader();
  }
}

void Layout::CollectHeaderInfo() {
  dimHeaders.reserve(cellIndex.size());
  for (int d = 0; d < table->NDimensions(); ++d) {
    void* const memory = Allocate(sizeof(OmDimHeader));
    dimHeaders.push_back(::new (memory) OmDimHeader(table->Dimension(d), this));
  }
}

void Layout::FindNonEmptyLayers() {
  PuppetVector<short> others = table->Rows();
  std::vector<short> const& columns = table->Columns().elements;
  others.elements.insert(others.begin(), columns.begin(), columns.end());
  FindNonEmptyHeaders(layers, others, nonEmptyLayers);
}

bool Layout::FindPlace(int layer, unsigned long long& place) const {
  auto const number = static_cast<unsigned long long>(layer);
  if (layer < 0 || number >= nLayers) {
    return false;
  }
  place = skipEmpty ? nonEmptyLayers[number] : number;
  return true;
}

bool Layout::FindCurrentPlace(unsigned long long& place) const {
  if (!skipEmpty && currentLayer >= 0) {
    place = static_cast<unsigned long long>(currentLayer);
    return true;
  }
  return FindPlace(currentLayer, place);
}

OmDimHeader::Path* Layout::FindNodes(int place, int i) {
  auto const position = static_cast<std::size_t>(i);
  if (position >= layerCalc.dims.size()) {
    return nullptr;
  }
  std::vector<unsigned int> const digits =
      layerCalc.base.Digits(static_cast<unsigned long long>(place));
  OmDimHeader* const header = FindHeader(layerCalc.dims.elements[position]);
  return header != nullptr ? header->FindPath(digits[position]) : nullptr;
}

OmDimHeader::Path* Layout::FindCurrentNodes(int i) {
  unsigned long long place = 0;
  return FindCurrentPlace(place) ? FindNodes(static_cast<int>(place), i) : nullptr;
}

OmPivotTable::Data* Layout::GetTableData() const {
  return table->_my;
}

// Full cell indexes

unsigned long long Layout::DisplayPosition(std::vector<int> const& index,
                                           PlaceCalculator const& calc) {
  if (calc.dims.empty()) {
    return 0;
  }
  std::vector<unsigned int> digits;
  for (short const dimension : calc.dims) {
    if (OmDimHeader const* const header = FindHeader(dimension)) {
      auto const slot = static_cast<std::size_t>(dimension);
      digits.push_back(slot < index.size()
                           ? header->FindPosition(static_cast<unsigned long long>(index[slot]))
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
    OmDimHeader const* const header = FindHeader(dimension);
    if (header != nullptr && digits_[i] < header->visibleCategories.size()) {
      index[static_cast<std::size_t>(dimension)] =
          static_cast<int>(header->visibleCategories[digits_[i]]);
    }
  }
}
