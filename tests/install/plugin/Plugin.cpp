#include "VemraGoalSurface/GoalResultView.hpp"
#include "VemraTesting/Screen.hpp"

#include <iostream>

extern "C" [[gnu::visibility("default")]] void showScreen() {
  vemra::GetGoalSnapshotResponse answer;
  answer.goal.title = "Shown by a plugin";
  const auto ignore = [](const auto&) {};
  const vemra::testing::Screen screen(
      vemra::GoalResultView(vemra::GoalResultSnapshotV1(answer), ignore, ignore, ignore, ignore));
  std::cout << screen.outline();
}
