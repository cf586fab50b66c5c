// The whole goal screen in real widgets: positions, actions, and the state that is kept.

#include "tests/VemraQt/WindowHost.hpp"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <gmock/gmock.h>

using namespace vemra;
using namespace vemra::qttest;
using ::testing::ElementsAre;

namespace {

const std::string p0 = "vemra.goal.person.p0";
const std::string p1 = "vemra.goal.person.p1";

Result onePerson(std::string name) {
  Result result = resultWith(1);
  GoalPersonCandidateDTO person = result.people.front();
  person.displayName = std::move(name);
  result.people = {person};
  return result;
}

}  // namespace

TEST(WholeScreen, IsInTreeOrderFromTopToBottom) {
  WindowHost host(resultWith(2));
  EXPECT_THAT(
      host.visibleTexts(),
      ElementsAre("Find a design lead", "People worth considering", "Person Number 0",
                  "Email: Asked about design leads in March", "Show source", "Record outcome",
                  "Person Number 1", "Connected through 1 shared relationship", "Record outcome",
                  "Supported path", "Connected through 1 shared relationship", "See in Starfold",
                  "Record outcome",
                  "Based on 12 piece(s) of evidence from Mail, Calendar, through Jan 5, 2025."));
}

TEST(WholeScreen, ButtonsCallTheHost) {
  WindowHost host(resultWith(2));
  host.press(p0 + ".show-source");
  host.press("vemra.goal.path.see-in-starfold");
  for (auto* button : host.widget.viewport()->findChildren<QPushButton*>()) {
    if (button->text() == "Person Number 1") button->click();
  }
  EXPECT_THAT(host.log, ElementsAre("evidence ev0", "focus", "open p1"));
}

TEST(WholeScreen, RecordingAndCorrecting) {
  WindowHost host(resultWith(2));
  host.press(p0 + ".outcome.start");
  auto& picker = host.get<QComboBox>(p0 + ".outcome.picker");
  EXPECT_EQ(picker.currentText(), "Was useful");
  EXPECT_EQ(picker.count(), 8);
  picker.setFocus();
  QTest::keyClick(&picker, Qt::Key_Down);
  EXPECT_EQ(picker.currentText(), "Not a fit");
  auto& note = host.get<QLineEdit>(p0 + ".outcome.note");
  note.setFocus();
  QTest::keyClicks(&note, " met at the fair ");
  QTest::keyClick(&note, Qt::Key_Return);
  EXPECT_TRUE(host.log.empty()) << "Return saves nothing";
  host.press(p0 + ".outcome.save");
  EXPECT_THAT(host.log, ElementsAre("record p0 notAFit met at the fair nil"));
  host.press(p0 + ".outcome.correct");
  EXPECT_EQ(host.get<QComboBox>(p0 + ".outcome.picker").currentText(), "Not a fit");
  EXPECT_EQ(host.get<QLineEdit>(p0 + ".outcome.note").text(), "met at the fair");
  host.press(p0 + ".outcome.save");
  EXPECT_EQ(host.log.back(), "record p0 notAFit met at the fair o1");
  EXPECT_TRUE(host.get<QLabel>(p0 + ".outcome.corrected-marker").isVisible());
}

TEST(WholeScreen, TypingCursorAndFocusSurviveASnapshotBetweenTwoKeys) {
  WindowHost host(resultWith(30));
  host.press(p1 + ".outcome.start");
  auto& note = host.get<QLineEdit>(p1 + ".outcome.note");
  note.setFocus();
  QTest::keyClicks(&note, "hello world");
  for (int i = 0; i < 5; ++i) QTest::keyClick(&note, Qt::Key_Left);
  QTest::keyClick(&note, Qt::Key_Left, Qt::ShiftModifier);
  EXPECT_EQ(note.selectedText(), " ");
  const int y = note.y();
  host.change([](Result& result) {
    std::vector<GoalPersonCandidateDTO> people(result.people.begin(), result.people.end());
    GoalPersonCandidateDTO fresh;
    fresh.personRef = "fresh";
    people.insert(people.begin(), fresh);
    std::swap(people[1], people[3]);
    result.people = people;
    result.goal.title = "Another title";
  });
  EXPECT_EQ(&host.get<QLineEdit>(p1 + ".outcome.note"), &note) << "the same native field";
  EXPECT_TRUE(note.hasFocus());
  EXPECT_EQ(note.selectedText(), " ");
  EXPECT_EQ(note.y(), y) << "the field in use stays in place";
  QTest::keyClicks(&note, "_");
  EXPECT_EQ(note.text(), "hello_world");
  host.press(p1 + ".outcome.save");
  EXPECT_EQ(host.log.back(), "record p1 wasUseful hello_world nil");
}

TEST(WholeScreen, NamesAreShownLiterally) {
  for (const char* name : {"<b>Ada</b>", "A && B & C", "&Ada", "a\nb", "<script>", "\tTab"}) {
    WindowHost host(onePerson(name));
    bool found = false;
    for (auto* button : host.widget.viewport()->findChildren<QPushButton*>()) {
      QString shown = button->text();
      found = found || shown.replace("&&", "&") == name;
      EXPECT_TRUE(button->shortcut().isEmpty()) << name;
    }
    EXPECT_TRUE(found) << name;
  }
  Result result = resultWith(1);
  result.goal.title = "<img src=x> & <i>you</i>";
  WindowHost host(result);
  EXPECT_EQ(host.visibleTexts().front(), result.goal.title);
  for (auto* label : host.widget.viewport()->findChildren<QLabel*>()) {
    EXPECT_EQ(label->textFormat(), Qt::PlainText);
    EXPECT_TRUE(label->toolTip().isEmpty());
  }
}

TEST(WholeScreen, VeryLongNamesWrapAndThePageNeverScrollsSideways) {
  WindowHost host(onePerson(std::string(100'000, 'w')), QSize(320, 600));
  for (auto* child : host.widget.viewport()->findChildren<QWidget*>()) {
    if (!child->isVisible()) continue;
    EXPECT_LE(child->geometry().right(), host.widget.viewport()->width())
        << qPrintable(child->objectName());
  }
  EXPECT_GT(host.widget.contentHeight(), 40'000);
  EXPECT_FALSE(host.widget.horizontalScrollBar()->isVisible());
}

TEST(WholeScreen, ALongOrBrokenNoteSurvivesCorrectAndSave) {
  for (const std::string& note :
       {std::string(100'000, 'n'), std::string("one\ntwo\r\nthree\u2028four")}) {
    WindowHost host(resultWith(1));
    host.change([&](Result& result) {
      GoalOutcomeDTO outcome;
      outcome.id = "o1";
      outcome.subjectRef = "p0";
      outcome.note = note;
      result.outcomes = {outcome};
    });
    host.press(p0 + ".outcome.correct");
    EXPECT_EQ(host.get<QLineEdit>(p0 + ".outcome.note").text().toStdString(), note);
    host.press(p0 + ".outcome.save");
    EXPECT_EQ(host.log.back(), "record p0 reachedOut " + note + " o1");
  }
}

TEST(WholeScreen, AnEditInABrokenNoteKeepsTheOtherLines) {
  WindowHost host(resultWith(1));
  host.change([&](Result& result) {
    GoalOutcomeDTO outcome;
    outcome.id = "o1";
    outcome.subjectRef = "p0";
    outcome.note = "one\ntwo";
    result.outcomes = {outcome};
  });
  host.press(p0 + ".outcome.correct");
  auto& note = host.get<QLineEdit>(p0 + ".outcome.note");
  note.setFocus();
  QTest::keyClick(&note, Qt::Key_End);
  QTest::keyClicks(&note, "!");
  QTest::keyClick(&note, Qt::Key_Z, Qt::ControlModifier);
  QTest::keyClick(&note, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  host.press(p0 + ".outcome.save");
  EXPECT_EQ(host.log.back(), "record p0 reachedOut one\ntwo! o1");
}

TEST(WholeScreen, TheWheelScrollsThePageAndNeverChangesAChoice) {
  WindowHost host(resultWith(40));
  host.press(p0 + ".outcome.start");
  auto& picker = host.get<QComboBox>(p0 + ".outcome.picker");
  picker.setFocus();
  const int before = host.widget.verticalScrollBar()->value();
  wheel(picker, -1);
  EXPECT_EQ(picker.currentText(), "Was useful");
  EXPECT_GT(host.widget.verticalScrollBar()->value(), before);
}

TEST(WholeScreen, ARowThatIsRemovedUnderItsOpenMenuClosesTheMenu) {
  WindowHost host(resultWith(2));
  host.press(p0 + ".outcome.start");
  host.get<QComboBox>(p0 + ".outcome.picker").showPopup();
  ASSERT_NE(QApplication::activePopupWidget(), nullptr);
  host.change([](Result& result) { result.people = {}; });
  EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST(WholeScreen, SaveRecordsOnceWhenItIsPressedSeveralTimes) {
  WindowHost host(resultWith(1));
  host.press(p0 + ".outcome.start");
  auto& save = host.get<QPushButton>(p0 + ".outcome.save");
  QTest::mouseClick(&save, Qt::LeftButton);
  save.click();
  save.click();
  EXPECT_EQ(host.log.size(), 1u);
}
