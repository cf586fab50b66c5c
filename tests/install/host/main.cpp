#include "VemraGoalSurface/GoalResultView.hpp"
#include "VemraTesting/Screen.hpp"

#include <iostream>

int main() {
  vemra::GetGoalSnapshotResponse answer;  // as the goal engine gives it
  answer.goal.title = "Find a design lead";
  answer.people = {
      {.personRef = "p1", .displayName = "Ada", .why = vemra::GoalWhyDTO::connection(2)}};

  const auto ignore = [](const auto&) {};
  const auto record = [](const vemra::GoalOutcomeRecordingInput& input) {
    std::cout << "Recorded for " << input.subjectRef().value_or("nobody") << ": "
              << vemra::GoalOutcomeRecordingFormLogic::label(input.outcome()) << "\n";
  };
  vemra::testing::Screen screen(
      vemra::GoalResultView(vemra::GoalResultSnapshotV1(answer), ignore, ignore, ignore, record));

  screen.press("vemra.goal.person.p1.outcome.start");
  screen.press("vemra.goal.person.p1.outcome.save");
  std::cout << screen.outline();
}
