// Everything of the screen belongs to the main thread, and says so by stopping the process.

#include "VemraGoalSurface/GoalOutcomeRecordingControl.hpp"
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

template <class Work>
void onAnotherThread(Work work) {
  std::thread(work).join();
}

std::string offTheMainThread(const std::string& member) {
  return member + " was called off the main thread";
}

class MainActorDeathTest : public ::testing::Test {
 protected:
  MainActorDeathTest() {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    result_.outcomes = {outcome("o1", SubjectKind::person, "p1", Value::helped)};
  }

  GoalResultView view() { return viewOf(result_, calls_); }

  /// Presses a button on a thread of its own.
  static void pressElsewhere(Screen& screen, const testing::Query& query) {
    onAnotherThread([&] { screen.press(query); });
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

TEST_F(MainActorDeathTest, bodyOfTheScreen) {
  EXPECT_DEATH(onAnotherThread([&] { view().body({}); }), offTheMainThread("GoalResultView.body"));
}

TEST_F(MainActorDeathTest, peopleSection) {
  EXPECT_DEATH(onAnotherThread([&] { (view().*address(PeopleSectionMember{}))(); }),
               offTheMainThread("GoalResultView.peopleSection"));
}

TEST_F(MainActorDeathTest, personRow) {
  EXPECT_DEATH(onAnotherThread([&] { (view().*address(PersonRowMember{}))(person("p1")); }),
               offTheMainThread("GoalResultView.personRow"));
}

TEST_F(MainActorDeathTest, rowsThatARendererAsksFor) {
  ui::ViewGraph graph;
  graph.setRoot(view());
  const ui::NodeID list = ui::sample::firstOf(graph.root(), ui::ElementKind::forEach)->id;
  EXPECT_DEATH(onAnotherThread([&] { graph.lookAtRow(list, 0); }),
               offTheMainThread("GoalResultView.personRow"));
}

TEST_F(MainActorDeathTest, pathSection) {
  EXPECT_DEATH(onAnotherThread([&] { (view().*address(PathSectionMember{}))(); }),
               offTheMainThread("GoalResultView.pathSection"));
}

TEST_F(MainActorDeathTest, coverageFooter) {
  EXPECT_DEATH(onAnotherThread([&] { (view().*address(CoverageFooterMember{}))({}); }),
               offTheMainThread("GoalResultView.coverageFooter"));
}

TEST_F(MainActorDeathTest, coverageText) {
  EXPECT_DEATH(onAnotherThread([&] { (view().*address(CoverageTextMember{}))({}); }),
               offTheMainThread("GoalResultView.coverageText"));
}

TEST_F(MainActorDeathTest, openingAPerson) {
  Screen screen(view());
  EXPECT_DEATH(pressElsewhere(screen, testing::button("Ada")),
               offTheMainThread("GoalResultView.openPerson"));
}

TEST_F(MainActorDeathTest, showingASource) {
  Screen screen(view());
  EXPECT_DEATH(pressElsewhere(screen, testing::button("Show source")),
               offTheMainThread("GoalResultView.showSource"));
}

TEST_F(MainActorDeathTest, seeingThePathInStarfold) {
  Screen screen(view());
  EXPECT_DEATH(pressElsewhere(screen, testing::button("See in Starfold")),
               offTheMainThread("GoalResultView.seeInStarfold"));
}

TEST_F(MainActorDeathTest, bodyOfTheControl) {
  EXPECT_DEATH(onAnotherThread([&] { control().body(state()); }),
               offTheMainThread("GoalOutcomeRecordingControl.body"));
}

TEST_F(MainActorDeathTest, recordedSummary) {
  EXPECT_DEATH(onAnotherThread([&] {
                 (control().*address(RecordedSummaryMember{}))(GoalOutcomeDTO{}, state());
               }),
               offTheMainThread("GoalOutcomeRecordingControl.recordedSummary"));
}

TEST_F(MainActorDeathTest, editor) {
  EXPECT_DEATH(onAnotherThread([&] { (control().*address(EditorMember{}))(state()); }),
               offTheMainThread("GoalOutcomeRecordingControl.editor"));
}

TEST_F(MainActorDeathTest, save) {
  EXPECT_DEATH(onAnotherThread([&] { (control().*address(SaveMember{}))(state()); }),
               offTheMainThread("GoalOutcomeRecordingControl.save"));
}

TEST_F(MainActorDeathTest, recordOutcomeButton) {
  Screen screen(view());
  EXPECT_DEATH(pressElsewhere(screen, testing::button("Record outcome")),
               offTheMainThread("GoalOutcomeRecordingControl.recordOutcome"));
}

TEST_F(MainActorDeathTest, correctButton) {
  Screen screen(view());
  EXPECT_DEATH(pressElsewhere(screen, testing::button("Correct")),
               offTheMainThread("GoalOutcomeRecordingControl.correct"));
}

TEST_F(MainActorDeathTest, saveAndCancelButtons) {
  Screen screen(view());
  screen.press("vemra.goal.path.outcome.start");
  EXPECT_DEATH(pressElsewhere(screen, testing::button("Save")),
               offTheMainThread("GoalOutcomeRecordingControl.save"));
  EXPECT_DEATH(pressElsewhere(screen, testing::button("Cancel")),
               offTheMainThread("GoalOutcomeRecordingControl.cancel"));
}

// Not about threads, but private too: the sentence is defined for counts that the footer never asks
// it for.
TEST(CoverageText, isDefinedForEveryCount) {
  Calls calls;
  Result result = ordinaryResult();
  result.coverage.evidenceCount = -3;
  EXPECT_EQ((viewOf(result, calls).*address(CoverageTextMember{}))({}),
            "Based on -3 piece(s) of evidence from Mail.");
}

}  // namespace
}  // namespace vemra::screentest
