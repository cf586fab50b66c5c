#pragma once

#include "VemraRecording/Call.hpp"
#include "VemraRecording/Recorder.hpp"
#include "VemraTesting/Screen.hpp"
#include "tests/RecordBuilders.hpp"
#include "tests/VemraRecording/Replayed.hpp"
#include "tests/apps/TemporaryFolder.hpp"

#include <deque>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace vemra::recording {

/// A host without a window that records what is done with its screens.
class RecordedHost : public ::testing::Test {
 protected:
  void record(Texts texts = Texts::plain) {
    recorder.emplace(file, Program{"a host", "1.2"}, texts,
                     [this](const Failure& failure) { failures.push_back(failure.text()); });
  }
  /// A screen more, which shows nothing yet.
  testing::Screen& addScreen(ui::Environment environment = {}) {
    return screens.emplace_back(ui::Group({}), std::move(environment));
  }
  void show(testing::Screen& screen, const GetGoalSnapshotResponse& result) {
    screen.show(recorder->view(
        screen.graph(), GoalResultSnapshotV1(result),
        [this](const std::string& ref) { called(OpenPerson{ref}); },
        [this](const std::string& id) { called(ShowEvidence{id}); },
        [this](const GoalPathCandidateDTO& path) { called(FocusPathInStarfold{path}); },
        [this](const GoalOutcomeRecordingInput& input) { called(RecordOutcome{input}); }));
  }
  void called(const Call& call) { calls.push_back(callText(call)); }

  static GetGoalSnapshotResponse resultOf(std::vector<GoalPersonCandidateDTO> people) {
    GetGoalSnapshotResponse result;
    result.goal.id = "g1";
    result.goal.title = "Find a design lead";
    result.people = std::move(people);
    result.paths = {build::path({"ada", "zoe"})};
    result.coverage = {{"Mail", "Kalender"}, 12, "2025-01-05T23:30:00Z"};
    return result;
  }
  static std::string of(const std::string& ref, const std::string& end) {
    return "vemra.goal.person." + ref + end;
  }

  void expectSameReplay(const testing::Screen& screen) const {
    ASSERT_EQ(failures, std::vector<std::string>{});
    const Replayed replayed(file);
    EXPECT_EQ(replayed.outline(), screen.outline());
    EXPECT_EQ(replayed.calls(), calls);
  }

  TemporaryFolder folder;
  const std::string file = folder.file("case.json");
  std::vector<std::string> failures, calls;
  std::deque<testing::Screen> screens;  ///< destroyed after the recorder
  std::optional<Recorder> recorder;
};

}  // namespace vemra::recording
