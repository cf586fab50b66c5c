// The keys of the commands, sent to the active window as the platform does.

#include "VemraQt/ViewWidget.hpp"
#include "apps/desk/window/MenuBar.hpp"
#include "tests/VemraQt/ActiveWindow.hpp"
#include "tests/apps/desk/window/OpenDesk.hpp"

#include <array>

#include <QClipboard>
#include <QDialog>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QTest>
#include <QToolButton>
#include <QWindow>

namespace vemra::desk {
namespace {

/// The place of the focus when a key is pressed.
enum class FocusPlace { goals, note, details };

class KeysTest : public OpenDesk, public ::testing::WithParamInterface<FocusPlace> {
 protected:
  KeysTest() {
    GoalStore::open(file).import({goal("a", "First"), goal("b", "Second"), goal("c", "Third")});
    open("b");
    press("vemra.goal.person.p1.outcome.start");
    pressTitled("Ada");
    wait<QToolButton>("desk.side.close");
    qttest::activate(*window);
    focus();
  }
  ~KeysTest() override {
    QGuiApplication::clipboard()->clear();
    QApplication::setFont(usual);
  }

  void focus() {
    switch (GetParam()) {
      case FocusPlace::goals:
        wait<QAbstractButton>("desk.goal.b")->setFocus();
        break;
      case FocusPlace::note:
        note().setFocus();
        break;
      case FocusPlace::details:
        find<QToolButton>("desk.side.close")->setFocus();
        break;
    }
  }
  QLineEdit& note() const { return *wait<QLineEdit>("vemra.goal.person.p1.outcome.note"); }
  void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const {
    QTest::keyClick(window->windowHandle(), key, modifiers);
  }
  void control(Qt::Key letter) const { key(letter, Qt::ControlModifier); }
  bool isOpen(const std::string& goalID) const {
    return becomes([&] {
      auto* row = find<QAbstractButton>("desk.goal." + goalID);
      return row != nullptr && row->isChecked();
    });
  }
  /// Which of the three panes has the focus.
  std::string paneWithFocus() const {
    const QWidget* focus = window->focusWidget();
    if (find<QWidget>("desk.goals")->isAncestorOf(focus)) return "goals";
    if (find<QWidget>("desk.side")->isAncestorOf(focus)) return "details";
    return &window->screen() == focus || window->screen().isAncestorOf(focus) ? "page" : "none";
  }
  double textSize() const { return QApplication::font().pointSizeF(); }

  const QFont usual = QApplication::font();
};

TEST_P(KeysTest, FilesAreOpenedByKey) {
  control(Qt::Key_O);
  EXPECT_NE(wait<QFileDialog>("desk.chooseStore"), nullptr);
}

TEST_P(KeysTest, TheWindowAsksAboutTheDraftBeforeAKeyClosesIt) {
  for (const Qt::Key letter : {Qt::Key_W, Qt::Key_Q}) {
    qttest::activate(*window);
    control(letter);
    auto* question = wait<QMessageBox>("desk.question");
    ASSERT_NE(question, nullptr) << letter;
    question->button(QMessageBox::Cancel)->click();
    EXPECT_TRUE(becomes([&] { return find<QMessageBox>("desk.question") == nullptr; }));
    focus();
  }
  EXPECT_TRUE(window->isVisible());
}

TEST_P(KeysTest, FindingIsOpenedAndGoesOnByKey) {
  control(Qt::Key_F);
  auto* field = wait<QLineEdit>("desk.find.text");
  ASSERT_NE(field, nullptr);
  EXPECT_TRUE(field->hasFocus());
  key(Qt::Key_A);
  const auto shows = [&](const QString& result) {
    return becomes([&] { return find<QLabel>("desk.find.result")->text() == result; });
  };
  EXPECT_TRUE(shows("1 of 1"));
  focus();
  key(Qt::Key_F3);
  key(Qt::Key_F3, Qt::ShiftModifier);
  EXPECT_TRUE(shows("1 of 1"));
  key(Qt::Key_Escape);
  EXPECT_EQ(find<QWidget>("desk.find"), nullptr);
  key(Qt::Key_F3);
  EXPECT_NE(find<QWidget>("desk.find"), nullptr) << "F3 opens the bar where it is closed";
}

TEST_P(KeysTest, TheTextGrowsAndShrinksByKey) {
  const double size = textSize();
  control(Qt::Key_Plus);
  const double larger = textSize();
  EXPECT_GT(larger, size);
  control(Qt::Key_Equal);
  EXPECT_GT(textSize(), larger);
  control(Qt::Key_Minus);
  EXPECT_EQ(textSize(), larger);
  control(Qt::Key_0);
  EXPECT_EQ(textSize(), size);
}

TEST_P(KeysTest, TheGoalsArePassedByKey) {
  control(Qt::Key_PageDown);
  EXPECT_TRUE(isOpen("c"));
  control(Qt::Key_PageUp);
  EXPECT_TRUE(isOpen("b"));
  control(Qt::Key_PageUp);
  EXPECT_TRUE(isOpen("a"));
}

TEST_P(KeysTest, HelpIsOpenedByKey) {
  key(Qt::Key_F1);
  EXPECT_NE(wait<QDialog>("desk.keyboard"), nullptr);
}

TEST_P(KeysTest, ThePanesAreVisitedByKeyAndBack) {
  const std::array<std::string, 3> panes{"goals", "page", "details"};
  const auto now = static_cast<std::size_t>(GetParam());
  ASSERT_EQ(paneWithFocus(), panes.at(now));
  key(Qt::Key_F6);
  EXPECT_EQ(paneWithFocus(), panes.at((now + 1) % 3));
  key(Qt::Key_F6, Qt::ShiftModifier);
  EXPECT_EQ(paneWithFocus(), panes.at(now));
}

TEST_P(KeysTest, F10GoesToTheMenus) {
  key(Qt::Key_F10);
  auto* menus = window->findChild<MenuBar*>();
  EXPECT_EQ(menus->activeAction(), menus->actions().constFirst());
  if (QWidget* menu = QApplication::activePopupWidget()) menu->close();
}

TEST_P(KeysTest, TheNoteKeepsTheKeysOfATextAndNoOtherPlaceChangesIt) {
  QLineEdit& text = note();
  text.setText("abc");
  text.setSelection(1, 1);
  QGuiApplication::clipboard()->setText("xyz");
  const bool isNote = GetParam() == FocusPlace::note;
  control(Qt::Key_C);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), isNote ? "b" : "xyz");
  control(Qt::Key_X);
  EXPECT_EQ(text.text(), isNote ? "ac" : "abc");
  control(Qt::Key_Z);
  EXPECT_EQ(text.text(), "abc");
  if (!isNote) {
    control(Qt::Key_V);
    EXPECT_EQ(text.text(), "abc");
    return;
  }
  key(Qt::Key_Home);
  EXPECT_EQ(text.cursorPosition(), 0);
  control(Qt::Key_V);
  EXPECT_EQ(text.text(), "babc");
  key(Qt::Key_End);
  EXPECT_EQ(text.cursorPosition(), 4);
}

INSTANTIATE_TEST_SUITE_P(Places, KeysTest,
                         ::testing::Values(FocusPlace::goals, FocusPlace::note,
                                           FocusPlace::details),
                         [](const auto& place) {
                           switch (place.param) {
                             case FocusPlace::goals:
                               return "FromTheGoals";
                             case FocusPlace::note:
                               return "FromANote";
                             case FocusPlace::details:
                               return "FromTheDetails";
                           }
                           return "";
                         });

}  // namespace
}  // namespace vemra::desk
