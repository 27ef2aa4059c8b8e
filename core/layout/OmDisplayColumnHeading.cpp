#include <lakresvos/OmDisplayColumnHeading.h>

#include "layout/OmDisplayRowHeadingData.h"
#include "layout/OmSaturate.h"

OmDisplayColumnHeading::Data::Data(OmDisplayLayerHeading& layer, bool skip)
    : OmDisplayRowHeading::Data(layer, layer.Table().Columns(), layer.Table().Rows(), skip, false,
                                false) {}

OmDisplayColumnHeading::OmDisplayColumnHeading(OmDisplayLayerHeading& layer, bool skipEmpty)
    : _my(new Data(layer, skipEmpty)) {}

OmDisplayColumnHeading::~OmDisplayColumnHeading() {
  delete _my;
}

OmPivotTable& OmDisplayColumnHeading::Table() {
  return *_my->table;
}

bool OmDisplayColumnHeading::SkipEmpty() const {
  return _my->skipEmpty;
}

int OmDisplayColumnHeading::NDimensions() const {
  return SaturateToInt(_my->heads.size());
}

int OmDisplayColumnHeading::getDimensionIndex(int j) const {
  return _my->GetDimensionIndex(j);
}

int OmDisplayColumnHeading::NRows() const {
  return SaturateToInt(_my->totalLevels);
}

int OmDisplayColumnHeading::NColumns() const {
  return SaturateToInt(_my->CountPlaces());
}

int OmDisplayColumnHeading::VisibleHeight(int j) const {
  return _my->VisibleLevels(j);
}

std::deque<OmDisplayColumnHeading::PathNode*> OmDisplayColumnHeading::Column(int n) const {
  return _my->Row(n);
}

std::deque<OmDisplayColumnHeading::PathNode*> OmDisplayColumnHeading::Row(int k) const {
  return _my->Level(k, false);
}

std::deque<OmDisplayColumnHeading::PathNode*> OmDisplayColumnHeading::ColumnCategories(
    int n) const {
  return _my->RowCategories(n);
}

void OmDisplayColumnHeading::DimAllNodes(int n, std::vector<PathNode*>& out) const {
  _my->DimAllNodes(n, out);
}

void OmDisplayColumnHeading::DimCatNodes(int n, std::vector<PathNode*>& outermost,
                                         std::vector<PathNode*>& categories) const {
  _my->DimCatNodes(n, outermost, categories);
}

void OmDisplayColumnHeading::Fill(std::vector<int>& index, int n) const {
  _my->Fill(index, n);
}

std::vector<unsigned long long> const& OmDisplayColumnHeading::getNonEmptyColumns() const {
  return _my->NonEmptyPlaces();
}
