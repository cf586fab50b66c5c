// The button's widget: the keys that press it, and the events that end a press.

#include "VemraQt/widgets/PushButton.hpp"
#include "tests/VemraPlatform/ui/Sample.hpp"
#include "tests/VemraQt/ShownPage.hpp"

#include <stdexcept>
#include <string>

#include <QApplication>
#include <QEnterEvent>
#include <QTest>
#include <gtest/gtest.h>

using namespace vemra;

namespace {

class PushButtonTest : public qttest::ShownWidget {
 protected:
  ui::View button(const std::string& title, ui::ButtonStyle style = ui::ButtonStyle::automatic) {
    return ui::Button(ui::verbatim(title), [this, title] { pressed += title; }).buttonStyle(style);
  }
  qt::PushButton& shown() const {
    for (auto* found : widget.viewport()->findChildren<qt::PushButton*>()) {
      if (found->node()) return *found;
    }
    throw std::logic_error("there is no button");
  }

  std::string pressed;
};

}  // namespace

TEST_F(PushButtonTest, ReturnAndEnterPressOnceWithoutRepeating) {
  widget.setRoot(button("a"));
  QTest::keyClick(&shown(), Qt::Key_Return);
  QTest::keyClick(&shown(), Qt::Key_Enter);
  EXPECT_EQ(pressed, "aa");
  for (const auto key : {Qt::Key_Return, Qt::Key_Enter}) {
    QKeyEvent again(QEvent::KeyPress, key, Qt::NoModifier, QString(), true);
    QApplication::sendEvent(&shown(), &again);
    EXPECT_TRUE(again.isAccepted()) << "the event does not reach the window's default button";
  }
  EXPECT_EQ(pressed, "aa");
}

TEST_F(PushButtonTest, SpacePressesWhenItIsReleased) {
  widget.setRoot(button("a"));
  shown().setFocus();
  QTest::keyPress(&shown(), Qt::Key_Space);
  EXPECT_EQ(pressed, "");
  EXPECT_TRUE(shown().isDown());
  QTest::keyRelease(&shown(), Qt::Key_Space);
  EXPECT_EQ(pressed, "a");
}

// The next element of the kind gets the widget while the key is still down.
TEST_F(PushButtonTest, SpaceHeldWhileTheElementIsRemovedDoesNotPressTheNextElement) {
  widget.setRoot(ui::Group({button("a").id("a")}));
  qt::PushButton& first = shown();
  first.setFocus();
  QTest::keyPress(&first, Qt::Key_Space);
  widget.setRoot(ui::Group({button("b").id("b")}));
  EXPECT_FALSE(first.isDown());
  QTest::keyRelease(&first, Qt::Key_Space);
  QTest::keyRelease(&shown(), Qt::Key_Space);
  EXPECT_EQ(pressed, "");
  QTest::keyClick(&shown(), Qt::Key_Space);
  EXPECT_EQ(pressed, "b");
}

TEST_F(PushButtonTest, OtherKeysGoToThePage) {
  widget.setRoot(button("a"));
  for (const auto key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Select, Qt::Key_A, Qt::Key_Escape}) {
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
    QApplication::sendEvent(&shown(), &event);
    EXPECT_FALSE(event.isAccepted()) << key;
  }
  EXPECT_EQ(pressed, "");
}

TEST_F(PushButtonTest, APlainButtonHasThePointerOfALink) {
  widget.setRoot(button("a & b", ui::ButtonStyle::plain));
  EXPECT_EQ(shown().cursor().shape(), Qt::PointingHandCursor);
  EXPECT_EQ(shown().text(), "a && b") << "no mnemonic";
  EXPECT_EQ(shown().focusPolicy(), Qt::ClickFocus);
  EXPECT_FALSE(shown().autoDefault());
  widget.setRoot(ui::View());
  widget.setRoot(button("c"));
  EXPECT_EQ(shown().cursor().shape(), Qt::ArrowCursor);
}

TEST_F(PushButtonTest, APlainButtonIsUnderlinedUnderTheMouse) {
  widget.setRoot(button("link", ui::ButtonStyle::plain));
  const QImage before = shown().grab().toImage();
  QEnterEvent enter(QPointF(5, 5), QPointF(5, 5), QPointF(5, 5));
  shown().setAttribute(Qt::WA_UnderMouse, true);
  QApplication::sendEvent(&shown(), &enter);
  EXPECT_NE(shown().grab().toImage(), before);
  shown().setAttribute(Qt::WA_UnderMouse, false);
  EXPECT_EQ(shown().grab().toImage(), before);
  shown().setDown(true);
  EXPECT_NE(shown().grab().toImage(), before) << "also while it is down";
}

TEST_F(PushButtonTest, TheLineUnderAPlainButtonLeavesFourPixelsAtEachEdge) {
  widget.setRoot(button("link", ui::ButtonStyle::plain));
  const QImage before = shown().grab().toImage();
  shown().setAttribute(Qt::WA_UnderMouse, true);
  const QImage under = shown().grab().toImage();
  QRect line;
  for (int y = 0; y < under.height(); ++y) {
    for (int x = 0; x < under.width(); ++x) {
      if (under.pixel(x, y) != before.pixel(x, y)) line |= QRect(x, y, 1, 1);
    }
  }
  EXPECT_EQ(line.left(), 4);
  EXPECT_NEAR(under.width() - 1 - line.right(), 4, 1) << "the text's own width is in fractions";
}

TEST_F(PushButtonTest, ADisabledButtonIsFainterAndNotUnderlined) {
  widget.setRoot(button("link", ui::ButtonStyle::plain));
  const QImage enabled = shown().grab().toImage();
  widget.setRoot(button("link", ui::ButtonStyle::plain).disabled(true));
  EXPECT_FALSE(shown().isEnabled());
  const QImage disabled = shown().grab().toImage();
  EXPECT_NE(disabled, enabled);
  shown().setAttribute(Qt::WA_UnderMouse, true);
  EXPECT_EQ(shown().grab().toImage(), disabled);
  shown().click();
  EXPECT_EQ(pressed, "");
  widget.setRoot(button("link", ui::ButtonStyle::plain));
  EXPECT_TRUE(shown().isEnabled());
}

TEST_F(PushButtonTest, ARemovedElementDoesNotLeaveItsHoverToTheNext) {
  widget.setRoot(ui::Group({button("a", ui::ButtonStyle::plain).id("a")}));
  qt::PushButton& first = shown();
  first.setAttribute(Qt::WA_UnderMouse, true);
  widget.setRoot(ui::View());
  EXPECT_FALSE(first.underMouse());
  EXPECT_FALSE(first.node());
  EXPECT_TRUE(first.isHidden());
}
