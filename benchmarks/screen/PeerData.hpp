#pragma once

#include "VemraGoalSurface/model/GoalOutcomeRecording.hpp"
#include "VemraGoalSurface/model/GoalResultSnapshotV1.hpp"

#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <QString>

namespace vemra::bench {

/// The peers' data of a snapshot.
///
/// It has an index of the outcomes by person; the library has none and scans.
class PeerData {
 public:
  explicit PeerData(GoalResultSnapshotV1 snapshot);

  const GoalResultSnapshotV1& snapshot() const { return snapshot_; }
  std::size_t size() const { return snapshot_.people().size(); }
  const GoalPersonCandidateDTO& person(std::size_t row) const { return snapshot_.people()[row]; }
  QString name(std::size_t row) const;
  QString why(std::size_t row) const;
  bool hasSource(std::size_t row) const { return !person(row).evidenceIDs.empty(); }
  /// The outcome in force for a person, or nullptr.
  const GoalOutcomeDTO* outcome(std::size_t row) const;
  /// The texts below the people.
  QString path() const;
  QString footer() const;

  /// The parts of the page that a newer snapshot does not change.
  enum class Change {
    outcomes,  ///< the people are the same
    heights,   ///< the same, but a note was added or removed, which changes the number of lines
    people,    ///< everything has to be built again
  };
  Change update(const GoalResultSnapshotV1& next);

 private:
  using Outcomes = std::unordered_map<std::string_view, const GoalOutcomeDTO*>;
  static Outcomes outcomesOf(const GoalResultSnapshotV1& snapshot);

  GoalResultSnapshotV1 snapshot_;
  Outcomes outcomes_;
};

QString toQString(std::string_view text);
/// The words for an outcome, as the screen writes them.
QString labelOf(GoalOutcomeValue value);

}  // namespace vemra::bench
