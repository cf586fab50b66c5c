// Waiting outcomes and their journal: when an outcome is in it, and what happens without it.

#include "apps/desk/window/WaitingOutcomes.hpp"
#include "tests/apps/TemporaryFolder.hpp"
#include "tests/apps/desk/RawDatabase.hpp"
#include "tests/apps/desk/store/AtCommit.hpp"
#include "tests/apps/desk/store/FileCalls.hpp"
#include "tests/apps/desk/window/Becomes.hpp"
#include "tests/apps/desk/window/WaitingAtStore.hpp"

#include <chrono>
#include <fcntl.h>
#include <filesystem>
#include <string>
#include <sys/file.h>
#include <thread>
#include <unistd.h>

#include <QElapsedTimer>
#include <gmock/gmock.h>

namespace vemra::desk {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

class WaitingJournalTest : public WaitingAtStore {};

TEST_F(WaitingJournalTest, AnOutcomeIsInTheJournalBeforeItIsTried) {
  std::string atCommit;
  const AtCommit watch([&] {
    if (atCommit.empty()) atCommit = TemporaryFolder::readFile(journal.file());
    return 0;
  });
  start();
  // Writing the journal takes a while, so that a try that does not wait for it comes first.
  const int slow = ::open(journal.file().c_str(), O_RDWR | O_CREAT, 0600);
  ASSERT_EQ(::flock(slow, LOCK_EX), 0);
  std::thread unlocking([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(80));
    ::close(slow);
  });
  add("a");
  unlocking.join();
  ASSERT_TRUE(isDone());
  EXPECT_THAT(atCommit, HasSubstr("note of a"));
  EXPECT_FALSE(fs::exists(journal.file()));
  EXPECT_THAT(recorded(), ElementsAre("a"));
}

TEST_F(WaitingJournalTest, AnOutcomeThatIsStoredWithinFiftyMillisecondsIsNotSyncedInTheJournal) {
  start();
  int inTime = 0;
  for (int i = 0; i < 40; ++i) {
    const int before = FileCalls::syncs();
    QElapsedTimer sinceSaving;
    sinceSaving.start();
    add("a" + std::to_string(i));
    ASSERT_TRUE(isDone());
    if (sinceSaving.elapsed() >= 50) continue;  // a busy machine
    ++inTime;
    EXPECT_EQ(FileCalls::syncs(), before) << "the outcome " << i;
  }
  EXPECT_GT(inTime, 0);
}

TEST_F(WaitingJournalTest, AnOutcomeThatIsStoredAtOnceWaitsForTheDiskOnce) {
  start();
  add("the first one of a program begins the log of the store");
  ASSERT_TRUE(isDone());
  int inTime = 0;
  for (int i = 0; i < 40; ++i) {
    const int before = FileCalls::syncs() + FileCalls::dataSyncs();
    QElapsedTimer sinceSaving;
    sinceSaving.start();
    add("a" + std::to_string(i));
    ASSERT_TRUE(isDone());
    if (sinceSaving.elapsed() >= 50) continue;  // a busy machine
    ++inTime;
    EXPECT_EQ(FileCalls::syncs() + FileCalls::dataSyncs(), before + 1) << "the outcome " << i;
  }
  EXPECT_GT(inTime, 0);
}

TEST_F(WaitingJournalTest, LaterOutcomesDoNotPostponeTheSyncOfAnEarlierOne) {
  start(std::chrono::seconds(20));
  RawDatabase other(file);
  ASSERT_EQ(other.run("BEGIN IMMEDIATE"), "");
  const int before = FileCalls::syncs();
  for (int i = 0; i < 40; ++i) {
    add("a" + std::to_string(i));
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
    QCoreApplication::processEvents();
  }
  EXPECT_GT(FileCalls::syncs(), before);
  ASSERT_EQ(other.run("ROLLBACK"), "");
  ASSERT_TRUE(isDone());
}

TEST_F(WaitingJournalTest, AnOutcomeWhoseTryFailsIsSyncedInTheJournalBeforeItIsShown) {
  start();
  RawDatabase other(file);
  ASSERT_EQ(other.run("BEGIN IMMEDIATE"), "");
  const int before = FileCalls::syncs();
  int whenShown = before;
  QObject::connect(waiting.get(), &WaitingOutcomes::changed, [&] {
    if (whenShown == before && !waiting->notes().empty()) whenShown = FileCalls::syncs();
  });
  add("a");
  ASSERT_TRUE(becomes([&] { return !waiting->notes().empty(); }));
  EXPECT_GT(whenShown, before);
  ASSERT_EQ(other.run("ROLLBACK"), "");
  ASSERT_TRUE(isDone());
}

TEST_F(WaitingJournalTest, AnOutcomeWhoseTryTakesLongIsSyncedInTheJournalMeanwhile) {
  start(std::chrono::seconds(20));
  RawDatabase other(file);
  ASSERT_EQ(other.run("BEGIN IMMEDIATE"), "");
  const int before = FileCalls::syncs();
  add("a");
  EXPECT_TRUE(becomes([&] { return FileCalls::syncs() > before; }));
  EXPECT_TRUE(hasNotFailed());
  ASSERT_EQ(other.run("ROLLBACK"), "");
  ASSERT_TRUE(isDone());
}

TEST_F(WaitingJournalTest, AnOutcomeOfAPreviousProgramIsSyncedInTheJournalMeanwhile) {
  journal.add(entry("a"), JournalFile::Sync::later);
  RawDatabase other(file);
  ASSERT_EQ(other.run("BEGIN IMMEDIATE"), "");
  start(std::chrono::seconds(20));
  const int before = FileCalls::syncs();
  EXPECT_TRUE(becomes([&] { return FileCalls::syncs() > before; }));
  EXPECT_TRUE(hasNotFailed());
  ASSERT_EQ(other.run("ROLLBACK"), "");
  ASSERT_TRUE(isDone());
}

TEST_F(WaitingJournalTest, AJournalThatAnotherProgramHasLockedIsSyncedAfterAPause) {
  start(std::chrono::seconds(20));
  RawDatabase other(file);
  ASSERT_EQ(other.run("BEGIN IMMEDIATE"), "");
  add("a");
  const int locked = ::open(journal.file().c_str(), O_RDWR);
  ASSERT_EQ(::flock(locked, LOCK_EX), 0);
  EXPECT_FALSE(waiting->readJournal());
  int changes = 0;
  QObject::connect(waiting.get(), &WaitingOutcomes::changed, [&] { ++changes; });
  QElapsedTimer sinceLock;
  sinceLock.start();
  while (sinceLock.elapsed() < 1'100) {
    QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  EXPECT_LE(changes, 3) << "a note, and two tries of 200 ms with a pause between them";
  const int before = FileCalls::syncs();
  ::close(locked);
  EXPECT_TRUE(becomes([&] { return FileCalls::syncs() > before; }));
  ASSERT_EQ(other.run("ROLLBACK"), "");
  ASSERT_TRUE(isDone());
}

TEST_F(WaitingJournalTest, AnOutcomeThatCannotBeSyncedInTheJournalIsMarkedAndWrittenAgain) {
  start();
  RawDatabase other(file);
  ASSERT_EQ(other.run("BEGIN IMMEDIATE"), "");
  FileCalls::fail(FileCalls::Call::fsync, EIO);
  add("a");
  const auto isMarked = [&] {
    const auto notes = waiting->notes();
    return !notes.empty() && !notes[0].unkept.isEmpty();
  };
  EXPECT_TRUE(becomes(isMarked));
  FileCalls::succeed();
  EXPECT_TRUE(becomes([&] { return !isMarked(); }));
  EXPECT_EQ(journal.read().size(), 1U);
  ASSERT_EQ(other.run("ROLLBACK"), "");
  ASSERT_TRUE(isDone());
  EXPECT_THAT(recorded(), ElementsAre("a"));
}

TEST_F(WaitingJournalTest, ADamagedJournalIsReportedAndStaysAndOutcomesAreRecordedWithoutIt) {
  damageJournal();
  start();
  EXPECT_THAT(failure, HasSubstr(journal.file() + ": line 1: "));
  add("a");
  ASSERT_TRUE(isDone());
  EXPECT_THAT(recorded(), ElementsAre("a"));
  EXPECT_EQ(TemporaryFolder::readFile(journal.file()), "not ours\n");
}

TEST_F(WaitingJournalTest, AnOutcomeThatIsNotInTheJournalIsMarked) {
  damageJournal();
  start();
  RawDatabase other(file);
  ASSERT_EQ(other.run("BEGIN IMMEDIATE"), "");
  add("a");
  ASSERT_TRUE(becomes([&] { return waiting->notes().size() == 1; }));
  EXPECT_THAT(waiting->notes()[0].unkept.toStdString(), HasSubstr("line 1: "));
  ASSERT_EQ(other.run("ROLLBACK"), "");
  EXPECT_TRUE(isDone());
}

TEST_F(WaitingJournalTest, ASyncWithoutAJournalLeavesTheOutcomesMarked) {
  start();
  engine->finish();  // it has opened the store, so it makes no new one where the store is missing
  RawDatabase other(file);
  ASSERT_EQ(other.run("BEGIN IMMEDIATE"), "");
  add("a");  // not on the disk yet
  fs::rename(file, file + ".away");
  fs::rename(journal.file(), folder.file("journal.away"));
  EXPECT_TRUE(waiting->readJournal());
  waiting->syncJournal();
  ASSERT_EQ(waiting->notes().size(), 1u);
  EXPECT_EQ(waiting->notes()[0].unkept, "The journal is not there.");
}

TEST_F(WaitingJournalTest, AnOutcomeThatTheJournalRefusedIsWrittenToItAgain) {
  damageJournal();
  start();
  add("a", "gone");
  ASSERT_TRUE(waitsWith("has no goal"));
  fs::remove(journal.file());
  waiting->tryInTheirStore();
  ASSERT_EQ(waiting->notes().size(), 1u);
  EXPECT_EQ(waiting->notes()[0].unkept, "");
  EXPECT_EQ(journal.read().size(), 1u);
}

TEST_F(WaitingJournalTest, AnOutcomeThatIsNotInTheJournalIsReportedAtOnce) {
  damageJournal();
  start();
  add("a");
  EXPECT_EQ(waiting->notes().size(), 1u);
  EXPECT_TRUE(isDone());
}

TEST_F(WaitingJournalTest, AJournalThatIsLockedAtTheStartIsReadLater) {
  journal.add(entry("a"));
  const int other = ::open(journal.file().c_str(), O_RDWR);
  ASSERT_EQ(::flock(other, LOCK_EX), 0);
  start();
  EXPECT_TRUE(waiting->isEmpty());
  EXPECT_EQ(failure, "") << "another program is using it";
  ::close(other);
  EXPECT_TRUE(becomes([&] { return recorded().size() == 1; }));
  EXPECT_TRUE(isDone());
}

}  // namespace
}  // namespace vemra::desk
