// Every function of the screen stops the process when it is called off the main thread.

#include "VemraGoalSurface/GoalOutcomeRecordingControl.hpp"
#include "VemraTesting/Screen.hpp"
#include "tests/VemraGoalSurface/PrivateMembers.hpp"
#include "tests/VemraGoalSurface/SampleScreen.hpp"
#include "tests/VemraPlatform/ui/Sample.hpp"

#include <memory>
#include <thread>

#include <gtest/gtest.h>

namespace vemra::screentest {
namespace {

using testing::Screen;
using Control = GoalOutcomeRecordingControl;
using ControlState = ui::LocalState<Control::State>;

/// Expects that the process stops because `work` calls `member` on another thread.
template <class Work>
void expectStop(const std::string& member, const Work& work) {
  EXPECT_DEATH(std::thread(work).join(), member + " was called off the main thread");
}

class MainActorDeathTest : public ::testing::Test {
 protected:
  MainActorDeathTest() {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    result_.outcomes = {outcome("o1", SubjectKind::person, "p1", Value::helped)};
  }

  GoalResultView view() { return viewOf(result_, calls_); }

  /// Expects that pressing the button on another thread stops the process.
  void expectStopAtButton(const std::string& title, const std::string& member) {
    Screen screen(view());
    if (!screen.has(testing::button(title))) screen.press("vemra.goal.path.outcome.start");
    expectStop(member, [&] { screen.press(testing::button(title)); });
  }

  static Control control() {
    return {.subjectKind = SubjectKind::person,
            .subjectRef = "p1",
            .effectiveOutcome = std::nullopt,
            .identifierPrefix = "x",
            .onRecord = {}};
  }
  static ControlState state() {
    return ControlState(std::make_shared<ui::StateCellOf<Control::State>>());
  }

  Result result_ = ordinaryResult();
  Calls calls_;
};

TEST_F(MainActorDeathTest, BodyOfTheScreen) {
  expectStop("GoalResultView.body", [&] { view().body({}); });
}

TEST_F(MainActorDeathTest, PeopleSection) {
  expectStop("GoalResultView.peopleSection", [&] { (view().*address(PeopleSectionMember{}))(); });
}

TEST_F(MainActorDeathTest, PersonRow) {
  expectStop("GoalResultView.personRow",
             [&] { (view().*address(PersonRowMember{}))(person("p1")); });
}

TEST_F(MainActorDeathTest, RowsThatARendererRequests) {
  ui::ViewGraph graph;
  graph.setRoot(view());
  const ui::NodeID list = ui::sample::firstOf(graph.root(), ui::ElementKind::forEach)->id;
  expectStop("GoalResultView.personRow", [&] { graph.peekRow(list, 0); });
}

TEST_F(MainActorDeathTest, PathSection) {
  expectStop("GoalResultView.pathSection", [&] { (view().*address(PathSectionMember{}))(); });
}

TEST_F(MainActorDeathTest, CoverageFooter) {
  expectStop("GoalResultView.coverageFooter",
             [&] { (view().*address(CoverageFooterMember{}))({}); });
}

TEST_F(MainActorDeathTest, CoverageText) {
  expectStop("GoalResultView.coverageText", [&] { (view().*address(CoverageTextMember{}))({}); });
}

TEST_F(MainActorDeathTest, OpeningAPerson) {
  expectStopAtButton("Ada", "GoalResultView.openPerson");
}

TEST_F(MainActorDeathTest, ShowingASource) {
  expectStopAtButton("Show source", "GoalResultView.showSource");
}

TEST_F(MainActorDeathTest, SeeingThePathInStarfold) {
  expectStopAtButton("See in Starfold", "GoalResultView.seeInStarfold");
}

TEST_F(MainActorDeathTest, BodyOfTheControl) {
  expectStop("GoalOutcomeRecordingControl.body", [&] { control().body(state()); });
}

TEST_F(MainActorDeathTest, RecordedSummary) {
  expectStop("GoalOutcomeRecordingControl.recordedSummary",
             [&] { (control().*address(RecordedSummaryMember{}))(GoalOutcomeDTO{}, state()); });
}

TEST_F(MainActorDeathTest, Editor) {
  expectStop("GoalOutcomeRecordingControl.editor",
             [&] { (control().*address(EditorMember{}))(state()); });
}

TEST_F(MainActorDeathTest, Save) {
  expectStop("GoalOutcomeRecordingControl.save",
             [&] { (control().*address(SaveMember{}))(state()); });
}

TEST_F(MainActorDeathTest, RecordOutcomeButton) {
  expectStopAtButton("Record outcome", "GoalOutcomeRecordingControl.recordOutcome");
}

TEST_F(MainActorDeathTest, CorrectButton) {
  expectStopAtButton("Correct", "GoalOutcomeRecordingControl.correct");
}

TEST_F(MainActorDeathTest, SaveButton) {
  expectStopAtButton("Save", "GoalOutcomeRecordingControl.save");
}

TEST_F(MainActorDeathTest, CancelButton) {
  expectStopAtButton("Cancel", "GoalOutcomeRecordingControl.cancel");
}

// Not about threads, but private too: the sentence is defined also for counts that the footer never
// passes.
TEST(CoverageText, IsDefinedForEveryCount) {
  Calls calls;
  Result result = ordinaryResult();
  result.coverage.evidenceCount = -3;
  EXPECT_EQ((viewOf(result, calls).*address(CoverageTextMember{}))({}),
            "Based on -3 piece(s) of evidence from Mail.");
}

}  // namespace
}  // namespace vemra::screentest
