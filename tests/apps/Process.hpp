#pragma once

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace vemra {

/// The user whose rights a program has.
enum class Rights { mine, ofNobody };

/// The settings for running a program.
struct Invocation {
  std::vector<std::string> arguments;  ///< behind the program's name
  std::vector<std::pair<std::string, std::string>>
      environment{};  ///< in addition to the test's own
  std::vector<std::string> withoutVariables{};
  std::string input{};
  std::string folder{};  ///< its working folder; "": the test's
  Rights rights = Rights::mine;
};

/// The end of a program, and its output.
struct Ending {
  int exitCode = -1;  ///< -1 when a signal ended it
  int signal = 0;
  std::string output;
  std::string diagnostics;
};

/// A program that runs beside the test.
class Process {
 public:
  Process(const std::string& program, const Invocation& invocation)
      : output_(std::tmpfile()), diagnostics_(std::tmpfile()), input_(std::tmpfile()) {
    std::fwrite(invocation.input.data(), 1, invocation.input.size(), input_);
    std::rewind(input_);
    id_ = ::fork();
    if (id_ == 0) become(program, invocation);
  }
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;
  ~Process() {
    if (running_) {
      kill(SIGKILL);
      wait();
    }
    for (std::FILE* file : {output_, diagnostics_, input_}) std::fclose(file);
  }

  void kill(int signal) const { ::kill(id_, signal); }

  Ending wait() {
    int status = 0;
    while (::waitpid(id_, &status, 0) < 0 && errno == EINTR) {
    }
    running_ = false;
    Ending ending;
    if (WIFEXITED(status)) ending.exitCode = WEXITSTATUS(status);
    if (WIFSIGNALED(status)) ending.signal = WTERMSIG(status);
    ending.output = content(output_);
    ending.diagnostics = content(diagnostics_);
    return ending;
  }

 private:
  [[noreturn]] void become(const std::string& program, const Invocation& invocation) const {
    ::dup2(::fileno(input_), STDIN_FILENO);
    ::dup2(::fileno(output_), STDOUT_FILENO);
    ::dup2(::fileno(diagnostics_), STDERR_FILENO);
    for (const auto& [name, value] : invocation.environment) {
      ::setenv(name.c_str(), value.c_str(), 1);
    }
    for (const auto& name : invocation.withoutVariables) ::unsetenv(name.c_str());
    if (!invocation.folder.empty() && ::chdir(invocation.folder.c_str()) != 0) ::_exit(126);
    if (invocation.rights == Rights::ofNobody && ::geteuid() == 0) {
      if (::setgid(65534) != 0 || ::setuid(65534) != 0) ::_exit(126);
    }
    std::vector<char*> arguments{const_cast<char*>(program.c_str())};
    for (const auto& argument : invocation.arguments) {
      arguments.push_back(const_cast<char*>(argument.c_str()));
    }
    arguments.push_back(nullptr);
    ::execv(program.c_str(), arguments.data());
    ::_exit(127);
  }

  static std::string content(std::FILE* file) {
    std::rewind(file);
    std::string text;
    char buffer[65536];
    while (const std::size_t count = std::fread(buffer, 1, sizeof buffer, file)) {
      text.append(buffer, count);
    }
    return text;
  }

  std::FILE* output_;
  std::FILE* diagnostics_;
  std::FILE* input_;
  pid_t id_ = -1;
  bool running_ = true;
};

}  // namespace vemra
