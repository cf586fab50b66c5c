// A user's actions on one screen, with a host that stores the outcomes.

#include "tests/VemraGoalSurface/Shape.hpp"
#include "tests/journeys/MemoryHost.hpp"

#include <gmock/gmock.h>

namespace vemra::screentest {
namespace {

using testing::byText;
using testing::ElementError;
using ::testing::ElementsAre;
using Answer = MemoryHost::Answer;

class RecordingJourney : public ::testing::TestWithParam<Answer> {
 protected:
  MemoryHost host{threePeople(), GetParam()};
  ControlOnScreen ada = personControl(host, "p1");
  ControlOnScreen bo = personControl(host, "p2");
  ControlOnScreen path = pathControl(host);
};

INSTANTIATE_TEST_SUITE_P(Host, RecordingJourney,
                         ::testing::Values(Answer::insideTheCallback, Answer::later),
                         [](const auto& sample) {
                           return sample.param == Answer::later ? "answersLater"
                                                                : "answersInsideTheCallback";
                         });

TEST_P(RecordingJourney, AFirstRecording) {
  ada.recordOutcome();
  ada.choose("helped");
  ada.write(" met at the fair \n");
  ada.save();
  host.catchUp();
  EXPECT_THAT(host.log, ElementsAre("person \"p1\" helped note=\"met at the fair\" corrects=nil"));
  EXPECT_TRUE(ada.isRecorded());
  EXPECT_FALSE(ada.isMarkedCorrected());
  EXPECT_TRUE(host.screen.has(byText("Helped")));
  EXPECT_TRUE(host.screen.has(byText("met at the fair")));
  EXPECT_TRUE(bo.isOffering());
  EXPECT_TRUE(path.isOffering());
}

TEST_P(RecordingJourney, ACorrection) {
  ada.recordOutcome();
  ada.save();
  host.catchUp();
  ada.correct();
  EXPECT_EQ(ada.chosen(), "wasUseful");
  ada.choose("notAFit");
  ada.write("no time");
  ada.save();
  host.catchUp();
  EXPECT_THAT(host.log, ElementsAre("person \"p1\" wasUseful note=nil corrects=nil",
                                    "person \"p1\" notAFit note=\"no time\" corrects=\"o1\""));
  EXPECT_TRUE(ada.isMarkedCorrected());
  EXPECT_TRUE(host.screen.has(byText("Not a fit")));
  EXPECT_FALSE(host.screen.has(byText("Was useful")));
}

TEST_P(RecordingJourney, TwoCorrectionsEachNameThePreviousOutcome) {
  path.recordOutcome();
  path.save();
  host.catchUp();
  for (const char* value : {"invited", "introduced"}) {
    path.correct();
    path.choose(value);
    path.save();
    host.catchUp();
  }
  EXPECT_THAT(host.log, ElementsAre("path \"p9\" wasUseful note=nil corrects=nil",
                                    "path \"p9\" invited note=nil corrects=\"o1\"",
                                    "path \"p9\" introduced note=nil corrects=\"o2\""));
  EXPECT_TRUE(path.isMarkedCorrected());
}

TEST_P(RecordingJourney, CancelAndOpenAgain) {
  ada.recordOutcome();
  ada.choose("notAFit");
  ada.write("abandoned");
  ada.cancel();
  EXPECT_TRUE(ada.isOffering());
  ada.recordOutcome();
  EXPECT_EQ(ada.chosen(), "wasUseful");
  EXPECT_EQ(ada.note(), "");
  EXPECT_THAT(host.log, ElementsAre());
}

TEST_P(RecordingJourney, CancellingACorrectionChangesNothing) {
  ada.recordOutcome();
  ada.choose("helped");
  ada.write("met");
  ada.save();
  host.catchUp();
  const auto before = shape(host.screen);
  ada.correct();
  ada.choose("notAFit");
  ada.write("");
  ada.cancel();
  EXPECT_EQ(shape(host.screen), before);
  ada.correct();
  EXPECT_EQ(ada.chosen(), "helped");
  EXPECT_EQ(ada.note(), "met");
  EXPECT_EQ(host.log.size(), 1u);
}

TEST_P(RecordingJourney, SomethingElseRequiresANote) {
  ada.recordOutcome();
  ada.choose("somethingElse");
  EXPECT_FALSE(ada.maySave());
  EXPECT_THROW(ada.save(), ElementError);
  ada.write(" \n\t");
  EXPECT_FALSE(ada.maySave());
  ada.write(" \n\tlunch");
  ada.save();
  host.catchUp();
  EXPECT_THAT(host.log, ElementsAre("person \"p1\" somethingElse note=\"lunch\" corrects=nil"));
}

TEST_P(RecordingJourney, ReturnInTheNoteDoesNothing) {
  ada.recordOutcome();
  ada.write("met");
  const std::string before = host.screen.outline();
  ada.pressReturn();
  EXPECT_EQ(host.screen.outline(), before);
  EXPECT_THAT(host.log, ElementsAre());
}

TEST_P(RecordingJourney, SavePressedTwiceInOneCallRecordsOnce) {
  ada.recordOutcome();
  const ui::NodeID save = host.screen.get("vemra.goal.person.p1.outcome.save").id;
  EXPECT_EQ(host.screen.graph().deliver(save, ui::Press{}), ui::Delivery::acted);
  EXPECT_EQ(host.screen.graph().deliver(save, ui::Press{}), ui::Delivery::gone);
  EXPECT_EQ(host.log.size(), 1u);
}

TEST_P(RecordingJourney, TwoEditorsAtOnceDoNotMix) {
  ada.recordOutcome();
  bo.recordOutcome();
  path.recordOutcome();
  ada.write("to Ada");
  bo.write("to Bo");
  path.choose("invited");
  bo.save();
  host.catchUp();
  EXPECT_EQ(ada.note(), "to Ada");
  EXPECT_EQ(path.chosen(), "invited");
  path.save();
  ada.save();
  host.catchUp();
  EXPECT_THAT(host.log, ElementsAre("person \"p2\" wasUseful note=\"to Bo\" corrects=nil",
                                    "path \"p9\" invited note=nil corrects=nil",
                                    "person \"p1\" wasUseful note=\"to Ada\" corrects=nil"));
}

TEST_P(RecordingJourney, APersonAndAPathOfTheSameReferenceAreTwoSubjects) {
  host.change([](Result& result) { result.people = {person("p9", "Eve")}; });
  ControlOnScreen eve = personControl(host, "p9");
  eve.recordOutcome();
  eve.save();
  host.catchUp();
  EXPECT_TRUE(eve.isRecorded());
  EXPECT_TRUE(path.isOffering());
  path.recordOutcome();
  path.save();
  host.catchUp();
  EXPECT_THAT(host.log, ElementsAre("person \"p9\" wasUseful note=nil corrects=nil",
                                    "path \"p9\" wasUseful note=nil corrects=nil"));
}

TEST(SavePressedAgain, FromInsideTheCallbackRecordsOnce) {
  testing::Screen* shown = nullptr;
  int recordings = 0;
  const GoalResultView view(GoalResultSnapshotV1(ordinaryResult()), {}, {}, {},
                            [&](const GoalOutcomeRecordingInput&) {
                              if (++recordings > 3) return;  // a failure must end, too
                              shown->press("vemra.goal.path.outcome.save");
                            });
  testing::Screen screen(view);
  shown = &screen;
  screen.press("vemra.goal.path.outcome.start");
  screen.press("vemra.goal.path.outcome.save");
  EXPECT_EQ(recordings, 1);
}

TEST(ThrowingHost, LeavesTheEditorAsItWasAndTheScreenUsable) {
  bool isBroken = true;
  std::vector<std::string> recorded;
  testing::Screen screen(GoalResultView(
      GoalResultSnapshotV1(ordinaryResult()),
      [](const std::string&) { throw std::runtime_error("no such window"); }, {}, {},
      [&](const GoalOutcomeRecordingInput& input) {
        if (isBroken) throw std::runtime_error("disk full");
        recorded.push_back(described(input));
      }));
  EXPECT_THROW(screen.press(testing::button("Ada")), std::runtime_error);

  screen.press("vemra.goal.path.outcome.start");
  screen.type("vemra.goal.path.outcome.note", "worth keeping");
  EXPECT_THROW(screen.press("vemra.goal.path.outcome.save"), std::runtime_error);
  EXPECT_EQ(screen.get("vemra.goal.path.outcome.note").element.text(), "worth keeping");

  isBroken = false;
  screen.press("vemra.goal.path.outcome.save");
  EXPECT_THAT(recorded, ElementsAre("path \"p9\" wasUseful note=\"worth keeping\" corrects=nil"));
  EXPECT_TRUE(screen.has("vemra.goal.path.outcome.start"));
}

TEST(HostThatShowsAnotherGoal, FromInsideTheCallbacks) {
  Result other = ordinaryResult();
  other.goal.title = "Another goal";
  other.people = {person("q1", "Quinn")};
  other.paths = {};
  Calls calls;
  testing::Screen* shown = nullptr;
  int asked = 0;
  std::string titleDuringTheCall;
  const auto showOther = [&] {
    ++asked;
    shown->show(viewOf(Result{}, calls));  // of several roots, the last one takes effect
    shown->show(viewOf(other, calls));
    titleDuringTheCall = shown->shownTexts().front();
  };
  const GoalResultView view(
      GoalResultSnapshotV1(ordinaryResult()), [&](const std::string&) { showOther(); },
      [&](const std::string&) { showOther(); }, [&](const GoalPathCandidateDTO&) { showOther(); },
      [&](const GoalOutcomeRecordingInput&) { showOther(); });

  for (const char* door : {"open", "evidence", "focus", "record"}) {
    testing::Screen screen(view);
    shown = &screen;
    if (door == std::string("open")) screen.press(testing::button("Ada"));
    if (door == std::string("evidence")) screen.press("vemra.goal.person.p1.show-source");
    if (door == std::string("focus")) screen.press("vemra.goal.path.see-in-starfold");
    if (door == std::string("record")) {
      screen.press("vemra.goal.person.p1.outcome.start");
      screen.press("vemra.goal.person.p1.outcome.save");
    }
    EXPECT_EQ(titleDuringTheCall, "Find a design lead") << door;
    EXPECT_EQ(shape(screen), shape(testing::Screen(viewOf(other, calls)))) << door;
  }
  EXPECT_EQ(asked, 4);
}

}  // namespace
}  // namespace vemra::screentest
