#pragma once

#include "VemraGoalSurface/model/GoalOutcomeRecording.hpp"
#include "VemraGoalSurface/model/GoalResultSnapshotV1.hpp"
#include "VemraPlatform/ui/View.hpp"

#include <functional>
#include <memory>
#include <string>

namespace vemra {

/// The goal result screen: one goal's result, read and answered.
///
/// Shows a snapshot and hands every action to the host through a callback, synchronously, on the
/// main thread, once a press. It owns no data and does no work of its own; the host answers by
/// showing a new view made from a new snapshot:
///
///     graph.setRoot(GoalResultView(
///         snapshot,
///         [&](const std::string& personRef) { host.open(personRef); },
///         [&](const std::string& evidenceID) { host.showEvidence(evidenceID); },
///         [&](const GoalPathCandidateDTO& path) { host.showInGraph(path); },
///         [&](const GoalOutcomeRecordingInput& input) { host.record(input); }));
///
/// Every control can be found by its accessibility identifier, in which references stand byte for
/// byte: "vemra.goal.person." + personRef + ".show-source", "vemra.goal.path.see-in-starfold", and
/// for recording, behind "vemra.goal.person." + personRef or "vemra.goal.path": ".outcome.start",
/// ".outcome.picker", ".outcome.note", ".outcome.save", ".outcome.cancel", ".outcome.correct" and
/// ".outcome.corrected-marker".
///
/// Main thread only: `body` and every action stop the process when they run elsewhere.
class GoalResultView {
 public:
  static constexpr std::string_view name = "GoalResultView";

  using OnOpenPerson = std::function<void(const std::string& personRef)>;
  using OnShowEvidence = std::function<void(const std::string& evidenceID)>;
  using OnFocusPath = std::function<void(const GoalPathCandidateDTO& path)>;
  using OnRecordOutcome = std::function<void(const GoalOutcomeRecordingInput& input)>;

  GoalResultView(GoalResultSnapshotV1 snapshot, OnOpenPerson onOpenPerson,
                 OnShowEvidence onShowEvidence, OnFocusPath onFocusPathInStarfold,
                 OnRecordOutcome onRecordOutcome);

  // Declared so that there are no moves: what a view is moved from stays a whole view.
  GoalResultView(const GoalResultView&) = default;
  GoalResultView& operator=(const GoalResultView&) = default;

  /// The screen, from top to bottom. The environment decides how the date in the footer is written.
  ui::View body(const ui::Environment& environment) const;

 private:
  ui::View peopleSection() const;
  ui::Children personRow(const GoalPersonCandidateDTO& person) const;
  ui::View pathSection() const;
  ui::View coverageFooter(const ui::Environment& environment) const;
  std::string coverageText(const ui::Environment& environment) const;

  struct Callbacks {
    OnOpenPerson onOpenPerson;
    OnShowEvidence onShowEvidence;
    OnFocusPath onFocusPathInStarfold;
    OnRecordOutcome onRecordOutcome;
  };

  // Both are shared by all copies, so that every action of every row can hold the whole view, and
  // refer to the records in its snapshot, for the price of two reference counts.
  GoalResultSnapshotV1 snapshot_;
  std::shared_ptr<const Callbacks> callbacks_;  // never null
};

}  // namespace vemra
