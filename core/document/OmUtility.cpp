#include <cells/OmComposite.h>
#include <cells/OmNumber.h>
#include <lakresvos/OmUtility.h>
#include <lakresvos/OmVectorTreeWalk.h>

OmNumber const* OmUtility::GetFirstNumber(OmVectorTree<OmCellText*>::ConstNode node) {
  OmVectorTreeWalk<OmVectorTree<OmCellText*>::ConstNode> walk(node);
  walk.Next();
  while (walk.Next()) {
    if (auto const* number = dynamic_cast<OmNumber const*>(walk.Current().Value())) {
      return number;
    }
  }
  return nullptr;
}

OmNumber const* OmUtility::GetFirstNumber(OmComposite const& cell) {
  return GetFirstNumber(cell.Parts().Root());
}
