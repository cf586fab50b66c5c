#include "apps/desk/store/FileIdentity.hpp"
#include "apps/desk/store/GoalStore.hpp"
#include "apps/desk/window/WaitingOutcomes.hpp"
#include "tests/Allocations.hpp"
#include "tests/apps/TemporaryFolder.hpp"
#include "tests/apps/desk/RawDatabase.hpp"
#include "tests/apps/desk/SampleResults.hpp"
#include "tests/apps/desk/store/AtCommit.hpp"
#include "tests/apps/desk/store/FileCalls.hpp"
#include "tests/apps/desk/window/Becomes.hpp"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdint>
#include <fcntl.h>
#include <filesystem>
#include <memory>
#include <new>
#include <string>
#include <sys/file.h>
#include <thread>
#include <unistd.h>
#include <vector>

#include <QElapsedTimer>
#include <gmock/gmock.h>

namespace vemra::desk {
namespace {

namespace fs = std::filesystem;
using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

/// A store, its journal, and the waiting outcomes of a program.
class WaitingOutcomesTest : public ::testing::Test {
 protected:
  WaitingOutcomesTest() { GoalStore::open(file).import({goal("g1", "One"), goal("g2", "Two")}); }
  ~WaitingOutcomesTest() override { stop(); }

  void start(Patience patience = std::chrono::milliseconds(50)) {
    engine = std::make_shared<StoreEngine>(file, patience);
    waiting = std::make_unique<WaitingOutcomes>(engine, journal);
    QObject::connect(waiting.get(), &WaitingOutcomes::journalFailed,
                     [this](const QString& reason) { failure = reason.toStdString(); });
    waiting->start();
  }
  /// The program is killed; only the files on the disk remain.
  void stop() {
    waiting.reset();
    if (engine) engine->finish();
    engine.reset();
  }

  WaitingOutcome entry(const std::string& id, const std::string& goalID = "g1") const {
    return {id,
            fileMarkAt(file),
            "2025-01-05T10:00:00Z",
            goalID,
            "Title of " + goalID,
            "Ada",
            GoalOutcomeRecordingInput{GoalOutcomeSubjectKind::person, "p1",
                                      GoalOutcomeValue::helped, "note of " + id, std::nullopt}};
  }
  void add(const std::string& id, const std::string& goalID = "g1") const {
    waiting->add(entry(id, goalID), engine->storeNumber());
  }
  std::vector<std::string> recorded(const std::string& goalID = "g1") const {
    std::vector<std::string> ids;
    for (const auto& each : GoalStore::open(file).outcomes(goalID)) ids.push_back(each.id);
    return ids;
  }
  void replaceStore(const std::string& goalID) const {
    const std::string other = folder.file("other.sqlite");
    GoalStore::open(other).import({goal(goalID, "Of another store")});
    fs::rename(other, file);
  }
  void damageJournal() const {
    folder.write("goals.sqlite-waiting", "not ours\n");
    fs::permissions(journal.file(), fs::perms::owner_read | fs::perms::owner_write);
  }
  bool waitsWith(const std::string& reason) const {
    return becomes([&] {
      const auto notes = waiting->notes();
      return !notes.empty() && notes[0].reason.toStdString().find(reason) != std::string::npos;
    });
  }
  /// Discards the outcome "a", which could be stored nowhere, and expects no trace of it.
  void expectDiscardLeavesTheJournal() {
    ASSERT_TRUE(waitsWith("has no goal"));
    EXPECT_NE(waiting->notes()[0].unkept, "");
    FileCalls::succeed();
    waiting->discard({"a"});
    EXPECT_TRUE(waiting->isEmpty());
    EXPECT_TRUE(journal.read().empty());
  }
  /// Each outcome is in its first try.
  bool hasNotFailed() const {
    const auto notes = waiting->notes();
    return std::ranges::all_of(notes, [](const auto& note) { return note.reason.isEmpty(); });
  }
  bool isDone() const {
    return becomes([&] { return waiting->isEmpty(); });
  }

  TemporaryFolder folder;
  std::string file = folder.file("goals.sqlite");
  OutcomeJournal journal{file, std::chrono::milliseconds(200)};
  std::shared_ptr<StoreEngine> engine;
  std::unique_ptr<WaitingOutcomes> waiting;
  std::string failure;
};

TEST_F(WaitingOutcomesTest, AnOutcomeIsInTheJournalBeforeItIsTried) {
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

TEST_F(WaitingOutcomesTest, AnOutcomeThatIsStoredWithinFiftyMillisecondsIsNotSyncedInTheJournal) {
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

TEST_F(WaitingOutcomesTest, LaterOutcomesDoNotPostponeTheSyncOfAnEarlierOne) {
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

TEST_F(WaitingOutcomesTest, AnOutcomeWhoseTryFailsIsSyncedInTheJournalBeforeItIsShown) {
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

TEST_F(WaitingOutcomesTest, AnOutcomeWhoseTryTakesLongIsSyncedInTheJournalMeanwhile) {
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

TEST_F(WaitingOutcomesTest, AnOutcomeOfAPreviousProgramIsSyncedInTheJournalMeanwhile) {
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

TEST_F(WaitingOutcomesTest, AJournalThatAnotherProgramHasLockedIsSyncedAfterAPause) {
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

TEST_F(WaitingOutcomesTest, AnOutcomeThatCannotBeSyncedInTheJournalIsMarkedAndWrittenAgain) {
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

TEST_F(WaitingOutcomesTest, TheDateIsThatOfSavingAndNotOfTheSuccessfulTry) {
  journal.add(entry("a"));
  start();
  ASSERT_TRUE(isDone());
  EXPECT_EQ(GoalStore::open(file).outcomes("g1")[0].recordedAt, "2025-01-05T10:00:00Z");
}

TEST_F(WaitingOutcomesTest, AStoreThatIsLockedIsTriedAgainByItselfInTheOrderOfTheOutcomes) {
  start();
  RawDatabase other(file);
  ASSERT_EQ(other.run("BEGIN IMMEDIATE"), "");
  for (const char* id : {"a", "b", "c"}) add(id);
  ASSERT_TRUE(becomes([&] { return waiting->notes().size() == 3; }));
  EXPECT_THAT(waiting->notes()[0].reason.toStdString(), HasSubstr("is in use by another program"));
  EXPECT_EQ(waiting->notes()[0].outcome, "Helped");
  EXPECT_EQ(waiting->notes()[0].goalTitle, "Title of g1");
  EXPECT_EQ(waiting->notes()[0].unkept, "");
  EXPECT_FALSE(waiting->notes()[0].needsDecision);
  ASSERT_EQ(other.run("ROLLBACK"), "");
  ASSERT_TRUE(isDone());
  EXPECT_THAT(recorded(), ElementsAre("a", "b", "c"));
}

TEST_F(WaitingOutcomesTest, TheNextProgramRecordsTheOutcomesThatThePreviousOneCouldNot) {
  start();
  {
    RawDatabase other(file);
    ASSERT_EQ(other.run("BEGIN IMMEDIATE"), "");
    add("a");
    add("b", "g2");
    ASSERT_TRUE(becomes([&] { return waiting->notes().size() == 2; }));
    stop();
    ASSERT_EQ(other.run("ROLLBACK"), "");
  }
  EXPECT_THAT(recorded(), IsEmpty());
  start();
  ASSERT_TRUE(isDone());
  EXPECT_THAT(recorded("g1"), ElementsAre("a"));
  EXPECT_THAT(recorded("g2"), ElementsAre("b"));
  EXPECT_FALSE(fs::exists(journal.file()));
}

TEST_F(WaitingOutcomesTest, AnOutcomeInTheStoreAndStillInTheJournalIsRecordedOnce) {
  journal.add(entry("a"));
  GoalStore::open(file).record("g1", entry("a").input, "a");
  start();
  ASSERT_TRUE(isDone());
  EXPECT_THAT(recorded(), ElementsAre("a"));
  EXPECT_FALSE(fs::exists(journal.file()));
}

TEST_F(WaitingOutcomesTest, TwoProgramsOnOneJournalRecordEachOutcomeOnce) {
  for (int i = 0; i < 10; ++i) journal.add(entry("o" + std::to_string(i)));
  const auto otherEngine = std::make_shared<StoreEngine>(file);
  {
    WaitingOutcomes other(otherEngine, journal);
    other.start();
    start();
    EXPECT_TRUE(becomes([&] { return waiting->isEmpty() && other.isEmpty(); }));
  }
  otherEngine->finish();
  EXPECT_EQ(recorded().size(), 10u);
  EXPECT_FALSE(fs::exists(journal.file()));
}

TEST_F(WaitingOutcomesTest, AnOutcomeOfAnUnknownGoalWaitsAndDelaysNoOtherGoal) {
  start();
  add("a", "gone");
  add("b", "gone");
  add("c", "g2");
  ASSERT_TRUE(becomes([&] { return recorded("g2").size() == 1 && waiting->notes().size() == 2; }));
  EXPECT_THAT(waiting->notes()[0].reason.toStdString(), HasSubstr("has no goal with the id"));
  GoalStore::open(file).import({goal("gone", "Back")});
  waiting->tryAgain();
  ASSERT_TRUE(isDone());
  EXPECT_THAT(recorded("gone"), ElementsAre("a", "b"));
}

TEST_F(WaitingOutcomesTest, ALaterOutcomeOfTheSameGoalNeverOvertakesOneThatIsRefused) {
  GoalStore::open(file).record("g2", entry("a", "g2").input, "a");  // the id is taken
  start();
  add("a");
  add("b");
  ASSERT_TRUE(becomes([&] { return waiting->notes().size() == 2; }));
  EXPECT_THAT(waiting->notes()[0].reason.toStdString(), HasSubstr("has another outcome of the id"));
  waiting->tryInTheirStore();
  add("c", "g2");
  ASSERT_TRUE(becomes([&] { return recorded("g2").size() == 2; }));
  EXPECT_THAT(recorded("g1"), IsEmpty());
}

TEST_F(WaitingOutcomesTest, ADamagedJournalIsReportedAndStaysAndOutcomesAreRecordedWithoutIt) {
  damageJournal();
  start();
  EXPECT_THAT(failure, HasSubstr(journal.file() + ": line 1: "));
  add("a");
  ASSERT_TRUE(isDone());
  EXPECT_THAT(recorded(), ElementsAre("a"));
  EXPECT_EQ(TemporaryFolder::readFile(journal.file()), "not ours\n");
}

TEST_F(WaitingOutcomesTest, AnOutcomeThatIsNotInTheJournalIsMarked) {
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

TEST_F(WaitingOutcomesTest, ADiscardedOutcomeStaysDiscardedInTheNextProgram) {
  start();
  add("a", "gone");
  ASSERT_TRUE(waitsWith("has no goal"));
  waiting->discard({"a"});
  EXPECT_TRUE(waiting->isEmpty());
  EXPECT_FALSE(fs::exists(journal.file()));
}

TEST_F(WaitingOutcomesTest, ADiscardedOutcomeThatCouldNotBeSyncedLeavesTheJournalToo) {
  start();
  FileCalls::fail(FileCalls::Call::fsync, EIO);
  add("a", "gone");
  expectDiscardLeavesTheJournal();
}

TEST_F(WaitingOutcomesTest, AnOutcomeOfAPreviousProgramThatCouldNotBeSyncedLeavesTheJournalToo) {
  journal.add(entry("a", "gone"), JournalFile::Sync::later);
  FileCalls::fail(FileCalls::Call::fsync, EIO);
  start();
  expectDiscardLeavesTheJournal();
}

TEST_F(WaitingOutcomesTest, OnlyTheNamedOutcomesAreDiscarded) {
  start();
  add("a", "gone");
  add("b", "gone");
  ASSERT_TRUE(waitsWith("has no goal"));
  ASSERT_TRUE(becomes([&] { return waiting->notes().size() == 2; }));
  waiting->discard({"a"});
  ASSERT_EQ(waiting->notes().size(), 1u);
  EXPECT_EQ(waiting->notes()[0].id, "b");
  ASSERT_EQ(journal.read().size(), 1u);
  EXPECT_EQ(journal.read()[0].id, "b");
}

TEST_F(WaitingOutcomesTest, AnOutcomeThatCannotBeRemovedFromTheJournalStaysWithTheReason) {
  start();
  add("a", "gone");
  ASSERT_TRUE(waitsWith("has no goal"));
  damageJournal();
  waiting->discard({"a"});
  ASSERT_EQ(waiting->notes().size(), 1u);
  EXPECT_THAT(waiting->notes()[0].reason.toStdString(),
              AllOf(HasSubstr("It could not be discarded."), HasSubstr("line 1: ")));
}

TEST_F(WaitingOutcomesTest, AnOutcomeBeingTriedIsDiscardedAfterTheTryHasFailed) {
  start();
  RawDatabase other(file);
  ASSERT_EQ(other.run("BEGIN IMMEDIATE"), "");
  add("a");
  waiting->discard({"a"});
  EXPECT_FALSE(waiting->isEmpty()) << "the try may still succeed";
  EXPECT_TRUE(isDone());
  ASSERT_EQ(other.run("ROLLBACK"), "");
  EXPECT_FALSE(fs::exists(journal.file()));
  stop();
  EXPECT_THAT(recorded(), IsEmpty());
}

TEST_F(WaitingOutcomesTest, AnOutcomeDiscardedDuringItsTryHoldsNoLaterOneBack) {
  GoalStore::open(file).record("g2", entry("a", "g2").input, "a");  // the id is taken
  start();
  add("a");
  add("b");
  ASSERT_TRUE(becomes([&] { return waiting->notes().size() == 2; }));
  ASSERT_THAT(recorded(), IsEmpty());
  waiting->tryInTheirStore();
  waiting->discard({"a"});
  EXPECT_TRUE(isDone());
  EXPECT_THAT(recorded(), ElementsAre("b"));
}

TEST_F(WaitingOutcomesTest, AnOutcomeDiscardedDuringItsTryLeavesTheJournalAndTheNotesAtOnce) {
  start();
  {
    RawDatabase other(file);
    ASSERT_EQ(other.run("BEGIN IMMEDIATE"), "");
    add("a");
    waiting->discard({"a"});
    EXPECT_FALSE(fs::exists(journal.file()));
    std::this_thread::sleep_for(std::chrono::milliseconds(260));  // it would be shown by now
    EXPECT_THAT(waiting->notes(), IsEmpty());
    EXPECT_TRUE(waiting->readJournal());
    EXPECT_FALSE(fs::exists(journal.file())) << "written again";
    EXPECT_THAT(waiting->takeUnkept(), IsEmpty());
    EXPECT_FALSE(waiting->isEmpty()) << "the try may still succeed";
    stop();
    ASSERT_EQ(other.run("ROLLBACK"), "");
  }
  start();
  EXPECT_TRUE(waiting->isEmpty());
  EXPECT_THAT(recorded(), IsEmpty());
}

TEST_F(WaitingOutcomesTest, AnOutcomeDiscardedByAnotherProgramIsNoLongerTriedHere) {
  start();
  add("a", "gone");
  ASSERT_TRUE(waitsWith("has no goal"));
  const auto otherEngine = std::make_shared<StoreEngine>(file);
  {
    WaitingOutcomes other(otherEngine, journal);
    other.start();
    ASSERT_TRUE(becomes([&] { return !other.notes().empty() && other.notes()[0].reason != ""; }));
    other.discard({"a"});
  }
  otherEngine->finish();
  GoalStore::open(file).import({goal("gone", "Back")});
  waiting->tryInTheirStore();
  EXPECT_TRUE(waiting->isEmpty());
  stop();
  EXPECT_THAT(recorded("gone"), IsEmpty());
}

TEST_F(WaitingOutcomesTest, WhileTheDiskOfTheStoreIsMissingNoOutcomeIsDropped) {
  start();
  add("a", "gone");
  ASSERT_TRUE(waitsWith("has no goal"));
  fs::rename(file, file + ".away");
  fs::rename(journal.file(), folder.file("journal.away"));
  waiting->readJournal();
  ASSERT_EQ(waiting->notes().size(), 1u);
  EXPECT_EQ(waiting->notes()[0].unkept, "The journal is not there.");
  fs::rename(file + ".away", file);
  fs::rename(folder.file("journal.away"), journal.file());
  waiting->readJournal();
  ASSERT_EQ(waiting->notes().size(), 1u);
  EXPECT_EQ(waiting->notes()[0].unkept, "");
}

TEST_F(WaitingOutcomesTest, WhileTheDiskOfTheStoreIsMissingNoOutcomeIsDiscarded) {
  start();
  add("a", "gone");
  ASSERT_TRUE(waitsWith("has no goal"));
  fs::rename(file, file + ".away");
  fs::rename(journal.file(), folder.file("journal.away"));
  waiting->discard({"a"});
  ASSERT_EQ(waiting->notes().size(), 1u) << "the journal on the disk would bring it back";
  EXPECT_EQ(waiting->notes()[0].reason, "It could not be discarded. The journal is not there.");
  fs::rename(file + ".away", file);
  fs::rename(folder.file("journal.away"), journal.file());
  waiting->discard({"a"});
  EXPECT_TRUE(waiting->isEmpty());
  EXPECT_FALSE(fs::exists(journal.file()));
}

TEST_F(WaitingOutcomesTest, ASyncWithoutAJournalLeavesTheOutcomesMarked) {
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

TEST_F(WaitingOutcomesTest, AnOutcomeThatTheJournalRefusedIsWrittenToItAgain) {
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

TEST_F(WaitingOutcomesTest, AnOutcomeThatIsNotInTheJournalIsReportedAtOnce) {
  damageJournal();
  start();
  add("a");
  EXPECT_EQ(waiting->notes().size(), 1u);
  EXPECT_TRUE(isDone());
}

TEST_F(WaitingOutcomesTest, AJournalThatIsLockedAtTheStartIsReadLater) {
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

TEST_F(WaitingOutcomesTest, ATryThatCannotBeStartedStopsNoLaterOne) {
  start();
  add("a", "gone");
  ASSERT_TRUE(waitsWith("has no goal"));
  for (std::uint64_t granted = 0; granted < 150; ++granted) {
    vemra::testing::refuseAllocationAfter(granted);
    try {
      waiting->tryInTheirStore();
    } catch (const std::bad_alloc&) {
    }
    vemra::testing::refuseNoAllocation();
    engine->finish();
    QCoreApplication::processEvents();  // the try, if there was one, has ended without success
  }
  GoalStore::open(file).import({goal("gone", "Back")});
  waiting->tryInTheirStore();
  EXPECT_TRUE(isDone());
  EXPECT_THAT(recorded("gone"), ElementsAre("a"));
}

TEST_F(WaitingOutcomesTest, NothingIsRecordedInAStoreThatReplacedTheShownStore) {
  start();
  waiting->add(entry("a"), engine->storeNumber() + 1);
  ASSERT_TRUE(waitsWith("was replaced by another file"));
  int tries = 0;
  QObject::connect(waiting.get(), &WaitingOutcomes::changed, [&] { ++tries; });
  waiting->tryInTheirStore();
  ASSERT_TRUE(becomes([&] { return tries > 0; }));
  EXPECT_FALSE(waiting->isEmpty());
  EXPECT_THAT(recorded(), IsEmpty());
  waiting->tryAgain();
  ASSERT_TRUE(isDone());
  EXPECT_THAT(recorded(), ElementsAre("a"));
}

TEST_F(WaitingOutcomesTest, AnOutcomeOfAReplacedStoreDelaysNoneOfTheNewStore) {
  start();
  WaitingOutcome ofOther = entry("a");
  ofOther.store = "inode 1";
  RawDatabase other(file);
  ASSERT_EQ(other.run("BEGIN IMMEDIATE"), "");  // both are in one pass
  waiting->add(ofOther, std::nullopt);
  add("b");
  ASSERT_EQ(other.run("ROLLBACK"), "");
  ASSERT_TRUE(becomes([&] { return recorded().size() == 1; }));
  EXPECT_THAT(recorded(), ElementsAre("b"));
  EXPECT_TRUE(waitsWith("is not the store that the outcome was saved in"));
}

TEST_F(WaitingOutcomesTest, AfterARestartNoOutcomeIsRecordedInAnotherStoreUnasked) {
  journal.add(entry("a"));
  replaceStore("g1");
  start();
  ASSERT_TRUE(waitsWith("is not the store that the outcome was saved in"));
  EXPECT_THAT(recorded(), IsEmpty());
  waiting->tryAgain();
  ASSERT_TRUE(isDone());
  EXPECT_THAT(recorded(), ElementsAre("a"));
}

TEST_F(WaitingOutcomesTest, TryingAgainReachesAStoreThatCameAMomentAgo) {
  start();
  add("a", "gone");
  ASSERT_TRUE(waitsWith("has no goal"));
  EXPECT_TRUE(waiting->notes()[0].needsDecision);
  replaceStore("gone");  // the engine has the previous one open
  waiting->tryAgain();
  engine->finish();
  QCoreApplication::processEvents();
  EXPECT_TRUE(waiting->isEmpty());
  EXPECT_THAT(recorded("gone"), ElementsAre("a"));
}

TEST_F(WaitingOutcomesTest, TryingAgainAppliesToThePresentStoreOnly) {
  journal.add(entry("a", "gone"));
  replaceStore("g1");
  start();
  ASSERT_TRUE(waitsWith("is not the store that the outcome was saved in"));
  waiting->tryAgain();
  ASSERT_TRUE(waitsWith("has no goal"));
  replaceStore("gone");
  waiting->tryInTheirStore();
  ASSERT_TRUE(waitsWith("was replaced by another file"));
  waiting->tryInTheirStore();  // now the third store is open
  engine->finish();
  QCoreApplication::processEvents();
  EXPECT_THAT(recorded("gone"), IsEmpty());
  EXPECT_TRUE(waitsWith("was replaced by another file"));
}

}  // namespace
}  // namespace vemra::desk
