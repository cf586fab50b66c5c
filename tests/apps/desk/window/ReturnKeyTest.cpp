// Return presses the buttons of the window, as it presses those of the page.

#include "apps/desk/window/FindBar.hpp"
#include "apps/desk/window/FocusRing.hpp"
#include "apps/desk/window/GoalsBar.hpp"
#include "apps/desk/window/Welcome.hpp"
#include "tests/apps/desk/window/Keys.hpp"

#include <QAbstractButton>
#include <gtest/gtest.h>

namespace vemra::desk {
namespace {

/// Presses Return on each button with a title, and expects one click.
void expectReturnPresses(const QWidget& parent, int buttons) {
  int found = 0;
  for (auto* button : parent.findChildren<QAbstractButton*>()) {
    if (button->text().isEmpty()) continue;  // Qt's own, which clears a field
    ++found;
    int clicks = 0;
    QObject::connect(button, &QAbstractButton::clicked, [&clicks] { ++clicks; });
    pressKey(*button, Qt::Key_Return);
    EXPECT_EQ(clicks, 1) << button->text().toStdString();
  }
  EXPECT_EQ(found, buttons);
}

TEST(ReturnKeyTest, PressesTheButtonsOfAnEmptyStore) {
  expectReturnPresses(Welcome(), 2);
}

TEST(ReturnKeyTest, PressesTheButtonsOfTheFindBar) {
  FindBar bar;
  bar.setHasHit(true);
  expectReturnPresses(bar, 4);
}

TEST(ReturnKeyTest, PressesTheWayToTheGoals) {
  expectReturnPresses(GoalsBar(), 1);
}

TEST(ReturnKeyTest, PressesAQuietButtonOnceWhileItIsHeldDown) {
  QuietButton button("Close");
  int clicks = 0;
  QObject::connect(&button, &QAbstractButton::clicked, [&clicks] { ++clicks; });
  pressKey(button, Qt::Key_Enter);
  QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
  QApplication::sendEvent(&button, &repeated);
  EXPECT_EQ(clicks, 1);
}

}  // namespace
}  // namespace vemra::desk
