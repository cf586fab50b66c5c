// The keyboard focus away from the viewport, or on rows that must be requested first.

#include "tests/VemraQt/Accessibility.hpp"
#include "tests/VemraQt/ActiveWindow.hpp"
#include "tests/VemraQt/PageBehind.hpp"

#include <QPushButton>
#include <QScrollBar>
#include <gtest/gtest.h>

using namespace vemra;
using namespace vemra::qttest;

namespace {

std::string focusedIdentifier(const WindowHost& host) {
  const page::Node* focused = pageOf(host.widget).focusedNode();
  if (!focused) return "nothing";
  const std::string_view identifier = focused->element.accessibilityIdentifier();
  return std::string(identifier.empty() ? focused->element.shownLabel() : identifier);
}

void takeOff(Result& result, const std::string& ref) {
  std::vector<GoalPersonCandidateDTO> people(result.people.begin(), result.people.end());
  std::erase_if(people, [&](const auto& person) { return person.personRef == ref; });
  result.people = people;
}

}  // namespace

TEST(FocusFarAway, AnEditorOpenedBelowAllRowsGetsTheFocus) {
  WindowHost host(resultWith(200));
  ASSERT_TRUE(press(*accessible(host, "vemra.goal.path.outcome.start")));
  EXPECT_EQ(focusedIdentifier(host), "vemra.goal.path.outcome.picker");
}

TEST(FocusFarAway, AControlThatCannotHaveTheFocusIsStillScrolledIn) {
  WindowHost host(resultWith(200));
  const std::string prefix = "vemra.goal.person.p0.outcome";
  host.press(prefix + ".start");
  press(*accessible(host, prefix + ".picker")->child(7));  // "Something else" requires a note
  QScrollBar& bar = *host.widget.verticalScrollBar();
  bar.setValue(bar.maximum());
  QAccessibleInterface& save = *accessible(host, prefix + ".save");
  ASSERT_TRUE(save.state().disabled);
  ASSERT_TRUE(save.state().offscreen);
  act(save, QAccessibleActionInterface::setFocusAction());
  EXPECT_FALSE(accessible(host, prefix + ".save")->state().offscreen);
  EXPECT_FALSE(accessible(host, prefix + ".save")->state().focused);
}

TEST(FocusFarAway, AnEditorClosedOutOfViewDoesNotScrollThePage) {
  for (const char* ends : {".save", ".cancel"}) {
    WindowHost host(resultWith(200));
    const std::string p3 = "vemra.goal.person.p3.outcome";
    host.press(p3 + ".start");
    host.widget.verticalScrollBar()->setValue(host.widget.verticalScrollBar()->maximum());
    ASSERT_TRUE(press(*accessible(host, "vemra.goal.path.see-in-starfold")));
    ASSERT_TRUE(press(*accessible(host, p3 + ends)));
    EXPECT_EQ(focusedIdentifier(host), p3 + (ends[1] == 's' ? ".correct" : ".start"));
  }
}

TEST(FocusFarAway, ASaveThatRemovesThePersonMovesTheFocusToTheNextPerson) {
  WindowHost host(resultWith(200));
  host.onLog = [&](const std::string& entry) {
    if (entry.starts_with("record")) takeOff(host.result, "p3");
  };
  host.press("vemra.goal.person.p3.outcome.start");
  host.widget.verticalScrollBar()->setValue(host.widget.verticalScrollBar()->maximum());
  ASSERT_TRUE(press(*accessible(host, "vemra.goal.person.p3.outcome.save")));
  EXPECT_EQ(focusedIdentifier(host), "Person Number 4");
}

TEST(FocusFarAway, ARemovedRowInViewPassesTheFocusOnWhateverTheHeightsAbove) {
  WindowHost host(resultWith(60));
  for (int i = 0; i < 12; ++i) {
    press(*accessible(host, "vemra.goal.person.p" + std::to_string(i) + ".outcome.start"));
  }
  act(*accessible(host, "vemra.goal.person.p50.outcome.start"),
      QAccessibleActionInterface::setFocusAction());
  ASSERT_EQ(focusedIdentifier(host), "vemra.goal.person.p50.outcome.start");
  host.change([](Result& result) { takeOff(result, "p50"); });
  EXPECT_EQ(focusedIdentifier(host), "Person Number 51");
}

TEST(FocusFarAway, AnInactiveWindowKeepsTheFocusForItsReturn) {
  WindowHost host(resultWith(200));
  act(*accessible(host, "vemra.goal.path.see-in-starfold"),
      QAccessibleActionInterface::setFocusAction());
  const OtherWindow other;
  host.widget.verticalScrollBar()->setValue(0);
  EXPECT_EQ(focusedIdentifier(host), "vemra.goal.path.see-in-starfold");
}
