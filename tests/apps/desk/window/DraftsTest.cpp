// Typed text stays with its goal while the program runs.

#include "VemraQt/ViewWidget.hpp"
#include "tests/apps/desk/window/Keys.hpp"
#include "tests/apps/desk/window/OpenDesk.hpp"

#include <string>

#include <QLineEdit>
#include <QMessageBox>
#include <QScrollBar>

namespace vemra::desk {
namespace {

class DraftsTest : public OpenDesk {
 protected:
  DraftsTest() { GoalStore::open(file).import({goal("a", "First"), goal("b", "Second")}); }

  /// Opens a goal in the list and waits for its screen.
  void openGoal(const std::string& goalID, const QString& title) const {
    press("desk.goal." + goalID);
    ASSERT_TRUE(becomes([&] { return screenShows(title); })) << title.toStdString();
  }
  bool screenShows(const QString& title) const {
    for (const auto* label : window->screen().findChildren<QLabel*>()) {
      if (label->isVisible() && label->text() == title) return true;
    }
    return false;
  }
  QLineEdit* typeNote(const QString& text) const {
    press(person + ".outcome.start");
    auto* note = wait<QLineEdit>(person + ".outcome.note");
    if (note != nullptr) note->setText(text);
    return note;
  }

  const std::string person = "vemra.goal.person.p1";
};

TEST_F(DraftsTest, ANoteIsStillThereAfterAnotherGoalWasOpen) {
  open("a");
  typeNote("half a sen");
  openGoal("b", "Second");
  EXPECT_EQ(find<QLineEdit>(person + ".outcome.note"), nullptr) << "it belongs to the first goal";
  openGoal("a", "First");
  auto* note = wait<QLineEdit>(person + ".outcome.note");
  ASSERT_NE(note, nullptr);
  EXPECT_EQ(note->text(), "half a sen");
}

TEST_F(DraftsTest, AScreenThatIsShownAgainShowsTheStoresPresentContent) {
  open("a");
  typeNote("half a sen");
  openGoal("b", "Second");
  GoalStore::open(file).import({goal("a", "Renamed")});
  ASSERT_TRUE(becomes([&] { return shows("Renamed", "desk.goals"); }));
  openGoal("a", "Renamed");
  EXPECT_EQ(wait<QLineEdit>(person + ".outcome.note")->text(), "half a sen");
}

class ClosingTest : public DraftsTest {
 protected:
  QMessageBox* question() const { return find<QMessageBox>("desk.question"); }
  void answer(QMessageBox::StandardButton button) const { question()->button(button)->click(); }
};

TEST_F(ClosingTest, AWindowWithoutOpenEditorsClosesAtOnce) {
  open("a");
  typeNote("half");
  press(person + ".outcome.cancel");
  window->close();
  EXPECT_FALSE(window->isVisible());
}

TEST_F(ClosingTest, AnOpenEditorOfAnyGoalIsAskedAboutOnceAndNamed) {
  open("a");
  typeNote("half");
  openGoal("b", "Second");
  window->close();
  EXPECT_TRUE(window->isVisible());
  ASSERT_NE(question(), nullptr);
  EXPECT_EQ(question()->informativeText(), "\u2068Ada\u2069 (\u2068First\u2069)");
  window->close();
  EXPECT_EQ(window->findChildren<QMessageBox*>().size(), 1) << "the question is already open";
}

TEST_F(ClosingTest, CancellingKeepsTheWindowAndTheTypedText) {
  open("a");
  typeNote("half");
  window->close();
  answer(QMessageBox::Cancel);
  pass(100);
  EXPECT_TRUE(window->isVisible());
  EXPECT_EQ(wait<QLineEdit>(person + ".outcome.note")->text(), "half");
  window->close();
  EXPECT_NE(question(), nullptr) << "the question is asked again";
}

TEST_F(ClosingTest, CancellingLeadsToTheEditorThatIsOpenInAnotherGoal) {
  open("a");
  typeNote("half");
  openGoal("b", "Second");
  const QWidget* second = &window->screen();
  window->close();
  answer(QMessageBox::Cancel);
  ASSERT_TRUE(becomes([&] { return &window->screen() != second; }));
  auto* note = wait<QLineEdit>(person + ".outcome.note");
  ASSERT_NE(note, nullptr);
  EXPECT_TRUE(becomes([&] { return window->focusWidget() == note; }));
}

TEST_F(ClosingTest, ClosingTheQuestionLeadsToTheEditorThatIsOpen) {
  open("a");
  auto* note = typeNote("half");
  ASSERT_NE(note, nullptr);
  window->screen().setFocus();
  window->close();
  ASSERT_NE(question(), nullptr);
  question()->close();
  EXPECT_TRUE(becomes([&] { return window->focusWidget() == note; }));
  EXPECT_TRUE(window->isVisible());
}

TEST_F(ClosingTest, CancellingWithEscapeScrollsTheOpenEditorIntoView) {
  auto many = goal("m", "Many");
  std::vector<GoalPersonCandidateDTO> people{{"p1", "Ada", {}, {}}};
  for (int i = 0; i < 60; ++i) people.push_back({"q" + std::to_string(i), "Q", {}, {}});
  many.people = people;
  GoalStore::open(file).import({many});
  open("m");
  window->resize(1000, 400);
  typeNote("half");
  QScrollBar& bar = *window->screen().verticalScrollBar();
  bar.setValue(bar.maximum());
  window->screen().setFocus();
  window->close();
  ASSERT_NE(question(), nullptr);
  pressKey(*question(), Qt::Key_Escape);
  auto* note = wait<QLineEdit>(person + ".outcome.note");
  ASSERT_NE(note, nullptr);
  EXPECT_TRUE(becomes([&] { return window->focusWidget() == note; }));
  EXPECT_FALSE(note->visibleRegion().isEmpty());
}

TEST_F(ClosingTest, CancellingLeavesTheFocusInTheEditorThatHasIt) {
  auto two = goal("t", "Two");
  two.people = {{"p1", "Ada", {}, {}}, {"p2", "Bo", {}, {}}};
  GoalStore::open(file).import({two});
  open("t");
  typeNote("half");
  press("vemra.goal.person.p2.outcome.start");
  auto* picker = wait<QWidget>("vemra.goal.person.p2.outcome.picker");
  ASSERT_NE(picker, nullptr);
  picker->setFocus();
  window->close();
  answer(QMessageBox::Cancel);
  pass(50);
  EXPECT_EQ(window->focusWidget(), picker);
}

TEST_F(ClosingTest, CancellingShowsThePageThatTheGoalsHaveReplaced) {
  open("a");
  typeNote("half");
  window->resize(360, 700);
  press("desk.goals.show");
  ASSERT_FALSE(window->screen().isVisible());
  window->close();
  answer(QMessageBox::Cancel);
  auto* note = wait<QLineEdit>(person + ".outcome.note");
  EXPECT_TRUE(becomes([&] { return window->focusWidget() == note; }));
}

TEST_F(ClosingTest, DiscardingClosesTheWindow) {
  open("a");
  typeNote("half");
  window->close();
  answer(QMessageBox::Discard);
  EXPECT_TRUE(becomes([&] { return !window->isVisible(); }));
  EXPECT_TRUE(GoalStore::open(file).outcomes("a").empty());
}

TEST_F(ClosingTest, ManyOpenEditorsAreCountedBeyondFive) {
  auto many = goal("m", "Many");
  many.people = {};
  std::vector<GoalPersonCandidateDTO> people;
  for (int i = 0; i < 7; ++i) people.push_back({"q" + std::to_string(i), "Q", {}, {}});
  many.people = people;
  GoalStore::open(file).import({many});
  open("m");
  for (int i = 0; i < 7; ++i) {
    press("vemra.goal.person.q" + std::to_string(i) + ".outcome.start");
  }
  window->close();
  ASSERT_NE(question(), nullptr);
  const QString line = QString::fromUtf8("\u2068Q\u2069 (\u2068Many\u2069)");
  EXPECT_EQ(question()->informativeText().count(line), 5);
  EXPECT_TRUE(question()->informativeText().endsWith("and 2 more"))
      << question()->informativeText().toStdString();
}

}  // namespace
}  // namespace vemra::desk
