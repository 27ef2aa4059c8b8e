#include "harness/PropertyInput.h"
#include "harness/Target.h"

// Headings of tables of any shape, compared with a layout that tries every combination.
void Exercise(std::string_view input) {
  RunProperty({"OmDisplayLayout.AnswersEveryQueryAsTheModelInEveryLayer",
               "OmDisplayLayout.FollowsAnyWalkOverTheLayers",
               "OmDisplayLayout.FollowsFlagsThatChangeWhileTheHeadingsLive",
               "OmDisplayLayout.AnswersAsTheModelAboutDimensionsThatCameLater",
               "OmDisplayLayout.FindsTheSamePlacesAsTheModelByEitherMethod",
               "OmDisplayLayout.PreparesTheSameHeadersAsTheModel",
               "OmDisplayLayout.AnswersAsTheModelAfterAnySequence"},
              input);
}
