#include "VemraPlatform/task/MainActor.hpp"
#include "tests/VemraPlatform/task/BufferedStandardError.hpp"

#include <atomic>
#include <cstdlib>
#include <dlfcn.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

#include <gtest/gtest.h>

namespace vemra::testing {
namespace {

using task::MainActor;

/// Read while the program is still being initialised, perhaps before the main actor's own file is.
const bool isCurrentAtFirst = MainActor::isCurrent();

bool isCurrentOnAnotherThread() {
  bool isCurrent = true;
  std::thread([&] { isCurrent = MainActor::isCurrent(); }).join();
  return isCurrent;
}

TEST(MainActor, IsTheFirstThreadOfTheProcess) {
  EXPECT_TRUE(isCurrentAtFirst);
  EXPECT_TRUE(MainActor::isCurrent());
  MainActor::assertIsolated("GoalResultView.body");
}

TEST(MainActor, IsNoOtherThread) {
  EXPECT_FALSE(isCurrentOnAnotherThread());
  EXPECT_TRUE(MainActor::isCurrent());
}

TEST(MainActor, IsTheFirstThreadForALibraryLoadedOnAnotherThread) {
  using Question = bool (*)();
  Question isCurrent = nullptr;
  Question wasCurrentWhenLoaded = nullptr;
  bool isCurrentThere = true;
  std::thread([&] {
    void* library = dlopen(VEMRA_BINARY_DIR "/tests/vemra_test_plugin.so", RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(library, nullptr) << dlerror();
    isCurrent = reinterpret_cast<Question>(dlsym(library, "vemraPluginIsCurrent"));
    wasCurrentWhenLoaded =
        reinterpret_cast<Question>(dlsym(library, "vemraPluginWasCurrentWhenLoaded"));
    ASSERT_NE(isCurrent, nullptr);
    ASSERT_NE(wasCurrentWhenLoaded, nullptr);
    isCurrentThere = isCurrent();
  }).join();
  ASSERT_NE(isCurrent, nullptr);
  EXPECT_FALSE(wasCurrentWhenLoaded());
  EXPECT_FALSE(isCurrentThere);
  EXPECT_TRUE(isCurrent());
}

/// Forks on the calling thread and returns the result of `work` in the child.
template <class Work>
int inChild(const Work& work) {
  const pid_t child = fork();
  if (child == 0) _exit(work());
  int status = -1;
  EXPECT_EQ(waitpid(child, &status, 0), child);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

int isCurrentAsNumber() {
  return MainActor::isCurrent() ? 1 : 0;
}

TEST(MainActor, IsTheForkingThreadInAChild) {
  EXPECT_EQ(inChild(isCurrentAsNumber), 1);
  int neverAsked = 0;
  int askedBefore = 0;
  std::thread([&] { neverAsked = inChild(isCurrentAsNumber); }).join();
  std::thread([&] {
    EXPECT_FALSE(MainActor::isCurrent());
    askedBefore = inChild(isCurrentAsNumber);
    EXPECT_FALSE(MainActor::isCurrent());
  }).join();
  EXPECT_EQ(neverAsked, 1);
  EXPECT_EQ(askedBefore, 1);
}

class MainActorDeathTest : public ::testing::Test {
 protected:
  MainActorDeathTest() { GTEST_FLAG_SET(death_test_style, "threadsafe"); }
};

TEST_F(MainActorDeathTest, StopsAnotherThreadAndNamesTheMemberAndWhatToDo) {
  EXPECT_EXIT(std::thread([] { MainActor::assertIsolated("GoalResultView.body"); }).join(),
              ::testing::KilledBySignal(SIGABRT),
              "^GoalResultView\\.body was called off the main thread.*first thread of the "
              "process.*MainActor::adoptCurrentThread");
}

TEST_F(MainActorDeathTest, NamesOnlyTheMember) {
  constexpr std::string_view more = "Row.save and what follows";
  EXPECT_EXIT(std::thread([=] { MainActor::assertIsolated(more.substr(0, 8)); }).join(),
              ::testing::KilledBySignal(SIGABRT), "^Row\\.save was");
}

TEST_F(MainActorDeathTest, IsTheAdoptedThreadAndNoLongerTheFirst) {
  const auto adopt = [] {
    std::thread([] {
      if (MainActor::isCurrent()) _exit(1);
      MainActor::adoptCurrentThread();
      MainActor::adoptCurrentThread();  // again on the same thread: nothing more
      if (!MainActor::isCurrent()) _exit(2);
      MainActor::assertIsolated("GoalResultView.body");
    }).join();
    if (MainActor::isCurrent()) _exit(3);
    // The thread has ended. A new thread, perhaps with its id, is not the main thread.
    if (isCurrentOnAnotherThread()) _exit(4);
    _exit(0);
  };
  EXPECT_EXIT(adopt(), ::testing::ExitedWithCode(0), "");
}

TEST_F(MainActorDeathTest, MayAdoptTheFirstThread) {
  const auto adopt = [] {
    MainActor::adoptCurrentThread();
    _exit(MainActor::isCurrent() && !isCurrentOnAnotherThread() ? 0 : 1);
  };
  EXPECT_EXIT(adopt(), ::testing::ExitedWithCode(0), "");
}

TEST_F(MainActorDeathTest, StopsWhenASecondThreadIsAdopted) {
  const auto adoptTwo = [] {
    std::thread(MainActor::adoptCurrentThread).join();
    MainActor::adoptCurrentThread();
  };
  EXPECT_EXIT(adoptTwo(), ::testing::KilledBySignal(SIGABRT),
              "^MainActor::adoptCurrentThread was called on a second thread.*once, on the thread "
              "that runs the user interface");
}

TEST_F(MainActorDeathTest, WritesItsMessagesWhereStandardErrorIsBuffered) {
  EXPECT_EXIT(withBufferedStandardError(
                  [] { std::thread([] { MainActor::assertIsolated("Row.body"); }).join(); }),
              ::testing::KilledBySignal(SIGABRT), "Row\\.body was called off the main thread");
  EXPECT_EXIT(withBufferedStandardError([] {
                std::thread(MainActor::adoptCurrentThread).join();
                MainActor::adoptCurrentThread();
              }),
              ::testing::KilledBySignal(SIGABRT), "was called on a second thread");
}

TEST_F(MainActorDeathTest, StartsAnewInAChild) {
  const auto adoptHereAndInAChild = [] {
    std::thread([] { MainActor::adoptCurrentThread(); }).join();
    const int result = inChild([] {
      if (!MainActor::isCurrent()) return 1;
      bool isAdopted = false;
      std::thread([&] {
        MainActor::adoptCurrentThread();
        isAdopted = MainActor::isCurrent();
      }).join();
      return isAdopted && !MainActor::isCurrent() ? 0 : 2;
    });
    _exit(result);
  };
  EXPECT_EXIT(adoptHereAndInAChild(), ::testing::ExitedWithCode(0), "");
}

TEST_F(MainActorDeathTest, IsTheSameForThreadsThatAskWhileOneIsAdopted) {
  const auto askAndAdopt = [] {
    std::atomic<int> current = 0;
    std::vector<std::thread> threads;
    for (int asking = 0; asking < 4; ++asking) {
      threads.emplace_back([&] {
        for (int round = 0; round < 1000; ++round) current += isCurrentAsNumber();
      });
    }
    std::thread(MainActor::adoptCurrentThread).join();
    for (std::thread& thread : threads) thread.join();
    _exit(current);
  };
  EXPECT_EXIT(askAndAdopt(), ::testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace vemra::testing
