#include "VemraPlatform/task/MainActor.hpp"

#include <thread>

#include <gtest/gtest.h>

namespace vemra::testing {
namespace {

using task::MainActor;

/// Asked while the program is still being initialised, perhaps before the main actor's own file is.
const bool isCurrentAtFirst = MainActor::isCurrent();

TEST(MainActor, isTheThreadThatInitialisedTheProgram) {
  EXPECT_TRUE(isCurrentAtFirst);
  EXPECT_TRUE(MainActor::isCurrent());
  MainActor::assertIsolated("GoalResultView.body");
}

TEST(MainActor, isNoOtherThread) {
  bool isCurrent = true;
  std::thread([&] { isCurrent = MainActor::isCurrent(); }).join();
  EXPECT_FALSE(isCurrent);
}

TEST(MainActorDeathTest, stopsAnotherThreadAndNamesTheMember) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(std::thread([] { MainActor::assertIsolated("GoalResultView.body"); }).join(),
              ::testing::KilledBySignal(SIGABRT), "GoalResultView\\.body .*main");
}

TEST(MainActorDeathTest, namesOnlyTheMember) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  constexpr std::string_view more = "Row.save and what follows";
  EXPECT_EXIT(std::thread([=] { MainActor::assertIsolated(more.substr(0, 8)); }).join(),
              ::testing::KilledBySignal(SIGABRT), "^Row\\.save was");
}

}  // namespace
}  // namespace vemra::testing
