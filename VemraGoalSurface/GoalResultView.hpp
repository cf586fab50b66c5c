#pragma once

#include "VemraGoalSurface/model/GoalOutcomeRecording.hpp"
#include "VemraGoalSurface/model/GoalResultSnapshotV1.hpp"
#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/ui/View.hpp"

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace vemra {

/// The goal result screen: one goal's result, read and answered.
///
/// Shows a snapshot and hands every action to the host through a callback, synchronously, on the
/// main thread, once a press. It owns no data and does no work of its own; the host answers by
/// showing a new view made from a new snapshot, also from inside a callback: it is taken up when
/// the press has been handled, and the callback returns before that.
///
///     ui::ViewGraph graph(ui::Environment::system());
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
/// What it is shown in is the graph's environment, by default a fixed one (en_US, UTC, no
/// translations); a host hands in the user's, `ui::Environment::system()`.
///
/// Main thread only: `body` and every action stop the process when they run elsewhere.
class VEMRA_EXPORT GoalResultView {
 public:
  static constexpr std::string_view name = "GoalResultView";

  /// \name Callbacks
  /// Arguments are references into the snapshot, or to what lives as long as the call: a host that
  /// works on later copies what it needs. What a callback throws comes out of the call that
  /// delivered the press.
  /// @{

  /// A person's name was pressed: open the person. Called with the person's reference.
  using OnOpenPerson = std::function<void(const std::string& personRef)>;
  /// "Show source" of a person was pressed. Called with the id of the strongest piece of evidence.
  using OnShowEvidence = std::function<void(const std::string& evidenceID)>;
  /// "See in Starfold" was pressed: show the path in the relationship graph. Called with the path
  /// as it stands in the snapshot.
  using OnFocusPath = std::function<void(const GoalPathCandidateDTO& path)>;
  /// "Save" was pressed in an editor: store the outcome. Called with what is to be stored; the
  /// editor closes once the callback has returned, and what is shown as recorded changes with the
  /// next snapshot only.
  using OnRecordOutcome = std::function<void(const GoalOutcomeRecordingInput& input)>;
  /// @}

  /// The screen of one snapshot, with what is to be called for each action. A callback may be
  /// empty: its button is shown all the same, and pressing it asks nothing of the host.
  ///
  /// Each callback stays one object: all rows and all copies of the view call the same one, which
  /// keeps its state, and none copies what it captures.
  GoalResultView(const GoalResultSnapshotV1& snapshot, OnOpenPerson onOpenPerson,
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
  std::shared_ptr<const OnRecordOutcome> onRecordOutcome() const;

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
