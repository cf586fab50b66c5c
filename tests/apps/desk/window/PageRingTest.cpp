// The ring around a page that has the focus itself.

#include "apps/desk/window/MenuBar.hpp"
#include "tests/VemraQt/ActiveWindow.hpp"
#include "tests/apps/desk/window/Keys.hpp"
#include "tests/apps/desk/window/OpenDesk.hpp"

#include <QImage>
#include <QMessageBox>
#include <QMouseEvent>

namespace vemra::desk {
namespace {

class PageRingTest : public OpenDesk {
 protected:
  PageRingTest() {
    GoalStore::open(file).import({goal("a", "First")});
    open("a");
    wait<QAbstractButton>("vemra.goal.person.p1.outcome.start");
    qttest::activate(*window);
  }

  bool hasRing() const { return find<QWidget>("desk.page.ring") != nullptr; }
  void pressF6() const { Q_EMIT window->findChild<MenuBar*>()->nextPaneWanted(); }
  void click() const {
    QWidget& page = *window->screen().viewport();
    const QPointF at(3, page.height() - 3);
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
      QMouseEvent event(type, at, page.mapToGlobal(at), Qt::LeftButton, Qt::LeftButton,
                        Qt::NoModifier);
      QApplication::sendEvent(&page, &event);
    }
  }
};

TEST_F(PageRingTest, F6IntoThePageShowsARingAndLeavingHidesIt) {
  window->findChild<QWidget*>("desk.goal.a")->setFocus();
  ASSERT_FALSE(hasRing());
  const QImage before = window->screen().grab().toImage();
  pressF6();
  ASSERT_EQ(window->focusWidget(), &window->screen());
  EXPECT_TRUE(hasRing());
  const QImage after = window->screen().grab().toImage();
  const int middle = after.height() / 2;
  EXPECT_NE(after.pixel(1, middle), before.pixel(1, middle));
  EXPECT_NE(after.pixel(after.width() - 2, middle), before.pixel(before.width() - 2, middle));
  EXPECT_EQ(after.pixel(10, after.height() - 10), before.pixel(10, after.height() - 10));
  pressF6();
  EXPECT_FALSE(hasRing());
}

TEST_F(PageRingTest, AControlInThePageHasARingOfItsOwn) {
  window->findChild<QWidget*>("desk.goal.a")->setFocus();
  pressF6();
  ASSERT_TRUE(hasRing());
  find<QAbstractButton>("vemra.goal.person.p1.outcome.start")->setFocus(Qt::TabFocusReason);
  EXPECT_FALSE(hasRing());
}

TEST_F(PageRingTest, AClickBesideTheControlsShowsNone) {
  window->findChild<QWidget*>("desk.goal.a")->setFocus();
  click();
  window->screen().setFocus(Qt::MouseFocusReason);
  EXPECT_FALSE(hasRing());
}

TEST_F(PageRingTest, AMovedFocusShowsARingOnlyAfterAKey) {
  QWidget& row = *window->findChild<QWidget*>("desk.goal.a");
  row.setFocus();
  pressKey(row, Qt::Key_F1);
  window->screen().setFocus(Qt::OtherFocusReason);
  EXPECT_TRUE(hasRing());
  row.setFocus();
  click();
  row.setFocus();
  window->screen().setFocus(Qt::OtherFocusReason);
  EXPECT_FALSE(hasRing());
}

TEST_F(PageRingTest, TheRingIsStillThereAfterAnotherWindowWasActive) {
  window->findChild<QWidget*>("desk.goal.a")->setFocus();
  pressF6();
  { const qttest::OtherWindow other; }
  qttest::activate(*window);
  EXPECT_TRUE(hasRing());
}

TEST_F(PageRingTest, TheRingEndsWhenAnAnswerMovesTheFocusToAnotherPage) {
  GoalStore::open(file).import({goal("b", "Second")});
  press("vemra.goal.person.p1.outcome.start");
  wait<QWidget>("vemra.goal.person.p1.outcome.note");
  press("desk.goal.b");
  const QWidget* first = &window->screen();
  ASSERT_TRUE(becomes([&] { return &window->screen() != first; }));
  wait<QWidget>("desk.goal.b")->setFocus();
  pressF6();
  ASSERT_EQ(window->focusWidget(), &window->screen());
  ASSERT_TRUE(hasRing());
  window->close();
  auto* question = wait<QMessageBox>("desk.question");
  ASSERT_NE(question, nullptr);
  question->button(QMessageBox::Cancel)->click();
  ASSERT_TRUE(becomes([&] { return &window->screen() == first; }));
  auto* note = wait<QWidget>("vemra.goal.person.p1.outcome.note");
  EXPECT_TRUE(becomes([&] { return window->focusWidget() == note; }));
  EXPECT_FALSE(hasRing());
  press("desk.goal.b");
  ASSERT_TRUE(becomes([&] { return &window->screen() != first; }));
  EXPECT_FALSE(window->screen().hasFocus());
  EXPECT_FALSE(hasRing()) << "the ring of the second page stays hidden";
}

TEST_F(PageRingTest, AFocusThatMovesWhileAnotherWindowIsActiveShowsOrHidesTheRing) {
  QWidget& row = *window->findChild<QWidget*>("desk.goal.a");
  row.setFocus();
  pressKey(row, Qt::Key_F1);
  {
    const qttest::OtherWindow other;
    window->screen().setFocus(Qt::OtherFocusReason);
  }
  qttest::activate(*window);
  EXPECT_TRUE(hasRing());
  {
    const qttest::OtherWindow other;
    row.setFocus();
  }
  qttest::activate(*window);
  EXPECT_FALSE(hasRing());
}

}  // namespace
}  // namespace vemra::desk
