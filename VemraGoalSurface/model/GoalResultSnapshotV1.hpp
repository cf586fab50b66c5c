#pragma once

#include "VemraGoalEngine/GoalRecords.hpp"
#include "VemraGoalSurface/model/GoalPathGap.hpp"
#include "VemraGoalSurface/model/GoalPeopleGap.hpp"
#include "VemraPlatform/Export.hpp"

#include <memory>
#include <optional>
#include <string_view>

namespace vemra {

/// The engine's result for one goal at one moment: the input of the result screen.
///
/// A snapshot never changes and always has its six values. All its copies share one storage, so a
/// copy in a task or in the action of a button costs one reference count, and two copies of one
/// snapshot are equal without a comparison of their fields. Every list keeps the engine's order:
/// nothing here sorts, filters or joins.
///
/// Every member has a defined result, takes no lock, and may be called on any thread. References
/// from the accessors, and string views into them, are valid while any copy of the snapshot lives.
class VEMRA_EXPORT GoalResultSnapshotV1 {
 public:
  /// Stores the six values as they are.
  GoalResultSnapshotV1(GoalDTO goal, SharedArray<GoalPersonCandidateDTO> people,
                       SharedArray<GoalPathCandidateDTO> paths,
                       SharedArray<GoalGroupCandidateDTO> group, GoalCoverageDTO coverage,
                       SharedArray<GoalOutcomeDTO> outcomes);

  /// Takes over the engine's answer, field for field.
  explicit GoalResultSnapshotV1(GetGoalSnapshotResponse response);

  // Declared so that a snapshot has no move operations: a moved-from snapshot stays valid.
  GoalResultSnapshotV1(const GoalResultSnapshotV1&) = default;
  GoalResultSnapshotV1& operator=(const GoalResultSnapshotV1&) = default;

  /// The goal that the result is about.
  const GoalDTO& goal() const { return fields_->goal; }
  /// The suggested people, in the engine's order.
  const SharedArray<GoalPersonCandidateDTO>& people() const { return fields_->people; }
  /// The suggested paths, in the engine's order.
  const SharedArray<GoalPathCandidateDTO>& paths() const { return fields_->paths; }
  /// The groups of candidates, which the screen does not show.
  const SharedArray<GoalGroupCandidateDTO>& group() const { return fields_->group; }
  /// What the result is based on; the screen's footer says it.
  const GoalCoverageDTO& coverage() const { return fields_->coverage; }
  /// The outcomes recorded for this goal; a later one replaces an earlier one of the same subject.
  const SharedArray<GoalOutcomeDTO>& outcomes() const { return fields_->outcomes; }

  /// Why there are no people, or nil when there are some.
  ///
  /// Any evidence count except 0 means that there is evidence, also a negative one.
  std::optional<GoalPeopleGap> peopleGap() const;

  /// Why there are no paths, or nil when there are some.
  ///
  /// A target person counts as named whenever the reference is present, even if it is "".
  std::optional<GoalPathGap> pathGap() const;

  /// Whether there is any path at all.
  bool hasSupportedPath() const { return !fields_->paths.empty(); }

  /// The outcome in force for a subject: the last one recorded for it, or nil.
  ///
  /// A correction is itself a later record of the same subject, so the position alone decides;
  /// `correctsOutcomeID` is not read. Searches backwards and stops at the first match. There is
  /// deliberately no index and no cache, because only the rows on the screen call this. References
  /// are compared under canonical equivalence; nil matches only nil, and "" only "".
  std::optional<GoalOutcomeDTO> effectiveOutcome(GoalOutcomeSubjectKind subjectKind,
                                                 std::optional<std::string_view> subjectRef) const;

  /// Compares the six fields in their order and stops at the first difference.
  friend bool operator==(const GoalResultSnapshotV1& a, const GoalResultSnapshotV1& b) {
    return a.fields_ == b.fields_ || *a.fields_ == *b.fields_;
  }

 private:
  struct Fields {
    GoalDTO goal;
    SharedArray<GoalPersonCandidateDTO> people;
    SharedArray<GoalPathCandidateDTO> paths;
    SharedArray<GoalGroupCandidateDTO> group;
    GoalCoverageDTO coverage;
    SharedArray<GoalOutcomeDTO> outcomes;
    friend bool operator==(const Fields&, const Fields&) = default;
  };

  std::shared_ptr<const Fields> fields_;  // never null
};

}  // namespace vemra
