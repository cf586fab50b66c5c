#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdlib.h>
#include <string>
#include <sys/wait.h>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace vemra::inspect {

/// What a run of the program came to.
struct Ran {
  int exitCode = -1;  ///< -1 when a signal ended it
  int signal = 0;
  std::string output;
  std::string diagnostics;

  /// The output, read by another JSON reader with its keys in order.
  nlohmann::ordered_json json() const { return nlohmann::ordered_json::parse(output); }
};

/// Runs the built program in a process of its own, in a folder of its own.
class ProgramTest : public testing::Test {
 protected:
  ProgramTest() {
    std::string pattern = testing::TempDir() + "vemra-inspect-XXXXXX";
    folder_ = ::mkdtemp(pattern.data());
  }
  ~ProgramTest() override { std::filesystem::remove_all(folder_); }

  /// Writes a file of that content into the folder.
  void file(const std::string& name, const std::string& content) const {
    std::ofstream(folder_ + "/" + name, std::ios::binary) << content;
  }

  /// `arguments` are the shell's words after the program's name; `variables` stand before it.
  Ran run(const std::string& arguments, const std::string& input = "",
          const std::string& variables = "LC_ALL=en_US.UTF-8 TZ=UTC") const {
    file("in", input);
    const std::string command = "cd '" + folder_ + "' && exec env " + variables +
                                " '" VEMRA_BINARY_DIR "/bin/vemra-inspect' " + arguments +
                                " <in >out 2>err";
    const int status = std::system(command.c_str());
    Ran ran;
    if (WIFEXITED(status)) ran.exitCode = WEXITSTATUS(status);
    if (WIFSIGNALED(status)) ran.signal = WTERMSIG(status);
    ran.output = content("out");
    ran.diagnostics = content("err");
    return ran;
  }

  /// Runs a case document given on standard input; the program must end well.
  nlohmann::ordered_json inspect(const std::string& text) const {
    const Ran ran = run("-", text);
    EXPECT_EQ(ran.exitCode, 0) << ran.diagnostics << ran.output;
    EXPECT_EQ(ran.diagnostics, "");
    return ran.json();
  }

  std::string content(const std::string& name) const {
    std::ifstream in(folder_ + "/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }

  std::string folder_;
};

}  // namespace vemra::inspect
