#include "harness/PropertyInput.h"
#include "harness/Target.h"

// Trees of categories, grown and edited, each compared with a plain tree after every step.
void Exercise(std::string_view input) {
  RunProperty({"OmDimension.BehavesLikeAPlainTreeUnderAnySequence",
               "OmDimensionEditing.BehavesLikeAPlainTreeUnderAnySequence",
               "OmDimensionEditing.LaysOutLikeADimensionBuiltInTheEditedShape"},
              input);
}
