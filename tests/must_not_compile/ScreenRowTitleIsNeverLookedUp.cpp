#include "VemraGoalEngine/GoalRecords.hpp"
#include "VemraPlatform/ui/View.hpp"

vemra::ui::View tryToTranslate(const vemra::GoalPersonCandidateDTO& person) {
#ifdef MUST_NOT_COMPILE
  return vemra::ui::Button(person.displayName->c_str(), [] {});
#endif
  return vemra::ui::Button(vemra::ui::verbatim(*person.displayName), [] {});
}
