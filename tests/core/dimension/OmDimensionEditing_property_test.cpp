#include <gtest/gtest.h>

#include "core/dimension/OmDimensionEditingPair.h"
#include "core/dimension/PlainQueries.h"
#include "support/Property.h"

namespace {

RANDOM_PROGRAM(OmDimensionEditing, BehavesLikeAPlainTreeUnderAnySequence) {
  SpyBalance const balance;
  OmMemoryRegion region(false);
  OmDimension dimension(OmDimensionNode(SpyCell("root"), 0, true, nullptr), &region);
  OmDimensionEditingPair pair(dimension);
  int const steps = DrawStepCount();
  for (int step = 0; step < steps; ++step) {
    switch (OmDimensionEditingPair::Draw(10)) {
      case 0:
      case 1:
        pair.Child();
        break;
      case 2:
      case 3:
        pair.AddNewChild();
        break;
      case 4:
        pair.Delete();
        break;
      case 5:
        pair.ChangeFlags();
        break;
      default:
        pair.Edit();
    }
    pair.Check();
    if (step % 4 == 0) {
      CheckQueries(dimension, *pair.model().root);
    }
  }
}

}  // namespace
