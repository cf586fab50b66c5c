#include "tests/VemraGoalSurface/SampleScreen.hpp"
#include "tests/VemraGoalSurface/Shape.hpp"

#include <gmock/gmock.h>

namespace vemra::screentest {
namespace {

using testing::Screen;

const std::string prefix = "vemra.goal.person.p1";

/// The variants of one person's control, and the changes between them.
class OutcomeControl : public ::testing::Test {
 protected:
  OutcomeControl() {
    result_.people = {person("p1", "Ada")};
    result_.paths = {};
  }

  Result withOutcome(GoalOutcomeDTO record) {
    result_.outcomes = {std::move(record)};
    return result_;
  }

  Screen screenOf(const Result& result) { return Screen(viewOf(result, calls_)); }

  /// The screen with one outcome in force for p1.
  Screen recorded(Value value, OptionalText note = std::nullopt,
                  OptionalText correctsOutcomeID = std::nullopt) {
    return screenOf(withOutcome(
        outcome("o1", SubjectKind::person, "p1", value, std::move(note), correctsOutcomeID)));
  }

  Result result_ = ordinaryResult();
  Calls calls_;
};

TEST_F(OutcomeControl, SpellsTheMarkerWithAMiddleDot) {
  const Screen screen = recorded(Value::helped, std::nullopt, "o0");
  EXPECT_EQ(screen.get(prefix + ".outcome.corrected-marker").element.label()->source(),
            "\xC2\xB7 corrected");
}

TEST_F(OutcomeControl, ShowsNoSecondLineForANoteThatIsNilOrEmpty) {
  EXPECT_EQ(face(recorded(Value::helped, std::nullopt)).size(), 4u);
  EXPECT_EQ(face(recorded(Value::helped, "")).size(), 4u);
}

TEST_F(OutcomeControl, ShowsANoteOfOnlySpacesAsASecondLine) {
  EXPECT_EQ(face(recorded(Value::helped, "   ")).back(),
            "  Text \"   \" .font(caption) .foregroundStyle(secondary)");
}

TEST_F(OutcomeControl, MarksACorrectionOfAnEmptyID) {
  EXPECT_TRUE(recorded(Value::helped, std::nullopt, "").has(prefix + ".outcome.corrected-marker"));
  EXPECT_FALSE(recorded(Value::helped).has(prefix + ".outcome.corrected-marker"));
}

TEST_F(OutcomeControl, UsesTheIdentifiersOfItsSubject) {
  result_.paths = {path({"p9"})};
  const Screen screen = recorded(Value::helped);
  EXPECT_TRUE(screen.has("vemra.goal.path.outcome.start"));
  EXPECT_TRUE(screen.has("vemra.goal.person.p1.outcome.correct"));
}

TEST_F(OutcomeControl, ShowsTheEditorAndNoSummaryWhileEditing) {
  Screen screen = recorded(Value::notAFit, "too busy", "o0");
  screen.press(prefix + ".outcome.correct");
  EXPECT_EQ(face(screen).at(0), "VStack leading 6");
  EXPECT_TRUE(screen.has(prefix + ".outcome.picker"));
  EXPECT_FALSE(screen.has(prefix + ".outcome.correct"));
  EXPECT_FALSE(screen.has(prefix + ".outcome.corrected-marker"));
  EXPECT_FALSE(screen.has(testing::byText("too busy")));
}

TEST_F(OutcomeControl, ShowsTheEditorWhenAnOutcomeArrivesWhileEditing) {
  Screen screen = screenOf(result_);
  screen.press(prefix + ".outcome.start");
  screen.show(viewOf(withOutcome(outcome("o1", SubjectKind::person, "p1", Value::helped)), calls_));
  EXPECT_TRUE(screen.has(prefix + ".outcome.save"));
  EXPECT_FALSE(screen.has(prefix + ".outcome.correct"));
  screen.press(prefix + ".outcome.cancel");
  EXPECT_EQ(face(screen).at(2), "    Text \"Helped\" .font(caption) .foregroundStyle(secondary)");
}

TEST_F(OutcomeControl, ShowsRecordOutcomeAfterSaveUntilASnapshotHasTheOutcome) {
  Screen screen = screenOf(result_);
  screen.press(prefix + ".outcome.start");
  screen.press(prefix + ".outcome.save");
  EXPECT_TRUE(screen.has(prefix + ".outcome.start"));
  screen.show(
      viewOf(withOutcome(outcome("o1", SubjectKind::person, "p1", Value::wasUseful)), calls_));
  EXPECT_TRUE(screen.has(prefix + ".outcome.correct"));
}

TEST_F(OutcomeControl, ShowsTheOldSummaryAfterACorrectionUntilASnapshotHasTheNewOutcome) {
  Screen screen = recorded(Value::helped, "met");
  const Lines summary = face(screen);
  screen.press(prefix + ".outcome.correct");
  screen.select(prefix + ".outcome.picker", "invited");
  screen.press(prefix + ".outcome.save");
  EXPECT_EQ(face(screen), summary);
}

TEST_F(OutcomeControl, ShowsRecordOutcomeAgainWhenTheSnapshotNoLongerHasTheOutcome) {
  Screen screen = recorded(Value::helped);
  result_.outcomes = {};
  screen.show(viewOf(result_, calls_));
  EXPECT_TRUE(screen.has(prefix + ".outcome.start"));
}

TEST_F(OutcomeControl, KeepsItsStateWhenTheEditorCloses) {
  for (const char* door : {".outcome.save", ".outcome.cancel"}) {
    Screen screen = screenOf(result_);
    screen.press(prefix + ".outcome.start");
    screen.select(prefix + ".outcome.picker", "notAFit");
    screen.type(prefix + ".outcome.note", " typed ");
    screen.press(prefix + door);
    EXPECT_THAT(screen.outline(),
                ::testing::HasSubstr(
                    "state={isEditing=false selectedValue=\"notAFit\" noteText=\" typed \"}"))
        << door;
  }
}

}  // namespace
}  // namespace vemra::screentest
