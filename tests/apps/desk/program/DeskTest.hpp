#pragma once

#include "VemraGoalEngine/GoalRecords.hpp"
#include "apps/documents/ResultWriter.hpp"
#include "tests/apps/TemporaryFolder.hpp"
#include "tests/apps/desk/RunDesk.hpp"
#include "tests/apps/desk/SampleResults.hpp"

#include <map>
#include <string>

#include <gtest/gtest.h>

namespace vemra::desk {

/// A folder to run vemra-desk in, without a display.
class DeskTest : public ::testing::Test {
 protected:
  static Invocation commandLine(std::vector<std::string> arguments) {
    Invocation invocation;
    invocation.arguments = std::move(arguments);
    invocation.withoutVariables = {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"};
    return invocation;
  }

  static Ending desk(std::vector<std::string> arguments) {
    return run(commandLine(std::move(arguments)));
  }

  /// Runs a command that must succeed and write nothing to standard error.
  static std::string outputOf(std::vector<std::string> arguments) {
    const Ending ending = desk(std::move(arguments));
    EXPECT_EQ(ending.exitCode, 0) << ending.diagnostics;
    EXPECT_EQ(ending.diagnostics, "");
    return ending.output;
  }

  std::string document(const std::string& name, const GetGoalSnapshotResponse& result) const {
    return folder.write(name, documents::writeResult(result));
  }

  /// The content of the folder, to check that nothing in it has changed.
  std::map<std::string, std::string> everything() const {
    std::map<std::string, std::string> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.path())) {
      files[entry.path().string()] =
          entry.is_regular_file() ? TemporaryFolder::readFile(entry.path().string()) : "";
    }
    return files;
  }

  TemporaryFolder folder;
  std::string store = folder.file("goals.sqlite");
};

}  // namespace vemra::desk
