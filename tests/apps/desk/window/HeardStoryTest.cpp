#include "apps/desk/window/MenuBar.hpp"
#include "apps/documents/ResultWriter.hpp"
#include "tests/apps/desk/RawDatabase.hpp"
#include "tests/apps/desk/window/HeardAlerts.hpp"
#include "tests/apps/desk/window/OpenDesk.hpp"

#include <gmock/gmock.h>

namespace vemra::desk {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A window that assistive technology reads: without a display, Qt's accessibility is never active.
class HeardWindow final : public DeskWindow {
 public:
  using DeskWindow::DeskWindow;

 private:
  bool isHeard() const override { return true; }
};

/// The notifications that a screen reader reads while a person uses the window.
class HeardStoryTest : public OpenDesk {
 protected:
  HeardStoryTest() { GoalStore::open(file).import({goal("g1", "One")}); }

  std::unique_ptr<DeskWindow> makeWindow(std::optional<std::string> goalID) override {
    return std::make_unique<HeardWindow>(engine, std::move(goalID));
  }

  /// Opens the window; afterwards another program keeps the store to itself until its ROLLBACK.
  void openWhileStoreIsKept() {
    patience = Patience(20);
    open();
    ASSERT_NE(wait<QAbstractButton>("vemra.goal.person.p1.outcome.start"), nullptr);
    other = std::make_unique<RawDatabase>(file);
    other->run("BEGIN IMMEDIATE");
  }

  void record() {
    press("vemra.goal.person.p1.outcome.start");
    press("vemra.goal.person.p1.outcome.save");
  }

  /// Whether that many notifications have appeared, and no more follow.
  bool hears(std::size_t count) {
    const bool isComplete = becomes([&] { return alerts.heard.size() >= count; });
    pass(900);
    return isComplete && alerts.heard.size() == count;
  }

  std::unique_ptr<RawDatabase> other;  ///< the other program's connection
  HeardAlerts alerts;
};

/// A window notices a wait of 250 ms. A busy machine may take longer to store an outcome, so the rule
/// is checked with the first outcome that it stores in time.
TEST_F(HeardStoryTest, AnOutcomeThatIsStoredAtOnceIsAnnouncedByNoNotification) {
  constexpr int people = 6;
  auto wide = goal("g1", "One");
  std::vector<GoalPersonCandidateDTO> candidates{wide.people[0]};
  for (int i = 2; i <= people; ++i) {
    candidates.push_back(build::person("p" + std::to_string(i), "Bo"));
  }
  wide.people = std::move(candidates);
  GoalStore::open(file).import({wide});
  open();
  for (int i = 1; i <= people; ++i) {
    const std::string prefix = "vemra.goal.person.p" + std::to_string(i) + ".outcome.";
    ASSERT_NE(wait<QAbstractButton>(prefix + "start"), nullptr);
    press(prefix + "start");
    alerts.take();
    QElapsedTimer sinceSave;
    sinceSave.start();
    press(prefix + "save");
    ASSERT_NE(wait<QAbstractButton>(prefix + "correct"), nullptr);
    const bool isInTime = sinceSave.elapsed() < 250;
    pass(900);
    if (!isInTime) continue;
    EXPECT_THAT(alerts.take(), IsEmpty());
    return;
  }
  GTEST_SKIP() << "this machine stores no outcome within 250 ms now";
}

TEST_F(HeardStoryTest, AnOutcomeThatWaitsIsAnnouncedOnceItsReasonOnceAndItsStoringOnce) {
  openWhileStoreIsKept();
  record();
  ASSERT_TRUE(becomes([&] { return find<QWidget>("desk.waiting") != nullptr; }));
  pass(2500);  // several tries fail for the same reason
  const std::vector<std::string> waiting = alerts.take();
  std::size_t outcomes = 0, reasons = 0;
  for (const std::string& one : waiting) {
    if (one.find("“Was useful” for Ada (One)") != std::string::npos) ++outcomes;
    if (one.find("is in use") != std::string::npos) ++reasons;
  }
  EXPECT_EQ(outcomes, 1u);
  EXPECT_EQ(reasons, 1u);
  other->run("ROLLBACK");
  EXPECT_TRUE(hears(1));
  EXPECT_THAT(alerts.take(), ElementsAre("Stored: “Was useful” for Ada (One)"));
}

TEST_F(HeardStoryTest, ChangesOfAnotherProgramAreAnnouncedTogetherAndOnce) {
  open();
  ASSERT_NE(wait<QAbstractButton>("vemra.goal.person.p1.outcome.start"), nullptr);
  pass(600);
  EXPECT_THAT(alerts.take(), IsEmpty()) << "the first goals are not announced";
  auto changed = goal("g1", "One");
  changed.people = {changed.people[0], build::person("p2", "Bo")};
  GoalStore::open(file).import({changed, goal("g2", "Two"), goal("g3", "Three")});
  EXPECT_TRUE(hears(1));
  EXPECT_THAT(alerts.take(), ElementsAre("New goals: Two, Three. New in this goal: Bo."));
}

TEST_F(HeardStoryTest, AnOutcomeOfAnotherProgramIsAnnouncedOnceAndOneOfThisWindowIsNot) {
  open();
  record();
  ASSERT_NE(wait<QAbstractButton>("vemra.goal.person.p1.outcome.correct"), nullptr);
  pass(600);
  alerts.take();
  GoalStore::open(file).import(
      {goal("g1", "One", {outcome("o7", "p1", GoalOutcomeValue::helped)})});
  EXPECT_TRUE(hears(1));
  EXPECT_THAT(alerts.take(), ElementsAre("Recorded by another program: “Helped” for Ada."));
}

TEST_F(HeardStoryTest, AnOutcomeThatAnotherProgramTakesOutOfTheJournalIsAnnouncedIfItIsStored) {
  openWhileStoreIsKept();
  record();
  ASSERT_TRUE(becomes([&] { return find<QWidget>("desk.waiting") != nullptr; }));
  const OutcomeJournal journal(file, std::chrono::milliseconds(200));
  const std::vector<WaitingOutcome> waiting = journal.read();
  ASSERT_EQ(waiting.size(), 1u);
  pass(600);
  alerts.take();
  other->run("ROLLBACK");
  GoalStore::open(file).record(waiting[0].goalID, waiting[0].input, waiting[0].id,
                               waiting[0].savedAt);
  journal.settle(waiting[0].id);
  EXPECT_TRUE(hears(1));
  EXPECT_THAT(alerts.take(), ElementsAre("Stored: “Was useful” for Ada (One)"));
}

TEST_F(HeardStoryTest, OutcomesThatAnotherProgramTakesOneAfterAnotherAreNeverItsOwn) {
  openWhileStoreIsKept();
  for (int i = 0; i < 3; ++i) record();
  const OutcomeJournal journal(file, std::chrono::milliseconds(200));
  ASSERT_TRUE(becomes([&] { return journal.read().size() == 3; }));
  const std::vector<WaitingOutcome> waiting = journal.read();
  pass(2500);  // the window tries again in a second
  alerts.take();
  other->run("ROLLBACK");
  GoalStore store = GoalStore::open(file);
  for (const WaitingOutcome& one : waiting) {
    store.record(one.goalID, one.input, one.id, one.savedAt);
  }
  ASSERT_TRUE(becomes([&] { return find<QWidget>("desk.waiting") == nullptr; }));
  pass(1500);
  std::string heard;
  for (const std::string& one : alerts.take()) heard += one + '\n';
  std::size_t stored = 0;
  for (std::size_t at = 0; (at = heard.find("Stored: ", at)) != std::string::npos; ++at) ++stored;
  EXPECT_EQ(stored, 3u) << heard;
  EXPECT_EQ(heard.find("Recorded by another program"), std::string::npos) << heard;
}

TEST_F(HeardStoryTest, AnOutcomeThatAnotherProgramDiscardsIsNotAnnouncedAsStored) {
  openWhileStoreIsKept();
  record();
  ASSERT_TRUE(becomes([&] { return find<QWidget>("desk.waiting") != nullptr; }));
  const OutcomeJournal journal(file, std::chrono::milliseconds(200));
  const std::vector<WaitingOutcome> waiting = journal.read();
  ASSERT_EQ(waiting.size(), 1u);
  pass(600);
  alerts.take();
  journal.settle(waiting[0].id);
  ASSERT_TRUE(becomes([&] { return find<QWidget>("desk.waiting") == nullptr; }));
  other->run("ROLLBACK");
  pass(900);
  EXPECT_THAT(alerts.take(), IsEmpty());
}

TEST_F(HeardStoryTest, ANewTextSizeIsAnnounced) {
  open();
  ASSERT_NE(wait<QAbstractButton>("vemra.goal.person.p1.outcome.start"), nullptr);
  alerts.take();
  auto* menus = window->findChild<MenuBar*>();
  Q_EMIT menus->largerTextWanted();
  EXPECT_TRUE(hears(1));
  EXPECT_THAT(alerts.take(), ElementsAre("Text size: 110 %"));
  Q_EMIT menus->usualTextWanted();
  EXPECT_TRUE(hears(1));
  EXPECT_THAT(alerts.take(), ElementsAre("Text size: 100 %"));
}

TEST_F(HeardStoryTest, AnImportOfThisWindowIsAnnouncedByItsNoticeAlone) {
  open();
  ASSERT_NE(wait<QAbstractButton>("vemra.goal.person.p1.outcome.start"), nullptr);
  alerts.take();
  const std::string document = folder.write("new.json", documents::writeResult(goal("g2", "Two")));
  window->importDocuments({QString::fromStdString(document)});
  EXPECT_TRUE(hears(1));
  EXPECT_THAT(alerts.take(), ElementsAre("Documents imported: 1."));
}

}  // namespace
}  // namespace vemra::desk
