#include "apps/desk/window/GoalNews.hpp"

#include "VemraGoalSurface/model/GoalOutcomeRecording.hpp"
#include "apps/desk/window/GoalRow.hpp"
#include "apps/desk/window/Localized.hpp"
#include "apps/desk/window/PlainText.hpp"
#include "apps/desk/window/SubjectName.hpp"

#include <string>
#include <string_view>

namespace vemra::desk {
namespace {

/// The ids as keys.
using Ids = text::TextMap<std::string_view, bool>;

template <class Things, class IdOf>
Ids idsOf(const Things& things, IdOf idOf) {
  Ids ids;
  ids.reserve(things.size());
  for (const auto& thing : things) ids.emplace(idOf(thing), true);
  return ids;
}

/// The names of the things that are new: the first of them, and the number of the rest.
template <class Things, class IsNew, class NameOf>
QString namesOfNew(const Things& things, IsNew isNew, NameOf nameOf) {
  constexpr std::size_t mostNamed = 3;
  QStringList names;
  std::size_t unnamed = 0;
  for (const auto& thing : things) {
    if (!isNew(thing)) continue;
    if (static_cast<std::size_t>(names.size()) < mostNamed) {
      names.append(nameOf(thing));
    } else {
      ++unnamed;
    }
  }
  if (unnamed > 0) names.append(andMore(unnamed));
  return names.join(QStringLiteral(", "));
}

/// The names of the things that are not in `others`.
template <class Things, class IdOf, class NameOf>
QString namesOfOthers(const Things& things, const Things& others, IdOf idOf, NameOf nameOf) {
  const Ids known = idsOf(others, idOf);
  return namesOfNew(
      things, [&](const auto& thing) { return !known.contains(idOf(thing)); },
      [&](const auto& thing) { return nameInMessage(nameOf(thing)); });
}

QString nameOfPerson(const GoalPersonCandidateDTO& person) {
  return fromUTF8(person.displayName.value_or(person.personRef));
}

}  // namespace

QString newsOf(const std::vector<GoalListing>& before, const std::vector<GoalListing>& after) {
  const QString names = namesOfOthers(
      after, before, [](const GoalListing& goal) -> std::string_view { return goal.id; },
      [](const GoalListing& goal) { return GoalRow::nameOf(fromUTF8(goal.title)); });
  return names.isEmpty() ? QString() : localized("New goals: %1.").arg(names);
}

QString newsOfOutcomes(const GoalResultSnapshotV1& before, const GoalResultSnapshotV1& after,
                       const OutcomeIDs& known) {
  if (before.outcomes() == after.outcomes()) return {};  // at once for a shared list
  const Ids old = idsOf(before.outcomes(), [](const GoalOutcomeDTO& outcome) -> std::string_view {
    return outcome.id;
  });
  const QString names = namesOfNew(
      after.outcomes(),
      [&](const GoalOutcomeDTO& outcome) {
        return !old.contains(outcome.id) && !known.contains(outcome.id);
      },
      [&](const GoalOutcomeDTO& outcome) {
        const QString value = fromUTF8(GoalOutcomeRecordingFormLogic::label(outcome.value));
        const QString subject = subjectName(after, outcome.subjectKind, outcome.subjectRef);
        return localized("“%1” for %2").arg(isolated(value), nameInMessage(subject));
      });
  return names.isEmpty() ? QString() : localized("Recorded by another program: %1.").arg(names);
}

QString newsOf(const GoalResultSnapshotV1& before, const GoalResultSnapshotV1& after) {
  const auto refOf = [](const GoalPersonCandidateDTO& person) -> std::string_view {
    return person.personRef;
  };
  const bool hasSamePeople = before.people() == after.people();  // at once for a shared list
  QStringList sentences;
  if (!hasSamePeople) {
    const QString added = namesOfOthers(after.people(), before.people(), refOf, nameOfPerson);
    const QString gone = namesOfOthers(before.people(), after.people(), refOf, nameOfPerson);
    if (!added.isEmpty()) sentences.append(localized("New in this goal: %1.").arg(added));
    if (!gone.isEmpty()) sentences.append(localized("No longer in this goal: %1.").arg(gone));
  }
  const bool isSame = hasSamePeople && before.goal() == after.goal() &&
                      before.paths() == after.paths() && before.group() == after.group() &&
                      before.coverage() == after.coverage();
  if (sentences.isEmpty() && !isSame) sentences.append(localized("This goal has changed."));
  return sentences.join(QLatin1Char(' '));
}

}  // namespace vemra::desk
