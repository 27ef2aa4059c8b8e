#include "harness/PropertyInput.h"
#include "harness/Target.h"

// Tables of counts and statistics, compared with loops over the rows and with exact arithmetic.
void Exercise(std::string_view input) {
  RunProperty({"Tabulation.AgreesWithLoopsOverTheRows",
               "TabulationProperty.SaysWhatExactArithmeticDoesOfDataThatGrow"},
              input);
}
