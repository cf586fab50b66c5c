// Typing the beginning of a title in the list of goals.

#include "apps/desk/window/GoalRow.hpp"
#include "tests/apps/desk/window/ShownGoalList.hpp"

#include <string>

#include <QApplication>
#include <QKeyEvent>
#include <gtest/gtest.h>

namespace vemra::desk {
namespace {

class GoalListTypingTest : public ShownGoalList {
 protected:
  GoalListTypingTest() {
    // One go of typing, on a slow machine too.
    QApplication::setKeyboardInputInterval(600'000);
    list.setGoals({{"a", "Sail the Baltic"},
                   {"b", "Find a lead"},
                   {"c", "  See the curator"},
                   {"d", "Sing"},
                   {"e", "\u00c4rzte finden"},
                   {"f", "See you"}},
                  "b");
    list.focusRow(1);
  }
  ~GoalListTypingTest() override { QApplication::setKeyboardInputInterval(usual); }

  /// Types into the row with the focus. Returns the goal that was chosen last.
  std::string type(const QString& text, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    for (const QChar letter : text) {
      const int key = letter == u' ' ? Qt::Key_Space : Qt::Key_A;
      QKeyEvent event(QEvent::KeyPress, key, modifiers, QString(letter));
      QApplication::sendEvent(list.row(*list.openIndex()), &event);
    }
    return chosen.empty() ? "" : chosen.back();
  }
  static void pause() { QApplication::setKeyboardInputInterval(0); }

  const int usual = QApplication::keyboardInputInterval();
};

TEST_F(GoalListTypingTest, ALetterOpensTheNextGoalThatBeginsWithIt) {
  EXPECT_EQ(type("s"), "c");
  EXPECT_TRUE(list.row(2)->hasFocus());
  EXPECT_EQ(type("s"), "d");
  EXPECT_EQ(type("s"), "f");
  EXPECT_EQ(type("s"), "a");
}

TEST_F(GoalListTypingTest, LettersTypedInOneGoAreOneBeginning) {
  EXPECT_EQ(type("SI"), "d");
}

TEST_F(GoalListTypingTest, ABlankBelongsToATypedBeginning) {
  EXPECT_EQ(type("see y"), "f");
}

TEST_F(GoalListTypingTest, AfterAPauseANewBeginningStarts) {
  EXPECT_EQ(type("s"), "c");
  pause();
  EXPECT_EQ(type("f"), "b");
}

TEST_F(GoalListTypingTest, TheFormOfALetterDoesNotCount) {
  EXPECT_EQ(type("a\u0308"), "e");
}

TEST_F(GoalListTypingTest, AnUnknownBeginningAndACommandChooseNothing) {
  EXPECT_EQ(type("x"), "");
  pause();
  EXPECT_EQ(type("s", Qt::ControlModifier), "");
}

}  // namespace
}  // namespace vemra::desk
