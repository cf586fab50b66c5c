#include "tests/apps/TemporaryFolder.hpp"
#include "tests/apps/desk/RunDesk.hpp"

#include <filesystem>

#include <gtest/gtest.h>

namespace vemra::desk {
namespace {

/// What the program answers without a window when no variable, or an empty one, names a display.
TEST(ShowWindowTest, WithoutADisplayTheProgramSaysSoAndMakesNoStore) {
  const TemporaryFolder folder;
  const std::string store = folder.file("goals.sqlite");
  const std::vector<std::string> displays = {"QT_QPA_PLATFORM", "WAYLAND_DISPLAY", "DISPLAY"};
  Invocation unset{{"--store", store}};
  unset.withoutVariables = displays;
  Invocation empty{{"--store", store}};
  for (const std::string& name : displays) empty.environment.emplace_back(name, "");
  for (const Invocation& invocation : {unset, empty}) {
    const Ending ending = run(invocation);
    EXPECT_EQ(ending.exitCode, 2);
    EXPECT_EQ(ending.output, "");
    EXPECT_EQ(ending.diagnostics, "vemra-desk: there is no display to show the window on\n");
    EXPECT_FALSE(std::filesystem::exists(store));
  }
}

}  // namespace
}  // namespace vemra::desk
