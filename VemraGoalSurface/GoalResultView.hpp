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

/// The goal result screen: shows one goal's result and reports the user's actions.
///
/// It calls one of the host's callbacks for each press, synchronously, on the main thread. It owns
/// no data and stores nothing. To show a change, the host sets a new view, made from a new
/// snapshot, as the root of the graph; it may do so inside a callback, and the new root then takes
/// effect after the callback has returned.
///
///     ui::ViewGraph graph(ui::Environment::system());
///     graph.setRoot(GoalResultView(
///         snapshot,
///         [&](const std::string& personRef) { host.open(personRef); },
///         [&](const std::string& evidenceID) { host.showEvidence(evidenceID); },
///         [&](const GoalPathCandidateDTO& path) { host.showInGraph(path); },
///         [&](const GoalOutcomeRecordingInput& input) { host.record(input); }));
///
/// Every control has an accessibility identifier, which contains references byte for byte:
/// "vemra.goal.person." + personRef + ".show-source", "vemra.goal.path.see-in-starfold", and for
/// recording, behind "vemra.goal.person." + personRef or "vemra.goal.path": ".outcome.start",
/// ".outcome.picker", ".outcome.note", ".outcome.save", ".outcome.cancel", ".outcome.correct" and
/// ".outcome.corrected-marker".
///
/// The graph's environment decides the locale, the time zone and the translations. Its default is
/// fixed (en_US, UTC, no translations). A `qt::ViewWidget` sets the system's; a host without one
/// passes `ui::Environment::system()` with a strings table of its own.
///
/// Main thread only: `body` and every action stop the process when they run elsewhere.
class VEMRA_EXPORT GoalResultView {
 public:
  /// The name in reports and outlines.
  static constexpr std::string_view name = "GoalResultView";

  /// \name Callbacks
  /// Arguments are valid during the call only: a host that needs them later copies them. An
  /// exception of a callback is rethrown by the call that delivered the press
  /// (`ui::ViewGraph::deliver`). @{

  /// Opens a person. Called with the person's reference when the user presses the name.
  using OnOpenPerson = std::function<void(const std::string& personRef)>;
  /// Shows the source of a suggestion. Called with the id of the strongest piece of evidence when
  /// the user presses a person's "Show source".
  using OnShowEvidence = std::function<void(const std::string& evidenceID)>;
  /// Shows the path in the relationship graph. Called with the path of the snapshot when the user
  /// presses "See in Starfold".
  using OnFocusPath = std::function<void(const GoalPathCandidateDTO& path)>;
  /// Stores an outcome. Called with it when the user presses "Save" in an editor. The editor closes
  /// after the callback has returned; the screen shows the outcome as recorded only when the next
  /// snapshot contains it.
  using OnRecordOutcome = std::function<void(const GoalOutcomeRecordingInput& input)>;
  /// @}

  /// The screen of one snapshot, with a callback for each action. A callback may be empty: the
  /// screen still shows its button, and pressing it does nothing.
  ///
  /// All rows and all copies of the view call the same callback object, so it keeps its state and
  /// its captures are never copied.
  GoalResultView(const GoalResultSnapshotV1& snapshot, OnOpenPerson onOpenPerson,
                 OnShowEvidence onShowEvidence, OnFocusPath onFocusPathInStarfold,
                 OnRecordOutcome onRecordOutcome);

  // Declared so that the view has no move operations: a moved-from view stays valid.
  GoalResultView(const GoalResultView&) = default;
  GoalResultView& operator=(const GoalResultView&) = default;

  /// Describes the screen. The environment decides how the date in the footer is written.
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

  // Both are shared by all copies, so the action of each row can contain a copy of the whole view,
  // and refer to the records in its snapshot, for two reference counts.
  GoalResultSnapshotV1 snapshot_;
  std::shared_ptr<const Callbacks> callbacks_;  // never null
};

}  // namespace vemra
