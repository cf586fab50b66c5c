// The order, spacing, fonts and identifiers of all elements of the screen, as texts to read:
// tests/expected/screen-*.txt is the only place with whole outlines. The tests of sections and
// controls compare only the lines that their rule is about. VEMRA_UPDATE_EXPECTED=1 in the
// environment rewrites the files.

#include "tests/ExpectedFile.hpp"
#include "tests/VemraGoalSurface/SampleScreen.hpp"
#include "tests/VemraGoalSurface/Shape.hpp"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

namespace vemra::screentest {
namespace {

using testing::Screen;

void expectOutline(const Screen& screen, const std::string& name) {
  testing::expectAsInFile(screen.outline(), "screen-" + name + ".txt");
}

/// Four people, one of each kind, and a path with an outcome.
Result fullResult() {
  Result result = ordinaryResult();
  GoalPersonCandidateDTO ada = person("p1", "Ada", {"ev9"});
  ada.why = GoalWhyDTO::evidence("Email", "Asked about the launch", "mail-7");
  GoalPersonCandidateDTO bo = person("a.b c", "Bo & <b>Co</b>");
  bo.why = GoalWhyDTO::sharedActivity(3, 1);
  GoalPersonCandidateDTO nobody = person("p3");
  nobody.why = GoalWhyDTO::connection(1);
  result.people = {ada, bo, nobody, person("", "")};
  result.coverage.sources = {"Mail", "Calendar"};
  result.coverage.latestEvidenceAt = "2025-01-05T10:00:00Z";
  result.outcomes = {
      outcome("o1", SubjectKind::person, "p1", Value::reachedOut),
      outcome("o2", SubjectKind::person, "p1", Value::notAFit, "too busy\nuntil May", "o1"),
      outcome("o3", SubjectKind::path, "p9", Value::introduced),
  };
  return result;
}

class ScreenOutline : public ::testing::Test {
 protected:
  Calls calls_;
};

TEST_F(ScreenOutline, WithoutAnyEvidence) {
  expectOutline(Screen(viewOf(Result{}, calls_)), "without-evidence");
}

TEST_F(ScreenOutline, WithEvidenceAndNoPeople) {
  Result result = ordinaryResult();
  result.people = {};
  result.paths = {};
  expectOutline(Screen(viewOf(result, calls_)), "without-people");
}

TEST_F(ScreenOutline, FullResult) {
  expectOutline(Screen(viewOf(fullResult(), calls_)), "full-result");
}

TEST_F(ScreenOutline, FirstRecordingOpen) {
  Screen screen(viewOf(ordinaryResult(), calls_));
  screen.press("vemra.goal.person.p1.outcome.start");
  expectOutline(screen, "first-recording-open");
}

TEST_F(ScreenOutline, CorrectionsOpen) {
  Screen screen(viewOf(fullResult(), calls_));
  screen.press("vemra.goal.person.p1.outcome.correct");
  screen.press("vemra.goal.path.outcome.correct");
  screen.select("vemra.goal.path.outcome.picker", "somethingElse");
  expectOutline(screen, "corrections-open");
}

TEST_F(ScreenOutline, Translated) {
  class Brackets final : public ui::StringsTable {
    std::optional<std::string> lookup(std::string_view key) const override {
      return '[' + std::string(key) + ']';
    }
  };
  ui::Environment environment;
  environment.locale = "de_DE";
  environment.timeZone = "Europe/Berlin";
  environment.strings = std::make_shared<Brackets>();
  Screen screen(viewOf(fullResult(), calls_), environment);
  screen.press("vemra.goal.person.p3.outcome.start");
  expectOutline(screen, "translated");
}

}  // namespace
}  // namespace vemra::screentest
