// Waiting outcomes that the user or another program discards.

#include "apps/desk/store/GoalStore.hpp"
#include "apps/desk/window/WaitingOutcomes.hpp"
#include "tests/apps/desk/RawDatabase.hpp"
#include "tests/apps/desk/SampleResults.hpp"
#include "tests/apps/desk/store/FileCalls.hpp"
#include "tests/apps/desk/window/Becomes.hpp"
#include "tests/apps/desk/window/WaitingAtStore.hpp"

#include <chrono>
#include <filesystem>
#include <memory>
#include <thread>

#include <gmock/gmock.h>

namespace vemra::desk {
namespace {

namespace fs = std::filesystem;
using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class WaitingDiscardTest : public WaitingAtStore {};

TEST_F(WaitingDiscardTest, ADiscardedOutcomeStaysDiscardedInTheNextProgram) {
  start();
  add("a", "gone");
  ASSERT_TRUE(waitsWith("has no goal"));
  waiting->discard({"a"});
  EXPECT_TRUE(waiting->isEmpty());
  EXPECT_FALSE(fs::exists(journal.file()));
}

TEST_F(WaitingDiscardTest, ADiscardedOutcomeThatCouldNotBeSyncedLeavesTheJournalToo) {
  start();
  FileCalls::fail(FileCalls::Call::fsync, EIO);
  add("a", "gone");
  expectDiscardLeavesTheJournal();
}

TEST_F(WaitingDiscardTest, AnOutcomeOfAPreviousProgramThatCouldNotBeSyncedLeavesTheJournalToo) {
  journal.add(entry("a", "gone"), JournalFile::Sync::later);
  FileCalls::fail(FileCalls::Call::fsync, EIO);
  start();
  expectDiscardLeavesTheJournal();
}

TEST_F(WaitingDiscardTest, OnlyTheNamedOutcomesAreDiscarded) {
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

TEST_F(WaitingDiscardTest, AnOutcomeThatCannotBeRemovedFromTheJournalStaysWithTheReason) {
  start();
  add("a", "gone");
  ASSERT_TRUE(waitsWith("has no goal"));
  damageJournal();
  waiting->discard({"a"});
  ASSERT_EQ(waiting->notes().size(), 1u);
  EXPECT_THAT(waiting->notes()[0].reason.toStdString(),
              AllOf(HasSubstr("It could not be discarded."), HasSubstr("line 1: ")));
}

TEST_F(WaitingDiscardTest, AnOutcomeBeingTriedIsDiscardedAfterTheTryHasFailed) {
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

TEST_F(WaitingDiscardTest, AnOutcomeDiscardedDuringItsTryHoldsNoLaterOneBack) {
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

TEST_F(WaitingDiscardTest, AnOutcomeDiscardedDuringItsTryLeavesTheJournalAndTheNotesAtOnce) {
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

TEST_F(WaitingDiscardTest, AnOutcomeDiscardedByAnotherProgramIsNoLongerTriedHere) {
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

TEST_F(WaitingDiscardTest, WhileTheDiskOfTheStoreIsMissingNoOutcomeIsDiscarded) {
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

}  // namespace
}  // namespace vemra::desk
