// Closing a window with outcomes that are not stored yet.

#include "apps/desk/window/MenuBar.hpp"
#include "tests/apps/desk/RawDatabase.hpp"
#include "tests/apps/desk/store/FileCalls.hpp"
#include "tests/apps/desk/window/OpenDesk.hpp"

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <memory>
#include <thread>

#include <QFileDialog>
#include <QMessageBox>

namespace vemra::desk {
namespace {

/// A window on a store that another program has locked, with a waiting outcome.
class WaitingCloseTest : public OpenDesk {
 protected:
  WaitingCloseTest() {
    GoalStore::open(file).import({goal("a", "First")});
    patience = std::chrono::milliseconds(50);
    open("a");
    wait<QAbstractButton>(person + ".outcome.start");
    other = std::make_unique<RawDatabase>(file);
    EXPECT_EQ(other->run("BEGIN IMMEDIATE"), "");
    press(person + ".outcome.start");
    press(person + ".outcome.save");
    wait<QWidget>("desk.waiting");
  }

  void unlock() const { EXPECT_EQ(other->run("ROLLBACK"), ""); }
  std::size_t recorded() const { return GoalStore::open(file).outcomes("a").size(); }
  bool isClosed() const {
    return becomes([&] { return !window->isVisible(); });
  }

  /// Chooses a store in the dialog of the menu, as a user does.
  void choose(const std::string& store) const {
    Q_EMIT window->findChild<MenuBar*>()->openStoreWanted();
    auto* dialog = wait<QFileDialog>("desk.chooseStore");
    ASSERT_NE(dialog, nullptr);
    dialog->hide();
    Q_EMIT dialog->fileSelected(QString::fromStdString(store));
  }
  std::string otherStore() const {
    const std::string store = folder.file("other.sqlite");
    GoalStore::open(store).import({goal("o", "Other")});
    return store;
  }
  /// Adds an outcome of another store to the journal of the locked store, and opens a window on both.
  void waitWithAnOutcomeThatNeedsADecision() {
    unlock();
    ASSERT_TRUE(becomes([&] { return find<QWidget>("desk.waiting") == nullptr; }));
    close();
    OutcomeJournal(file).add(ofAnotherStore());
    open("a");
    wait<QWidget>("desk.waiting");
    ASSERT_EQ(other->run("BEGIN IMMEDIATE"), "");
    press(person + ".outcome.correct");
    press(person + ".outcome.save");
    EXPECT_TRUE(becomes([&] {
      return texts("desk.waiting").join('\n').contains("Not stored yet (2):");
    })) << texts("desk.waiting").join('\n').toStdString();
  }
  static WaitingOutcome ofAnotherStore() {
    return {"x",
            "inode 1",
            "2025-01-05T10:00:00Z",
            "a",
            "First",
            "Ada",
            GoalOutcomeRecordingInput{GoalOutcomeSubjectKind::person, "p1",
                                      GoalOutcomeValue::helped, std::nullopt, std::nullopt}};
  }
  QString titleOf(const std::string& button) const {
    auto* found = wait<QAbstractButton>(button);
    return found != nullptr ? found->text().simplified() : QString();
  }
  bool showsOther() const {
    return becomes([&] { return shows("Other", "desk.goals"); });
  }

  const std::string person = "vemra.goal.person.p1";
  std::unique_ptr<RawDatabase> other;
};

TEST_F(WaitingCloseTest, ClosingNamesTheOutcomesThatAreNotStoredAndTheirFate) {
  window->close();
  EXPECT_TRUE(window->isVisible());
  auto* question = wait<QMessageBox>("desk.question");
  ASSERT_NE(question, nullptr);
  EXPECT_EQ(question->informativeText(),
            "“Was useful” for \u2068Ada\u2069 (\u2068First\u2069)\n\nWhat is not stored yet is "
            "kept beside the store, and "
            "stored when the store is opened again.");
}

TEST_F(WaitingCloseTest, TheWindowWaitsOnRequest) {
  window->close();
  press("desk.question.wait");
  ASSERT_NE(wait<QMessageBox>("desk.wait"), nullptr);
  pass(300);
  EXPECT_TRUE(window->isVisible());
  unlock();
  EXPECT_TRUE(isClosed());
  EXPECT_EQ(recorded(), 1u);
}

TEST_F(WaitingCloseTest, ACancelledWaitLeavesTheWindowOpen) {
  window->close();
  press("desk.question.wait");
  auto* waiting = wait<QMessageBox>("desk.wait");
  ASSERT_NE(waiting, nullptr);
  waiting->button(QMessageBox::Cancel)->click();
  unlock();
  EXPECT_TRUE(becomes([&] { return find<QWidget>("desk.waiting") == nullptr; }));
  pass(100);
  EXPECT_TRUE(window->isVisible());
}

TEST_F(WaitingCloseTest, AWaitingOutcomeIsStoredWhenTheStoreIsOpenedAgain) {
  window->close();
  press("desk.question.close");
  EXPECT_TRUE(isClosed());
  close();
  EXPECT_TRUE(std::filesystem::exists(file + "-waiting"));
  EXPECT_EQ(recorded(), 0u);
  unlock();
  open("a");
  EXPECT_NE(wait<QAbstractButton>(person + ".outcome.correct"), nullptr);
  EXPECT_EQ(recorded(), 1u);
  EXPECT_TRUE(becomes([&] { return !std::filesystem::exists(file + "-waiting"); }));
}

TEST_F(WaitingCloseTest, OneQuestionIsAskedAtATime) {
  press("desk.waiting.discard");
  ASSERT_NE(wait<QMessageBox>("desk.discard"), nullptr);
  press("desk.waiting.discard");
  window->close();
  pass(50);
  EXPECT_EQ(window->findChildren<QMessageBox*>().size(), 1);
  EXPECT_TRUE(window->isVisible());
}

TEST_F(WaitingCloseTest, AnOutcomeDiscardedByAnotherProgramIsNotAskedAbout) {
  const OutcomeJournal journal(file);
  for (const WaitingOutcome& each : journal.read()) journal.settle(each.id);
  window->close();
  EXPECT_TRUE(isClosed());
}

TEST_F(WaitingCloseTest, AnotherStoreIsOpenedAfterWaitingAndTheWindowStays) {
  choose(otherStore());
  auto* question = wait<QMessageBox>("desk.question");
  ASSERT_NE(question, nullptr);
  EXPECT_EQ(question->text(), "Outcomes are not stored yet. Open the other store now?");
  press("desk.question.wait");
  auto* waiting = wait<QMessageBox>("desk.wait");
  ASSERT_NE(waiting, nullptr);
  EXPECT_EQ(waiting->text(), "The other store is opened as soon as everything is stored.");
  unlock();
  EXPECT_TRUE(showsOther());
  EXPECT_TRUE(becomes([&] { return find<QMessageBox>("desk.wait") == nullptr; }));
  EXPECT_TRUE(window->isVisible());
  EXPECT_EQ(recorded(), 1u);
}

TEST_F(WaitingCloseTest, AnotherStoreIsOpenedAtOnceOnRequest) {
  choose(otherStore());
  press("desk.question.wait");
  press("desk.wait.close");
  EXPECT_TRUE(showsOther());
  EXPECT_TRUE(window->isVisible());
  EXPECT_TRUE(std::filesystem::exists(file + "-waiting"));
}

TEST_F(WaitingCloseTest, TheStoreThatIsOpenIsOpenedAgainWithoutAQuestion) {
  unlock();
  choose(file);
  EXPECT_EQ(find<QMessageBox>("desk.question"), nullptr);
  EXPECT_TRUE(becomes([&] { return recorded() == 1; }));
}

TEST_F(WaitingCloseTest, TheStoreThatIsOpenIsTheSameThroughALinkAndARelativePath) {
  const std::string link = folder.file("link.sqlite");
  std::filesystem::create_symlink(file, link);
  for (const std::string& path : {link, std::filesystem::relative(file).string()}) {
    choose(path);
    EXPECT_EQ(find<QMessageBox>("desk.question"), nullptr) << path;
  }
  unlock();
  EXPECT_TRUE(becomes([&] { return recorded() == 1; })) << "the waiting outcome stays";
}

TEST_F(WaitingCloseTest, AnOutcomeThatNeedsADecisionIsNotSaidToBeStoredLater) {
  unlock();
  ASSERT_TRUE(becomes([&] { return find<QWidget>("desk.waiting") == nullptr; }));
  close();
  OutcomeJournal(file).add(ofAnotherStore());
  open("a");
  wait<QWidget>("desk.waiting");
  window->close();
  auto* question = wait<QMessageBox>("desk.question");
  ASSERT_NE(question, nullptr);
  EXPECT_TRUE(question->informativeText().endsWith(
      "What is not stored yet is kept beside the store, until you try again or discard it."))
      << question->informativeText().toStdString();
  EXPECT_EQ(find<QAbstractButton>("desk.question.wait"), nullptr) << "it would wait for ever";
}

TEST_F(WaitingCloseTest, TheWindowWaitsForWhatNeedsNoDecisionAndLeavesTheRestInTheJournal) {
  waitWithAnOutcomeThatNeedsADecision();
  window->close();
  press("desk.question.wait");
  auto* waiting = wait<QMessageBox>("desk.wait");
  ASSERT_NE(waiting, nullptr);
  EXPECT_EQ(waiting->text(),
            "The window closes as soon as everything is stored that does not need your decision.");
  pass(300);
  EXPECT_TRUE(window->isVisible());
  unlock();
  EXPECT_TRUE(isClosed());
  EXPECT_EQ(recorded(), 2u);
  const auto kept = OutcomeJournal(file).read();
  ASSERT_EQ(kept.size(), 1u);
  EXPECT_EQ(kept[0].id, "x");
}

TEST_F(WaitingCloseTest, AnOutcomeThatComesToNeedADecisionEndsTheWaitWithAQuestion) {
  window->close();
  press("desk.question.wait");
  ASSERT_NE(wait<QMessageBox>("desk.wait"), nullptr);
  std::filesystem::rename(otherStore(), file);
  unlock();
  auto* question = wait<QMessageBox>("desk.question");
  ASSERT_NE(question, nullptr);
  EXPECT_TRUE(question->informativeText().endsWith("until you try again or discard it."))
      << question->informativeText().toStdString();
  EXPECT_EQ(find<QAbstractButton>("desk.question.wait"), nullptr);
  EXPECT_EQ(find<QMessageBox>("desk.wait"), nullptr);
  EXPECT_TRUE(window->isVisible());
  press("desk.question.close");
  EXPECT_TRUE(isClosed());
  EXPECT_EQ(OutcomeJournal(file).read().size(), 1u);
}

TEST_F(WaitingCloseTest, WithAnOpenEditorTheWindowWaitsOnceThePersonGivesTheDraftUp) {
  press(person + ".outcome.start");
  window->close();
  auto* question = wait<QMessageBox>("desk.question");
  ASSERT_NE(question, nullptr);
  EXPECT_EQ(titleOf("desk.question.wait"), "Discard drafts and wait until stored");
  EXPECT_EQ(titleOf("desk.question.close"), "Discard drafts and close now");
  EXPECT_EQ(question->defaultButton(), question->button(QMessageBox::Cancel));
  press("desk.question.wait");
  ASSERT_NE(wait<QMessageBox>("desk.wait"), nullptr);
  pass(300);
  EXPECT_TRUE(window->isVisible());
  unlock();
  EXPECT_TRUE(isClosed());
  EXPECT_EQ(recorded(), 1u);
}

TEST_F(WaitingCloseTest, AnotherStoreIsOpenedWithoutTheDraftAndTheJournalKeepsTheOutcome) {
  press(person + ".outcome.start");
  choose(otherStore());
  EXPECT_EQ(titleOf("desk.question.wait"), "Discard drafts and wait until stored");
  EXPECT_EQ(titleOf("desk.question.close"), "Discard drafts and open now");
  press("desk.question.close");
  EXPECT_TRUE(showsOther());
  EXPECT_EQ(OutcomeJournal(file).read().size(), 1u);
}

TEST_F(WaitingCloseTest, TheEndWaitsForTheTasksOfAStoreThatWasReplaced) {
  unlock();
  ASSERT_TRUE(becomes([&] { return find<QWidget>("desk.waiting") == nullptr; }));
  close();
  patience = std::chrono::seconds(60);
  open("a");
  wait<QAbstractButton>(person + ".outcome.correct");
  ASSERT_EQ(other->run("BEGIN IMMEDIATE"), "");
  press(person + ".outcome.correct");
  press(person + ".outcome.save");
  engine.reset();
  window->open(otherStore());
  std::thread unlocking([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    unlock();
  });
  window->finish();
  EXPECT_EQ(recorded(), 2u);
  unlocking.join();
}

TEST_F(WaitingCloseTest, AnOpenEditorIsNamedInTheSameQuestion) {
  press(person + ".outcome.start");
  window->close();
  auto* question = wait<QMessageBox>("desk.question");
  ASSERT_NE(question, nullptr);
  EXPECT_EQ(question->text(), "Outcomes are still being written. Close without them?");
  EXPECT_TRUE(question->informativeText().startsWith(
      "\u2068Ada\u2069 (\u2068First\u2069)\n\nNot stored yet:\n\n“Was"))
      << question->informativeText().toStdString();
  question->button(QMessageBox::Discard)->click();
  EXPECT_TRUE(isClosed());
}

TEST_F(WaitingCloseTest, ClosingAtOnceWaitsForTheDiskAndSaysWhatItDidNotTake) {
  unlock();
  ASSERT_TRUE(becomes([&] { return find<QWidget>("desk.waiting") == nullptr; }));
  close();
  patience = std::chrono::seconds(20);
  open("a");
  wait<QAbstractButton>(person + ".outcome.correct");
  ASSERT_EQ(other->run("BEGIN IMMEDIATE"), "");
  press(person + ".outcome.correct");
  auto* save = wait<QAbstractButton>(person + ".outcome.save");
  FileCalls::fail(FileCalls::Call::fsync, EIO);
  save->click();
  window->close();
  FileCalls::succeed();
  EXPECT_TRUE(window->isVisible());
  auto* question = wait<QMessageBox>("desk.question");
  ASSERT_NE(question, nullptr);
  EXPECT_TRUE(question->informativeText().endsWith("What is not stored yet would be lost."))
      << question->informativeText().toStdString();
  unlock();
}

}  // namespace
}  // namespace vemra::desk
