#pragma once

#include "VemraTesting/Screen.hpp"
#include "tests/RecordedOutcomes.hpp"
#include "tests/VemraGoalSurface/SampleScreen.hpp"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace vemra::screentest {

/// A host application without a store: it logs its calls, appends an outcome for each recording,
/// and shows a fresh snapshot, from inside the callback or in `catchUp`.
class MemoryHost {
 public:
  enum class Answer { insideTheCallback, later };

  explicit MemoryHost(Result result, Answer answer = Answer::insideTheCallback)
      : result_(std::move(result)), answer_(answer), screen(view()) {}

  /// Shows all outcomes recorded so far, like a host that answers later.
  void catchUp() { screen.show(view()); }

  /// Changes the result as another source would, and shows it.
  void change(const std::function<void(Result&)>& edit) {
    edit(result_);
    catchUp();
  }

  const Result& result() const { return result_; }
  /// A view of what the host has now.
  GoalResultView view() {
    return GoalResultView(
        GoalResultSnapshotV1(result_),
        [this](const std::string& ref) { log.push_back("open " + inQuotes(ref)); },
        [this](const std::string& id) { log.push_back("evidence " + inQuotes(id)); },
        [this](const GoalPathCandidateDTO&) { log.push_back("focus"); },
        [this](const GoalOutcomeRecordingInput& input) { record(input); });
  }

 private:
  void record(const GoalOutcomeRecordingInput& input) {
    log.push_back(described(input));
    append(result_, input);
    if (answer_ == Answer::insideTheCallback) catchUp();
  }

  Result result_;
  Answer answer_;

 public:
  std::vector<std::string> log;  ///< the calls of the host, in order, byte for byte
  testing::Screen screen;
};

/// One control, as a user sees it: the identifiers that begin with its prefix.
class ControlOnScreen {
 public:
  ControlOnScreen(testing::Screen& screen, std::string prefix)
      : screen_(screen), prefix_(std::move(prefix)) {}

  void recordOutcome() { screen_.press(prefix_ + ".outcome.start"); }
  void correct() { screen_.press(prefix_ + ".outcome.correct"); }
  void choose(std::string_view value) { screen_.select(prefix_ + ".outcome.picker", value); }
  void write(std::string_view note) { screen_.type(prefix_ + ".outcome.note", note); }
  void pressReturn() { screen_.submit(prefix_ + ".outcome.note"); }
  void save() { screen_.press(prefix_ + ".outcome.save"); }
  void cancel() { screen_.press(prefix_ + ".outcome.cancel"); }

  bool isOffering() const { return screen_.has(prefix_ + ".outcome.start"); }
  bool isRecorded() const { return screen_.has(prefix_ + ".outcome.correct"); }
  bool isMarkedCorrected() const { return screen_.has(prefix_ + ".outcome.corrected-marker"); }
  bool isEditing() const { return screen_.has(prefix_ + ".outcome.save"); }
  bool maySave() const { return screen_.isEnabled(prefix_ + ".outcome.save"); }
  std::string chosen() const {
    return screen_.get(prefix_ + ".outcome.picker").element.selection()->name();
  }
  std::string note() const { return screen_.get(prefix_ + ".outcome.note").element.text(); }

 private:
  testing::Screen& screen_;
  std::string prefix_;
};

inline ControlOnScreen personControl(MemoryHost& host, const std::string& ref) {
  return {host.screen, "vemra.goal.person." + ref};
}
inline ControlOnScreen pathControl(MemoryHost& host) {
  return {host.screen, "vemra.goal.path"};
}

/// Ada, Bo and Cy, and a path to "p9".
inline Result threePeople() {
  Result result = ordinaryResult();
  result.people = {person("p1", "Ada", {"ev9"}), person("p2", "Bo"), person("p3", "Cy")};
  return result;
}

}  // namespace vemra::screentest
