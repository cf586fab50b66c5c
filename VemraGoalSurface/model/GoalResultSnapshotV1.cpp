#include "VemraGoalSurface/model/GoalResultSnapshotV1.hpp"

#include "VemraPlatform/text/Equality.hpp"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace vemra {
namespace {

// A record is compared in less time than the next one takes to arrive from memory, and processors
// do not prefetch records of some hundred bytes that are read backwards.
constexpr std::size_t recordsAhead = 8;

// Moves the presence test out of the loop: a scan over many records runs one comparison for each
// record. The first loop stops when there is no record `recordsAhead` before the next one.
template <class Matches>
const GoalOutcomeDTO* lastOutcome(const SharedArray<GoalOutcomeDTO>& outcomes, Matches matches) {
  const GoalOutcomeDTO* const first = outcomes.begin();
  const GoalOutcomeDTO* const nearFirst = first + std::min(outcomes.size(), recordsAhead);
  const GoalOutcomeDTO* next = outcomes.end();
  while (next != nearFirst) {
    --next;
    __builtin_prefetch(&(next - recordsAhead)->subjectKind);
    if (matches(*next)) return next;
  }
  while (next != first) {
    --next;
    if (matches(*next)) return next;
  }
  return nullptr;
}

}  // namespace

GoalResultSnapshotV1::GoalResultSnapshotV1(GoalDTO goal, SharedArray<GoalPersonCandidateDTO> people,
                                           SharedArray<GoalPathCandidateDTO> paths,
                                           SharedArray<GoalGroupCandidateDTO> group,
                                           GoalCoverageDTO coverage,
                                           SharedArray<GoalOutcomeDTO> outcomes)
    : fields_(std::make_shared<const Fields>(Fields{std::move(goal), std::move(people),
                                                    std::move(paths), std::move(group),
                                                    std::move(coverage), std::move(outcomes)})) {}

GoalResultSnapshotV1::GoalResultSnapshotV1(GetGoalSnapshotResponse response)
    : GoalResultSnapshotV1(std::move(response.goal), std::move(response.people),
                           std::move(response.paths), std::move(response.group),
                           std::move(response.coverage), std::move(response.outcomes)) {}

std::optional<GoalPeopleGap> GoalResultSnapshotV1::peopleGap() const {
  if (!people().empty()) return std::nullopt;
  return coverage().evidenceCount != 0 ? GoalPeopleGap::evidenceButNoRelevantPeople
                                       : GoalPeopleGap::noEvidenceYet;
}

std::optional<GoalPathGap> GoalResultSnapshotV1::pathGap() const {
  if (hasSupportedPath()) return std::nullopt;
  return goal().targetPersonRef.has_value() ? GoalPathGap::noConnectionFound
                                            : GoalPathGap::noTargetPerson;
}

std::optional<GoalOutcomeDTO> GoalResultSnapshotV1::effectiveOutcome(
    GoalOutcomeSubjectKind subjectKind, std::optional<std::string_view> subjectRef) const {
  const GoalOutcomeDTO* inForce = nullptr;
  if (subjectRef.has_value()) {
    const std::string_view ref = *subjectRef;
    inForce = lastOutcome(outcomes(), [subjectKind, ref](const GoalOutcomeDTO& outcome) {
      return outcome.subjectKind == subjectKind && outcome.subjectRef.has_value() &&
             text::equal(std::string_view(*outcome.subjectRef), ref);
    });
  } else {
    inForce = lastOutcome(outcomes(), [subjectKind](const GoalOutcomeDTO& outcome) {
      return outcome.subjectKind == subjectKind && !outcome.subjectRef.has_value();
    });
  }
  if (inForce == nullptr) return std::nullopt;
  return *inForce;
}

}  // namespace vemra
