#include "apps/desk/store/GoalStore.hpp"
#include "tests/apps/desk/RawDatabase.hpp"
#include "tests/apps/desk/SampleResults.hpp"
#include "tests/apps/desk/store/AtCommit.hpp"
#include "tests/apps/desk/store/ErrorOf.hpp"
#include "tests/apps/desk/store/StoreFile.hpp"
#include "tests/apps/desk/store/SystemCallFault.hpp"

#include <cerrno>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

namespace vemra::desk {
namespace {

/// A store of version 1, as a program of that version leaves it.
class UpgradeTest : public StoreFile {
 protected:
  UpgradeTest() { makeStore(); }

  void makeStore() const {
    RawDatabase raw(file);
    EXPECT_EQ(raw.run(TemporaryFolder::readFile(VEMRA_STORE_OF_VERSION_1)), "");
    EXPECT_EQ(raw.run("PRAGMA journal_mode = WAL"), "");
  }
  std::string version() const { return RawDatabase(file).value("PRAGMA user_version"); }
  /// A store of either version has all that belongs to it.
  void expectWhole() const {
    EXPECT_EQ(GoalStore::openExisting(file)->result("g").outcomes[0].id, "o1");
    EXPECT_EQ(RawDatabase(file).value("PRAGMA integrity_check"), "ok");
  }
  static GoalOutcomeRecordingInput input() {
    return {GoalOutcomeSubjectKind::person, "p1", GoalOutcomeValue::helped, {}, {}};
  }
};

TEST_F(UpgradeTest, AStoreThatAnotherProgramWritesIsOpenedAndUpgradedLater) {
  RawDatabase other(file);
  ASSERT_EQ(other.run("BEGIN IMMEDIATE"), "");
  GoalStore store = GoalStore::open(file, Patience(50));
  GoalStore reopened = GoalStore::reopen(file, Patience(50));
  EXPECT_EQ(store.shownResult("g").outcomes.size(), 1u);
  EXPECT_EQ(version(), "1");
  ASSERT_EQ(other.run("ROLLBACK"), "");
  store.record("g", input());
  EXPECT_EQ(version(), "1");

  GoalStore::open(file);
  EXPECT_EQ(version(), "2");
  for (GoalStore* each : {&store, &reopened}) {
    each->record("g", input());
    EXPECT_EQ(each->result("g"), GoalStore::openExisting(file)->result("g"));
  }
  expectWhole();
}

TEST_F(UpgradeTest, AStoreOnAFullDiskIsOpenedAndUpgradedLater) {
  {
    const SystemCallFault fault(SystemCallFault::Call::write, ENOSPC, "goals.sqlite-wal",
                                SystemCallFault::always);
    GoalStore store = GoalStore::open(file);
    EXPECT_GT(fault.count(), 0);
    EXPECT_EQ(store.shownResult("g").outcomes.size(), 1u);
    EXPECT_EQ(errorOf([&] { store.record("g", input()); }),
              file + ": cannot be changed: the disk is full");
  }
  EXPECT_EQ(version(), "1");
  GoalStore::open(file);
  EXPECT_EQ(version(), "2");
}

TEST_F(UpgradeTest, AnUpgradeThatFailsAtItsEndLeavesAWholeStoreOfVersion1) {
  for (const int error : {EIO, ENOSPC, EDQUOT}) {
    {
      const SystemCallFault fault(SystemCallFault::Call::write, error, "goals.sqlite-wal", 1);
      GoalStore store = GoalStore::open(file);
      EXPECT_EQ(fault.count(), 1);
      EXPECT_EQ(store.shownResult("g").outcomes.size(), 1u);
    }
    EXPECT_EQ(version(), "1");
    EXPECT_EQ(RawDatabase(file).value("SELECT count(*) FROM sqlite_schema WHERE name LIKE "
                                      "'stamp_%' OR name = 'result_stamps'"),
              "0");
    expectWhole();
  }
}

TEST_F(UpgradeTest, ProgramsThatUpgradeAtOnceAllSucceed) {
  for (int round = 0; round < 10; ++round) {
    std::vector<std::string> errors(4);
    std::vector<std::thread> programs;
    for (std::string& error : errors) {
      programs.emplace_back([&] { error = errorOf([&] { GoalStore::open(file); }); });
    }
    for (std::thread& program : programs) program.join();
    EXPECT_EQ(errors, std::vector<std::string>(4, "no error"));
    EXPECT_EQ(version(), "2");
    EXPECT_EQ(RawDatabase(file).value("SELECT count(*) FROM result_stamps"), "1");
    expectWhole();
    for (const char* suffix : {"", "-wal", "-shm"}) std::filesystem::remove(file + suffix);
    makeStore();
  }
}

TEST_F(UpgradeTest, AReaderGoesOnWhileAnotherProgramUpgrades) {
  GoalStore reader = *GoalStore::openExisting(file);
  const GetGoalSnapshotResponse before = reader.result("g");
  int commits = 0;
  {
    const AtCommit watch([&] {
      ++commits;
      EXPECT_EQ(reader.result("g"), before) << "during the upgrade";
      return 0;
    });
    RawDatabase inside(file);
    ASSERT_EQ(inside.run("BEGIN"), "");
    ASSERT_EQ(inside.value("PRAGMA user_version"), "1");
    GoalStore::open(file);
    EXPECT_EQ(inside.value("PRAGMA user_version"), "1");
    EXPECT_EQ(inside.value("SELECT count(*) FROM outcomes"), "1");
  }
  EXPECT_GT(commits, 0);
  EXPECT_EQ(version(), "2");
  EXPECT_EQ(reader.result("g"), before);
  EXPECT_EQ(reader.shownResult("g"), before);
}

}  // namespace
}  // namespace vemra::desk
