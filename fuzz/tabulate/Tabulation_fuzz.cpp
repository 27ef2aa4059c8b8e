#include "harness/PropertyInput.h"
#include "harness/Target.h"

// Tables of counts and statistics, compared with loops over the rows.
void Exercise(std::string_view input) {
  RunProperty({"Tabulation.AgreesWithLoopsOverTheRows"}, input);
}
