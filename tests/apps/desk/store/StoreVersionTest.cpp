#include "VemraPlatform/task/Start.hpp"
#include "apps/desk/store/StoreEngine.hpp"
#include "tests/apps/desk/RawDatabase.hpp"
#include "tests/apps/desk/SampleResults.hpp"
#include "tests/apps/desk/store/ErrorOf.hpp"
#include "tests/apps/desk/store/StoreFile.hpp"
#include "tests/apps/desk/store/SystemCallFault.hpp"

#include <chrono>
#include <filesystem>
#include <thread>

#include <gtest/gtest.h>

namespace vemra::desk {
namespace {
namespace fs = std::filesystem;
using namespace std::chrono_literals;
using Call = SystemCallFault::Call;

/// The number by which a window notices that a store has changed, and how failures affect it.
class StoreVersionTest : public StoreFile {
 protected:
  StoreVersionTest() {
    GoalStore::open(file).import({goal("g1", "One")});
    lastWrittenLongAgo();
  }

  /// Two changes within the step of a file system's clock leave the same time.
  void lastWrittenLongAgo() const {
    for (const char* suffix : {"", "-wal"}) {
      if (!fs::exists(file + suffix)) continue;
      fs::last_write_time(file + suffix, fs::file_time_type::clock::now() - 1h);
    }
  }

  std::int64_t version() { return task::wait(engine.version()); }

  /// A call that fails, after which the engine closes its connection. SQLite has not read the goal
  /// yet.
  void failToLoad() {
    const SystemCallFault fault(Call::read, EIO, "", SystemCallFault::always);
    EXPECT_NE(errorOf([&] { task::wait(engine.getGoalSnapshot("g1")); }), "no error");
  }
  static void waitForTheFirstPause() { std::this_thread::sleep_for(600ms); }

  StoreEngine engine{file, Patience(300)};
};

TEST_F(StoreVersionTest, StaysWhenTheStoreIsOpenedAnewWithoutAChange) {
  const auto before = version();
  failToLoad();
  EXPECT_EQ(version(), before) << "in the pause";
  waitForTheFirstPause();
  EXPECT_EQ(version(), before) << "opened anew";
  EXPECT_EQ(version(), before);
}

TEST_F(StoreVersionTest, StaysWhileAnotherProgramHasTheStoreOpen) {
  RawDatabase other(file);
  ASSERT_EQ(other.run("INSERT INTO goal_texts VALUES (1, 'source', 1, 'x')"), "");
  lastWrittenLongAgo();
  const auto before = version();
  failToLoad();
  waitForTheFirstPause();
  EXPECT_EQ(version(), before);
}

TEST_F(StoreVersionTest, ChangesWhenAnotherProgramHasChangedAClosedStore) {
  const auto before = version();
  failToLoad();
  GoalStore::open(file).import({goal("g1", "Changed")});
  lastWrittenLongAgo();
  waitForTheFirstPause();
  EXPECT_NE(version(), before);
}

TEST_F(StoreVersionTest, ChangesWhenAnotherProgramHasWrittenOnlyTheLog) {
  const auto before = version();
  RawDatabase other(file);
  ASSERT_EQ(other.value("SELECT count(*) FROM goals"), "1");  // keeps the log when others close
  failToLoad();
  GoalStore::open(file).import({goal("g1", "Changed")});
  waitForTheFirstPause();
  EXPECT_NE(version(), before);
}

TEST_F(StoreVersionTest, ChangesAlsoWhenTheTimeOfTheFileIsTheSame) {
  fs::last_write_time(file, fs::file_time_type::clock::now());
  const auto before = version();
  failToLoad();
  waitForTheFirstPause();
  EXPECT_NE(version(), before);
}

TEST_F(StoreVersionTest, ChangesWhenAStoreReopenedByAnotherCallIsChanged) {
  for (const bool looksBefore : {true, false}) {
    const auto before = version();
    failToLoad();
    EXPECT_EQ(task::wait(engine.goals()).size(), 1u) << "other calls open the store at once";
    if (looksBefore) {
      EXPECT_EQ(version(), before);
    }
    GoalStore::open(file).import({goal("g1", "Changed")});
    EXPECT_NE(version(), before) << looksBefore;
    lastWrittenLongAgo();
    version();  // notes the time
  }
}

TEST_F(StoreVersionTest, AStoreThatKeepsFailingIsOpenedAtGrowingIntervals) {
  version();
  failToLoad();
  const SystemCallFault fault(Call::read, EIO, "", SystemCallFault::always);
  int openings = 0;
  std::string last;
  const auto start = std::chrono::steady_clock::now();
  while (std::chrono::steady_clock::now() - start < 2200ms) {
    const int before = fault.count();
    const std::string error = errorOf([&] { version(); });
    if (fault.count() > before) ++openings;
    if (openings > 0) {
      EXPECT_EQ(error, file + ": cannot be read: Input/output error") << "in the pause too";
    }
    std::this_thread::sleep_for(20ms);
  }
  EXPECT_EQ(openings, 2) << "after half a second, and a second later";
}

TEST_F(StoreVersionTest, AStoreThatCanBeReadAgainIsReadAgain) {
  const auto before = version();
  failToLoad();
  waitForTheFirstPause();
  failToLoad();
  EXPECT_EQ(task::wait(engine.goals()).size(), 1u);
  EXPECT_EQ(version(), before);
}

}  // namespace
}  // namespace vemra::desk
