#include "VemraPlatform/task/Start.hpp"
#include "apps/desk/store/StoreEngine.hpp"
#include "tests/apps/Repeated.hpp"
#include "tests/apps/desk/RawDatabase.hpp"
#include "tests/apps/desk/SampleResults.hpp"
#include "tests/apps/desk/store/ErrorOf.hpp"
#include "tests/apps/desk/store/StoreFile.hpp"
#include "tests/apps/desk/store/SystemCallFault.hpp"

#include <cerrno>
#include <chrono>

#include <gtest/gtest.h>

namespace vemra::desk {
namespace {
using Call = SystemCallFault::Call;

/// A store on a machine on which a system call fails. For each cause: the message names it, nothing
/// is half done, and when the cause is over everything works again.
class FailingSystemTest : public StoreFile {
 protected:
  FailingSystemTest() { GoalStore::open(file).import({goal("g1", "One")}); }

  static GoalOutcomeRecordingInput input() {
    return {GoalOutcomeSubjectKind::person, "p1", GoalOutcomeValue::helped, "note", {}};
  }
  void record() { task::wait(engine.record("g1", input())); }
  std::size_t recorded() const { return GoalStore::open(file).outcomes("g1").size(); }

  StoreEngine engine{file, Patience(300)};
};

TEST_F(FailingSystemTest, AStoreThatCouldOnceBeOpenedForReadingOnlyIsWrittenLater) {
  {
    const SystemCallFault fault(Call::openForWriting, EMFILE, "goals.sqlite", 1);
    EXPECT_EQ(errorOf([&] { record(); }),
              file + ": cannot be opened for writing: Too many open files");
    EXPECT_EQ(fault.count(), 1);
  }
  record();
  EXPECT_EQ(recorded(), 1u);
}

TEST_F(FailingSystemTest, ALogThatCouldOnceNotBeMadeIsMadeLater) {
  {
    const SystemCallFault fault(Call::openForWriting, EMFILE, "goals.sqlite-wal", 1);
    EXPECT_EQ(errorOf([&] { record(); }), file + ": cannot be opened: its log cannot be made");
    EXPECT_EQ(fault.count(), 1);
  }
  record();
  EXPECT_EQ(recorded(), 1u);
}

TEST_F(FailingSystemTest, ALogThatCouldOnceBeOpenedForReadingOnlyIsWrittenLater) {
  const GoalStore other = GoalStore::open(file);
  {
    const SystemCallFault fault(Call::openForWriting, EMFILE, "goals.sqlite-wal", 1);
    EXPECT_EQ(errorOf([&] { record(); }), file + ": is read-only");
    EXPECT_EQ(fault.count(), 1);
  }
  record();
  EXPECT_EQ(recorded(), 1u);
}

TEST_F(FailingSystemTest, TooManyOpenFilesAreNamed) {
  for (const char* name : {"goals.sqlite", "goals.sqlite-wal", "goals.sqlite-shm"}) {
    const SystemCallFault fault(Call::open, EMFILE, name, SystemCallFault::always);
    EXPECT_EQ(errorOf([&] { record(); }), file + ": cannot be opened: Too many open files") << name;
    EXPECT_GT(fault.count(), 0) << name;
  }
  record();
  EXPECT_EQ(recorded(), 1u);
}

TEST_F(FailingSystemTest, ADiskThatCannotBeReadIsNotReportedAsDamage) {
  {
    const SystemCallFault fault(Call::read, EIO, "goals.sqlite", SystemCallFault::always);
    EXPECT_EQ(errorOf([&] { task::wait(engine.goals()); }),
              file + ": cannot be read: Input/output error");
    EXPECT_GT(fault.count(), 0);
  }
  EXPECT_EQ(task::wait(engine.goals()).size(), 1u);
}

TEST_F(FailingSystemTest, ADiskThatCannotBeReadUnderAnOpenStoreIsNotReportedAsDamage) {
  GoalStore::open(file).import({goal("g2", repeated("long ", 100'000))});
  task::wait(engine.goals());
  GoalStore::open(file).import({goal("g1", "Changed")});
  {
    const SystemCallFault fault(Call::read, EIO, "", SystemCallFault::always);
    EXPECT_EQ(errorOf([&] { task::wait(engine.goals()); }),
              file + ": cannot be read: Input/output error");
    EXPECT_GT(fault.count(), 0);
  }
  EXPECT_EQ(task::wait(engine.goals()).size(), 2u);
}

// SQLite reports a file that it cannot read as damaged. A damaged store would keep its connection.
TEST_F(FailingSystemTest, ADiskThatCannotBeReadIsAFailureOfTheConnection) {
  GoalStore::open(file).import({goal("g2", repeated("long ", 100'000))});
  GoalStore store = GoalStore::open(file);
  GoalStore::open(file).import({goal("g1", "Changed")});
  const SystemCallFault fault(Call::read, EIO, "", SystemCallFault::always);
  EXPECT_THROW(store.goals(), StoreFailure);
  EXPECT_GT(fault.count(), 0);
}

TEST_F(FailingSystemTest, ADiskThatCannotBeWrittenIsNamed) {
  task::wait(engine.goals());
  const std::pair<int, const char*> causes[] = {{EIO, "cannot be written: Input/output error"},
                                                {EDQUOT, "cannot be written: Disk quota exceeded"},
                                                {EFBIG, "cannot be written: File too large"},
                                                {ENOSPC, "cannot be changed: the disk is full"}};
  for (const auto& [error, problem] : causes) {
    const SystemCallFault fault(Call::write, error, "goals.sqlite-wal", SystemCallFault::always);
    EXPECT_EQ(errorOf([&] { record(); }), file + ": " + problem);
    EXPECT_GT(fault.count(), 0);
  }
  record();
  EXPECT_EQ(recorded(), 1u);
}

TEST_F(FailingSystemTest, AFullDiskUnderTheSharedMemoryIsReportedAsAFullDisk) {
  {
    const SystemCallFault fault(Call::write, ENOSPC, "-shm", SystemCallFault::always);
    EXPECT_EQ(errorOf([&] { record(); }), file + ": cannot be changed: the disk is full");
    EXPECT_GT(fault.count(), 0);
  }
  record();
  EXPECT_EQ(recorded(), 1u);
}

TEST_F(FailingSystemTest, LocksThatCannotBeTakenAreNamed) {
  const SystemCallFault fault(Call::lock, EIO, "goals.sqlite", SystemCallFault::always);
  EXPECT_EQ(errorOf([&] { record(); }), file + ": cannot be locked: Input/output error");
}

// SQLite treats a lock that it could not release as held: each further call waits for it up to its
// time limit.
TEST_F(FailingSystemTest, ALockThatOnceCouldNotBeReleasedStopsOneCallAtMost) {
  record();
  {
    const SystemCallFault fault(Call::unlock, ENOLCK, "-shm", 1);
    errorOf([&] { record(); });
    EXPECT_EQ(fault.count(), 1);
  }
  errorOf([&] { record(); });
  using Clock = std::chrono::steady_clock;
  const auto start = Clock::now();
  record();
  EXPECT_LT(Clock::now() - start, std::chrono::seconds(5)) << "it waited for the lock";
}

TEST_F(FailingSystemTest, ALockThatOnceCouldNotBeTakenStopsOneCallAtMost) {
  record();
  for (int i = 1; i <= 12; ++i) {
    {
      const SystemCallFault fault(Call::lock, ENOLCK, "", i);
      errorOf([&] { record(); });
    }
    EXPECT_EQ(errorOf([&] { record(); }), "no error") << i;
  }
}

TEST_F(FailingSystemTest, AStoreThatHasBeenOpenedAnewIsStillTheSameStore) {
  record();
  {
    const SystemCallFault fault(Call::write, EIO, "goals.sqlite-wal", SystemCallFault::always);
    errorOf([&] { record(); });
  }
  record();
  EXPECT_EQ(engine.storeNumber(), 0u);
}

TEST_F(FailingSystemTest, AnErrorAboutTheContentDoesNotReopenTheStore) {
  const auto before = task::wait(engine.version());
  EXPECT_THROW(task::wait(engine.getGoalSnapshot("nope")), UnknownGoal);
  RawDatabase(file).run(
      "CREATE TRIGGER refuse BEFORE INSERT ON outcomes BEGIN SELECT RAISE(ABORT, 'no'); END");
  const auto changed = task::wait(engine.version());
  EXPECT_NE(changed, before);
  EXPECT_EQ(errorOf([&] { record(); }),
            file + ": is damaged: the trigger \"refuse\" is not part of a store");
  EXPECT_EQ(task::wait(engine.version()), changed);
}

}  // namespace
}  // namespace vemra::desk
