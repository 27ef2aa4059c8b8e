#include <vector>

#include <cells/OmComposite.h>
#include <cells/OmDataValue.h>
#include <cells/OmNumber.h>
#include <cells/OmStringCell.h>
#include <cells/OmVariable.h>
#include <lakresvos/OmPivotTable.h>
#include <lakresvos/OmVectorTreeWalk.h>

OmPivotTable::ICUHelper::~ICUHelper() = default;

void OmPivotTable::ICUHelper::Visit(OmNumber&) {}

void OmPivotTable::ICUHelper::Visit(OmStringCell& cell) {
  cell.UseTracker(tracker_);
}

void OmPivotTable::ICUHelper::Visit(OmStringCellUTF8& cell) {
  cell.UseTracker(tracker_);
}

void OmPivotTable::ICUHelper::Visit(OmVariable& cell) {
  cell.UseTracker(tracker_);
}

void OmPivotTable::ICUHelper::Visit(OmNumDataValue& cell) {
  cell.UseTracker(tracker_);
}

void OmPivotTable::ICUHelper::Visit(OmStringDataValue& cell) {
  cell.UseTracker(tracker_);
}

void OmPivotTable::ICUHelper::Visit(OmComposite& composite) {
  composite.UseTracker(tracker_);
  // Per level of the walk, the tracker that the part there holds. A node without a part, as the
  // root is, passes on the one from above.
  std::vector<icuTracker*> held;
  OmVectorTreeWalk<OmVectorTree<OmCellText*>::ConstNode> walk(
      static_cast<OmComposite const&>(composite).Parts().Root());
  while (walk.Next()) {
    held.resize(walk.Path().size() - 1);
    icuTracker* const above = held.empty() ? composite.GetTracker() : held.back();
    OmCellText* const part = walk.Current().Value();
    if (part != nullptr) {
      part->UseTracker(above);
    }
    held.push_back(part != nullptr ? part->GetTracker() : above);
  }
}
