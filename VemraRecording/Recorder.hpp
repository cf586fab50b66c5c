#pragma once

#include "VemraGoalSurface/GoalResultView.hpp"
#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/ui/ViewGraph.hpp"
#include "VemraRecording/Failure.hpp"

#include <functional>
#include <memory>
#include <string>

namespace vemra::recording {

/// The program that records, as a recording names it.
struct Program {
  std::string name;     ///< as in its command line, such as "vemra-desk"
  std::string version;  ///< as its `--version` prints it, such as "1.2.3"
};

/// Whether a recording has the texts of the records and what a person types as they are, or masked
/// (`text::TextMask`): ids, references, names, notes, sources and titles, but no counts, cases or
/// readable dates.
enum class Texts { plain, masked };

/// Writes down what a host shows and what a person does with it, as a case for `vemra-inspect`: a
/// bug report that is a test at once.
///
///     vemra::recording::Recorder recorder(
///         "bug.json", {"my-host", "1.2"}, vemra::recording::Texts::masked,
///         [&](const vemra::recording::Failure& failure) { host.showNotice(failure.text()); });
///
///     vemra::qt::ViewWidget widget;
///     const auto show = [&](const vemra::GoalResultSnapshotV1& snapshot) {
///       widget.setRoot(recorder.view(widget.graph(), snapshot, openPerson, showSource, showPath,
///                                    recordOutcome));
///     };
///
/// The case holds the first result with the locale, the time zone and the translations in which it
/// is shown; then, in their order, each further result, each event that an element handles, and
/// each call that leaves through a callback. The file is a whole case after every step, and a step
/// is written before it is done: a step that ends the process is in the case. A call that cannot be
/// written takes the event that made it out of the case.
///
/// A host with several screens, one graph each, passes all of them; steps name the screen where it
/// changes. Recording ends with the recorder, with the first failure, and when a screen gets
/// another locale or time zone than the first one, which a case cannot hold.
///
/// Main thread only. The recorder may be destroyed before the graphs or after them.
class VEMRA_EXPORT Recorder {
 public:
  /// Hears once why the recording has ended too early. It is called from inside the call or the
  /// event that could not be written, which goes on as without a recorder: an exception of it is
  /// dropped. A host that shows a widget for it does that later, from its event loop.
  using OnFailure = std::function<void(const Failure&)>;

  /// - Parameter file: the case. It is created with the first result; a file that is there already
  ///   stays as it is, and the recording fails.
  Recorder(std::string file, Program program, Texts texts, OnFailure onFailure);
  ~Recorder();
  Recorder(const Recorder&) = delete;
  Recorder& operator=(const Recorder&) = delete;

  /// Writes down that a result is shown, and returns its view, to be the next root of `graph`. From
  /// the first call on, the recorder observes the graph's events.
  ///
  /// - Parameters: as those of `GoalResultView`.
  ui::View view(ui::ViewGraph& graph, const GoalResultSnapshotV1& snapshot,
                GoalResultView::OnOpenPerson onOpenPerson,
                GoalResultView::OnShowEvidence onShowEvidence,
                GoalResultView::OnFocusPath onFocusPathInStarfold,
                GoalResultView::OnRecordOutcome onRecordOutcome);

  /// Writes down that the window shows the screen of this graph again, as it is. Does nothing for a
  /// graph without a view of this recorder, and for the one that is shown.
  void showAgain(const ui::ViewGraph& graph);

 private:
  struct Parts;
  std::shared_ptr<Parts> parts_;  ///< never null; also held by callbacks and observers
};

}  // namespace vemra::recording
