#include "VemraGoalSurface/presentation/GoalGapPresentation.hpp"

namespace vemra::GoalGapPresentation {

std::string text(GoalPeopleGap gap) {
  switch (gap) {
    case GoalPeopleGap::noEvidenceYet:
      return "No relevant people found yet.";
    case GoalPeopleGap::evidenceButNoRelevantPeople:
      return "Nothing points to a specific person for this yet.";
  }
  return "";
}

std::string text(GoalPathGap gap) {
  switch (gap) {
    case GoalPathGap::noTargetPerson:
      return "This goal doesn't name someone to find a path to.";
    case GoalPathGap::noConnectionFound:
      return "No supported path to them yet.";
  }
  return "";
}

}  // namespace vemra::GoalGapPresentation
