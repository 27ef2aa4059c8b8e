#include <lakresvos/OmDisplayRowHeading.h>

#include "layout/OmDisplayRowHeadingData.h"
#include "layout/OmSaturate.h"

OmDisplayRowHeading::OmDisplayRowHeading(OmDisplayLayerHeading& layer, bool skipEmpty,
                                         bool dimNamesInCorner)
    : _my(new Data(layer, layer.Table().Rows(), layer.Table().Columns(), skipEmpty,
                   dimNamesInCorner, true)) {}

OmDisplayRowHeading::~OmDisplayRowHeading() {
  delete _my;
}

OmPivotTable& OmDisplayRowHeading::Table() {
  return *_my->table;
}

bool OmDisplayRowHeading::SkipEmpty() const {
  return _my->skipEmpty;
}

bool OmDisplayRowHeading::DimNamesInCorner() const {
  return _my->dimNamesInCorner;
}

int OmDisplayRowHeading::NDimensions() const {
  return SaturateToInt(_my->heads.size());
}

int OmDisplayRowHeading::NRows() const {
  return SaturateToInt(_my->nPlaces);
}

int OmDisplayRowHeading::NColumns() const {
  return SaturateToInt(_my->totalLevels);
}

int OmDisplayRowHeading::VisibleWidth(int j) const {
  return _my->VisibleLevels(j);
}

std::deque<OmDisplayRowHeading::PathNode*> OmDisplayRowHeading::Row(int r) const {
  return _my->Row(r);
}

std::deque<OmDisplayRowHeading::PathNode*> OmDisplayRowHeading::Column(int k) const {
  return _my->Level(k, true);
}

std::deque<OmDisplayRowHeading::PathNode*> OmDisplayRowHeading::RowCategories(int r) const {
  return _my->RowCategories(r);
}

void OmDisplayRowHeading::DimAllNodes(int r, std::vector<PathNode*>& out) const {
  _my->DimAllNodes(r, out);
}

void OmDisplayRowHeading::DimCatNodes(int r, std::vector<PathNode*>& outermost,
                                      std::vector<PathNode*>& categories) const {
  _my->DimCatNodes(r, outermost, categories);
}

void OmDisplayRowHeading::Fill(std::vector<int>& index, int r) const {
  _my->Fill(index, r);
}

std::vector<unsigned long long> const& OmDisplayRowHeading::getNonEmptyRows() const {
  return _my->NonEmptyPlaces();
}

int OmDisplayRowHeading::getDimensionIndex(int j) const {
  return _my->GetDimensionIndex(j);
}

std::vector<OmCellText const*> OmDisplayRowHeading::CornerText() const {
  return _my->cornerLabels;
}
