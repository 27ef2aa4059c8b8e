#include "harness/PropertyInput.h"
#include "harness/Target.h"

// The store of the cells and its nodes, compared with maps after every step.
void Exercise(std::string_view input) {
  RunProperty({"OmPivotTableProperty.BehavesAsAMapUnderRandomChanges",
               "OmPivotTableProperty.HoldsManyCellsAtAnySubscripts",
               "OmPivotTableProperty.AWalkOverATableThatChangesStaysInIt",
               "OmPivotTableProperty.TheConstWalkIsTheSame",
               "OmPivotTablePointerVectorProperty.ShowsWhatAPlainVectorShows"},
              input);
}
