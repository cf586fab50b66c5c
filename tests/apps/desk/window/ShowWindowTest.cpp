#include "tests/apps/TemporaryFolder.hpp"
#include "tests/apps/desk/RunDesk.hpp"

#include <filesystem>

#include <gtest/gtest.h>

namespace vemra::desk {
namespace {

/// The program's error when no variable names a display, or an empty one.
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

TEST(ShowWindowTest, ARecordingNeverReplacesAFile) {
  const TemporaryFolder folder;
  const std::string store = folder.file("goals.sqlite");
  const std::string there = folder.write("case.json", "an earlier recording");
  Invocation invocation{{"--store", store, "--record", there}};
  invocation.environment = {{"QT_QPA_PLATFORM", "offscreen"}};
  const Ending ending = run(invocation);
  EXPECT_EQ(ending.exitCode, 2);
  EXPECT_EQ(ending.output, "");
  EXPECT_EQ(ending.diagnostics, there + ": is there already; a recording makes a new file\n");
  EXPECT_EQ(folder.read("case.json"), "an earlier recording");
  EXPECT_FALSE(std::filesystem::exists(store)) << "nothing is done";
}

}  // namespace
}  // namespace vemra::desk
