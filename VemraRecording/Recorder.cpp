#include "VemraRecording/Recorder.hpp"

#include "VemraPlatform/text/TextMask.hpp"
#include "VemraRecording/CaseFile.hpp"
#include "VemraRecording/CaseHead.hpp"
#include "VemraRecording/ElementName.hpp"
#include "VemraRecording/MaskedRecords.hpp"
#include "VemraRecording/StepText.hpp"
#include "apps/documents/ResultWriter.hpp"

#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <map>
#include <optional>
#include <random>
#include <system_error>
#include <utility>

namespace vemra::recording {
namespace {

/// One of the host's screens, from the first view of its graph on.
struct ScreenShown {
  std::size_t number;
  GoalResultSnapshotV1 snapshot;
  GetGoalSnapshotResponse replayed;  ///< the same as the case has it
  std::string text;                  ///< the same as a document
};

GetGoalSnapshotResponse recordsOf(const GoalResultSnapshotV1& snapshot) {
  return {snapshot.goal(),  snapshot.people(),   snapshot.paths(),
          snapshot.group(), snapshot.coverage(), snapshot.outcomes()};
}

text::TextMask unforeseeableMask() {
  std::random_device device;
  return text::TextMask((static_cast<std::uint64_t>(device()) << 32U) | device());
}

}  // namespace

struct Recorder::Parts : std::enable_shared_from_this<Parts> {
  Parts(std::string ofPath, Program ofProgram, OnFailure failed)
      : path(std::move(ofPath)), program(std::move(ofProgram)), onFailure(std::move(failed)) {}

  /// Does a part of the recording; what goes wrong ends it and reaches neither screen nor host.
  template <class Work>
  void attempt(const Work& work) noexcept {
    if (isOver) return;
    try {
      work();
    } catch (const std::system_error& error) {
      const bool isThere = error.code().value() == EEXIST;
      end(isThere ? Failure::Reason::fileExists : Failure::Reason::notWritten,
          error.code().message());
    } catch (const std::exception& error) {
      end(Failure::Reason::notWritten, error.what());
    }
  }

  void end(Failure::Reason reason, const std::string& detail = "") noexcept {
    isOver = true;
    file.reset();
    try {
      if (onFailure) onFailure({reason, path, detail});
    } catch (...) {  // the screen works on, as without a recorder
    }
  }

  void show(ui::ViewGraph& graph, const GoalResultSnapshotV1& snapshot) {
    const ui::Environment& environment = graph.environment();
    GetGoalSnapshotResponse replayed = recordsOf(snapshot);
    if (mask) replayed = masked(replayed, *mask);
    documents::JsonWriter out;
    documents::writeResult(out, replayed);
    std::string text = out.take();
    const std::shared_ptr<ScreenShown> screen = screenOf(graph);
    if (!file) {
      file.emplace(path,
                   headText({program.name, program.version, mask.has_value(), environment}, text));
      locale = environment.locale;
      timeZone = environment.timeZone;
    } else if (environment.locale != locale || environment.timeZone != timeZone) {
      return end(Failure::Reason::environmentChanged);
    } else if (screen && screen->text == text) {
      showScreen(screen->number);
    } else {
      const std::size_t number = screen ? screen->number : screenCount;
      file->add(resultStep(text, number == shownScreen ? std::nullopt : std::optional(number)));
      shownScreen = number;
    }
    if (screen) {
      *screen = {screen->number, snapshot, std::move(replayed), std::move(text)};
    } else {
      observe(graph, {screenCount++, snapshot, std::move(replayed), std::move(text)});
    }
  }

  void observe(ui::ViewGraph& graph, ScreenShown first) {
    // The graph's observer alone owns the screen: when the graph is gone, so is the screen.
    const auto screen = std::make_shared<ScreenShown>(std::move(first));
    std::erase_if(screens, [](const auto& each) { return each.second.screen.expired(); });
    screens[&graph] = {screen,
                       graph.observeEvents([parts = shared_from_this(), screen, &graph](
                                               const ui::Node& element, const ui::Event& event) {
                         parts->attempt([&] { parts->handle(*screen, graph, element, event); });
                       })};
  }

  void handle(const ScreenShown& screen, ui::ViewGraph& graph, const ui::Node& element,
              const ui::Event& event) {
    ElementName name = nameOf(element, graph, screen.snapshot, screen.replayed);
    ui::Event replayed = event;
    if (mask) {
      if (!name.isTitle) name.name = maskedIdentifier(name.name, *mask);
      if (auto* edit = std::get_if<ui::EditText>(&replayed)) edit->text = mask->masked(edit->text);
    }
    showScreen(screen.number);
    file->add(eventStep(name, replayed));
  }

  void called(const Call& call) {
    attempt([&] { file->addToLast(callStep(mask ? masked(call, *mask) : call)); });
  }

  void showScreen(std::size_t number) {
    if (number == shownScreen) return;
    file->add(screenStep(number));
    shownScreen = number;
  }

  std::shared_ptr<ScreenShown> screenOf(const ui::ViewGraph& graph) const {
    const auto found = screens.find(&graph);
    return found == screens.end() ? nullptr : found->second.screen.lock();
  }

  const std::string path;
  const Program program;
  const OnFailure onFailure;
  std::optional<text::TextMask> mask;
  std::optional<CaseFile> file;  ///< none before the first result, and when the recording is over
  bool isOver = false;
  std::string locale, timeZone;
  /// A screen, as long as its graph lives.
  struct Observed {
    std::weak_ptr<ScreenShown> screen;
    ui::EventObservation observation;
  };
  std::map<const ui::ViewGraph*, Observed> screens;
  std::size_t screenCount = 0, shownScreen = 0;
};

Recorder::Recorder(std::string file, Program program, Texts texts, OnFailure onFailure)
    : parts_(std::make_shared<Parts>(std::move(file), std::move(program), std::move(onFailure))) {
  if (texts == Texts::masked) parts_->mask = unforeseeableMask();
}

Recorder::~Recorder() {
  parts_->isOver = true;
  parts_->file.reset();
  parts_->screens.clear();
}

ui::View Recorder::view(ui::ViewGraph& graph, const GoalResultSnapshotV1& snapshot,
                        GoalResultView::OnOpenPerson onOpenPerson,
                        GoalResultView::OnShowEvidence onShowEvidence,
                        GoalResultView::OnFocusPath onFocusPathInStarfold,
                        GoalResultView::OnRecordOutcome onRecordOutcome) {
  parts_->attempt([&] { parts_->show(graph, snapshot); });
  return GoalResultView(
      snapshot,
      [parts = parts_, next = std::move(onOpenPerson)](const std::string& personRef) {
        parts->called(OpenPerson{personRef});
        if (next) next(personRef);
      },
      [parts = parts_, next = std::move(onShowEvidence)](const std::string& evidenceID) {
        parts->called(ShowEvidence{evidenceID});
        if (next) next(evidenceID);
      },
      [parts = parts_, next = std::move(onFocusPathInStarfold)](const GoalPathCandidateDTO& path) {
        parts->called(FocusPathInStarfold{path});
        if (next) next(path);
      },
      [parts = parts_, next = std::move(onRecordOutcome)](const GoalOutcomeRecordingInput& input) {
        parts->called(RecordOutcome{input});
        if (next) next(input);
      });
}

void Recorder::showAgain(const ui::ViewGraph& graph) {
  parts_->attempt([&] {
    if (const auto screen = parts_->screenOf(graph)) parts_->showScreen(screen->number);
  });
}

}  // namespace vemra::recording
