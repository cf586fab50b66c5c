#pragma once

#include "VemraGoalEngine/GoalRecords.hpp"
#include "apps/desk/store/Database.hpp"
#include "apps/desk/store/ShownOutcomes.hpp"

#include <cstdint>
#include <new>
#include <optional>
#include <utility>
#include <vector>

namespace vemra::desk {

/// Identifies the content of a goal's result, its outcomes not counted: two reads with equal stamps
/// have read the same.
struct ResultStamp {
  std::int64_t schemaChange;  ///< SQLite's counter: with the same schema, no trigger was missing
  std::int64_t number;        ///< a random number that triggers replace at each change
  friend bool operator==(const ResultStamp&, const ResultStamp&) = default;
};

/// The result that a store read last, kept so that only what has changed is read again.
///
/// It is given out only while nothing in it can have changed since it was read. At the same
/// `Database::Revision` nothing in the file has changed. At another revision, a change of the
/// goal's result would have changed its `ResultStamp`; recorded outcomes are only appended, so
/// those with higher numbers complete the list. Results share their lists with it, so keeping one
/// takes no more memory than showing it.
class KeptResult {
 public:
  /// The result of the goal at this revision; nil when another goal or revision is kept.
  std::optional<GetGoalSnapshotResponse> find(std::int64_t goal,
                                              Database::Revision revision) const {
    if (!isOf(revision) || kept_->goal != goal) return std::nullopt;
    return kept_->result;
  }

  /// The same after a commit, which must not fail any more: nil also without memory for a copy.
  std::optional<GetGoalSnapshotResponse> findAfterCommit(
      std::int64_t goal, Database::Revision revision) const noexcept {
    try {
      return find(goal, revision);
    } catch (const std::bad_alloc&) {
      return std::nullopt;
    }
  }

  /// The number of the last outcome that was read, when the kept result is the goal's with the same
  /// stamp: only outcomes after it are missing. Nil when the whole result has to be read.
  std::optional<std::int64_t> lastOutcome(std::int64_t goal,
                                          const std::optional<ResultStamp>& stamp) const {
    if (!kept_ || kept_->goal != goal || !stamp || kept_->stamp != stamp) return std::nullopt;
    return kept_->lastOutcome;
  }

  /// Adds the outcomes after `lastOutcome`; the result is then that of this revision.
  GetGoalSnapshotResponse complete(std::vector<GoalOutcomeDTO> more, std::int64_t lastOutcome,
                                   Database::Revision revision) {
    kept_->result.outcomes = kept_->result.outcomes.appending(std::move(more));
    kept_->lastOutcome = lastOutcome;
    kept_->revision = revision;
    return kept_->result;
  }

  /// Keeps a result that was read at this revision. `outcomes` says which of them it has.
  void keep(std::int64_t goal, Database::Revision revision, std::optional<ResultStamp> stamp,
            const ShownOutcomes& outcomes, const GetGoalSnapshotResponse& result) {
    kept_ = {goal, revision, stamp, outcomes.last, outcomes.areAll, result};
  }

  /// Whether the kept result has all outcomes of its goal.
  bool hasAllOutcomes() const { return kept_ && kept_->hasAllOutcomes; }

  /// Call it after a commit which did nothing but record an outcome. Never fails, because the
  /// outcome is recorded: without memory for it, no result is kept.
  ///
  /// - Parameter number: of the outcome.
  /// - Parameters before, after: the revisions at the beginning and at the end of the transaction.
  void addOutcome(std::int64_t goal, const GoalOutcomeDTO& outcome, std::int64_t number,
                  Database::Revision before, Database::Revision after) noexcept {
    if (!isOf(before)) return;
    kept_->revision = after;
    if (kept_->goal != goal) return;
    try {
      kept_->result.outcomes = kept_->result.outcomes.appending({outcome});
      kept_->lastOutcome = number;
    } catch (const std::bad_alloc&) {
      kept_.reset();
    }
  }

 private:
  struct Kept {
    std::int64_t goal;
    Database::Revision revision;
    std::optional<ResultStamp> stamp;
    std::int64_t lastOutcome;
    bool hasAllOutcomes;
    GetGoalSnapshotResponse result;
  };

  bool isOf(Database::Revision revision) const { return kept_ && kept_->revision == revision; }

  std::optional<Kept> kept_;
};

}  // namespace vemra::desk
