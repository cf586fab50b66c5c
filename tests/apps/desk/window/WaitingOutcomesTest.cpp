#include "apps/desk/store/GoalStore.hpp"
#include "apps/desk/window/WaitingOutcomes.hpp"
#include "tests/apps/TemporaryFolder.hpp"
#include "tests/apps/desk/RawDatabase.hpp"
#include "tests/apps/desk/SampleResults.hpp"
#include "tests/apps/desk/window/Becomes.hpp"

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vemra::desk {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

/// A store, its journal, and what waits for it in a program.
class WaitingOutcomesTest : public ::testing::Test {
 protected:
  WaitingOutcomesTest() { GoalStore::open(file).import({goal("g1", "One"), goal("g2", "Two")}); }
  ~WaitingOutcomesTest() override { stop(); }

  void start() {
    engine = std::make_shared<StoreEngine>(file, std::chrono::milliseconds(50));
    waiting = std::make_unique<WaitingOutcomes>(engine, journal);
    QObject::connect(waiting.get(), &WaitingOutcomes::journalFailed,
                     [this](const QString& reason) { failure = reason.toStdString(); });
    waiting->start();
  }
  /// The program ends without a word; what is on the disk is what it leaves.
  void stop() {
    waiting.reset();
    if (engine) engine->finish();
    engine.reset();
  }

  static WaitingOutcome entry(const std::string& id, const std::string& goalID = "g1") {
    return {id, goalID, "Title of " + goalID, "Ada",
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
  bool isDone() const {
    return becomes([&] { return waiting->isEmpty(); });
  }

  TemporaryFolder folder;
  std::string file = folder.file("goals.sqlite");
  OutcomeJournal journal{file};
  std::shared_ptr<StoreEngine> engine;
  std::unique_ptr<WaitingOutcomes> waiting;
  std::string failure;
};

TEST_F(WaitingOutcomesTest, AnOutcomeIsInTheJournalBeforeItIsTried) {
  start();
  add("a");
  ASSERT_EQ(journal.read().size(), 1u);
  EXPECT_EQ(journal.read()[0].input.note, "note of a");
  EXPECT_TRUE(isDone());
  EXPECT_FALSE(fs::exists(journal.file()));
  EXPECT_THAT(recorded(), ElementsAre("a"));
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
  ASSERT_EQ(other.run("ROLLBACK"), "");
  ASSERT_TRUE(isDone());
  EXPECT_THAT(recorded(), ElementsAre("a", "b", "c"));
}

TEST_F(WaitingOutcomesTest, TheNextProgramRecordsWhatTheLastOneCouldNot) {
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

TEST_F(WaitingOutcomesTest, AnOutcomeThatIsInTheStoreAndStillInTheJournalIsRecordedOnce) {
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

TEST_F(WaitingOutcomesTest, AnOutcomeOfAnUnknownGoalWaitsAndHoldsUpNoOtherGoal) {
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
  folder.write("goals.sqlite-waiting", "not ours\n");
  fs::permissions(journal.file(), fs::perms::owner_read | fs::perms::owner_write);
  start();
  EXPECT_THAT(failure, HasSubstr(journal.file() + ": line 1: "));
  add("a");
  ASSERT_TRUE(isDone());
  EXPECT_THAT(recorded(), ElementsAre("a"));
  EXPECT_EQ(TemporaryFolder::readFile(journal.file()), "not ours\n");
}

TEST_F(WaitingOutcomesTest, WhatTheJournalDoesNotHoldIsMarked) {
  folder.write("goals.sqlite-waiting", "not ours\n");
  fs::permissions(journal.file(), fs::perms::owner_read | fs::perms::owner_write);
  start();
  RawDatabase other(file);
  ASSERT_EQ(other.run("BEGIN IMMEDIATE"), "");
  add("a");
  ASSERT_TRUE(becomes([&] { return waiting->notes().size() == 1; }));
  EXPECT_THAT(waiting->notes()[0].unkept.toStdString(), HasSubstr("line 1: "));
  ASSERT_EQ(other.run("ROLLBACK"), "");
  EXPECT_TRUE(isDone());
}

TEST_F(WaitingOutcomesTest, WhatIsDiscardedIsForgottenByTheNextProgramToo) {
  start();
  add("a", "gone");
  ASSERT_TRUE(becomes([&] { return waiting->notes().size() == 1; }));
  waiting->discard();
  EXPECT_TRUE(waiting->isEmpty());
  EXPECT_FALSE(fs::exists(journal.file()));
}

TEST_F(WaitingOutcomesTest, NothingIsRecordedInAStoreThatTookThePlaceOfTheShownOne) {
  start();
  const std::uint64_t shown = engine->storeNumber();
  waiting->add(entry("a"), shown + 1);
  ASSERT_TRUE(becomes([&] { return waiting->notes().size() == 1; }));
  EXPECT_THAT(waiting->notes()[0].reason.toStdString(), HasSubstr("was replaced by another file"));
  waiting->tryInTheirStore();
  EXPECT_TRUE(becomes([&] { return !waiting->isEmpty(); }));
  EXPECT_THAT(recorded(), IsEmpty());
  waiting->tryAgain();
  ASSERT_TRUE(isDone());
  EXPECT_THAT(recorded(), ElementsAre("a"));
}

}  // namespace
}  // namespace vemra::desk
