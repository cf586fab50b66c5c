#include "VemraGoalSurface/GoalResultView.hpp"
#include "tests/VemraGoalSurface/SampleScreen.hpp"
#include "tests/VemraGoalSurface/Shape.hpp"

#include <optional>
#include <type_traits>

#include <gmock/gmock.h>

namespace vemra::screentest {
namespace {

using ::testing::ElementsAre;
using testing::Screen;

static_assert(std::is_copy_constructible_v<GoalResultView>);

class WholeScreen : public ::testing::Test {
 protected:
  Calls calls_;
};

TEST_F(WholeScreen, ScrollsVerticallyWithItsIndicatorsShown) {
  const Screen screen(viewOf(ordinaryResult(), calls_));
  const auto& scrollView = *nodesOf(screen, ui::ElementKind::scrollView).at(0);
  EXPECT_EQ(scrollView.element.scrollIndicators(), ui::ScrollIndicators::shown);
  EXPECT_EQ(scrollView.element.scrollAxis(), ui::Axis::vertical);
  EXPECT_TRUE(scrollView.element.modifiers().empty());
}

TEST_F(WholeScreen, KeepsAnEmptyTitleAsAnEmptyFirstLine) {
  Result result = ordinaryResult();
  const Lines withTitle = shape(Screen(viewOf(result, calls_)));
  result.goal.title = "";
  Lines lines = shape(Screen(viewOf(result, calls_)));
  EXPECT_EQ(lines.at(3), "      Text \"\" .font(title2) .fontWeight(semibold)");
  lines[3] = withTitle.at(3);
  EXPECT_EQ(lines, withTitle);
}

TEST_F(WholeScreen, ShowsNothingOfTheGroup) {
  Result result = ordinaryResult();
  const Lines without = shape(Screen(viewOf(result, calls_)));
  result.group = {GoalGroupCandidateDTO{"grp1", {"p1", "p2"}}};
  EXPECT_EQ(shape(Screen(viewOf(result, calls_))), without);
}

TEST_F(WholeScreen, CallsNoCallbackWhenItIsShown) {
  Screen screen(viewOf(ordinaryResult(), calls_));
  screen.show(viewOf(ordinaryResult(), calls_));
  EXPECT_THAT(calls_.log, ElementsAre());
}

TEST_F(WholeScreen, HasExactlyTheseIdentifiersWithoutOpenEditors) {
  Result result = ordinaryResult();
  result.people = {person("p1", "Ada", {"ev9"}), person("a.b c", "Bo", {"ev1"}), person("p3")};
  result.outcomes = {
      outcome("o1", SubjectKind::person, "p1", Value::helped, "met", "o0"),
      outcome("o2", SubjectKind::path, "p9", Value::invited),
  };
  EXPECT_THAT(
      Screen(viewOf(result, calls_)).identifiers(),
      ElementsAre("vemra.goal.person.p1.show-source",
                  "vemra.goal.person.p1.outcome.corrected-marker",
                  "vemra.goal.person.p1.outcome.correct", "vemra.goal.person.a.b c.show-source",
                  "vemra.goal.person.a.b c.outcome.start", "vemra.goal.person.p3.outcome.start",
                  "vemra.goal.path.see-in-starfold", "vemra.goal.path.outcome.correct"));
}

TEST_F(WholeScreen, HandingInAnEqualSnapshotChangesNothing) {
  Screen screen(viewOf(ordinaryResult(), calls_));
  const std::size_t patches = screen.tree().patchCount();
  screen.show(viewOf(ordinaryResult(), calls_));
  EXPECT_EQ(screen.tree().patchCount(), patches);
}

TEST_F(WholeScreen, AnEmptyCallbackMakesItsButtonDoNothing) {
  Screen screen(GoalResultView(GoalResultSnapshotV1(ordinaryResult()), {}, {}, {}, {}));
  screen.press(testing::button("Ada"));
  screen.press("vemra.goal.person.p1.show-source");
  screen.press("vemra.goal.path.see-in-starfold");
  screen.press("vemra.goal.path.outcome.start");
  screen.press("vemra.goal.path.outcome.save");
  EXPECT_EQ(shape(screen), shape(Screen(viewOf(ordinaryResult(), calls_))))
      << "the screen is unchanged, except that Save has closed the editor";
}

TEST_F(WholeScreen, ACallbackMayShowANewView) {
  Result next = ordinaryResult();
  next.goal.title = "Answered";
  std::optional<Screen> screen;
  const auto answer = [&](const auto&) {
    screen->show(viewOf(next, calls_));
    EXPECT_FALSE(screen->has(testing::byText("Answered"))) << "the press is still being handled";
  };
  const GoalResultView view(GoalResultSnapshotV1(ordinaryResult()), answer, answer, answer, answer);
  for (const char* title : {"Ada", "Show source", "See in Starfold", "Save"}) {
    screen.emplace(view);
    screen->press("vemra.goal.path.outcome.start");
    screen->press(testing::button(title));
    EXPECT_TRUE(screen->has(testing::byText("Answered"))) << title;
  }
}

TEST_F(WholeScreen, CallsTheCallbacksOfTheLatestView) {
  Calls later;
  Screen screen(viewOf(ordinaryResult(), calls_));
  screen.show(viewOf(ordinaryResult(), later));
  screen.press(testing::button("Ada"));
  screen.press("vemra.goal.person.p1.show-source");
  screen.press("vemra.goal.path.see-in-starfold");
  screen.press("vemra.goal.path.outcome.start");
  screen.press("vemra.goal.path.outcome.save");
  EXPECT_THAT(calls_.log, ElementsAre());
  EXPECT_THAT(later.log, ElementsAre("open \"p1\"", "evidence \"ev9\"", "focus",
                                     "record path \"p9\" wasUseful note=nil corrects=nil"));
}

}  // namespace
}  // namespace vemra::screentest
