#pragma once

#include "VemraGoalEngine/GoalRecords.hpp"
#include "apps/desk/store/Database.hpp"

#include <cstdint>
#include <new>
#include <optional>

namespace vemra::desk {

/// The result that a store read last, kept so that saving an outcome reads and copies no list again.
///
/// It is given out only while nothing in the file can have changed since it was read: the caller passes
/// the `Database::Revision` of its transaction, and another revision means another content. Results
/// share their lists with it, so keeping one takes no more memory than showing it.
class KeptResult {
 public:
  /// The result of the goal at this revision; nil when another goal or revision is kept.
  std::optional<GetGoalSnapshotResponse> find(std::int64_t goal,
                                              Database::Revision revision) const {
    if (!isOf(revision) || kept_->goal != goal) return std::nullopt;
    return kept_->result;
  }

  /// Keeps a result that was read at this revision.
  void keep(std::int64_t goal, Database::Revision revision, const GetGoalSnapshotResponse& result) {
    kept_ = {goal, revision, result};
  }

  /// Call it after a commit which did nothing but record an outcome. Never fails, because the outcome is
  /// recorded: without memory for it, no result is kept.
  ///
  /// - Parameters before, after: the revisions at the beginning and at the end of the transaction.
  void addOutcome(std::int64_t goal, const GoalOutcomeDTO& outcome, Database::Revision before,
                  Database::Revision after) noexcept {
    if (!isOf(before)) return;
    kept_->revision = after;
    if (kept_->goal != goal) return;
    try {
      kept_->result.outcomes = kept_->result.outcomes.appending({outcome});
    } catch (const std::bad_alloc&) {
      kept_.reset();
    }
  }

 private:
  struct Kept {
    std::int64_t goal;
    Database::Revision revision;
    GetGoalSnapshotResponse result;
  };

  bool isOf(Database::Revision revision) const { return kept_ && kept_->revision == revision; }

  std::optional<Kept> kept_;
};

}  // namespace vemra::desk
