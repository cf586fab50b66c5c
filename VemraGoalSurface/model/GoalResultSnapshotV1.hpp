#pragma once

#include "VemraGoalEngine/GoalRecords.hpp"
#include "VemraGoalSurface/model/GoalPathGap.hpp"
#include "VemraGoalSurface/model/GoalPeopleGap.hpp"
#include "VemraPlatform/Export.hpp"

#include <memory>
#include <optional>
#include <string_view>

namespace vemra {

/// Everything the engine knows about one goal at one moment: the one value the result screen shows.
///
/// A snapshot is never changed and never empty. All copies of it share one storage, so it is handed
/// from task to task and into the action of every button for the price of a reference count, and
/// two copies of one snapshot are equal without a look at their fields. Every list keeps the
/// engine's order: nothing here sorts, filters or joins.
///
/// Total and lock-free: every member has a defined result and may be called on any thread. What the
/// accessors refer to lives as long as any copy of the snapshot does; so does a string inside it.
class VEMRA_EXPORT GoalResultSnapshotV1 {
 public:
  /// Stores the six values as they are.
  GoalResultSnapshotV1(GoalDTO goal, SharedArray<GoalPersonCandidateDTO> people,
                       SharedArray<GoalPathCandidateDTO> paths,
                       SharedArray<GoalGroupCandidateDTO> group, GoalCoverageDTO coverage,
                       SharedArray<GoalOutcomeDTO> outcomes);

  /// Takes over the engine's answer, field for field.
  explicit GoalResultSnapshotV1(GetGoalSnapshotResponse response);

  // Declared so that there are no moves: what a snapshot is moved from stays a whole snapshot.
  GoalResultSnapshotV1(const GoalResultSnapshotV1&) = default;
  GoalResultSnapshotV1& operator=(const GoalResultSnapshotV1&) = default;

  const GoalDTO& goal() const { return fields_->goal; }
  const SharedArray<GoalPersonCandidateDTO>& people() const { return fields_->people; }
  const SharedArray<GoalPathCandidateDTO>& paths() const { return fields_->paths; }
  const SharedArray<GoalGroupCandidateDTO>& group() const { return fields_->group; }
  const GoalCoverageDTO& coverage() const { return fields_->coverage; }
  /// The outcomes recorded for this goal; a later one replaces an earlier one of the same subject.
  const SharedArray<GoalOutcomeDTO>& outcomes() const { return fields_->outcomes; }

  /// Why there are no people, or nil when there are some.
  ///
  /// Any evidence count but 0 stands for evidence, a negative one included.
  std::optional<GoalPeopleGap> peopleGap() const;

  /// Why there are no paths, or nil when there are some.
  ///
  /// A target person that is present counts as named, be the reference "".
  std::optional<GoalPathGap> pathGap() const;

  /// Whether there is any path at all.
  bool hasSupportedPath() const { return !fields_->paths.empty(); }

  /// The outcome in force for a subject: the last one recorded for it, or nil.
  ///
  /// A correction is itself a later record of the same subject, so the position alone decides and
  /// the link from a correction to what it corrects is not followed. Walks backwards and stops at
  /// the first match; there is deliberately no index and no cache, for one is asked for only by a
  /// row that is on the screen.
  /// References are compared under canonical equivalence; nil matches only nil, and "" only "".
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
