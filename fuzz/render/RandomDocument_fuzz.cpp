#include "harness/PropertyInput.h"
#include "harness/Target.h"

// Documents with everything in them, and damaged ones: written as JSON, read again, and rendered in
// every format.
void Exercise(std::string_view input) {
  RunProperty({"JsonReaderMemory.ADamagedDocumentCostsLittleMoreThanItsText",
               "JsonProperty.ADocumentThatIsReadIsWrittenAsItWas",
               "JsonProperty.ADocumentThatIsReadLooksAsItDid",
               "JsonProperty.ALayoutChangesNothingOfTheDocument"},
              input);
}
