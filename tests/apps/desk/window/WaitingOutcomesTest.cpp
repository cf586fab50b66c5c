// Waiting outcomes and their store: the order of the tries, and a store that is replaced.

#include "VemraPlatform/task/Start.hpp"
#include "apps/desk/store/GoalStore.hpp"
#include "apps/desk/window/WaitingOutcomes.hpp"
#include "tests/Allocations.hpp"
#include "tests/apps/desk/RawDatabase.hpp"
#include "tests/apps/desk/SampleResults.hpp"
#include "tests/apps/desk/window/Becomes.hpp"
#include "tests/apps/desk/window/WaitingAtStore.hpp"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <new>
#include <optional>
#include <string>

#include <gmock/gmock.h>

namespace vemra::desk {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class WaitingOutcomesTest : public WaitingAtStore {};

TEST_F(WaitingOutcomesTest, TheDateIsThatOfSavingAndNotOfTheSuccessfulTry) {
  journal.add(entry("a"));
  start();
  ASSERT_TRUE(isDone());
  EXPECT_EQ(GoalStore::open(file).outcomes("g1")[0].recordedAt, "2025-01-05T10:00:00Z");
}

TEST_F(WaitingOutcomesTest, AnOutcomeComesWithTheResultOfItsGoal) {
  start();
  const auto shown = task::wait(engine->getGoalSnapshot("g1"));
  std::optional<GetGoalSnapshotResponse> result;
  QObject::connect(waiting.get(), &WaitingOutcomes::recorded,
                   [&](const std::string&, const TriedStore& tried) { result = tried.result; });
  add("a");
  ASSERT_TRUE(isDone());
  ASSERT_TRUE(result);
  EXPECT_TRUE(result->people.sharesStorage(shown.people));
  EXPECT_EQ(*result, task::wait(engine->getGoalSnapshot("g1")));
  result.reset();
  add("b", "g2");
  ASSERT_TRUE(isDone());
  EXPECT_FALSE(result) << "its rows have not been read";
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

TEST_F(WaitingOutcomesTest, AnOutcomeBehindOneThatNeedsADecisionNeedsItToo) {
  for (const char* id : {"a", "b"}) journal.add(entry(id, "gone"));
  start();
  ASSERT_TRUE(waitsWith("has no goal"));
  EXPECT_TRUE(becomes([&] { return waiting->notes().size() == 2; }));
  EXPECT_TRUE(waiting->notes()[1].needsDecision) << "no pass comes to it";
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
