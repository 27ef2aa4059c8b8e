#include "harness/PropertyInput.h"
#include "harness/Target.h"

// Documents, compared with a tree of vectors after every step.
void Exercise(std::string_view input) {
  RunProperty({"ListTree.BehavesLikeAPlainListUnderAnySequence",
               "OmOutputTree.BehavesLikeATreeOfVectorsUnderAnySequence"},
              input);
}
