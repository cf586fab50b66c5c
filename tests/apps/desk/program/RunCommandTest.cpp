#include "apps/desk/commands/Commands.hpp"

#include <cstdlib>
#include <sstream>
#include <stdexcept>

#include <gmock/gmock.h>

namespace vemra::desk {
namespace {

TEST(RunCommandTest, TheWindowIsNotACommand) {
  Request request;
  request.command = Request::Command::showWindow;
  std::ostringstream output;
  std::ostringstream diagnostics;
  EXPECT_THROW(runCommand(request, output, diagnostics), std::logic_error);
}

TEST(RunCommandTest, AUsersStoreThatCannotBeLookedAtIsNotTakenForNone) {
  const char* const before = std::getenv("XDG_DATA_HOME");
  const std::string kept = before != nullptr ? before : "";
  ::setenv("XDG_DATA_HOME", ("/" + std::string(300, 'x')).c_str(), 1);
  Request request;
  request.command = Request::Command::listGoals;
  std::ostringstream output;
  std::ostringstream diagnostics;
  EXPECT_EQ(runCommand(request, output, diagnostics), 2);
  EXPECT_THAT(diagnostics.str(), testing::HasSubstr("File name too long"));
  before != nullptr ? ::setenv("XDG_DATA_HOME", kept.c_str(), 1) : ::unsetenv("XDG_DATA_HOME");
}

}  // namespace
}  // namespace vemra::desk
