#include <limits>

#include <lakresvos/OmDisplayLayerHeading.h>

#include "dimension/OmMakeRoom.h"
#include "layout/OmDisplayLayerHeadingData.h"
#include "layout/OmSaturate.h"

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
  if (!_my->FindPlace(layer, place)) {
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
  if (_my->FindCurrentPlace(place)) {
    _my->Fill(static_cast<unsigned long long>(static_cast<int>(place)), _my->layerCalc, index);
  }
}

// Layer positions

int OmDisplayLayerHeading::getDimensionIndex(int i) const {
  return _my->layers[i];
}

int OmDisplayLayerHeading::VisibleWidth(int i) const {
  OmDimHeader const* const header = _my->FindHeader(_my->layers[i]);
  return header != nullptr ? header->maxLevels : 0;
}

std::deque<OmDisplayLayerHeading::PathNode*> OmDisplayLayerHeading::Nodes(int i) const {
  std::deque<PathNode*> nodes;
  if (OmDimHeader::Path* const path = _my->FindCurrentNodes(i)) {
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
  if (OmDimHeader::Path* const path = _my->FindCurrentNodes(i);
      path != nullptr && path->size() > 1) {
    MakeRoom(out, path->size());
    OmDimHeader::AppendFromRoot(*path, out);
  }
}

void OmDisplayLayerHeading::DimCatNodes(int i, PathNode*& outermost, PathNode*& category) const {
  if (OmDimHeader::Path* const path = _my->FindCurrentNodes(i);
      path != nullptr && path->size() > 1) {
    outermost = path->end - 1;
    category = path->begin;
  }
}
