#include "VemraGoalEngine/GoalRecords.hpp"

#include "VemraPlatform/text/Equality.hpp"

namespace vemra {

using text::equal;

bool operator==(const GoalDTO& a, const GoalDTO& b) {
  return equal(a.id, b.id) && equal(a.title, b.title) && a.status == b.status &&
         equal(a.targetPersonRef, b.targetPersonRef) && equal(a.createdAt, b.createdAt) &&
         equal(a.updatedAt, b.updatedAt) && a.priority == b.priority && a.keywords == b.keywords &&
         a.keywordsRevision == b.keywordsRevision && a.constraints == b.constraints &&
         a.constraintsRevision == b.constraintsRevision && a.attachmentRefs == b.attachmentRefs;
}

std::optional<std::string> GoalPersonCandidateDTO::topEvidenceID() const {
  if (evidenceIDs.empty()) return std::nullopt;
  return evidenceIDs.front();
}

bool operator==(const GoalPersonCandidateDTO& a, const GoalPersonCandidateDTO& b) {
  return equal(a.personRef, b.personRef) && equal(a.displayName, b.displayName) && a.why == b.why &&
         a.evidenceIDs == b.evidenceIDs;
}

bool operator==(const GoalGroupCandidateDTO& a, const GoalGroupCandidateDTO& b) {
  return equal(a.id, b.id) && a.personRefs == b.personRefs;
}

bool operator==(const GoalCoverageDTO& a, const GoalCoverageDTO& b) {
  return a.sources == b.sources && a.evidenceCount == b.evidenceCount &&
         equal(a.latestEvidenceAt, b.latestEvidenceAt);
}

bool operator==(const GoalOutcomeDTO& a, const GoalOutcomeDTO& b) {
  return equal(a.id, b.id) && equal(a.goalID, b.goalID) && a.subjectKind == b.subjectKind &&
         equal(a.subjectRef, b.subjectRef) && a.value == b.value && equal(a.note, b.note) &&
         equal(a.recordedAt, b.recordedAt) && equal(a.recordedBy, b.recordedBy) &&
         equal(a.correctsOutcomeID, b.correctsOutcomeID);
}

}  // namespace vemra
