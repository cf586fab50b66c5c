#include "VemraGoalSurface/GoalResultView.hpp"
#include "VemraRecording/Recorder.hpp"
#include "VemraTesting/Screen.hpp"

#include <iostream>

extern "C" [[gnu::visibility("default")]] void recordScreen() {
  const auto ignore = [](const auto&) {};
  vemra::testing::Screen screen(vemra::ui::Group({}));
  vemra::recording::Recorder recorder(
      "/dev/null", {"a plugin", "1"}, vemra::recording::Texts::masked,
      [](const vemra::recording::Failure& failure) { std::cout << failure.text() << "\n"; });
  screen.show(recorder.view(screen.graph(),
                            vemra::GoalResultSnapshotV1(vemra::GetGoalSnapshotResponse{}), ignore,
                            ignore, ignore, ignore));
}
