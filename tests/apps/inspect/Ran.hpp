#pragma once

#include "tests/apps/Process.hpp"
#include "tests/apps/TemporaryFolder.hpp"

#include <string>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace vemra::inspect {

inline const std::string vemraInspect = VEMRA_BINARY_DIR "/bin/vemra-inspect";

/// The result of a run of the program.
struct Ran : Ending {
  /// The output, read by another JSON reader with its keys in order.
  nlohmann::ordered_json json() const { return nlohmann::ordered_json::parse(output); }
};

/// Runs the built program in a process of its own, in a folder of its own.
class ProgramTest : public ::testing::Test {
 protected:
  /// Writes a file of that content into the folder.
  void file(const std::string& name, const std::string& content) const {
    folder.write(name, content);
  }

  /// `arguments` are the shell's words after the program's name; `variables` come before it.
  Ran run(const std::string& arguments, const std::string& input = "",
          const std::string& variables = "LC_ALL=en_US.UTF-8 TZ=UTC") const {
    return inShell("exec env " + variables + " \"$0\" " + arguments, input);
  }

  /// Runs a case document given on standard input; the program must end well.
  nlohmann::ordered_json inspect(const std::string& text) const {
    const Ran ran = run("-", text);
    EXPECT_EQ(ran.exitCode, 0) << ran.diagnostics << ran.output;
    EXPECT_EQ(ran.diagnostics, "");
    return ran.json();
  }

  /// Runs a command of the shell, to which the program is `$0`.
  Ran inShell(const std::string& command, const std::string& input = "") const {
    Invocation invocation{{"-c", command, vemraInspect}};
    invocation.input = input;
    invocation.folder = folder.path().string();
    return {Process("/bin/sh", invocation).wait()};
  }

  std::string content(const std::string& name) const { return folder.read(name); }

  TemporaryFolder folder;
};

}  // namespace vemra::inspect
