#include <algorithm>
#include <limits>
#include <new>

#include <lakresvos/OmDisplayLayerHeading.h>

#include "dimension/OmMakeRoom.h"
#include "layout/OmDisplayLayerHeadingData.h"
#include "layout/OmSaturate.h"

namespace {

/// Whether fewer than one per cent of all combinations of categories have a cell.
bool IsSparse(OmPivotTable const& table) {
  unsigned long long total = 1;
  for (int const size : table.SizeVector()) {
    total *= static_cast<unsigned long long>(size);
  }
  unsigned long long const threshold = (total + 50) / 100;
  unsigned long long counted = 0;
  for (auto at = table.FirstCell(); counted < threshold && at.Cell() != nullptr; ++at) {
    ++counted;
  }
  return counted < threshold;
}

}  // namespace

// The private record

PuppetVector<short> OmDisplayLayerHeading::Data::Reversed(PuppetVector<short> axis) {
  std::reverse(axis.begin(), axis.end());
  return axis;
}

OmDisplayLayerHeading::Data::Data(OmPivotTable& owner, bool skip, Unfilled)
    : OmMemoryRegion(false),
      table(&owner),
      skipEmpty(skip),
      cellIndex(static_cast<std::size_t>(owner.NDimensions()), 0),
      dimHeaders(this),
      layers(Reversed(owner.Layers())),
      sparse(IsSparse(owner)),
      layerCalc(layers, owner.SizeVector()) {}

OmDisplayLayerHeading::Data::Data(OmPivotTable& owner, bool skip) : Data(owner, skip, Unfilled()) {
  CollectHeaderInfo();
  for (short const dimension : layers) {
    if (OmDimHeader* const header = Header(dimension)) {
      layerHeaders.push_back(header);
    }
  }
  nLayers = layerCalc.Size();
  if (skipEmpty) {
    FindNonEmptyLayers();
    nLayers = nonEmptyLayers.size();
  }
}

OmDisplayLayerHeading::Data::~Data() {
  WorkingRelease(false);
  for (OmDimHeader* header : dimHeaders.Elements()) {
    header->~OmDimHeader();
  }
}

void OmDisplayLayerHeading::Data::CollectHeaderInfo() {
  dimHeaders.reserve(cellIndex.size());
  for (int d = 0; d < table->NDimensions(); ++d) {
    void* const memory = Allocate(sizeof(OmDimHeader));
    dimHeaders.push_back(::new (memory) OmDimHeader(table->Dimension(d), this));
  }
}

void OmDisplayLayerHeading::Data::FindNonEmptyLayers() {
  PuppetVector<short> others = table->Rows();
  std::vector<short> const& columns = table->Columns().elements;
  others.elements.insert(others.begin(), columns.begin(), columns.end());
  FindNonEmptyHeaders(layers, others, nonEmptyLayers);
}

bool OmDisplayLayerHeading::Data::PlaceOf(int layer, unsigned long long& place) const {
  auto const number = static_cast<unsigned long long>(layer);
  if (layer < 0 || number >= nLayers) {
    return false;
  }
  place = skipEmpty ? nonEmptyLayers[number] : number;
  return true;
}

bool OmDisplayLayerHeading::Data::CurrentPlace(unsigned long long& place) const {
  if (!skipEmpty && currentLayer >= 0) {
    place = static_cast<unsigned long long>(currentLayer);
    return true;
  }
  return PlaceOf(currentLayer, place);
}

OmDimHeader::Path* OmDisplayLayerHeading::Data::FindNodes(int place, int i) {
  auto const position = static_cast<std::size_t>(i);
  if (position >= layerCalc.dims.size()) {
    return nullptr;
  }
  std::vector<unsigned int> const digits =
      layerCalc.base.Digits(static_cast<unsigned long long>(place));
  OmDimHeader* const header = Header(layerCalc.dims.elements[position]);
  return header != nullptr ? header->PathAt(digits[position]) : nullptr;
}

OmDimHeader::Path* OmDisplayLayerHeading::Data::CurrentNodes(int i) {
  unsigned long long place = 0;
  return CurrentPlace(place) ? FindNodes(static_cast<int>(place), i) : nullptr;
}

OmPivotTable::Data* OmDisplayLayerHeading::Data::TableData() const {
  return table->_my;
}

// Construction and destruction

OmDisplayLayerHeading::OmDisplayLayerHeading(OmPivotTable& table, bool skipEmpty)
    : _my(new Data(table, skipEmpty)) {}

OmDisplayLayerHeading::~OmDisplayLayerHeading() {
  delete _my;
}

OmPivotTable& OmDisplayLayerHeading::Table() {
  return *_my->table;
}

bool OmDisplayLayerHeading::SkipEmpty() const {
  return _my->skipEmpty;
}

int OmDisplayLayerHeading::NDimensions() const {
  return SaturateToInt(_my->layers.size());
}

// The current layer

int OmDisplayLayerHeading::getLayer() const {
  return _my->currentLayer;
}

bool OmDisplayLayerHeading::SwitchLayer(int layer) {
  if (layer == -1) {
    _my->currentLayer = -1;
    return false;
  }
  unsigned long long place = 0;
  if (!_my->PlaceOf(layer, place)) {
    return false;
  }
  _my->Fill(place, _my->layerCalc, _my->cellIndex);
  _my->currentLayer = layer;
  return true;
}

bool OmDisplayLayerHeading::NextLayer() {
  return getLayer() != std::numeric_limits<int>::max() && SwitchLayer(getLayer() + 1);
}

bool OmDisplayLayerHeading::LastLayer() {
  return SwitchLayer(_my->nLayers == 0 ? -1 : SaturateToInt(_my->nLayers - 1));
}

int OmDisplayLayerHeading::restoreLayer() const {
  _my->currentLayer = _my->table->getLayerLoc();
  return _my->currentLayer;
}

std::vector<int> OmDisplayLayerHeading::getCurrentCellIndex() {
  return _my->cellIndex;
}

void OmDisplayLayerHeading::Fill(std::vector<int>& index) {
  unsigned long long place = 0;
  if (_my->CurrentPlace(place)) {
    _my->Fill(static_cast<unsigned long long>(static_cast<int>(place)), _my->layerCalc, index);
  }
}

// Layer positions

int OmDisplayLayerHeading::getDimensionIndex(int i) const {
  return _my->layers[i];
}

int OmDisplayLayerHeading::VisibleWidth(int i) const {
  OmDimHeader const* const header = _my->Header(_my->layers[i]);
  return header != nullptr ? header->maxLevels : 0;
}

std::deque<OmDisplayLayerHeading::PathNode*> OmDisplayLayerHeading::Nodes(int i) const {
  std::deque<PathNode*> nodes;
  if (OmDimHeader::Path* const path = _my->CurrentNodes(i)) {
    for (std::size_t step = path->size(); step != 0; --step) {
      PathNode& node = (*path)[step - 1];
      if (node.Value().hide) {
        nodes.push_back(nullptr);
        continue;
      }
      if (node.Value().group && node.Value().hideLabels) {
        break;
      }
      nodes.push_back(&node);
    }
  }
  return nodes;
}

void OmDisplayLayerHeading::DimAllNodes(int i, std::vector<PathNode*>& out) const {
  if (OmDimHeader::Path* const path = _my->CurrentNodes(i); path != nullptr && path->size() > 1) {
    MakeRoom(out, path->size());
    OmDimHeader::AppendFromRoot(*path, out);
  }
}

void OmDisplayLayerHeading::DimCatNodes(int i, PathNode*& outermost, PathNode*& category) const {
  if (OmDimHeader::Path* const path = _my->CurrentNodes(i); path != nullptr && path->size() > 1) {
    outermost = path->end - 1;
    category = path->begin;
  }
}
