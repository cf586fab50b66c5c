#include "tests/VemraGoalSurface/SampleScreen.hpp"
#include "tests/VemraGoalSurface/Shape.hpp"

#include <gmock/gmock.h>

namespace vemra::screentest {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using testing::Screen;

class PathSection : public ::testing::Test {
 protected:
  Screen screenOf(std::vector<GoalPathCandidateDTO> paths) {
    result_.people = {};
    result_.paths = std::move(paths);
    return Screen(viewOf(result_, calls_));
  }

  Result result_ = ordinaryResult();
  Calls calls_;
};

TEST_F(PathSection, SaysThatThereIsNoPathToANamedTargetAlsoWithAnEmptyReference) {
  for (const char* target : {"p9", ""}) {
    result_.goal.targetPersonRef = target;
    EXPECT_THAT(
        pathSection(screenOf({})),
        ElementsAre("VStack leading 10", "  Text key \"Supported path\" .font(headline)",
                    "  Text \"No supported path to them yet.\" .foregroundStyle(secondary)"));
  }
}

TEST_F(PathSection, ShowsOnlyTheFirstOfThreePaths) {
  const Screen one = screenOf({path({"p1", "p9"})});
  const Screen three = screenOf({path({"p1", "p9"}), path({"p2", "p9"}, GoalWhyDTO::nameMatch()),
                                 path({"p3", "p8"}, GoalWhyDTO::generic())});
  EXPECT_EQ(shape(three), shape(one));
}

TEST_F(PathSection, CallsTheHostWithTheWholeShownRecord) {
  GoalPathCandidateDTO first = path({"p1", decomposed}, GoalWhyDTO::evidence("a", "b", "c"));
  first.strength = 77;
  Screen screen = screenOf({first, path({"p2"})});
  screen.press("vemra.goal.path.see-in-starfold");
  EXPECT_THAT(calls_.log, ElementsAre("focus"));
  EXPECT_THAT(calls_.focusedPaths, ElementsAre(first));
  EXPECT_EQ(calls_.focusedPaths.at(0).personRefs.back(), decomposed);
}

TEST_F(PathSection, ShowsTheLatestOutcomeOfThePathsLastPersonAndNoOther) {
  result_.outcomes = {
      outcome("o1", SubjectKind::path, "p9", Value::reachedOut),
      outcome("o2", SubjectKind::path, "p9", Value::introduced),
      outcome("o3", SubjectKind::path, "p1", Value::invited),
      outcome("o4", SubjectKind::person, "p9", Value::helped),
      outcome("o5", SubjectKind::path, std::nullopt, Value::notAFit),
  };
  const Screen screen = screenOf({path({"p1", "p9"})});
  EXPECT_THAT(face(screen),
              ElementsAre("VStack leading 2", "  HStack center 8",
                          "    Text \"Introduced\" .font(caption) .foregroundStyle(secondary)",
                          "    Button key \"Correct\" .font(caption) "
                          ".accessibilityIdentifier(\"vemra.goal.path.outcome.correct\")"));
}

TEST_F(PathSection, HasNoSubjectWhenThePathIsEmpty) {
  result_.outcomes = {
      outcome("o1", SubjectKind::path, std::nullopt, Value::helped),
      outcome("o2", SubjectKind::path, std::nullopt, Value::invited),
      outcome("o3", SubjectKind::path, "", Value::notAFit),
  };
  Screen screen = screenOf({path({})});
  EXPECT_TRUE(screen.has(testing::byText("Invited"))) << screen.outline();
  screen.press("vemra.goal.path.outcome.correct");
  screen.press("vemra.goal.path.outcome.save");
  EXPECT_THAT(calls_.log, ElementsAre("record path nil invited note=nil corrects=\"o2\""));
}

TEST_F(PathSection, KeepsAnEmptyReferenceApartFromNone) {
  result_.outcomes = {outcome("o1", SubjectKind::path, std::nullopt, Value::helped)};
  Screen screen = screenOf({path({"p1", ""})});
  screen.press("vemra.goal.path.outcome.start");
  screen.press("vemra.goal.path.outcome.save");
  EXPECT_THAT(calls_.log, ElementsAre("record path \"\" wasUseful note=nil corrects=nil"));
}

TEST_F(PathSection, GivesItsControlTheSubject) {
  EXPECT_THAT(screenOf({path({"p1", "p9"})}).outline(),
              HasSubstr("GoalOutcomeRecordingControl subjectKind=\"path\" subjectRef=\"p9\" "
                        "effectiveOutcome=nil identifierPrefix=\"vemra.goal.path\" "
                        "state={isEditing=false selectedValue=\"wasUseful\" noteText=\"\"}"));
  EXPECT_THAT(screenOf({path({})}).outline(),
              HasSubstr("GoalOutcomeRecordingControl subjectKind=\"path\" subjectRef=nil "));
}

}  // namespace
}  // namespace vemra::screentest
