// A long pane keeps its scroll position, selection and opened pieces when the store changes; its
// buttons are in view when a key presses them.

#include "apps/desk/window/SidePane.hpp"
#include "tests/VemraQt/ActiveWindow.hpp"
#include "tests/apps/desk/window/Keys.hpp"

#include <string>
#include <vector>

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QToolButton>
#include <gtest/gtest.h>

namespace vemra::desk {
namespace {

/// A pane with so much text that it scrolls and has a "Show more".
class LongSidePaneTest : public ::testing::Test {
 protected:
  LongSidePaneTest() {
    person.personRef = "p1";
    person.name = "Ada";
    pane.resize(290, 400);
    for (int i = 0; i < 50; ++i) {
      GoalOutcomeDTO outcome;
      outcome.note = "note " + std::to_string(i) + (i == 2 ? std::string(3000, 'w') : "");
      person.outcomes.push_back({{"g", "Goal"}, outcome});
    }
    person.goalsTowards = std::vector<GoalListing>(50, {"t", "Towards"});
    person.goalsWithPaths = std::vector<GoalListing>(50, {"w", "With a path"});
    show();
    qttest::activate(pane);
  }

  void show() {
    pane.showPerson(person);
    settle();
  }
  static void settle() {
    for (int i = 0; i < 5; ++i) QApplication::processEvents();
  }
  QPushButton& more(const QString& of, int which = 0) const {
    QList<QPushButton*> found;
    for (auto* more : pane.findChildren<QPushButton*>("desk.side.more")) {
      if (more->accessibleName() == "Show more of " + of && !more->isHidden()) found.append(more);
    }
    return *found.at(which);
  }
  int count(const QString& text) const {
    int count = 0;
    for (const auto* label : pane.findChildren<QLabel*>()) {
      if (label->text().startsWith(text)) ++count;
    }
    return count;
  }

  QLabel& label(const QString& text, int which = 0) const {
    QList<QLabel*> found;
    for (auto* label : pane.findChildren<QLabel*>()) {
      if (label->text() == text) found.append(label);
    }
    return *found.at(which);
  }
  /// The selected texts, in their order.
  QStringList selected() const {
    QStringList selected;
    for (const auto* label : pane.findChildren<QLabel*>()) {
      if (label->hasSelectedText()) selected.append(label->selectedText());
    }
    return selected;
  }
  QToolButton& close() const { return *pane.findChild<QToolButton*>("desk.side.close"); }
  bool isSeen(const QWidget& widget) const {
    const QRect place(widget.mapTo(pane.viewport(), QPoint()), widget.size());
    return pane.viewport()->rect().contains(place);
  }

  SidePane pane;
  PersonKnowledge person;
};

TEST_F(LongSidePaneTest, OpenedPiecesStayOpenWhenTheSamePersonIsShownAgain) {
  more("the goals", 1).click();  // of those with a path
  more("the outcomes").click();
  more("the text").click();
  settle();
  person.outcomes.push_back({{"g", "Goal"}, GoalOutcomeDTO()});
  person.goalsTowards.insert(person.goalsTowards.begin(), {"n", "New"});
  show();
  EXPECT_EQ(count("Towards"), 19);
  EXPECT_EQ(count("With a path"), 40);
  EXPECT_EQ(count("note"), 40);
  EXPECT_EQ(count("www"), 1) << "the second piece of the long note";
}

TEST_F(LongSidePaneTest, TheScrollPositionStaysWhenTheSamePersonIsShownAgain) {
  more("the outcomes").click();
  settle();
  QScrollBar& bar = *pane.verticalScrollBar();
  for (const int position : {bar.maximum() / 2, bar.maximum()}) {
    bar.setValue(position);
    pane.showPerson(person);
    EXPECT_EQ(bar.value(), position) << "at once";
    settle();
    EXPECT_EQ(bar.value(), position);
  }
}

TEST_F(LongSidePaneTest, TheFocusStaysWhenTheSamePersonIsShownAgain) {
  more("the outcomes").setFocus();
  show();
  EXPECT_EQ(pane.focusWidget(), &more("the outcomes"));
  close().setFocus();
  show();
  EXPECT_EQ(pane.focusWidget(), &close());
}

TEST_F(LongSidePaneTest, AnotherPersonOrAPaneOpenedAgainBeginsAtItsTop) {
  more("the outcomes").click();
  settle();
  pane.verticalScrollBar()->setValue(500);
  person.personRef = "p2";
  show();
  EXPECT_EQ(count("note"), 20);
  EXPECT_EQ(pane.verticalScrollBar()->value(), 0);
  more("the outcomes").click();
  pane.hide();
  show();
  EXPECT_EQ(count("note"), 20);
}

TEST_F(LongSidePaneTest, SelectedTextsStaySelectedWhenTheSamePersonIsShownAgain) {
  more("the outcomes").click();
  settle();
  label("note 7").setSelection(2, 3);
  label("note 25").setSelection(0, 7);
  label("note 25").setFocus();
  person.outcomes.insert(person.outcomes.begin() + 3, {{"g", "Goal"}, GoalOutcomeDTO()});
  person.goalsTowards.push_back({"n", "New"});
  show();
  EXPECT_EQ(label("note 7").selectedText(), "te ");
  EXPECT_EQ(label("note 25").selectedText(), "note 25");
  EXPECT_EQ(selected().size(), 2);
  EXPECT_EQ(pane.focusWidget(), &label("note 25")) << "so that it can be copied";
}

TEST_F(LongSidePaneTest, OfEqualTextsTheOneAtTheSamePlaceStaysSelected) {
  label("Goal", 5).setSelection(0, 2);
  GoalOutcomeDTO first;
  first.note = "first";
  person.outcomes.insert(person.outcomes.begin(), {{"g", "Goal"}, first});
  show();
  EXPECT_TRUE(label("Goal", 6).hasSelectedText()) << "below note 5";
  person.outcomes.erase(person.outcomes.begin(), person.outcomes.begin() + 4);
  show();
  EXPECT_TRUE(label("Goal", 2).hasSelectedText());
  EXPECT_EQ(selected(), QStringList("Go"));
}

TEST_F(LongSidePaneTest, NoOtherTextIsSelectedInPlaceOfARemovedText) {
  label("note 7").setSelection(0, 4);
  label("note 7").setFocus();
  person.outcomes[7].outcome.note = "note 7, changed";
  show();
  EXPECT_EQ(selected(), QStringList());
  EXPECT_EQ(pane.focusWidget(), &close()) << "the focus stays in the pane";
  label("note 8").setSelection(0, 4);
  person.personRef = "p2";
  show();
  EXPECT_EQ(selected(), QStringList()) << "another person";
}

TEST_F(LongSidePaneTest, AKeyScrollsAButtonInBeforeItPressesIt) {
  QScrollBar& bar = *pane.verticalScrollBar();
  QAbstractButton* const buttons[] = {&close(), &more("the text"), &more("the outcomes")};
  for (QAbstractButton* button : buttons) {
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Select}) {
      button->setFocus();
      bar.setValue(button == &close() ? bar.maximum() : 0);
      ASSERT_FALSE(isSeen(*button));
      bool pressed = false;
      const auto noting = QObject::connect(button, &QAbstractButton::pressed, &pane, [&] {
        pressed = true;
        EXPECT_TRUE(isSeen(*button)) << button->text().toStdString();
      });
      QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
      QApplication::sendEvent(button, &press);
      EXPECT_TRUE(isSeen(*button)) << "before the key is let go";
      QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier);
      QApplication::sendEvent(button, &release);
      EXPECT_TRUE(pressed);
      QObject::disconnect(noting);
      settle();
    }
  }
}

TEST_F(LongSidePaneTest, AKeyThatPressesNothingScrollsNoButtonIn) {
  QScrollBar& bar = *pane.verticalScrollBar();
  close().setFocus();
  bar.setValue(bar.maximum());
  for (const Qt::Key key : {Qt::Key_Shift, Qt::Key_Control, Qt::Key_Escape, Qt::Key_A}) {
    pressKey(close(), key);
  }
  EXPECT_EQ(bar.value(), bar.maximum());
  close().setFocus();
  bar.setValue(1);
  ASSERT_TRUE(isSeen(close()));
  pressKey(close(), Qt::Key_Space);
  EXPECT_EQ(bar.value(), 1) << "a button that is seen does not move";
}

}  // namespace
}  // namespace vemra::desk
