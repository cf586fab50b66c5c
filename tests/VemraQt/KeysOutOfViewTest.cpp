// A key that a control out of view handles scrolls the control into view before it acts.

#include "VemraQt/widgets/ChoiceBox.hpp"
#include "VemraQt/widgets/LineField.hpp"
#include "VemraQt/widgets/PushButton.hpp"
#include "tests/VemraPlatform/ui/Sample.hpp"
#include "tests/VemraQt/ShownPage.hpp"

#include <string>
#include <vector>

#include <QContextMenuEvent>
#include <QInputMethodEvent>
#include <QMenu>
#include <QScrollBar>
#include <QTest>
#include <gmock/gmock.h>

using namespace vemra;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ui::ButtonStyle;

namespace {

/// A control in the middle of a long page, or in a row of a long list.
class KeysOutOfView : public qttest::ShownPage {
 protected:
  KeysOutOfView() { note = "note"; }
  ~KeysOutOfView() override {
    if (QWidget* popup = QApplication::activePopupWidget()) popup->close();
  }

  /// Shows the control among lines, gives it the focus and scrolls it away.
  QWidget& scrolledAway(const ui::View& control) {
    widget.setRoot(ui::sample::list(ui::sample::numbered(300), [=](const ui::sample::Line& line) {
      return line.id == "row3" ? control : ui::View(ui::Text(ui::verbatim(line.id)));
    }));
    widget.verticalScrollBar()->setValue(0);
    QWidget& shown = *widget.viewport()->findChild<QWidget*>("control");
    shown.setFocus();
    scrollAway();
    return shown;
  }
  void scrollAway() {
    widget.verticalScrollBar()->setValue(widget.verticalScrollBar()->maximum());
    ASSERT_FALSE(isSeen());
    done.clear();
  }
  bool isSeen() const {
    auto* shown = widget.viewport()->findChild<QWidget*>("control");
    if (!shown) return false;
    const QRect frame = shown->geometry();  // a plain button reaches a little past the side
    return frame.top() >= 0 && frame.bottom() < widget.viewport()->height();
  }
  void act(const std::string& what) override {
    done.push_back(what);
    if (!isSeen()) done.push_back("unseen");
  }
  static QMenu* menu() { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }

  std::vector<std::string> done;
};

}  // namespace

TEST_F(KeysOutOfView, ReturnEnterAndSpacePressAButtonThatIsScrolledIn) {
  for (const auto style : {ButtonStyle::automatic, ButtonStyle::plain}) {
    QWidget& shown = scrolledAway(button(style));
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
      scrollAway();
      QTest::keyPress(&shown, key);
      EXPECT_TRUE(isSeen()) << "before the key is let go: " << key;
      QTest::keyRelease(&shown, key);
      EXPECT_THAT(done, ElementsAre("press")) << key;
    }
  }
}

TEST_F(KeysOutOfView, KeysOfAPickerScrollItInBeforeTheyChoose) {
  QWidget& shown = scrolledAway(picker());
  const std::vector<std::pair<Qt::Key, std::string>> steps = {{Qt::Key_Down, "choose 3"},
                                                              {Qt::Key_Up, "choose 2"},
                                                              {Qt::Key_G, "choose 4"},
                                                              {Qt::Key_Home, "choose 0"},
                                                              {Qt::Key_End, "choose 4"}};
  for (const auto& [key, choice] : steps) {
    scrollAway();
    QTest::keyClick(&shown, key);
    EXPECT_THAT(done, ElementsAre(choice)) << key;
  }
}

TEST_F(KeysOutOfView, TheMenuOfAPickerOpensBelowItsButton) {
  QWidget& shown = scrolledAway(picker());
  for (const auto key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter, Qt::Key_F4}) {
    scrollAway();
    QTest::keyClick(&shown, key);
    EXPECT_TRUE(isSeen()) << key;
    ASSERT_TRUE(menu()) << key;
    EXPECT_EQ(menu()->pos(), shown.mapToGlobal(QPoint(0, shown.height()))) << key;
    menu()->close();
  }
  scrollAway();
  QTest::keyClick(&shown, Qt::Key_Down, Qt::AltModifier);
  EXPECT_TRUE(isSeen());
  EXPECT_TRUE(menu());
}

TEST_F(KeysOutOfView, TypingEditingAndArrowsScrollANoteIn) {
  auto& shown = dynamic_cast<QLineEdit&>(scrolledAway(field()));
  QTest::keyClick(&shown, Qt::Key_X);
  EXPECT_THAT(done, ElementsAre("write notex"));
  scrollAway();
  QTest::keyClick(&shown, Qt::Key_Backspace);
  EXPECT_THAT(done, ElementsAre("write note"));
  for (const auto key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Home, Qt::Key_End, Qt::Key_Return}) {
    scrollAway();
    QTest::keyClick(&shown, key);
    EXPECT_TRUE(isSeen()) << key;
  }
  scrollAway();
  QInputMethodEvent composing("pre", {});
  QApplication::sendEvent(&shown, &composing);
  EXPECT_TRUE(isSeen()) << "text that an input method composes";
  scrollAway();
  QInputMethodEvent commit;
  commit.setCommitString("y");
  QApplication::sendEvent(&shown, &commit);
  EXPECT_THAT(done, ElementsAre("write notey"));
}

TEST_F(KeysOutOfView, TheMenuKeyOpensTheMenuOfANoteAtItsCursor) {
  QWidget& shown = scrolledAway(field());
  QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(1, 1), QPoint(-5000, -5000));
  QApplication::sendEvent(&shown, &event);
  EXPECT_TRUE(isSeen());
  ASSERT_TRUE(menu());
  EXPECT_TRUE(QRect(shown.mapToGlobal(QPoint()), shown.size()).contains(menu()->pos()));
}

TEST_F(KeysOutOfView, AKeyThatDoesNothingInAControlScrollsNothingIn) {
  const std::vector<Qt::Key> idle = {Qt::Key_Shift, Qt::Key_Control, Qt::Key_Alt, Qt::Key_Escape};
  for (const ui::View& control : {button(ButtonStyle::plain), picker(), field()}) {
    QWidget& shown = scrolledAway(control);
    for (const auto key : idle) QTest::keyClick(&shown, key);
    EXPECT_FALSE(isSeen());
    QTest::keyClick(&shown, Qt::Key_PageUp);
    EXPECT_FALSE(isSeen()) << "by a page";
    EXPECT_THAT(done, IsEmpty());
    widget.setRoot(ui::View());
  }
}

TEST_F(KeysOutOfView, AControlInViewDoesNotMove) {
  QWidget& shown = scrolledAway(picker());
  QTest::keyClick(&shown, Qt::Key_Down);
  ASSERT_TRUE(isSeen());
  widget.verticalScrollBar()->setValue(widget.verticalScrollBar()->value() + 10);
  ASSERT_TRUE(isSeen());
  const int before = widget.verticalScrollBar()->value();
  QTest::keyClick(&shown, Qt::Key_Up);
  EXPECT_EQ(widget.verticalScrollBar()->value(), before);
}

TEST_F(KeysOutOfView, AControlTallerThanThePageStaysWhereItIs) {
  widget.resize(300, 60);
  std::string title;
  for (int i = 0; i < 60; ++i) title += "word ";
  const auto tall = ui::Button(ui::verbatim(title), [] {}).accessibilityIdentifier("control");
  QWidget& shown = scrolledAway(tall);
  QTest::keyClick(&shown, Qt::Key_Return);
  const int seen = widget.verticalScrollBar()->value();
  EXPECT_LT(seen, widget.verticalScrollBar()->maximum());
  QTest::keyClick(&shown, Qt::Key_Return);
  EXPECT_EQ(widget.verticalScrollBar()->value(), seen);
}

TEST_F(KeysOutOfView, ControlHomeAndEndScrollThePageFromAPicker) {
  QWidget& shown = scrolledAway(picker());
  QTest::keyClick(&shown, Qt::Key_Home, Qt::ControlModifier);
  EXPECT_EQ(widget.verticalScrollBar()->value(), 0);
  QTest::keyClick(&shown, Qt::Key_End, Qt::ControlModifier);
  EXPECT_EQ(widget.verticalScrollBar()->value(), widget.verticalScrollBar()->maximum());
  EXPECT_THAT(done, IsEmpty());
}
