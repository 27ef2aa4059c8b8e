#include "harness/PropertyInput.h"
#include "harness/Target.h"

// Footnotes, texts, formats and attributes of a table, compared with plain copies after every step.
void Exercise(std::string_view input) {
  RunProperty({"OmPivotTableAttributes.AreWhatWasSetLastAfterAnySequence"}, input);
}
