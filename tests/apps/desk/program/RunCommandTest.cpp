#include "apps/desk/commands/Commands.hpp"
#include "apps/desk/store/GoalStore.hpp"
#include "tests/Allocations.hpp"
#include "tests/apps/TemporaryFolder.hpp"
#include "tests/apps/desk/SampleResults.hpp"

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

TEST(RunCommandTest, AUsersStoreThatCannotBeExaminedIsAnErrorAndNotAnEmptyStore) {
  const char* const before = std::getenv("XDG_DATA_HOME");
  const std::string kept = before != nullptr ? before : "";
  ::setenv("XDG_DATA_HOME", ("/" + std::string(300, 'x')).c_str(), 1);
  Request request;
  request.command = Request::Command::listGoals;
  std::ostringstream output;
  std::ostringstream diagnostics;
  EXPECT_EQ(runCommand(request, output, diagnostics), 2);
  EXPECT_THAT(diagnostics.str(), ::testing::HasSubstr("File name too long"));
  before != nullptr ? ::setenv("XDG_DATA_HOME", kept.c_str(), 1) : ::unsetenv("XDG_DATA_HOME");
}

TEST(RunCommandTest, ACommandThatIsShortOfMemorySaysSoAndWritesNothing) {
#ifdef VEMRA_ALLOCATIONS_ARE_NOT_COUNTED
  GTEST_SKIP() << "no allocation can be refused here";
#endif
  const TemporaryFolder folder;
  Request request;
  request.command = Request::Command::listGoals;
  request.store = folder.file("goals.sqlite");
  GoalStore::open(*request.store).import({goal("g1", "a title of more than a few letters")});
  int exitCode = 2;
  int refusals = 0;
  for (; refusals < 1000; ++refusals) {
    SCOPED_TRACE("after " + std::to_string(refusals) + " allocations");
    std::ostringstream output(std::string(1000, '\0'));  // so that writing into it needs none
    std::ostringstream diagnostics;
    vemra::testing::refuseAllocationAfter(static_cast<std::uint64_t>(refusals));
    exitCode = runCommand(request, output, diagnostics);
    vemra::testing::refuseNoAllocation();
    if (exitCode == 0) break;
    EXPECT_EQ(exitCode, 2);
    EXPECT_THAT(diagnostics.str(), ::testing::HasSubstr("memory"));
    EXPECT_EQ(output.tellp(), 0);
  }
  EXPECT_EQ(exitCode, 0) << "it never had enough";
  EXPECT_GT(refusals, 5) << "no allocation was refused";
}

}  // namespace
}  // namespace vemra::desk
