#include "VemraPlatform/task/Start.hpp"
#include "apps/desk/store/StoreEngine.hpp"
#include "apps/desk/store/StoreError.hpp"
#include "apps/desk/store/Transaction.hpp"
#include "tests/apps/desk/RawDatabase.hpp"
#include "tests/apps/desk/SampleResults.hpp"
#include "tests/apps/desk/store/ErrorOf.hpp"
#include "tests/apps/desk/store/StoreFile.hpp"

#include <chrono>
#include <filesystem>
#include <functional>
#include <thread>

#include <gtest/gtest.h>

namespace vemra::desk {
namespace {
namespace fs = std::filesystem;

/// A store that is moved, removed or replaced while an engine has it open.
class MovedStoreTest : public StoreFile {
 protected:
  MovedStoreTest() {
    GoalStore::open(file).import({goal("g1", "One")});
    task::wait(engine.version());
  }

  static GoalOutcomeRecordingInput input(const std::string& note = "note") {
    return {GoalOutcomeSubjectKind::person, "p1", GoalOutcomeValue::helped, note, {}};
  }
  void record(const std::string& note = "note") { task::wait(engine.record("g1", input(note))); }
  std::string errorOfRecording() {
    return errorOf([&] { record(); });
  }
  static std::size_t recorded(const std::string& store) {
    return GoalStore::openExisting(store)->outcomes("g1").size();
  }

  /// Another store, whole and closed, in the same folder.
  std::string backup(const std::string& goalID = "g1") const {
    const std::string name = folder.file("backup.sqlite");
    GoalStore::open(name).import({goal(goalID, "Of the backup")});
    return name;
  }

  const std::string away = folder.file("away.sqlite");
  const std::string gone = file + ": was moved or removed while it was open";
  const std::string replaced = file + ": was replaced by another file while it was open";
  StoreEngine engine{file, Patience(300)};
};

TEST_F(MovedStoreTest, NothingIsAcknowledgedInAStoreThatIsRemoved) {
  for (const char* suffix : {"", "-wal", "-shm"}) fs::remove(file + suffix);
  EXPECT_EQ(errorOfRecording(), gone);
  EXPECT_EQ(errorOfRecording(), gone);
  EXPECT_EQ(errorOf([&] { task::wait(engine.version()); }), gone);
  EXPECT_EQ(errorOf([&] { task::wait(engine.goals()); }), gone);
  EXPECT_EQ(errorOf([&] { task::wait(engine.getGoalSnapshot("g1")); }), gone);
  EXPECT_EQ(errorOf([&] { task::wait(engine.person("p1")); }), gone);
  EXPECT_FALSE(fs::exists(file)) << "a missing store is not a new store";
}

TEST_F(MovedStoreTest, EachCallNoticesAMovedStore) {
  const std::vector<std::function<void()>> calls = {
      [&] { task::wait(engine.version()); },
      [&] { task::wait(engine.goals()); },
      [&] { task::wait(engine.getGoalSnapshot("g1")); },
      [&] { task::wait(engine.person("p1")); },
      [&] { task::wait(engine.evidence("ev9")); },
      [&] { task::wait(engine.names("g1", {"p1"})); },
      [&] { task::wait(engine.import({goal("g2", "Two")})); },
      [&] { record(); }};
  for (std::size_t i = 0; i < calls.size(); ++i) {
    task::wait(engine.version());  // open
    fs::rename(file, away);
    EXPECT_EQ(errorOf(calls[i]), gone) << i;
    fs::rename(away, file);
  }
  GoalStore store = GoalStore::open(file);
  fs::rename(file, away);
  EXPECT_EQ(errorOf([&] { store.hasGoal("g1"); }), gone);
  EXPECT_EQ(errorOf([&] { store.outcomes("g1"); }), gone);
}

TEST_F(MovedStoreTest, AcknowledgedOutcomesAreInTheMovedFile) {
  record("before");
  ASSERT_GT(fs::file_size(file + "-wal"), 0u);
  fs::rename(file, away);
  EXPECT_EQ(errorOfRecording(), gone);
  EXPECT_FALSE(fs::exists(file + "-wal")) << "the next store at this path would use it";
  EXPECT_FALSE(fs::exists(file + "-shm"));
  EXPECT_EQ(recorded(away), 1u);
}

TEST_F(MovedStoreTest, AWindowThatClosesBeforeItHasNoticedLosesNothingEither) {
  {
    GoalStore store = GoalStore::open(file);
    store.record("g1", input());
    task::wait(engine.version());
    fs::rename(file, away);
  }
  engine.finish();
  EXPECT_EQ(recorded(away), 1u);
  EXPECT_FALSE(fs::exists(file + "-wal"));
}

TEST_F(MovedStoreTest, TheNewStoreAtThePathIsReadAndContainsNothingOfTheOldStore) {
  record("of the old store");
  const auto before = task::wait(engine.version());
  EXPECT_EQ(engine.storeNumber(), 0u);
  fs::rename(backup(), file);
  EXPECT_EQ(errorOfRecording(), replaced);
  EXPECT_NE(task::wait(engine.version()), before);
  EXPECT_EQ(engine.storeNumber(), 1u);
  EXPECT_EQ(task::wait(engine.getGoalSnapshot("g1")).goal.title, "Of the backup");
  EXPECT_TRUE(task::wait(engine.getGoalSnapshot("g1")).outcomes.empty());
  engine.finish();
  EXPECT_EQ(RawDatabase(file).value("PRAGMA integrity_check"), "ok");
  EXPECT_EQ(recorded(file), 0u);
}

TEST_F(MovedStoreTest, AnOutcomeForTheOldStoreIsNotRecordedInTheNewStore) {
  const std::uint64_t shown = engine.storeNumber();
  fs::rename(backup(), file);
  auto first = engine.record("g1", input(), shown);
  auto second = engine.record("g1", input(), shown);
  EXPECT_EQ(errorOf([&] { task::wait(std::move(first)); }), replaced);
  EXPECT_EQ(errorOf([&] { task::wait(std::move(second)); }), replaced);
  EXPECT_EQ(engine.storeNumber(), shown + 1);
  task::wait(engine.record("g1", input(), engine.storeNumber()));
  EXPECT_EQ(recorded(file), 1u);
}

TEST_F(MovedStoreTest, AGoalThatTheNewStoreDoesNotHaveIsUnknown) {
  fs::rename(backup("g9"), file);
  EXPECT_EQ(errorOfRecording(), replaced);
  EXPECT_THROW(record(), UnknownGoal);
}

TEST_F(MovedStoreTest, TheSameStoreBackAtItsPathIsUsedAgain) {
  fs::rename(file, away);
  EXPECT_EQ(errorOfRecording(), gone);
  fs::rename(away, file);
  record();
  EXPECT_EQ(recorded(file), 1u);
}

// The connection is already closed, so the opening finds no file.
TEST_F(MovedStoreTest, AStoreReplacedAfterAFailureIsRecognisedAsAnotherStore) {
  RawDatabase other(file);
  ASSERT_EQ(other.run("BEGIN IMMEDIATE"), "");
  EXPECT_THROW(record(), StoreBusy);
  ASSERT_EQ(other.run("ROLLBACK"), "");
  fs::rename(file, away);
  EXPECT_EQ(errorOfRecording(), gone);
  fs::rename(away, file);
  task::wait(engine.version());
  EXPECT_EQ(engine.storeNumber(), 1u) << "a new file may have the inode of the one removed";
}

TEST_F(MovedStoreTest, AFileThatIsNoStoreYetStaysUnchanged) {
  fs::rename(file, away);
  EXPECT_EQ(errorOfRecording(), gone);
  folder.write("goals.sqlite", "");
  EXPECT_EQ(errorOfRecording(), file + ": is empty, and was a store before");
  EXPECT_EQ(folder.read("goals.sqlite"), "") << "another program may be copying a store into it";
  fs::remove(file);
  fs::rename(away, file);
  record();
}

TEST_F(MovedStoreTest, ALinkThatLeadsElsewhereNowIsAnotherStore) {
  const std::string link = folder.file("link");
  fs::create_symlink(file, link);
  StoreEngine linked(link);
  EXPECT_EQ(task::wait(linked.goals())[0].title, "One");
  const std::string other = backup();
  fs::remove(link);
  EXPECT_EQ(errorOf([&] { task::wait(linked.goals()); }),
            link + ": was moved or removed while it was open");
  fs::create_symlink(other, link);
  EXPECT_EQ(task::wait(linked.goals())[0].title, "Of the backup");
  fs::remove(link);
  fs::create_symlink(file, link);
  EXPECT_EQ(errorOf([&] { task::wait(linked.goals()); }),
            link + ": was replaced by another file while it was open");
  EXPECT_TRUE(fs::exists(file + "-wal")) << "that store has not moved; its log stays";
}

TEST_F(MovedStoreTest, NothingIsAcknowledgedIntoALogThatIsRemoved) {
  for (const char* suffix : {"-wal", "-shm"}) {
    record();
    fs::rename(file + suffix, away);
    EXPECT_EQ(errorOfRecording(), file + ": was open while the file " + file + suffix +
                                      " beside it was moved, removed or replaced");
    fs::remove(away);
    record();
  }
  engine.finish();
  EXPECT_EQ(RawDatabase(file).value("PRAGMA integrity_check"), "ok");
}

TEST_F(MovedStoreTest, AStoreMovedDuringAChangeIsNoticedBeforeTheChangeEnds) {
  Database database(file, Database::Opening::existingToWrite, Patience(300));
  database.accept();
  {
    Transaction transaction(database, Transaction::Kind::writing);
    database.run("UPDATE goals SET title = 'Changed'");
    fs::rename(file, away);
    EXPECT_EQ(errorOf([&] { transaction.commit(); }), gone);
  }
  fs::rename(away, file);
  EXPECT_EQ(task::wait(engine.goals())[0].title, "One");
}

// The transaction waits for another writer; meanwhile the store is moved.
TEST_F(MovedStoreTest, AStoreMovedWhileACallWaitsForItIsNoticed) {
  Database database(file, Database::Opening::existingToWrite, Patience(5000));
  database.accept();
  RawDatabase other(file);
  ASSERT_EQ(other.run("BEGIN IMMEDIATE"), "");
  std::thread mover([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    fs::rename(file, away);
    other.run("ROLLBACK");
  });
  EXPECT_EQ(errorOf([&] { const Transaction transaction(database, Transaction::Kind::writing); }),
            gone);
  mover.join();
  EXPECT_EQ(RawDatabase(away).run("BEGIN IMMEDIATE; ROLLBACK"), "") << "no lock is left behind";
}

TEST_F(MovedStoreTest, TwoWindowsOnAReplacedStoreDoNotDamageTheNewStore) {
  StoreEngine second(file, Patience(300));
  for (int round = 0; round < 10; ++round) {
    task::wait(engine.version());
    task::wait(second.version());
    task::wait(engine.record("g1", input()));
    task::wait(second.record("g1", input()));
    fs::rename(backup(), file);
    for (StoreEngine* each : {&engine, &second}) {
      EXPECT_EQ(errorOf([&] { task::wait(each->version()); }), replaced);
    }
    for (StoreEngine* each : {&second, &engine}) task::wait(each->record("g1", input()));
    EXPECT_EQ(recorded(file), 2u);
    EXPECT_EQ(RawDatabase(file).value("PRAGMA integrity_check"), "ok");
  }
}

}  // namespace
}  // namespace vemra::desk
