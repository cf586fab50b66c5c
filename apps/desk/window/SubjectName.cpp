#include "apps/desk/window/SubjectName.hpp"

#include "VemraPlatform/text/Equality.hpp"
#include "apps/desk/window/Localized.hpp"
#include "apps/desk/window/PlainText.hpp"

namespace vemra::desk {

QString subjectName(const GoalResultSnapshotV1& goal, GoalOutcomeSubjectKind kind,
                    const std::optional<std::string>& subjectRef) {
  QString name = "Unnamed person";
  for (const GoalPersonCandidateDTO& person : goal.people()) {
    if (!subjectRef || !text::equal(person.personRef, *subjectRef)) continue;
    if (person.displayName && !person.displayName->empty()) name = fromUTF8(*person.displayName);
    break;
  }
  if (kind == GoalOutcomeSubjectKind::person) return name;
  return subjectRef ? localized("the path to %1").arg(name) : localized("the path");
}

}  // namespace vemra::desk
