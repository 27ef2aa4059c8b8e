#include "harness/PropertyInput.h"
#include "harness/Target.h"

// Cells of every kind, made, cloned, bound and put together in regions and on the default heap, and
// what they are made of, each compared with plain copies after every step.
void Exercise(std::string_view input) {
  RunProperty({"CellsProperty.AnswerAsPlainCopiesAfterAnySequence",
               "OmMemoryRegionModel.AgreesWithAMapOfLiveBlocksInAnOwnedRegion",
               "OmMemoryRegionModel.AgreesWithAMapOfLiveBlocksInASharedRegion",
               "IcuTrackerModel.CountsTheDistinctTextsOfTheBoundCells",
               "OmCompositeText.AgreesWithReplacingTheMarksOneByOne",
               "CaseFoldingOrder.IsThatOfTheFoldedBytesWhateverTheirNumber"},
              input);
}
